// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "conversionjob.h"

#include <QRandomGenerator>

#include <array>
#include <bit>

namespace quorvale {

namespace {

// A random UUID (RFC 4122, section 4.4). QUuid::createUuid() asks the processor for each of them,
// which took a quarter of the time of adding a large folder.
QUuid randomId()
{
    std::array<quint32, 4> words{};
    QRandomGenerator::global()->fillRange(words.data(), words.size());
    std::array<char, sizeof words> bytes = std::bit_cast<std::array<char, sizeof words>>(words);
    bytes[6] = static_cast<char>((bytes[6] & 0x0f) | 0x40); // the version: random
    bytes[8] = static_cast<char>((bytes[8] & 0x3f) | 0x80); // the variant
    return QUuid::fromRfc4122(bytes);
}

} // namespace

ConversionJob::ConversionJob(const SourceFile &source) : m_id(randomId()), m_source(source) {}

} // namespace quorvale
