// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QTimer>
#include <QtQmlIntegration>

namespace quorvale {

/// Whether ffmpeg is there, looked for again every second while active: a tool can come and go by
/// changes that watching its folder does not tell, such as those behind a symbolic link. Main
/// thread.
class ToolStatus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isFound READ isFound NOTIFY isFoundChanged)
    /// To be true while somebody can see the answer.
    Q_PROPERTY(bool isActive READ isActive WRITE setActive NOTIFY isActiveChanged)

public:
    explicit ToolStatus(QObject *parent = nullptr);

    bool isFound() const { return m_isFound; }
    bool isActive() const { return m_timer.isActive(); }
    void setActive(bool isActive);

Q_SIGNALS:
    void isFoundChanged();
    void isActiveChanged();

private:
    void look();

    QTimer m_timer;
    bool m_isFound = false;
};

} // namespace quorvale
