// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/conversionsettings.h"

#include <QUrl>

#include <stop_token>

namespace quorvale {

/// Where the conversion of `source` with `settings` writes in the folder `destination`. With
/// overwrite off it is a path where nothing is yet, not even a link that leads nowhere. Waits for
/// the disk, which is asked nothing further once `givenUp` is requested. Any thread.
QUrl outputUrl(const QUrl &source, const QUrl &destination, const ConversionSettings &settings,
               const std::stop_token &givenUp = {});

} // namespace quorvale
