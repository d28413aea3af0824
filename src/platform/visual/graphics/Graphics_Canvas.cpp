// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Canvas.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/internal/Graphics_Bezier.h"

#include <array>
#include <vector>

namespace Graphics
{

using Types::TPoint;
using Types::TRect;

System::TMetaClass* TCanvas::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCanvas>(u"TCanvas")
            .Property(u"Brush", &TCanvas::getBrush, &TCanvas::setBrush)
            .Property(u"CopyMode", &TCanvas::getCopyMode, &TCanvas::setCopyMode, {.defaultValue = cmSrcCopy})
            .Property(u"Font", &TCanvas::getFont, &TCanvas::setFont)
            .Property(u"Pen", &TCanvas::getPen, &TCanvas::setPen)
            .Build();
    return record;
}

TCanvas::TCanvas()
{
    InitializeCriticalSection(&mLock);
}

TCanvas::~TCanvas()
{
    DeleteCriticalSection(&mLock);
}

void TCanvas::setFont(TFont* font)
{
    mFont.Assign(font);
}

void TCanvas::setPen(TPen* pen)
{
    mPen.Assign(pen);
}

void TCanvas::setBrush(TBrush* brush)
{
    mBrush.Assign(brush);
}

HDC TCanvas::getHandle()
{
    if (mDevice == nullptr) {
        CreateHandle();
    }
    return mDevice;
}

void TCanvas::setHandle(HDC handle)
{
    mDevice = handle;
}

void TCanvas::CreateHandle() {}

Toolkits::PaintDevice& TCanvas::RequiredDevice()
{
    Toolkits::PaintDevice* const device = getHandle();
    if (device == nullptr) {
        throw EInvalidGraphicOperation(u"The canvas has nothing to draw on");
    }
    return *device;
}

void TCanvas::Changing()
{
    if (mOnChanging) {
        mOnChanging(this);
    }
}

void TCanvas::Changed()
{
    if (mOnChange) {
        mOnChange(this);
    }
}

template <class Call>
void TCanvas::Drawn(Call call)
{
    Changing();
    call(RequiredDevice());
    Changed();
}

TRect TCanvas::getClipRect()
{
    return RequiredDevice().ClipRect();
}

TPoint TCanvas::getPenPos() const
{
    if (mFontAtPen) {
        mPenPos.X += Toolkits::CurrentToolkit().TextExtent(mFontAtPen->data, mTextAtPen).cx;
        mFontAtPen = {};
        mTextAtPen = {};
    }
    return mPenPos;
}

void TCanvas::setPenPos(const TPoint& position)
{
    mPenPos = position;
    mFontAtPen = {};
    mTextAtPen = {};
}

void TCanvas::LineTo(int x, int y)
{
    const std::array points = {getPenPos(), TPoint{.X = x, .Y = y}};
    Polyline(points);
    setPenPos(points[1]);
}

void TCanvas::Polyline(std::span<const TPoint> points)
{
    Drawn([&](Toolkits::PaintDevice& device) { device.Polyline(points, mPen.getData()); });
}

void TCanvas::Polyline(const TPoint* points, int highest)
{
    Polyline(PointsOf(points, highest));
}

void TCanvas::PolyBezier(std::span<const TPoint> points)
{
    Polyline(FlattenBezier(points));
}

void TCanvas::PolyBezier(const TPoint* points, int highest)
{
    PolyBezier(PointsOf(points, highest));
}

void TCanvas::PolyBezierTo(std::span<const TPoint> points)
{
    std::vector<TPoint> all{getPenPos()};
    all.insert(all.end(), points.begin(), points.end());
    PolyBezier(all);
    setPenPos(all.back());
}

void TCanvas::Polygon(std::span<const TPoint> points)
{
    Drawn([&](Toolkits::PaintDevice& device) { device.Polygon(points, mPen.getData(), mBrush.getData()); });
}

void TCanvas::Polygon(const TPoint* points, int highest)
{
    Polygon(PointsOf(points, highest));
}

void TCanvas::FillRect(const TRect& rect)
{
    Drawn([&](Toolkits::PaintDevice& device) { device.FillRect(rect, mBrush.getData()); });
}

void TCanvas::FrameRect(const TRect& rect)
{
    if (rect.Left >= rect.Right || rect.Top >= rect.Bottom) {
        return;
    }
    Drawn([&](Toolkits::PaintDevice& device) {
        const Toolkits::TBrushData brush = mBrush.getData();
        device.FillRect({rect.Left, rect.Top, rect.Right, rect.Top + 1}, brush);
        device.FillRect({rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom}, brush);
        device.FillRect({rect.Left, rect.Top, rect.Left + 1, rect.Bottom}, brush);
        device.FillRect({rect.Right - 1, rect.Top, rect.Right, rect.Bottom}, brush);
    });
}

void TCanvas::Rectangle(int left, int top, int right, int bottom)
{
    RoundRect(left, top, right, bottom, 0, 0);
}

void TCanvas::Rectangle(const TRect& rect)
{
    RoundRect(rect, 0, 0);
}

void TCanvas::RoundRect(int left, int top, int right, int bottom, int width, int height)
{
    RoundRect({.Left = left, .Top = top, .Right = right, .Bottom = bottom}, width, height);
}

void TCanvas::RoundRect(const TRect& rect, int width, int height)
{
    Drawn([&](Toolkits::PaintDevice& device) {
        device.Rectangle(rect, {.cx = width, .cy = height}, mPen.getData(), mBrush.getData());
    });
}

void TCanvas::Ellipse(int left, int top, int right, int bottom)
{
    Ellipse({.Left = left, .Top = top, .Right = right, .Bottom = bottom});
}

void TCanvas::Ellipse(const TRect& rect)
{
    Drawn([&](Toolkits::PaintDevice& device) { device.Ellipse(rect, mPen.getData(), mBrush.getData()); });
}

void TCanvas::DrawArc(Toolkits::EArc kind, const TRect& rect, const TPoint& from, const TPoint& to)
{
    Drawn([&](Toolkits::PaintDevice& device) {
        device.Arc(kind, rect, from, to, mPen.getData(), mBrush.getData());
    });
}

void TCanvas::Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    DrawArc(Toolkits::EArc::Open, {x1, y1, x2, y2}, {x3, y3}, {x4, y4});
}

void TCanvas::Chord(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    DrawArc(Toolkits::EArc::Chord, {x1, y1, x2, y2}, {x3, y3}, {x4, y4});
}

void TCanvas::Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    DrawArc(Toolkits::EArc::Pie, {x1, y1, x2, y2}, {x3, y3}, {x4, y4});
}

void TCanvas::DrawFocusRect(const TRect& rect)
{
    Drawn([&](Toolkits::PaintDevice& device) { device.FocusRect(rect); });
}

void TCanvas::FloodFill(int x, int y, TColor color, TFillStyle style)
{
    Drawn([&](Toolkits::PaintDevice& device) {
        const auto kind = style == fsSurface ? Toolkits::EFlood::Surface : Toolkits::EFlood::Border;
        device.FloodFill({.X = x, .Y = y}, ColorToPixel(color), kind, mBrush.getData());
    });
}

TColor TCanvas::getPixels(int x, int y)
{
    Toolkits::TPixel pixel = 0;
    return RequiredDevice().GetPixel({.X = x, .Y = y}, pixel) ? PixelToColor(pixel) : TColor(-1);
}

void TCanvas::setPixels(int x, int y, TColor color)
{
    Drawn([&](Toolkits::PaintDevice& device) { device.SetPixel({.X = x, .Y = y}, ColorToPixel(color)); });
}

void TCanvas::Lock()
{
    EnterCriticalSection(&mLock);
    ++mLockCount;
}

bool TCanvas::TryLock()
{
    if (!TryEnterCriticalSection(&mLock)) {
        return false;
    }
    ++mLockCount;
    return true;
}

void TCanvas::Unlock()
{
    if (mLockCount > 0) {
        --mLockCount;
        LeaveCriticalSection(&mLock);
    }
}

} // namespace Graphics

namespace Typinfo
{

TTypeInfo GEnumType<Graphics::TCanvasOrientation>::Make()
{
    return EnumType(u"TCanvasOrientation", {u"coLeftToRight", u"coRightToLeft"});
}

} // namespace Typinfo
