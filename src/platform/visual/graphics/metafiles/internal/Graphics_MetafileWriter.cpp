// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileWriter.h"

#include "platform/visual/graphics/Graphics_CopyMode.h"
#include "platform/visual/graphics/internal/Graphics_Dib.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedWriter.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReading.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_OldWriter.h"

#include <algorithm>

namespace Graphics
{

using Toolkits::Pixels;
using Toolkits::TBrushData;
using Toolkits::TPenData;
using Types::TPoint;
using Types::TRect;
using Types::TSize;

namespace
{

TRect BoundsOf(const TSize& size)
{
    return {.Left = 0, .Top = 0, .Right = size.cx, .Bottom = size.cy};
}

unsigned NumberOf(TPenMode mode)
{
    unsigned number = 1;
    while (number < 16 && MetafilePenMode(number) != mode) {
        ++number;
    }
    return number;
}

unsigned NumberOf(Toolkits::EFillRule rule)
{
    return rule == Toolkits::EFillRule::EvenOdd ? 1 : 2;
}

Pixels Part(const Pixels& image, const TRect& part)
{
    Pixels pixels(part.Width(), part.Height());
    for (int y = 0; y < part.Height(); ++y) {
        std::ranges::copy(
            image.Row(part.Top + y)
                .subspan(static_cast<std::size_t>(part.Left), static_cast<std::size_t>(part.Width())),
            pixels.Row(y).begin());
    }
    return pixels;
}

/// Every other pixel is white, by its place in the picture.
Pixels DotsOf(const TRect& rect)
{
    Pixels pixels(rect.Width(), rect.Height(), Toolkits::OpaquePixel(0, 0, 0));
    for (int y = 0; y < rect.Height(); ++y) {
        for (int x = (rect.Left + rect.Top + y + 1) % 2; x < rect.Width(); x += 2) {
            pixels.At(x, y) = Toolkits::OpaquePixel(255, 255, 255);
        }
    }
    return pixels;
}

} // namespace

unsigned OperationNumber(unsigned char operation)
{
    // The lower half says again what the upper one does, in a way of its own.
    static constexpr std::array usual = {cmBlackness,   cmDstInvert, cmMergeCopy, cmMergePaint, cmNotSrcCopy,
                                         cmNotSrcErase, cmPatCopy,   cmPatInvert, cmPatPaint,   cmSrcAnd,
                                         cmSrcCopy,     cmSrcErase,  cmSrcInvert, cmSrcPaint,   cmWhiteness};
    const auto* const found = std::ranges::find(
        usual, operation, [](auto mode) { return MetafileOperation(static_cast<unsigned>(mode)); });
    return found == usual.end() ? static_cast<unsigned>(operation) << 16U : static_cast<unsigned>(*found);
}

CMetafileWriter::CMetafileWriter(const TSize& size) : mSize(size), mState(BoundsOf(size))
{
    // What holds at the beginning.
    mSelection.settings[FillRule] = NumberOf(Toolkits::EFillRule::EvenOdd);
}

CMetafileWriter::~CMetafileWriter() = default;

void CMetafileWriter::PutObject(std::size_t number, const TBrushData& brush)
{
    if (brush.pattern && !brush.pattern->IsEmpty()) {
        PutPattern(number, WriteDib(*brush.pattern, {}, brush.pattern->getHeight()));
    } else {
        PutObject(number, LogicalBrush(brush), ReferenceOfPixel(brush.color));
    }
}

template <class Object>
void CMetafileWriter::Use(GSelected<Object>& selected, const Object& wanted)
{
    if (selected.object == wanted) {
        return;
    }
    const auto number = static_cast<std::size_t>(std::ranges::find(mIsUsed, false) - mIsUsed.begin());
    mIsUsed.resize(std::max(mIsUsed.size(), number + 1));
    mIsUsed[number] = true;
    PutObject(number, wanted);
    PutSelect(number);
    Free(selected);
    selected = {.object = wanted, .number = number};
}

template <class Object>
void CMetafileWriter::Free(const GSelected<Object>& selected)
{
    if (selected.object) {
        PutDelete(selected.number);
        mIsUsed[selected.number] = false;
    }
}

void CMetafileWriter::Use(ESetting setting, unsigned value)
{
    if (mSelection.settings[setting] != value) {
        PutSetting(setting, value);
        mSelection.settings[setting] = value;
    }
}

void CMetafileWriter::UsePen(const TPenData& pen)
{
    Use(PenMode, NumberOf(pen.mode));
    TPenData selected = pen;
    selected.mode = pmCopy;
    Use(mSelection.pen, selected);
}

/// A device can only be given narrower limits, so each clip rectangle begins with what was before the first.
void CMetafileWriter::UseClip()
{
    const TRect& clip = mState.Clip();
    const bool isWanted = clip != BoundsOf(mSize);
    if (mClip && (!isWanted || *mClip != clip)) {
        PutEndOfClip();
        Free(mSelection.pen);
        Free(mSelection.brush);
        Free(mSelection.font);
        mSelection = mOutside;
        mClip.reset();
    }
    if (isWanted && !mClip) {
        PutClip(clip);
        mOutside = mSelection;
        // What is selected must stay until the clip rectangle ends.
        mSelection = {.pen = {}, .brush = {}, .font = {}, .settings = mSelection.settings};
        mClip = clip;
    }
}

std::vector<TPoint> CMetafileWriter::ToPicture(std::span<const TPoint> points) const
{
    std::vector<TPoint> places(points.size());
    std::ranges::transform(points, places.begin(),
                           [this](const TPoint& point) { return mState.ToDevice(point); });
    return places;
}

void CMetafileWriter::SetPixel(const TPoint& at, Toolkits::TPixel color)
{
    UseClip();
    PutPixel(mState.ToDevice(at), ReferenceOfPixel(color));
}

void CMetafileWriter::Polyline(std::span<const TPoint> points, const TPenData& pen)
{
    UseClip();
    UsePen(pen);
    PutPoints(ToPicture(points), false);
}

void CMetafileWriter::Polygon(std::span<const TPoint> points, const TPenData& pen, const TBrushData& brush)
{
    UseClip();
    UsePen(pen);
    Use(FillRule, NumberOf(brush.rule));
    TBrushData selected = brush;
    selected.rule = Toolkits::EFillRule::EvenOdd;
    Use(mSelection.brush, selected);
    PutPoints(ToPicture(points), true);
}

void CMetafileWriter::FillRect(const TRect& rect, const TBrushData& brush)
{
    UseClip();
    Use(mSelection.brush, brush);
    PutFill(ToPicture(rect));
}

void CMetafileWriter::Rectangle(const TRect& rect, const TSize& corner, const TPenData& pen,
                                const TBrushData& brush)
{
    UseClip();
    UsePen(pen);
    Use(mSelection.brush, brush);
    PutRectangle(ToPicture(rect), corner);
}

void CMetafileWriter::Ellipse(const TRect& rect, const TPenData& pen, const TBrushData& brush)
{
    UseClip();
    UsePen(pen);
    Use(mSelection.brush, brush);
    PutEllipse(ToPicture(rect));
}

void CMetafileWriter::Arc(Toolkits::EArc kind, const TRect& rect, const TPoint& from, const TPoint& to,
                          const TPenData& pen, const TBrushData& brush)
{
    UseClip();
    UsePen(pen);
    Use(mSelection.brush, brush);
    PutArc(kind, ToPicture(rect), mState.ToDevice(from), mState.ToDevice(to));
}

void CMetafileWriter::Text(const TPoint& at, const System::UnicodeString& text,
                           const Toolkits::TFontData& font, const Toolkits::TTextOptions& options)
{
    constexpr unsigned transparent = 1;
    constexpr unsigned opaque = 2;
    UseClip();
    const Toolkits::TFontData selected = FontFor(font, text);
    Use(mSelection.font, selected);
    Use(TextColor, ReferenceOfPixel(options.color));
    Use(BackgroundMode, options.isOpaque ? opaque : transparent);
    if (options.isOpaque) {
        Use(BackgroundColor, ReferenceOfPixel(options.background));
    }
    PutText(
        {.at = mState.ToDevice(at),
         .text = text,
         .font = selected,
         .options = (options.clip != nullptr ? toClipped : 0U) | (options.isRightToLeft ? toRightToLeft : 0U),
         .rect = options.clip != nullptr ? ToPicture(*options.clip) : TRect{}});
}

void CMetafileWriter::Image(const Pixels& image, const TRect& source, const TRect& target,
                            const Toolkits::TImageOptions& options)
{
    const TRect part = Toolkits::Intersection(source, image.Bounds());
    if (part == TRect{}) {
        return;
    }
    UseClip();
    const Pixels shown = part == image.Bounds() ? image : Part(image, part);
    const TRect place = mState.ToDevice(target);
    if (options.hasAlpha) {
        PutBlend(shown, place, options.opacity);
        return;
    }
    if ((options.operation >> 4U) != (options.operation & 15U)) {
        Use(mSelection.brush, TBrushData{.color = options.brush});
    }
    PutImage(shown, place, OperationNumber(options.operation));
}

/// There is no record for it: a picture of its dots inverts what is there.
void CMetafileWriter::FocusRect(const TRect& rect)
{
    UseClip();
    const TRect frame = ToPicture(rect);
    // A side that is there twice would be gone again.
    const int lowest = std::max(frame.Top + 1, frame.Bottom - 1);
    const int last = std::max(frame.Left + 1, frame.Right - 1);
    if (frame.Width() < 1 || frame.Height() < 1) {
        return;
    }
    for (const TRect& side : {TRect{frame.Left, frame.Top, frame.Right, frame.Top + 1},
                              TRect{frame.Left, lowest, frame.Right, frame.Bottom},
                              TRect{frame.Left, frame.Top + 1, frame.Left + 1, frame.Bottom - 1},
                              TRect{last, frame.Top + 1, frame.Right, frame.Bottom - 1}}) {
        const TRect seen = Toolkits::Intersection(side, BoundsOf(mSize));
        if (seen != TRect{}) {
            PutImage(DotsOf(seen), seen, static_cast<unsigned>(cmSrcInvert));
        }
    }
}

void CMetafileWriter::FloodFill(const TPoint& at, Toolkits::TPixel color, Toolkits::EFlood kind,
                                const TBrushData& brush)
{
    UseClip();
    Use(mSelection.brush, brush);
    PutFlood(mState.ToDevice(at), ReferenceOfPixel(color), kind == Toolkits::EFlood::Surface);
}

std::unique_ptr<CMetafileWriter> NewMetafileWriter(Toolkits::EPictureType type, const TSize& size,
                                                   const TMetafileNames& names)
{
    if (type == Toolkits::EPictureType::EnhancedMetafile) {
        return std::make_unique<CEnhancedWriter>(size, names);
    }
    return std::make_unique<COldWriter>(size);
}

} // namespace Graphics
