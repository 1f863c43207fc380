// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace quorvale {

/// Asks the desktop's settings whether the user wants dark windows, which font in them and how
/// large its texts, and whether anything is to move, and listens for changes: the "color-scheme" of
/// "org.freedesktop.appearance", GNOME's "font-name", "text-scaling-factor" and "enable-animations"
/// of "org.gnome.desktop.interface", and KDE's "AnimationDurationFactor" of
/// "org.kde.kdeglobals.KDE", in the settings portal of the XDG desktop portals. Where there is no
/// such portal, nothing is said until there is one. Main thread, which never waits for it.
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

    /// Whether the user wants what changes to move. Said again and again.
    void animates(bool animates);

    void answered();

private Q_SLOTS:
    void readSetting(const QString &group, const QString &key, const QDBusVariant &value);
    void ask();

private:
    bool m_hasAnswered = true;
    bool m_gnomeAnimates = true;
    bool m_kdeAnimates = true;
};

} // namespace quorvale
