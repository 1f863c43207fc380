// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>

#include <optional>

namespace quorvale {

/// How the desktop wants its programs to look, now and whenever that changes. Where the palette
/// that the desktop has given to Qt is light although the user wants dark windows, or the other way
/// round, the application's palette is replaced by one that fits, so that what Qt draws looks as
/// the program does; so is its font where Qt knows none of the desktop's, but the desktop's
/// settings do. One for the process. Main thread.
class SystemLook : public QObject
{
    Q_OBJECT
    /// Whether the user wants dark windows: what the desktop's settings say and, where they say
    /// nothing, whether the palette is dark.
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    /// The application's palette's colour of windows.
    Q_PROPERTY(QColor window READ window NOTIFY changed)
    /// The font of ordinary texts.
    Q_PROPERTY(QFont font READ interfaceFont NOTIFY fontChanged)
    /// The family of the interface font whose characters are all equally wide.
    Q_PROPERTY(QString fixedFamily READ fixedFamily CONSTANT)

public:
    explicit SystemLook(QObject *parent = nullptr);

    bool isDark() const { return m_prefersDark.value_or(isWindowDark()); }
    QColor window() const;
    QString fixedFamily() const;

    /// The application's font; but where Qt knows none of the desktop's, its last resort is taken a
    /// little larger than Qt does, in the program's default size.
    static QFont interfaceFont();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void changed();
    void fontChanged();

private:
    bool isWindowDark() const;
    void adaptPalette();
    void adaptFont(const QString &description);

    std::optional<bool> m_prefersDark;
    std::optional<QPalette> m_desktopsPalette; // while another one is in its place
    QPalette m_ownPalette;                     // the one that is
    bool m_isAdapting = false;
    std::optional<QFont> m_ownFont; // that was set in the place of Qt's last resort
};

} // namespace quorvale
