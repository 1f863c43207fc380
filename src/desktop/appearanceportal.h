// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusVariant>
#include <QLatin1StringView>
#include <QObject>
#include <QSet>

#include <optional>

namespace quorvale {

/// Asks the desktop's settings how the user wants windows to look, and listens for changes, in the
/// settings portal of the XDG desktop portals:
///
/// - dark or light: "color-scheme" of "org.freedesktop.appearance";
/// - the font and the size of texts: GNOME's "font-name" and "text-scaling-factor" of
///   "org.gnome.desktop.interface";
/// - more contrast: "contrast" of "org.freedesktop.appearance", and "high-contrast" of
///   "org.gnome.desktop.a11y.interface" as older GNOMEs say it;
/// - that nothing moves: "reduced-motion" of "org.freedesktop.appearance", GNOME's
///   "enable-animations" of "org.gnome.desktop.interface", and KDE's "AnimationDurationFactor" of
///   "org.kde.kdeglobals.KDE".
///
/// Where there is no such portal, nothing is said until there is one. Main thread, which never
/// waits for it.
class AppearancePortal : public QObject
{
    Q_OBJECT

public:
    explicit AppearancePortal(QObject *parent = nullptr);

    /// Whether what was asked at first is answered, or there is nobody to ask.
    bool hasAnswered() const { return m_hasAnswered; }

Q_SIGNALS:
    /// Nothing when the user wants neither dark windows nor light ones.
    void prefersDark(std::optional<bool> preference);

    /// As GNOME describes it; see describedFont().
    void prefersFont(const QString &description);

    /// How much larger than the font says the user wants texts, from 0.5 to 3.
    void scalesTexts(double factor);

    /// Whether the user wants everything to stand out more than usual.
    void prefersContrast(bool isWished);

    /// Whether the user wants nothing to move by itself.
    void prefersStillness(bool isWished);

    void answered();

private Q_SLOTS:
    void ask();
    void take(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void read(const QString &group, const QString &key, const QVariant &value);
    void tellWishes();

    bool m_hasAnswered = true;
    QSet<QLatin1StringView> m_wishes; // the keys that say one
};

} // namespace quorvale
