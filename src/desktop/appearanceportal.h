// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace quorvale {

/// Asks the desktop's settings whether the user wants dark windows and which font in them, and
/// listens for changes: the "color-scheme" of "org.freedesktop.appearance" and GNOME's "font-name"
/// of "org.gnome.desktop.interface" in the settings portal of the XDG desktop portals. Where there
/// is no such portal, nothing is said until there is one. Main thread, which never waits for it.
class AppearancePortal : public QObject
{
    Q_OBJECT

public:
    explicit AppearancePortal(QObject *parent = nullptr);

Q_SIGNALS:
    /// Nothing when the user wants neither dark windows nor light ones.
    void prefersDark(std::optional<bool> preference);

    /// As GNOME describes it; see describedFont().
    void prefersFont(const QString &description);

private Q_SLOTS:
    void readSetting(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void askForAll();
    void ask(const QString &group, const QString &key);
};

} // namespace quorvale
