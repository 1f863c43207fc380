// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QObject>

#include <optional>

namespace quorvale {

/// How the desktop wants its programs to look, now and whenever that changes. Main thread.
class SystemLook : public QObject
{
    Q_OBJECT
    /// Whether the user wants dark windows: what the desktop's settings say and, where they say
    /// nothing, whether the palette is dark.
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    /// The palette's colour of windows. Light although isDark says true, or the other way round,
    /// when the desktop has given the palette no colours to go with its settings.
    Q_PROPERTY(QColor window READ window NOTIFY changed)
    /// The family of the interface font whose characters are all equally wide.
    Q_PROPERTY(QString fixedFamily READ fixedFamily CONSTANT)

public:
    explicit SystemLook(QObject *parent = nullptr);

    bool isDark() const { return m_prefersDark.value_or(isWindowDark()); }
    QColor window() const;
    bool isWindowDark() const;
    QString fixedFamily() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void changed();

private:
    std::optional<bool> m_prefersDark;
};

} // namespace quorvale
