// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/outputcodec.h"

#include <QByteArray>
#include <QPoint>
#include <QRect>
#include <QString>

namespace quorvale::test {

class VirtualDisplay;

/// Works the program's window by the mouse: the one place among the tests that knows its layout.
/// Everything returns false, with a warning, when it fails.
class WindowDriver
{
public:
    explicit WindowDriver(const VirtualDisplay &display) : m_display(display) {}

    /// Waits until the window is there and shows its content. To be called first.
    bool find();

    const QString &window() const { return m_window; }

    /// What the window shows when nothing changes any more, the mouse pointer included; empty, with
    /// a warning, when there is no end of changes.
    QByteArray restingPicture() const;

    /// Has the folder chosen in the file dialog. Its path is to be ASCII.
    bool chooseOutputFolder(const QString &folder);

    bool chooseCodec(OutputCodec codec);

    /// Presses "Convert", which can be pressed when there is a job.
    bool convert();

    /// Has the window manager ask the window to close.
    bool close();

private:
    bool click(const QPoint &place) const;
    bool press(const QString &key) const;

    const VirtualDisplay &m_display;
    QString m_window;
    QRect m_area; // that it shows its content in
};

} // namespace quorvale::test
