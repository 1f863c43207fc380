// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "instance.h"

namespace quorvale {

/// The instance where the system itself starts no second one but tells the first, by events, which
/// files are to be opened (QFileOpenEvent), as macOS does. Needs a QCoreApplication.
class SoleInstance : public Instance
{
public:
    SoleInstance();

    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace quorvale
