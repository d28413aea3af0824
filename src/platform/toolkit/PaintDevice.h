// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Pixels.h"

namespace Toolkits
{

/// What lies within a closed line that crosses itself.
enum class EFillRule
{
    /// What a way out of crosses the line an odd number of times.
    EvenOdd,
    /// All that the line runs around.
    Winding
};

/// What areas are filled with: `pattern`, repeated, if there is one, else the style in the colour.
struct TBrushData
{
    TPixel color = OpaquePixel(255, 255, 255);
    Graphics::TBrushStyle style = Graphics::bsSolid;
    TSharedPixels pattern = {};
    /// For polygons.
    EFillRule rule = EFillRule::EvenOdd;

    friend bool operator==(const TBrushData&, const TBrushData&) = default;
};

/// What is drawn of an ellipse between two of its radii.
enum class EArc
{
    /// The line alone.
    Open,
    /// The line and the straight one between its ends, filled.
    Chord,
    /// The line and the two radii, filled.
    Pie
};

/// How a text is drawn.
struct TTextOptions
{
    TPixel color = OpaquePixel(0, 0, 0);
    /// What is below the text, where `isOpaque`.
    TPixel background = OpaquePixel(255, 255, 255);
    bool isOpaque = false;
    /// Whether the text as a whole reads from right to left.
    bool isRightToLeft = false;
    /// What the text is cut to; null for no such limit.
    const Types::TRect* clip = nullptr;
};

/// How an image is drawn.
struct TImageOptions
{
    /// Whether the alpha of the image counts; otherwise it covers what is there.
    bool hasAlpha = false;
    /// How much of an image with alpha covers what is there: 0 nothing, 255 as its alpha has it.
    unsigned char opacity = 255;
    /// What the image, what is there and the brush make: bit 4 * brush + 2 * image + there of the result. It
    /// is looked at where `hasAlpha` is false.
    unsigned char operation = CopyImage;
    /// The brush of the operations that have one.
    TPixel brush = OpaquePixel(255, 255, 255);

    /// The operation that puts the image in place of what is there.
    static constexpr unsigned char CopyImage = 0xCC;
};

/// What a flood ends at.
enum class EFlood
{
    /// At all colours but the one that is given.
    Surface,
    /// At the one that is given.
    Border
};

/// A surface to draw on, behind a canvas. Co-ordinates are pixels from the origin. Shapes lie within their
/// rectangle, lines leave their last point out. A pen that is clear draws no line, a brush that is clear no
/// filling; a pattern goes before the style. The device belongs to the thread of its window or picture.
class TRS8_BTL_API PaintDevice
{
public:
    PaintDevice() = default;
    PaintDevice(const PaintDevice&) = delete;
    PaintDevice& operator=(const PaintDevice&) = delete;
    virtual ~PaintDevice();

    /// Keeps origin and clip rectangle, and puts back what was kept last; without any, nothing happens.
    virtual void PushState() = 0;
    virtual void PopState() = 0;
    /// Moves the origin by so many pixels.
    virtual void MoveOrigin(int dx, int dy) = 0;
    /// Limits drawing to the rectangle, within the limit that there is.
    virtual void IntersectClip(const Types::TRect& rect) = 0;
    /// What can be drawn on at all; empty if nothing.
    virtual Types::TRect ClipRect() const = 0;

    /// The colour of a pixel; false if it can't be told, for one outside or of a surface that isn't kept.
    virtual bool GetPixel(const Types::TPoint& at, TPixel& color) const = 0;
    virtual void SetPixel(const Types::TPoint& at, TPixel color) = 0;
    /// The pixels of a rectangle; what is outside is transparent. False as of `GetPixel`.
    virtual bool ReadPixels(const Types::TRect& rect, Pixels& pixels) const = 0;

    /// Lines from point to point.
    virtual void Polyline(std::span<const Types::TPoint> points, const TPenData& pen) = 0;
    /// A closed shape, filled by the rule of the brush.
    virtual void Polygon(std::span<const Types::TPoint> points, const TPenData& pen,
                         const TBrushData& brush) = 0;
    /// A filling without a line.
    virtual void FillRect(const Types::TRect& rect, const TBrushData& brush) = 0;
    /// A rectangle whose corners are quarters of an ellipse of the size `corner`; square ones if that is 0.
    virtual void Rectangle(const Types::TRect& rect, const Types::TSize& corner, const TPenData& pen,
                           const TBrushData& brush) = 0;
    virtual void Ellipse(const Types::TRect& rect, const TPenData& pen, const TBrushData& brush) = 0;
    /// The part of the ellipse in `rect` from the radius through `from` counterclockwise to that through
    /// `to`.
    virtual void Arc(EArc kind, const Types::TRect& rect, const Types::TPoint& from, const Types::TPoint& to,
                     const TPenData& pen, const TBrushData& brush) = 0;

    /// One line of text; `at` is its upper left corner.
    virtual void Text(const Types::TPoint& at, const System::UnicodeString& text, const TFontData& font,
                      const TTextOptions& options) = 0;
    /// The part `source` of the image, stretched over `target`; a side of `target` the wrong way round
    /// mirrors it.
    virtual void Image(const Pixels& image, const Types::TRect& source, const Types::TRect& target,
                       const TImageOptions& options) = 0;
    /// The dotted frame around what has the focus. Drawn twice it is gone.
    virtual void FocusRect(const Types::TRect& rect) = 0;
    /// Fills what is around `at` up to the colour that `kind` tells of.
    virtual void FloodFill(const Types::TPoint& at, TPixel color, EFlood kind, const TBrushData& brush) = 0;
};

} // namespace Toolkits

/// A surface to draw on, as a handle: a canvas gets one, or makes it on demand.
using HDC = Toolkits::PaintDevice*;
