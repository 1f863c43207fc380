// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "progressitem.h"

#include "accessibleprogress.h"

namespace quorvale {

ProgressItem::ProgressItem(QQuickItem *parent) : QQuickItem(parent)
{
    offerAccessibleProgress();
}

} // namespace quorvale
