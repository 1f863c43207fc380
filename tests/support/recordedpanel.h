// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/openpanel.h"

namespace quorvale::test {

/// An open panel that answers from a list, in order, and remembers what it was asked. When the
/// answers have run out, the user cancels.
struct RecordedPanel : OpenPanel
{
    std::optional<QList<QUrl>> run(const OpenPanelRequest &request) override
    {
        requests << request;
        return answers.isEmpty() ? std::nullopt : answers.takeFirst();
    }

    QList<std::optional<QList<QUrl>>> answers;
    QList<OpenPanelRequest> requests;
};

} // namespace quorvale::test
