// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace quorvale {

/// Keeps the user out of the program's windows as long as it lives, as a modal dialog of the
/// program would, for a dialog that another program shows. The windows can be closed all the same,
/// which Qt prevents behind a dialog of its own. Shortcuts go on working. Main thread.
class InputBarrier : public QObject
{
    Q_OBJECT

public:
    InputBarrier();
    ~InputBarrier() override;

    /// Whether there is one.
    static bool isUp();

    bool eventFilter(QObject *receiver, QEvent *event) override;

Q_SIGNALS:
    /// The user has pressed on a window, by mouse, pen or touch.
    void pressed();

    /// The user has pressed Escape in a window, which therefore has the keyboard.
    void escaped();
};

} // namespace quorvale
