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
    QString prompt; ///< the text of the button that confirms
    Choice choice = Choice::videos;
    bool allowsMultiple = false;
    bool canCreateFolders = false; ///< whether the panel has to offer to make a folder
};

/// Lets the user choose files or folders in a modal panel. An interface, so that the controller
/// needs no screen.
class OpenPanel
{
public:
    virtual ~OpenPanel() = default;

    /// Shows the panel and blocks until the user closes it. The chosen URLs in the panel's order,
    /// possibly none; std::nullopt when the user cancelled. Main thread.
    virtual std::optional<QList<QUrl>> run(const OpenPanelRequest &request) = 0;
};

} // namespace quorvale
