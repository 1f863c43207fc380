// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

namespace quorvale {

/// What one panel asks of the user.
struct OpenPanelRequest
{
    enum class Choice { videos, folders };

    QString title;
    QString prompt;                 ///< the text of the button that confirms
    Choice choice = Choice::videos; ///< videos: files only, and only those that are accepted
    bool allowsMultiple = false;
    bool canCreateFolders = false; ///< has to offer to make a folder; otherwise it need not
};

/// Lets the user choose files or folders in a modal panel. An interface, so that the controller
/// needs no screen.
class OpenPanel
{
public:
    virtual ~OpenPanel() = default;

    /// Shows the panel, modal to the program, and returns when the user has closed it; until then
    /// events are processed, so anything may happen in between. The chosen URLs in the panel's
    /// order, possibly none; std::nullopt when the user cancelled. Main thread.
    virtual std::optional<QList<QUrl>> run(const OpenPanelRequest &request) = 0;
};

} // namespace quorvale
