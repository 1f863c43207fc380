// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "focusitem.h"

#include "accessibleprogress.h"

namespace quorvale {

FocusItem::FocusItem(QQuickItem *parent) : QQuickItem(parent)
{
    offerAccessibleProgress();
}

} // namespace quorvale
