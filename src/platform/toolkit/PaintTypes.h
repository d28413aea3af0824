// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/base/System_String.h"
#include "platform/base/Sysutils_Exception.h"

#include <cstdint>

namespace Graphics
{

/// A picture that can't be read or written: damaged, of an unknown type, larger than a picture can be, or of
/// a type that the toolkit has no codec for. The message tells which.
class TRS8_BTL_API EInvalidGraphic : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EInvalidGraphic() override;
};

/// What a picture or canvas can't do: a size it can't have, drawing where there is nothing to draw on.
class TRS8_BTL_API EInvalidGraphicOperation : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EInvalidGraphicOperation() override;
};

/// The styles of a font, in any mixture.
enum TFontStyle
{
    fsBold,
    fsItalic,
    fsUnderline,
    fsStrikeOut
};

/// `TFontStyles() << fsBold << fsItalic`.
using TFontStyles = System::Set<TFontStyle, fsBold, fsStrikeOut>;

/// Whether all characters of a font are of one width.
enum TFontPitch
{
    fpDefault,
    fpVariable,
    fpFixed
};

/// How the edges of characters are smoothed.
enum TFontQuality
{
    fqDefault,
    fqDraft,
    fqProof,
    fqNonAntialiased,
    fqAntialiased,
    fqClearType,
    fqClearTypeNatural
};

/// A character set by its number: 0 Western, 1 whatever the user's locale has, 2 symbols.
using TFontCharset = unsigned char;

/// How a line is broken; `psInsideFrame` keeps the width of a frame within its shape.
enum TPenStyle
{
    psSolid,
    psDash,
    psDot,
    psDashDot,
    psDashDotDot,
    psClear,
    psInsideFrame
};

/// What a line or filling makes of the colour that is there: `pmMaskPenNot` is the colour and not what is
/// there, `pmMergeNotPen` the inverted colour or what is there, and so on.
enum TPenMode
{
    pmBlack,
    pmWhite,
    pmNop,
    pmNot,
    pmCopy,
    pmNotCopy,
    pmMergePenNot,
    pmMaskPenNot,
    pmMergeNotPen,
    pmMaskNotPen,
    pmMerge,
    pmNotMerge,
    pmMask,
    pmNotMask,
    pmXor,
    pmNotXor
};

/// What an area is filled with: a colour, nothing, or lines in the colour.
enum TBrushStyle
{
    bsSolid,
    bsClear,
    bsHorizontal,
    bsVertical,
    bsFDiagonal,
    bsBDiagonal,
    bsCross,
    bsDiagCross
};

} // namespace Graphics

namespace Toolkits
{

/// A colour as a toolkit has it: 0xAARRGGBB, alpha 255 for one that covers what is below it.
using TPixel = std::uint32_t;

/// A colour that covers.
constexpr TPixel OpaquePixel(unsigned red, unsigned green, unsigned blue)
{
    return 0xFF000000U | (red & 255U) << 16U | (green & 255U) << 8U | (blue & 255U);
}

/// What a font is asked for by.
struct TFontData
{
    System::UnicodeString name = {};
    /// In pixels at 96 dots an inch: negative the height of the characters, positive that of a line, 0 the
    /// toolkit's choice.
    int height = -11;
    Graphics::TFontStyles styles = {};
    Graphics::TFontCharset charset = 1;
    Graphics::TFontPitch pitch = Graphics::fpDefault;
    Graphics::TFontQuality quality = Graphics::fqDefault;
    /// Tenths of a degree, counterclockwise.
    int orientation = 0;

    friend bool operator==(const TFontData&, const TFontData&) = default;
};

/// What lines are drawn with.
struct TPenData
{
    TPixel color = OpaquePixel(0, 0, 0);
    int width = 1;
    Graphics::TPenStyle style = Graphics::psSolid;
    Graphics::TPenMode mode = Graphics::pmCopy;

    friend bool operator==(const TPenData&, const TPenData&) = default;
};

/// The measures of a font in pixels.
struct TTextMetrics
{
    /// A line: ascent and descent.
    int height = 0;
    int ascent = 0;
    int descent = 0;
    /// What a line has above the height of the characters, and what is between two lines.
    int internalLeading = 0;
    int externalLeading = 0;
    int averageWidth = 0;
    int maximumWidth = 0;
    /// What a character that was made bold or italic by force sticks out.
    int overhang = 0;

    friend bool operator==(const TTextMetrics&, const TTextMetrics&) = default;
};

} // namespace Toolkits
