// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "accessibleitem.h"

#include <QByteArray>
#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace quorvale::test {

class ProgramRun;
class VirtualDesktop;

/// Works the program's window by the mouse and the keyboard. Finds what it works by what a screen
/// reader would read, and waits for it. What returns a bool returns false, with a warning, when it
/// fails.
class WindowDriver
{
public:
    WindowDriver(const VirtualDesktop &desktop, const ProgramRun &run)
        : m_desktop(desktop), m_run(run)
    {
    }

    /// Waits until the window is there and shows its content. To be called first.
    bool find();

    const QString &window() const { return m_window; }

    /// What the window shows when nothing changes any more, the mouse pointer included; empty, with
    /// a warning, when there is no end of changes.
    QByteArray restingPicture() const;

    /// All that the program shows, its panels included.
    AccessibleItem application() const { return *m_application; }

    /// The first such item, when there is one; waits for it.
    std::optional<AccessibleItem> waitFor(const AccessibleItem::Condition &condition) const;

    /// Waits until there is no such item.
    bool waitForNo(const AccessibleItem::Condition &condition) const;

    /// The names of the queue's rows that are shown, from the top.
    QStringList rowNames() const;
    /// The same in the order in which a screen reader goes through them.
    QStringList rowNamesInReadingOrder() const;
    bool waitForRows(const QStringList &names) const;

    /// What is read out for the row beside its file name; empty when there is none.
    QString description(const QString &row) const;
    /// Waits until that holds the text.
    bool waitForDescription(const QString &row, const QString &part) const;
    /// Waits until it says that some of the row's conversion is done and some is not.
    bool waitForProgress(const QString &row) const;

    /// The item that has the keyboard.
    std::optional<AccessibleItem> focused() const;

    /// Clicks the middle of the item as soon as it can be worked.
    bool click(const AccessibleItem::Condition &condition) const;
    bool click(AccessibleItem::Role role, const QString &name) const
    {
        return click(AccessibleItem::named(role, name));
    }
    /// Clicks the button of the row.
    bool clickInRow(const QString &row, const QString &button) const;

    /// Does the action of the item, without the mouse and the keyboard, as soon as the item is
    /// there and offers it.
    bool act(const QString &action, const AccessibleItem::Condition &condition) const;
    bool act(const QString &action, AccessibleItem::Role role, const QString &name) const
    {
        return act(action, AccessibleItem::named(role, name));
    }
    /// Does the action "Press" of the button of the row.
    bool actInRow(const QString &row, const QString &button) const;

    /// Takes the row by the mouse and drags it over another, where it is held until it is released.
    bool dragRow(const QString &row, const QString &other) const;
    bool releaseRow() const;

    /// Presses a key, or several at once as in "ctrl+o", in whatever window has the keyboard.
    bool press(const QString &key) const;

    /// Has the keyboard go to the main window.
    bool activate() const;

    /// Presses Tab until the item has the keyboard.
    bool tabTo(const AccessibleItem::Condition &condition) const;

    /// Waits for the panel and gives it the keyboard.
    bool openPanel(const QString &title) const;
    /// Types the path, which is to be ASCII, into the open panel and waits for its end.
    bool answerPanel(const QString &title, const QString &path) const;
    /// Waits for the panel and leaves it by Escape.
    bool abandonPanel(const QString &title) const;
    /// Chooses the folder in the panel that the button opens.
    bool chooseOutputFolder(const QString &folder) const;

    /// Waits until there are so many videos to convert, which enables the button, and presses it.
    bool convert(int videos) const;

    /// Has the window manager ask the window to close.
    bool close() const;

private:
    bool waitUntil(const std::function<bool()> &isSo, const QString &awaited) const;
    QList<AccessibleItem> rows() const; // in reading order
    std::optional<AccessibleItem> inRow(const QString &row, const QString &button) const;
    bool pressUntilClosed(const QString &key, const QString &title) const;
    // Moves the mouse to a place of the screen and does something there, in xdotool's words.
    bool mouse(const QPoint &place, const QStringList &work = {}) const;
    // Types into the field that has the keyboard, in place of what is in it.
    bool enter(const QString &text) const;

    const VirtualDesktop &m_desktop;
    const ProgramRun &m_run;
    QString m_window;
    QRect m_area; // that it shows its content in
    std::optional<AccessibleItem> m_application;
};

} // namespace quorvale::test
