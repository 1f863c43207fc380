// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariant>

namespace quorvale {

/// The option "filters" of the portal's file chooser that shows the accepted videos alone, under
/// the label "Videos" (org.freedesktop.portal.FileChooser of the XDG desktop portal). Main thread.
QVariant portalVideoFilters();

} // namespace quorvale
