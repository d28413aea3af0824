// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/FontTable.h"

#include <algorithm>
#include <array>
#include <limits>

namespace Toolkits
{

namespace
{

/// The height of characters where the font leaves it to the toolkit, and the largest there is.
constexpr int OwnChoice = 16;
constexpr int MaximumEm = 10'000;

/// The share of a line above the characters and below their base is as of most fonts of desktops: 2 of 13.
constexpr int LeadingOf(int em)
{
    return (2 * em + 5) / 11;
}

int EmOf(int height)
{
    if (height == 0) {
        return OwnChoice;
    }
    const long long em = height < 0 ? -static_cast<long long>(height) : (11LL * height + 6) / 13;
    return static_cast<int>(std::clamp<long long>(em, 1, MaximumEm));
}

bool IsFixed(const TFontData& font)
{
    static constexpr std::array names = {u"Courier New", u"Courier",  u"Consolas", u"Lucida Console",
                                         u"Fixedsys",    u"Terminal", u"Monospace"};
    return font.pitch == Graphics::fpFixed ||
           (font.pitch == Graphics::fpDefault &&
            std::ranges::any_of(names, [&](const System::WideChar* name) { return font.name == name; }));
}

constexpr bool IsOneOf(System::WideChar unit, std::u16string_view set)
{
    return set.find(unit) != std::u16string_view::npos;
}

/// Hundredths of the height of characters.
constexpr int ShareOf(System::WideChar unit)
{
    if (unit < u' ' || (unit >= 0x300 && unit < 0x370) || (unit >= 0xDC00 && unit < 0xE000) ||
        unit == 0xFEFF) {
        return 0;
    }
    if (IsOneOf(unit, u"ijlI.,:;'|!`")) {
        return 27;
    }
    if (IsOneOf(unit, u" frt()[]{}/\\-\"\u00A0")) {
        return 36;
    }
    if (IsOneOf(unit, u"mwMW@%\u2014\u2026")) {
        return 85;
    }
    if (unit >= 0x1100) {
        return unit >= 0x2E80 || unit < 0x1200 ? 100 : 55;
    }
    return unit >= u'A' && unit <= u'Z' ? 62 : 55;
}

constexpr int FixedShare = 60;

/// All shares of the first units, which nearly all texts are made of.
constexpr auto Shares = [] {
    std::array<unsigned char, 256> shares{};
    for (std::size_t unit = 0; unit < shares.size(); ++unit) {
        shares[unit] = static_cast<unsigned char>(ShareOf(static_cast<System::WideChar>(unit)));
    }
    return shares;
}();

} // namespace

CFontTable::CFontTable(const TFontData& font)
    : mEm(EmOf(font.height)),
      mLeading(LeadingOf(mEm)),
      mBold(font.styles.Contains(Graphics::fsBold) ? (mEm + 15) / 16 : 0),
      mIsFixed(IsFixed(font))
{
}

TTextMetrics CFontTable::Metrics() const
{
    const int descent = LeadingOf(mEm);
    return {.height = mEm + mLeading,
            .ascent = mEm + mLeading - descent,
            .descent = descent,
            .internalLeading = mLeading,
            .averageWidth = Advance(u'x'),
            .maximumWidth = Advance(mIsFixed ? u'x' : u'\u4E00')};
}

int CFontTable::Advance(System::WideChar unit) const
{
    const int share = unit < Shares.size() ? Shares[unit] : ShareOf(unit);
    if (share == 0) {
        return 0;
    }
    return std::max(1, ((mIsFixed ? FixedShare : share) * mEm + 50) / 100) + mBold;
}

int CFontTable::Width(std::u16string_view text) const
{
    long long width = 0;
    for (const System::WideChar unit : text) {
        width += Advance(unit);
    }
    return static_cast<int>(std::min<long long>(width, std::numeric_limits<int>::max()));
}

} // namespace Toolkits
