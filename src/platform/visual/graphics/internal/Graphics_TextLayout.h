// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintTypes.h"
#include "platform/visual/graphics/Graphics_TextFormat.h"

#include <vector>

namespace Toolkits
{
class Toolkit;
}

namespace Graphics
{

/// No place of a text is further away, so that sums of them are always in range.
inline constexpr int FarthestText = 1 << 28;

/// The flags without the number of places of a tabulator, which takes the bits of others.
constexpr unsigned WithoutTabStop(unsigned flags) noexcept
{
    return (flags & DT_TABSTOP) != 0 ? flags & ~0xFF00U : flags;
}

/// A line of a text that was laid out.
struct TTextLine
{
    System::UnicodeString text;
    int width = 0;
    /// The place, from 0, of the character that is underlined; -1 for none.
    int underlined = -1;
};

/// Cuts a text into lines by the `DT_...` flags, in one font.
class CTextLayout
{
public:
    /// `font` must outlive the layout. Lines are held to `width` where the flags say so.
    CTextLayout(const Toolkits::TFontData& font, unsigned flags, int width);

    std::vector<TTextLine> LinesOf(const System::UnicodeString& text) const;
    /// Makes a line that is too wide end in "..." where the flags want that. True if it was.
    bool Shorten(TTextLine& line, bool isLast) const;

    /// The width of a piece of text at the beginning of a line, with its tabulators.
    int WidthOf(const System::UnicodeString& text) const;
    /// Where a tabulator at the place leads.
    int NextStop(int place) const;
    bool ExpandsTabs() const noexcept;
    int LineHeight() const noexcept;
    const Toolkits::TTextMetrics& Metrics() const noexcept { return mMetrics; }

private:
    int PlainWidthOf(const System::UnicodeString& text) const;
    void AddParagraph(std::u16string_view paragraph, std::vector<TTextLine>& lines) const;
    void AddBroken(TTextLine paragraph, std::vector<TTextLine>& lines) const;
    /// How many characters of the text fit, at least one.
    std::size_t FittingLength(std::u16string_view text, int width) const;

    const Toolkits::TFontData& mFont;
    Toolkits::Toolkit& mToolkit;
    unsigned mFlags;
    int mWidth;
    Toolkits::TTextMetrics mMetrics;
    int mTabWidth;
};

} // namespace Graphics
