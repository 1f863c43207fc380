// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace quorvale {

/// One case of an option enumeration and the label under which the user chooses it.
template <typename Option>
struct LabelledCase
{
    Option option;
    QStringView label;
};

/// The cases of an option enumeration in declaration order, each with its label.
/// Every option enumeration specialises this variable beside its declaration.
template <typename Option>
inline constexpr std::array<LabelledCase<Option>, 0> labelledCases{};

/// All cases in declaration order, which is also the order in which the user sees them.
template <typename Option>
constexpr auto allCases()
{
    std::array<Option, labelledCases<Option>.size()> cases{};
    std::ranges::transform(labelledCases<Option>, cases.begin(), &LabelledCase<Option>::option);
    return cases;
}

/// The label of `option`: a text for the user that doubles as the option's identity.
template <typename Option>
QString rawValue(Option option)
{
    return labelledCases<Option>[static_cast<std::size_t>(option)].label.toString();
}

/// The identity of `option` in lists and pickers; it is the label itself.
template <typename Option>
QString id(Option option)
{
    return rawValue(option);
}

/// The case whose label is exactly `rawValue` (case-sensitive, the whole string), or none.
template <typename Option>
std::optional<Option> fromRawValue(QStringView rawValue)
{
    for (const auto &candidate : labelledCases<Option>) {
        if (candidate.label == rawValue)
            return candidate.option;
    }
    return std::nullopt;
}

} // namespace quorvale
