// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileObjects.h"

#include "platform/base/System_CodePage.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace Graphics
{

namespace
{

using Toolkits::OpaquePixel;
using Toolkits::TBrushData;
using Toolkits::TFontData;
using Toolkits::TPenData;

constexpr std::size_t NameLength = 32;
constexpr int BoldWeight = 600;

struct TCharset
{
    TFontCharset number;
    unsigned codePage;
};

/// The first stands for those that aren't here.
constexpr TCharset Charsets[] = {{0, 1252},   {238, 1250}, {204, 1251}, {161, 1253}, {162, 1254},
                                 {177, 1255}, {178, 1256}, {186, 1257}, {163, 1258}, {222, 874},
                                 {128, 932},  {134, 936},  {129, 949},  {136, 950}};

TMetafileObject SolidBrush(unsigned grey)
{
    return TBrushData{.color = OpaquePixel(grey, grey, grey)};
}

TMetafileObject StockPen(unsigned grey, TPenStyle style)
{
    return TPenData{.color = OpaquePixel(grey, grey, grey), .style = style};
}

TMetafileObject StockFont(const System::WideChar* name, TFontPitch pitch)
{
    return TFontData{.name = name, .height = -12, .pitch = pitch};
}

System::UnicodeString NameAt(const CByteView& record, std::size_t offset, std::size_t length)
{
    System::UnicodeString name;
    for (std::size_t i = 0; i < length; ++i) {
        const auto unit = static_cast<System::WideChar>(record.At16(offset + 2 * i));
        if (unit == 0) {
            break;
        }
        name += unit;
    }
    return name;
}

} // namespace

TPenData MetafilePen(unsigned style, int width, unsigned color)
{
    // The lower bits are the style of the line; its ends and joints are the toolkit's choice.
    static constexpr std::array styles = {psSolid, psDash,        psDot,  psDashDot, psDashDotDot,
                                          psClear, psInsideFrame, psDash, psDot};
    const std::size_t line = style & 15U;
    return {.color = PixelOfReference(color),
            .width = std::clamp(width, 0, Toolkits::Pixels::MaximumExtent),
            .style = line < styles.size() ? styles[line] : psSolid};
}

TBrushData MetafileBrush(unsigned style, unsigned color, unsigned hatch)
{
    constexpr unsigned clear = 1;
    constexpr unsigned hatched = 2;
    static constexpr std::array hatches = {bsHorizontal, bsVertical, bsFDiagonal,
                                           bsBDiagonal,  bsCross,    bsDiagCross};
    TBrushData brush{.color = PixelOfReference(color)};
    if (style == clear) {
        brush.style = bsClear;
    } else if (style == hatched && hatch < hatches.size()) {
        brush.style = hatches[hatch];
    }
    return brush;
}

TMetafileObject StockObject(unsigned number)
{
    switch (number) {
    case 0:
    case 18:
        return SolidBrush(255);
    case 1:
        return SolidBrush(0xC0);
    case 2:
        return SolidBrush(0x80);
    case 3:
        return SolidBrush(0x40);
    case 4:
        return SolidBrush(0);
    case 5:
        return TBrushData{.style = bsClear};
    case 6:
        return StockPen(255, psSolid);
    case 7:
    case 19:
        return StockPen(0, psSolid);
    case 8:
        return StockPen(0, psClear);
    case 10:
    case 11:
    case 16:
        return StockFont(u"Courier New", fpFixed);
    case 12:
    case 13:
    case 14:
    case 17:
        return StockFont(u"Tahoma", fpDefault);
    default:
        return {};
    }
}

template <class Number>
TFontData MetafileFont(const CByteView& record, std::size_t offset)
{
    using TFields = GMetafileFields<Number>;
    constexpr unsigned fixedPitch = 1;
    constexpr unsigned variablePitch = 2;
    const auto number = [&](std::size_t place) {
        return TFields::At(record, offset + place * TFields::Size);
    };
    const std::size_t bytes = offset + 5 * TFields::Size;
    TFontData font{.height = number(0),
                   .charset = static_cast<TFontCharset>(record.At8(bytes + 3)),
                   .orientation = number(2) % 3600};
    for (const auto& [isSet, style] : {std::pair(number(4) >= BoldWeight, fsBold),
                                       {record.At8(bytes) != 0, fsItalic},
                                       {record.At8(bytes + 1) != 0, fsUnderline},
                                       {record.At8(bytes + 2) != 0, fsStrikeOut}}) {
        if (isSet) {
            font.styles << style;
        }
    }
    const unsigned quality = record.At8(bytes + 6);
    font.quality = quality <= fqClearTypeNatural ? static_cast<TFontQuality>(quality) : fqDefault;
    const unsigned pitch = record.At8(bytes + 7) & 3U;
    font.pitch = pitch == fixedPitch ? fpFixed : pitch == variablePitch ? fpVariable : fpDefault;
    const std::size_t name = bytes + 8;
    if constexpr (TFields::Size == 4) {
        font.name = NameAt(record, name, NameLength);
    } else {
        const std::size_t length = name < record.Size() ? std::min(NameLength, record.Size() - name) : 0;
        font.name = length == 0 ? System::UnicodeString() : CharsetText(0, record.Part(name, length));
    }
    return font;
}

template TFontData MetafileFont<std::int16_t>(const CByteView& record, std::size_t offset);
template TFontData MetafileFont<std::int32_t>(const CByteView& record, std::size_t offset);

template <class Number>
void WriteMetafileFont(CByteWriter& record, const TFontData& font)
{
    constexpr int boldWeight = 700;
    constexpr int normalWeight = 400;
    constexpr bool isWide = sizeof(Number) == 4;
    const int weight = font.styles.Contains(fsBold) ? boldWeight : normalWeight;
    for (const int number : {font.height, 0, font.orientation, font.orientation, weight}) {
        isWide ? record.Put32(static_cast<unsigned>(number))
               : record.Put16(static_cast<unsigned>(number) & 0xFFFFU);
    }
    for (const TFontStyle style : {fsItalic, fsUnderline, fsStrikeOut}) {
        record.Put8(font.styles.Contains(style) ? 1U : 0U);
    }
    record.Put8(font.charset);
    record.Put16(0);
    record.Put8(static_cast<unsigned>(font.quality));
    record.Put8(font.pitch == fpFixed ? 1U : font.pitch == fpVariable ? 2U : 0U);
    const auto putName = [&](const auto& name) {
        for (std::size_t i = 0; i < NameLength; ++i) {
            // The last one is always the end.
            const unsigned unit = i + 1 < NameLength && i < name.size() ? static_cast<unsigned>(name[i]) : 0U;
            isWide ? record.Put16(unit & 0xFFFFU) : record.Put8(unit & 0xFFU);
        }
    };
    if constexpr (isWide) {
        putName(font.name.AsView());
    } else {
        putName(CharsetBytes(0, font.name));
    }
}

template void WriteMetafileFont<std::int16_t>(CByteWriter& record, const TFontData& font);
template void WriteMetafileFont<std::int32_t>(CByteWriter& record, const TFontData& font);

TLogicalBrush LogicalBrush(const TBrushData& brush)
{
    switch (brush.style) {
    case bsSolid:
        return {};
    case bsClear:
        return {.style = 1};
    default:
        return {.style = 2, .hatch = static_cast<unsigned>(brush.style - bsHorizontal)};
    }
}

TFontCharset CharsetOf(const System::UnicodeString& text, TFontCharset wanted)
{
    const auto hasAll = [&](TFontCharset charset) {
        const auto page = static_cast<System::CodePage>(CodePageOfCharset(charset));
        return System::UnicodeString(System::DecodeText(page, CharsetBytes(charset, text))) == text;
    };
    if (hasAll(wanted)) {
        return wanted;
    }
    const auto* const found =
        std::ranges::find_if(Charsets, [&](const TCharset& charset) { return hasAll(charset.number); });
    return found == std::ranges::end(Charsets) ? wanted : found->number;
}

std::string CharsetBytes(TFontCharset charset, const System::UnicodeString& text)
{
    const auto bytes =
        System::EncodeText(static_cast<System::CodePage>(CodePageOfCharset(charset)), text.AsView());
    return std::string(bytes.AsView());
}

unsigned CodePageOfCharset(TFontCharset charset)
{
    const auto* const found = std::ranges::find(Charsets, charset, &TCharset::number);
    return found == std::ranges::end(Charsets) ? Charsets[0].codePage : found->codePage;
}

System::UnicodeString CharsetText(TFontCharset charset, std::span<const System::Byte> bytes)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return System::UnicodeString(System::DecodeText(static_cast<System::CodePage>(CodePageOfCharset(charset)),
                                                    text.substr(0, text.find('\0'))));
}

void CMetafileObjects::Put(std::size_t number, TMetafileObject object)
{
    if (number >= MostCount) {
        ThrowMetafileDamaged();
    }
    for (std::size_t free = mObjects.size(); free < number; ++free) {
        mFree.push(free);
    }
    if (number >= mObjects.size()) {
        mObjects.resize(number + 1);
    }
    mObjects[number] = std::move(object);
}

void CMetafileObjects::PutLowest(TMetafileObject object)
{
    while (!mFree.empty() && Find(mFree.top()).index() != 0) {
        mFree.pop();
    }
    std::size_t number = mObjects.size();
    if (!mFree.empty()) {
        number = mFree.top();
        mFree.pop();
    }
    Put(number, std::move(object));
}

void CMetafileObjects::Delete(std::size_t number)
{
    if (number < mObjects.size() && mObjects[number].index() != 0) {
        mObjects[number] = {};
        mFree.push(number);
    }
}

const TMetafileObject& CMetafileObjects::Find(std::size_t number) const
{
    return number < mObjects.size() ? mObjects[number] : mNone;
}

} // namespace Graphics
