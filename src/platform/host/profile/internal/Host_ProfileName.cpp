// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileName.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/internal/System_Int128.h"

#include <algorithm>
#include <cstdint>
#include <random>

#include <unicode/uchar.h>

namespace Host
{

namespace
{

using View = std::u16string_view;

/// A prime, by which remainders are cheap.
constexpr std::uint64_t Prime = (std::uint64_t{1} << 61) - 1;

char16_t Folded(char16_t c)
{
    return c < 0x80 ? System::Detail::AsciiLower(c)
                    : static_cast<char16_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

std::uint64_t TimesModPrime(std::uint64_t a, std::uint64_t b)
{
    const auto product = static_cast<System::Detail::Int128>(a) * b;
    const std::uint64_t sum =
        (static_cast<std::uint64_t>(product) & Prime) + static_cast<std::uint64_t>(product >> 61);
    return (sum & Prime) + (sum >> 61);
}

struct Secret
{
    /// Where the polynomial is evaluated.
    std::uint64_t point = RandomBits() % (Prime - 1) + 1;
    /// Brings all bits of the value into its upper half.
    std::uint64_t spread = RandomBits() | 1;

private:
    static std::uint64_t RandomBits()
    {
        std::random_device device;
        return std::uint64_t{device()} << 32 | device();
    }
};

} // namespace

/// The characters are the coefficients of a polynomial. Two names have the same value at as many points as
/// they have characters, of 2^61; which point it is, nobody knows.
std::size_t NameHash::operator()(View name) const noexcept
{
    static const Secret secret;
    std::uint64_t value = 1;
    for (const char16_t c : name) {
        value = TimesModPrime(value, secret.point) + Folded(c);
    }
    return static_cast<std::size_t>(value * secret.spread >> 32);
}

bool NameEqual::operator()(View a, View b) const noexcept
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t c, char16_t d) { return c == d || Folded(c) == Folded(d); });
}

} // namespace Host
