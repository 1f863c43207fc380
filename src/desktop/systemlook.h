// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QObject>
#include <QPalette>

#include <optional>

namespace quorvale {

/// How the desktop wants its programs to look, now and whenever that changes. Where the palette
/// that the desktop has given to Qt is light although the user wants dark windows, or the other way
/// round, the application's palette is replaced by one that fits, so that what Qt draws looks as
/// the program does. One for the process. Main thread.
class SystemLook : public QObject
{
    Q_OBJECT
    /// Whether the user wants dark windows: what the desktop's settings say and, where they say
    /// nothing, whether the palette is dark.
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    /// The application's palette's colour of windows.
    Q_PROPERTY(QColor window READ window NOTIFY changed)
    /// The family of the interface font whose characters are all equally wide.
    Q_PROPERTY(QString fixedFamily READ fixedFamily CONSTANT)

public:
    explicit SystemLook(QObject *parent = nullptr);

    bool isDark() const { return m_prefersDark.value_or(isWindowDark()); }
    QColor window() const;
    QString fixedFamily() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void changed();

private:
    bool isWindowDark() const;
    void adaptPalette();

    std::optional<bool> m_prefersDark;
    std::optional<QPalette> m_desktopsPalette; // while another one is in its place
    QPalette m_ownPalette;                     // the one that is
    bool m_isAdapting = false;
};

} // namespace quorvale
