// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_TextLayout.h"

#include "platform/toolkit/Toolkit.h"

#include <algorithm>

namespace Graphics
{

namespace
{

using System::UnicodeString;

constexpr System::WideChar Ellipsis[] = u"...";
constexpr unsigned OwnStops = 8;

bool IsPairEnd(System::WideChar unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Behind which a line may break without a blank: characters that are words of their own.
bool IsWordOfItsOwn(System::WideChar unit)
{
    return unit >= 0x2E80 && unit < 0xD800;
}

/// Takes the ampersands out that stand for an underlined character.
TTextLine WithoutPrefixes(std::u16string_view text, bool hasPrefixes)
{
    TTextLine line;
    if (!hasPrefixes || text.find(u'&') == std::u16string_view::npos) {
        line.text = UnicodeString(text);
        return line;
    }
    std::u16string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'&') {
            ++i;
            if (i == text.size()) {
                break;
            }
            if (text[i] != u'&') {
                line.underlined = static_cast<int>(plain.size());
            }
        }
        plain += text[i];
    }
    line.text = UnicodeString(std::u16string_view(plain));
    return line;
}

/// The end of the word at `from`, with the blanks behind it.
std::size_t EndOfWord(std::u16string_view text, std::size_t from)
{
    std::size_t end = from;
    while (end < text.size() && text[end] != u' ' && !(end > from && IsWordOfItsOwn(text[end]))) {
        ++end;
        if (IsWordOfItsOwn(text[end - 1])) {
            break;
        }
    }
    while (end < text.size() && text[end] == u' ') {
        ++end;
    }
    return end;
}

std::u16string_view WithoutBlanksBehind(std::u16string_view text)
{
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

} // namespace

CTextLayout::CTextLayout(const Toolkits::TFontData& font, unsigned flags, int width)
    : mFont(font),
      mToolkit(Toolkits::CurrentToolkit()),
      mFlags(WithoutTabStop(flags)),
      mWidth(std::max(0, width)),
      mMetrics(mToolkit.FontMetrics(font))
{
    const unsigned stops = (flags & DT_TABSTOP) != 0 ? std::max(1U, flags >> 8U & 0xFFU) : OwnStops;
    mTabWidth = std::max(1, mMetrics.averageWidth * static_cast<int>(stops));
}

bool CTextLayout::ExpandsTabs() const noexcept
{
    return (mFlags & (DT_EXPANDTABS | DT_TABSTOP)) != 0;
}

int CTextLayout::LineHeight() const noexcept
{
    return mMetrics.height + ((mFlags & DT_EXTERNALLEADING) != 0 ? mMetrics.externalLeading : 0);
}

int CTextLayout::NextStop(int place) const
{
    return std::min(FarthestText, (place / mTabWidth + 1) * mTabWidth);
}

int CTextLayout::PlainWidthOf(const UnicodeString& text) const
{
    return std::min(FarthestText, mToolkit.TextExtent(mFont, text).cx);
}

int CTextLayout::WidthOf(const UnicodeString& text) const
{
    const auto view = text.AsView();
    if (!ExpandsTabs() || view.find(u'\t') == std::u16string_view::npos) {
        return PlainWidthOf(text);
    }
    int width = 0;
    std::size_t from = 0;
    for (auto tab = view.find(u'\t'); tab != std::u16string_view::npos; tab = view.find(u'\t', from)) {
        width = NextStop(width + PlainWidthOf(UnicodeString(view.substr(from, tab - from))));
        from = tab + 1;
    }
    return std::min(FarthestText, width + PlainWidthOf(UnicodeString(view.substr(from))));
}

std::size_t CTextLayout::FittingLength(std::u16string_view text, int width) const
{
    const auto fits = [&](std::size_t length) {
        return WidthOf(UnicodeString(text.substr(0, length))) <= width;
    };
    // Most of a long text doesn't fit, and is not to be measured for each line anew.
    std::size_t fitting = 0;
    std::size_t tooMany = std::min<std::size_t>(16, text.size());
    while (tooMany > fitting && fits(tooMany)) {
        fitting = tooMany;
        tooMany = std::min(2 * tooMany, text.size());
    }
    while (tooMany > fitting + 1) {
        const std::size_t middle = fitting + (tooMany - fitting) / 2;
        (fits(middle) ? fitting : tooMany) = middle;
    }
    if (fitting > 0 && fitting < text.size() && IsPairEnd(text[fitting])) {
        --fitting;
    }
    return fitting;
}

void CTextLayout::AddBroken(TTextLine paragraph, std::vector<TTextLine>& lines) const
{
    const UnicodeString whole = paragraph.text;
    const auto text = whole.AsView();
    const auto add = [&](std::size_t from, std::size_t end) {
        TTextLine line{.text = UnicodeString(WithoutBlanksBehind(text.substr(from, end - from)))};
        line.width = WidthOf(line.text);
        const auto underlined = static_cast<std::size_t>(paragraph.underlined);
        if (paragraph.underlined >= 0 && underlined >= from && underlined < end) {
            line.underlined = static_cast<int>(underlined - from);
        }
        lines.push_back(std::move(line));
    };
    std::size_t start = 0;
    std::size_t place = 0;
    std::size_t end = 0;
    int width = 0;
    while (place < text.size()) {
        end = place < end ? end : EndOfWord(text, place);
        const auto word = text.substr(place, end - place);
        const auto visible = WithoutBlanksBehind(word);
        const std::size_t fitting = FittingLength(visible, mWidth - width);
        if (fitting < visible.size() && place > start) {
            add(start, place);
            start = place;
            width = 0;
        } else if (fitting < visible.size() && (mFlags & DT_EDITCONTROL) != 0) {
            place += std::max<std::size_t>(1, fitting);
            place += place < end && IsPairEnd(text[place]) ? 1U : 0U;
            add(start, place);
            start = place;
        } else {
            width = std::min(FarthestText, width + WidthOf(UnicodeString(word)));
            place = end;
        }
    }
    if (start < text.size() || text.empty()) {
        add(start, text.size());
    }
}

void CTextLayout::AddParagraph(std::u16string_view paragraph, std::vector<TTextLine>& lines) const
{
    TTextLine line = WithoutPrefixes(paragraph, (mFlags & DT_NOPREFIX) == 0);
    line.width = WidthOf(line.text);
    const bool mayBreak = (mFlags & (DT_WORDBREAK | DT_SINGLELINE)) == DT_WORDBREAK;
    if (mayBreak && line.width > mWidth) {
        AddBroken(std::move(line), lines);
    } else {
        lines.push_back(std::move(line));
    }
}

std::vector<TTextLine> CTextLayout::LinesOf(const UnicodeString& text) const
{
    std::vector<TTextLine> lines;
    std::u16string_view rest = text.AsView();
    if ((mFlags & DT_SINGLELINE) != 0) {
        std::u16string line(rest);
        std::ranges::replace_if(
            line, [](System::WideChar unit) { return unit == u'\r' || unit == u'\n'; }, u' ');
        AddParagraph(line, lines);
        return lines;
    }
    while (!rest.empty()) {
        const auto end = rest.find_first_of(u"\r\n");
        AddParagraph(rest.substr(0, end), lines);
        if (end == std::u16string_view::npos) {
            break;
        }
        rest.remove_prefix(end + (rest.substr(end, 2) == u"\r\n" ? 2 : 1));
    }
    return lines;
}

bool CTextLayout::Shorten(TTextLine& line, bool isLast) const
{
    const bool wants =
        (mFlags & DT_WORD_ELLIPSIS) != 0 || (isLast && (mFlags & (DT_END_ELLIPSIS | DT_PATH_ELLIPSIS)) != 0);
    if (!wants || line.width <= mWidth) {
        return false;
    }
    const auto text = line.text.AsView();
    std::u16string_view tail;
    if ((mFlags & DT_PATH_ELLIPSIS) != 0) {
        const auto separator = text.find_last_of(u"\\/");
        tail = separator == std::u16string_view::npos ? tail : text.substr(separator);
    }
    const UnicodeString end = UnicodeString(Ellipsis) + UnicodeString(tail);
    const auto head = text.substr(0, text.size() - tail.size());
    const std::size_t kept = FittingLength(head, std::max(0, mWidth - WidthOf(end)));
    line.text = UnicodeString(head.substr(0, kept)) + end;
    line.width = WidthOf(line.text);
    if (line.underlined >= static_cast<int>(kept)) {
        line.underlined = -1;
    }
    return true;
}

} // namespace Graphics
