// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/encodinggoal.h"
#include "model/outputcodec.h"

#include <QObject>
#include <QtQmlIntegration>

// Those of the settings' options that QML tells apart: their indexes among all cases, by name.

namespace quorvale {

namespace outputcodecs {
Q_NAMESPACE
QML_NAMED_ELEMENT(OutputCodec)

enum Index {
    H264 = static_cast<int>(OutputCodec::h264),
    Hevc = static_cast<int>(OutputCodec::hevc),
};
Q_ENUM_NS(Index)
} // namespace outputcodecs

namespace encodinggoals {
Q_NAMESPACE
QML_NAMED_ELEMENT(EncodingGoal)

enum Index {
    SameSize = static_cast<int>(EncodingGoal::sameSize),
    Balanced = static_cast<int>(EncodingGoal::balanced),
    ConstantQuality = static_cast<int>(EncodingGoal::constantQuality),
};
Q_ENUM_NS(Index)
} // namespace encodinggoals

} // namespace quorvale
