// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"

#include <array>
#include <bit>
#include <cstddef>

namespace System::Detail
{

/// "00" to "99", one behind the other.
inline constexpr std::array<char, 200> DigitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

/// The powers of ten that 64 bits hold.
inline constexpr std::array<UInt64, 20> PowersOfTen = [] {
    std::array<UInt64, 20> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) {
        powers[i] = powers[i - 1] * 10;
    }
    return powers;
}();

/// The count of the decimal digits, 1 for 0.
constexpr std::size_t CountDigits(UInt64 value)
{
    // The bits times log10(2), cut off, are that count or one less.
    const UInt64 atLeastOne = value | 1;
    const auto bits = static_cast<std::size_t>(64 - std::countl_zero(atLeastOne));
    const std::size_t fewest = bits * 1233 / 4096;
    return fewest + (atLeastOne >= PowersOfTen[fewest] ? 1 : 0);
}

/// Writes the decimal digits so that the last one stands in front of `end`.
template <class Char>
void WriteDigits(UInt64 value, Char* end)
{
    // The linter takes the count of digits for zero, with which a text has no room at all.
    // NOLINTBEGIN(clang-analyzer-core.NullDereference)
    const auto writePair = [&end](UInt64 pair) {
        *--end = static_cast<Char>(DigitPairs[2 * pair + 1]);
        *--end = static_cast<Char>(DigitPairs[2 * pair]);
    };
    for (; value >= 100; value /= 100) {
        writePair(value % 100);
    }
    if (value >= 10) {
        writePair(value);
    } else {
        *--end = static_cast<Char>('0' + value);
    }
    // NOLINTEND(clang-analyzer-core.NullDereference)
}

} // namespace System::Detail
