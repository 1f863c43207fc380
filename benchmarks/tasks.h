// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace quorvale::bench {

// What is measured, each run in a process of its own that says its figures on standard output, one
// to a line. They return the exit status of the process.

/// Converts the videos of a folder into another, without a window. Says this process's own
/// processor time and that of its children in seconds.
int convertFolder(const QString &sources, const QString &outputs, const QString &toolFolder);

/// Drops folders on an empty queue, one after the other without waiting, until all that is in them
/// is queued.
int searchFolders(const QStringList &folders);

/// Drops a folder on the window. Says the seconds of the longest time between two turns of the
/// event loop while the folder is searched, of the turn in which all that is in it is queued, and
/// of the longest frame while the list is scrolled from end to end then.
int searchWithWindow(const QString &folder);

/// Drops files one by one, `count` of them; says the seconds.
int dropFiles(int count);

/// Shows a list of `count` jobs and scrolls it from end to end. Says the bytes of memory that a job
/// takes and the seconds of the longest frame.
int scrollList(int count);

/// Opens the window, or one with nothing but a text and a button, until its first frame.
int showFirstFrame(bool isBare);

/// Opens it and says the bytes of resident memory after two seconds.
int idle(bool isBare);

/// Converts a folder with the window shown. Says this process's own processor time and the time
/// that passed, in seconds.
int convertWithWindow(const QString &sources, const QString &outputs);

/// Reads a million lines of progress from the tools in the folder.
int readProgress(const QString &toolFolder);

} // namespace quorvale::bench
