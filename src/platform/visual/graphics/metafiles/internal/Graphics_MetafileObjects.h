// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileFields.h"

#include <functional>
#include <queue>
#include <string>
#include <variant>
#include <vector>

namespace Graphics
{

/// A palette or region, which only takes its place.
struct TMetafileOther
{
};

/// What a metafile selects to draw with; the first kind is no object. Pens and fonts have the units of the
/// drawing.
using TMetafileObject = std::variant<std::monostate, TMetafileOther, Toolkits::TPenData, Toolkits::TBrushData,
                                     Toolkits::TFontData>;

/// A colour as files have it: red in the lowest byte.
constexpr Toolkits::TPixel PixelOfReference(unsigned reference)
{
    return Toolkits::OpaquePixel(reference, reference >> 8U, reference >> 16U);
}
constexpr unsigned ReferenceOfPixel(Toolkits::TPixel pixel)
{
    return (pixel >> 16U & 255U) | (pixel & 0xFF00U) | (pixel & 255U) << 16U;
}

// By the numbers of files; a style that isn't known is the solid one.

Toolkits::TPenData MetafilePen(unsigned style, int width, unsigned color);
Toolkits::TBrushData MetafileBrush(unsigned style, unsigned color, unsigned hatch);
/// One of those that every device has; no object for a number without one.
TMetafileObject StockObject(unsigned number);

/// The font whose fields begin at `offset`. Its name is in UTF-16 where numbers have four bytes.
template <class Number>
Toolkits::TFontData MetafileFont(const CByteView& record, std::size_t offset);

/// Writes what `MetafileFont` reads.
template <class Number>
void WriteMetafileFont(CByteWriter& record, const Toolkits::TFontData& font);

/// What `MetafileBrush` is given for a brush without a pattern.
struct TLogicalBrush
{
    unsigned style = 0;
    unsigned hatch = 0;
};

TLogicalBrush LogicalBrush(const Toolkits::TBrushData& brush);

/// The character set that has all of the text: `wanted` if it does, or if none does.
TFontCharset CharsetOf(const System::UnicodeString& text, TFontCharset wanted);
/// The bytes of a text in the character set; characters that it lacks become question marks.
std::string CharsetBytes(TFontCharset charset, const System::UnicodeString& text);

/// The code page of texts in a font with the character set.
unsigned CodePageOfCharset(TFontCharset charset);
/// A text of bytes in the character set, up to its first zero.
System::UnicodeString CharsetText(TFontCharset charset, std::span<const System::Byte> bytes);

/// The objects of a metafile by their numbers.
class CMetafileObjects
{
public:
    /// As many as the numbers of files can tell apart.
    static constexpr std::size_t MostCount = 65'536;

    /// `EInvalidGraphic` for a number beyond the limit.
    void Put(std::size_t number, TMetafileObject object);
    /// Gives it the lowest number that is free.
    void PutLowest(TMetafileObject object);
    void Delete(std::size_t number);
    /// No object if there is none.
    const TMetafileObject& Find(std::size_t number) const;

private:
    TMetafileObject mNone;
    std::vector<TMetafileObject> mObjects;
    /// Numbers below the highest one that became free; some may be in use again.
    std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>> mFree;
};

} // namespace Graphics
