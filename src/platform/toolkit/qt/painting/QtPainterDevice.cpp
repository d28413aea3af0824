// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtPainterDevice.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/painting/QtPaintDevice.h"

#include <QWidget>

#include <algorithm>

namespace Toolkits
{

using Types::TPoint;
using Types::TRect;
using Types::TSize;

namespace
{

CQtScale ScaleOf(const QWidget& widget, const TRect& part)
{
    return {widget.devicePixelRatioF(), widget.mapTo(widget.window(), QPoint()), part};
}

Pixels PixelsFor(const CQtScale& scale, const TRect& part, TPixel ground)
{
    const TRect all = scale.Map(part);
    return {all.Right, all.Bottom, ground};
}

/// A view on pixels that all cover, which Qt draws on faster.
QImage CoveringView(Pixels& pixels)
{
    return {reinterpret_cast<uchar*>(pixels.All().data()), pixels.getWidth(), pixels.getHeight(),
            static_cast<qsizetype>(pixels.getWidth()) * static_cast<qsizetype>(sizeof(TPixel)),
            QImage::Format_RGB32};
}

TBrushGrid GridOf(const CQtScale& scale)
{
    const TBrushGrid usual;
    return {.origin = scale.Map(usual.origin),
            .lineDistance = scale.Length(usual.lineDistance),
            .lineWidth = scale.Length(usual.lineWidth)};
}

TPenData Held(TPenData pen)
{
    pen.width = std::min(pen.width, FarthestPlace / 16);
    return pen;
}

} // namespace

CQtPainterDevice::CQtPainterDevice(QWidget& widget, const TRect& part, TPixel ground)
    : mPart(part),
      mScale(ScaleOf(widget, part)),
      mPixels(PixelsFor(mScale, part, ground)),
      mImage(CoveringView(mPixels)),
      mShapes(mPixels, GridOf(mScale)),
      mState(part)
{
}

CQtPainterDevice::~CQtPainterDevice() = default;

void CQtPainterDevice::Show(QWidget& widget)
{
    QPainter painter(&widget);
    Show(painter);
}

void CQtPainterDevice::Show(QPainter& painter)
{
    mTexts.reset();
    painter.save();
    // Each pixel comes to its own place.
    painter.scale(1 / mScale.Factor(), 1 / mScale.Factor());
    painter.drawImage(mScale.First(), mImage);
    painter.restore();
}

void CQtPainterDevice::PushState()
{
    mState.Push();
    mShapes.PushState();
}

void CQtPainterDevice::PopState()
{
    mState.Pop();
    mShapes.PopState();
}

void CQtPainterDevice::IntersectClip(const TRect& rect)
{
    mState.Intersect(rect);
    mShapes.IntersectClip(mScale.Map(mState.Clip()));
}

TRect CQtPainterDevice::Pixel(const TRect& rect) const
{
    return mScale.Map(Normalized(mState.ToDevice(rect)));
}

TRect CQtPainterDevice::Cell(int x, int y) const
{
    return mScale.Map(TRect{.Left = x, .Top = y, .Right = x + 1, .Bottom = y + 1});
}

TPenData CQtPainterDevice::Scaled(TPenData pen) const
{
    pen.width = mScale.Length(std::max(1, pen.width));
    return pen;
}

TBrushData CQtPainterDevice::Scaled(const TBrushData& brush)
{
    if (!brush.pattern || brush.pattern->IsEmpty() || mScale.IsOne()) {
        return brush;
    }
    const Pixels& pattern = *brush.pattern;
    const int width = mScale.Length(pattern.getWidth());
    const int height = mScale.Length(pattern.getHeight());
    if (!Pixels::IsSize(width, height)) {
        return brush;
    }
    if (brush.pattern != mPattern) {
        auto* const scaled = new Pixels(width, height);
        mScaledPattern = TSharedPixels(scaled);
        CPixelDevice(*scaled).Image(pattern, pattern.Bounds(), scaled->Bounds(), {});
        mPattern = brush.pattern;
    }
    TBrushData shown = brush;
    shown.pattern = mScaledPattern;
    return shown;
}

bool CQtPainterDevice::GetPixel(const TPoint& at, TPixel& color) const
{
    return mShapes.GetPixel(mScale.Middle(mState.ToDevice(at)), color);
}

void CQtPainterDevice::SetPixel(const TPoint& at, TPixel color)
{
    const auto& [x, y] = mState.ToDevice(at);
    mShapes.FillRect(Cell(x, y), {.color = color});
}

bool CQtPainterDevice::ReadPixels(const TRect& rect, Pixels& pixels) const
{
    const TRect all = mState.ToDevice(rect);
    if (mScale.IsOne()) {
        return mShapes.ReadPixels(mScale.Map(all), pixels);
    }
    pixels = Pixels(std::max(0, all.Width()), std::max(0, all.Height()));
    const TRect seen = Intersection(all, mPart);
    for (int y = seen.Top; y < seen.Bottom; ++y) {
        for (int x = seen.Left; x < seen.Right; ++x) {
            const TPoint from = mScale.Middle({.X = x, .Y = y});
            if (mPixels.Contains(from.X, from.Y)) {
                pixels.At(x - all.Left, y - all.Top) = mPixels.At(from.X, from.Y);
            }
        }
    }
    return true;
}

void CQtPainterDevice::FillRect(const TRect& rect, const TBrushData& brush)
{
    mShapes.FillRect(Pixel(rect), Scaled(brush));
}

void CQtPainterDevice::Fill(const TRect& pixels, TPixel color, Graphics::TPenMode mode)
{
    mShapes.Rectangle(pixels, {}, {.style = Graphics::psClear, .mode = mode}, {.color = color});
}

void CQtPainterDevice::DrawRound(const TRoundShape& shape, const TPenData& pen, const TBrushData& brush)
{
    const TRoundShape outer = OuterEdge(shape, Held(pen));
    TPenData inner = Scaled(Held(pen));
    if (inner.style != Graphics::psClear) {
        inner.style = Graphics::psInsideFrame;
    }
    const TRect rect = mScale.Map(outer.rect);
    const bool isEllipse = outer.corner.cx == outer.rect.Width() && outer.corner.cy == outer.rect.Height();
    const TSize corner =
        isEllipse ? TSize{.cx = rect.Width(), .cy = rect.Height()}
                  : TSize{.cx = mScale.Length(outer.corner.cx), .cy = mScale.Length(outer.corner.cy)};
    mShapes.Rectangle(rect, corner, inner, Scaled(brush));
}

void CQtPainterDevice::Rectangle(const TRect& rect, const TSize& corner, const TPenData& pen,
                                 const TBrushData& brush)
{
    const TRect shape = Normalized(mState.ToDevice(rect));
    DrawRound({.rect = shape,
               .corner = {.cx = std::clamp(corner.cx, 0, shape.Width()),
                          .cy = std::clamp(corner.cy, 0, shape.Height())}},
              pen, brush);
}

void CQtPainterDevice::Ellipse(const TRect& rect, const TPenData& pen, const TBrushData& brush)
{
    const TRect shape = Normalized(mState.ToDevice(rect));
    DrawRound({.rect = shape, .corner = {.cx = shape.Width(), .cy = shape.Height()}}, pen, brush);
}

void CQtPainterDevice::Text(const TPoint& at, const System::UnicodeString& text, const TFontData& font,
                            const TTextOptions& options)
{
    const TRect clip =
        options.clip == nullptr ? mState.Clip() : Intersection(mState.Clip(), mState.ToDevice(*options.clip));
    // Of less than half a pixel nothing is seen.
    if (mPixels.IsEmpty()) {
        return;
    }
    if (!mTexts) {
        mTexts.emplace(mImage, mScale.Factor());
    }
    mTexts->Draw(mScale.Map(mState.ToDevice(at)), text, font, options, mScale.Map(clip));
}

void CQtPainterDevice::Image(const Pixels& image, const TRect& source, const TRect& target,
                             const TImageOptions& options)
{
    const TRect onto = mScale.Map(mState.ToDevice(target));
    if (!DrawSmooth(image, source, onto, options)) {
        mShapes.Image(image, source, onto, options);
    }
}

bool CQtPainterDevice::DrawSmooth(const Pixels& image, const TRect& source, const TRect& target,
                                  const TImageOptions& options)
{
    const bool isMixed = !options.hasAlpha && options.operation != TImageOptions::CopyImage;
    const bool isWhole = std::floor(mScale.Factor()) == mScale.Factor();
    const bool isUpright = source.Left < source.Right && source.Top < source.Bottom &&
                           target.Left < target.Right && target.Top < target.Bottom;
    if (mPixels.IsEmpty() || isMixed || isWhole || !isUpright ||
        Intersection(source, image.Bounds()) != source) {
        return false;
    }
    const QImage view = ViewOf(image);
    mTexts.reset();
    QPainter painter(&mImage);
    painter.setClipRect(ToQRect(mScale.Map(mState.Clip())));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(options.hasAlpha ? options.opacity / 255.0 : 1.0);
    painter.drawImage(ToQRect(target),
                      options.hasAlpha ? view
                                       : QImage(view.constBits(), view.width(), view.height(),
                                                view.bytesPerLine(), QImage::Format_RGB32),
                      ToQRect(source));
    return true;
}

void CQtPainterDevice::FocusRect(const TRect& rect)
{
    // By the places of the widget, so that the dots are the same ones whatever part of it is drawn.
    EachFocusDot(Normalized(mState.ToDevice(rect)), mState.Clip(),
                 [this](int x, int y) { Fill(Cell(x, y), 0, Graphics::pmNot); });
}

void CQtPainterDevice::FloodFill(const TPoint& at, TPixel color, EFlood kind, const TBrushData& brush)
{
    mShapes.FloodFill(mScale.Middle(mState.ToDevice(at)), color, kind, Scaled(brush));
}

} // namespace Toolkits
