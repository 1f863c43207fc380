// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/openpanel.h"

namespace quorvale {

/// The desktop's own file dialog where there is one, Qt's otherwise. It opens where the last one
/// was left, within one run of the program.
class DialogPanel : public OpenPanel
{
public:
    std::optional<QList<QUrl>> run(const OpenPanelRequest &request) override;

private:
    QUrl m_lastFolder;
};

} // namespace quorvale
