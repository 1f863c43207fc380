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
/// settings do. Main thread.
class SystemLook : public QObject
{
    Q_OBJECT
    /// Whether the user wants dark windows: what the desktop's settings say and, where they say
    /// nothing, whether the palette is dark.
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    /// The application's palette's colour of windows.
    Q_PROPERTY(QColor window READ window NOTIFY changed)
    /// The font of ordinary texts, as large as the user wants texts.
    Q_PROPERTY(QFont font READ interfaceFont NOTIFY fontChanged)
    /// The family of the interface font whose characters are all equally wide.
    Q_PROPERTY(QString fixedFamily READ fixedFamily CONSTANT)
    /// Whether what changes may move there, instead of jumping.
    Q_PROPERTY(bool animates READ animates NOTIFY changed)
    /// Whether the user wants everything to stand out more than usual.
    Q_PROPERTY(bool hasContrast READ hasContrast NOTIFY changed)

public:
    /// The one that the program uses, made when it is first asked for; as long as the application
    /// is there, which is needed.
    static SystemLook &instance();

    explicit SystemLook(QObject *parent = nullptr);

    /// Whether the desktop has said what it has to say, as far as it can be asked.
    bool isKnown() const { return m_isKnown; }

    bool isDark() const { return m_prefersDark.value_or(isWindowDark()); }
    QColor window() const;

    /// Until the desktop's settings say something else: true, and false.
    bool animates() const { return m_animates; }
    void setAnimates(bool animates);
    bool hasContrast() const { return m_hasContrast; }
    void setContrast(bool hasContrast);

    QString fixedFamily() const;

    /// The application's font; but where Qt knows none of the desktop's, its last resort is taken a
    /// little larger than Qt does, in the program's default size. Times the factor that the user
    /// wants texts to be scaled by, where that is not in the resolution of the screen already.
    QFont interfaceFont() const;

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
    double m_textScale = 1;
    bool m_animates = true;
    bool m_hasContrast = false;
    bool m_isKnown = true;
};

} // namespace quorvale
