// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/openpanel.h"

#include <QHash>

namespace quorvale {

/// The file dialog that Qt takes for the desktop's where there is one, Qt's own otherwise and for
/// several folders, which desktops' dialogs for folders do not let choose. Each panel, told by its
/// title, opens in the user's home at first and then where it was last confirmed. Needs a
/// QApplication.
class DialogPanel : public OpenPanel
{
public:
    std::optional<QList<QUrl>> run(const OpenPanelRequest &request) override;

private:
    QHash<QString, QUrl> m_lastFolders;
};

} // namespace quorvale
