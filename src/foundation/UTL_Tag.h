// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace UTL
{

/// A word of 32 independent bits. Only the low five bits of a bit's number count.
///
///     UTL::CTag tag(3, true);
///     tag.SetBit(0, true);
///     const bool isSet = tag.GetBit(3);              // true
class CTag
{
public:
    /// All bits clear but `bit`, which becomes `value`.
    CTag(unsigned bit, bool value) noexcept { SetBit(bit, value); }

    /// One bit of the word; of a number above 31 only the low 5 bits count.
    void SetBit(unsigned bit, bool value) noexcept { mWord = value ? mWord | Mask(bit) : mWord & ~Mask(bit); }
    bool GetBit(unsigned bit) const noexcept { return (mWord & Mask(bit)) != 0; }

private:
    static constexpr std::uint32_t Mask(unsigned bit) noexcept { return std::uint32_t(1) << (bit & 31); }

    std::uint32_t mWord = 0;
};

} // namespace UTL
