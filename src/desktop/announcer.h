// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>
#include <QObject>
#include <QQueue>
#include <QWindow>

namespace quorvale {

/// Has screen readers read sentences to the user, one after the other, without a change of the
/// window or of what it has the keyboard in. Main thread only.
class Announcer : public QObject
{
    Q_OBJECT

public:
    /// For sentences about this window, which has to outlive it.
    explicit Announcer(QWindow &window) : m_window(window) {}
    ~Announcer() override;

    /// Has the sentence read. Does nothing where nobody listens.
    void announce(const QString &sentence);

private:
    QWindow &m_window;
    QQueue<QAccessible::Id> m_said;
};

} // namespace quorvale
