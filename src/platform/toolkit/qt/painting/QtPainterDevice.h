// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/headless/internal/PixelDevice.h"
#include "platform/toolkit/headless/internal/Shapes.h"
#include "platform/toolkit/qt/painting/QtScale.h"
#include "platform/toolkit/qt/painting/QtTexts.h"

#include <QImage>

#include <optional>
#include <vector>

class QPainter;
class QWidget;

namespace Toolkits
{

/// Draws a part of a widget on an image that has as many pixels as the part has on the screen. Texts, and
/// pictures that are stretched over broken pixels, are the painter's. Shapes are rows of whole pixels, as on
/// every toolkit: they are as sharp as the screen, and what is read back, mixed with a raster operation or
/// flooded has the colours that were drawn.
class CQtPainterDevice final : public PaintDevice
{
public:
    /// `part` is of the widget, not empty; all of it is `ground`.
    CQtPainterDevice(QWidget& widget, const Types::TRect& part, TPixel ground);
    ~CQtPainterDevice() override;

    /// Brings what was drawn into the widget, from its paint event.
    void Show(QWidget& widget);
    /// As `Show` of the widget, on which `painter` is at work.
    void Show(QPainter& painter);

    void PushState() override;
    void PopState() override;
    void MoveOrigin(int dx, int dy) override { mState.MoveOrigin(dx, dy); }
    void IntersectClip(const Types::TRect& rect) override;
    Types::TRect ClipRect() const override { return mState.ClipFromOrigin(); }
    bool GetPixel(const Types::TPoint& at, TPixel& color) const override;
    void SetPixel(const Types::TPoint& at, TPixel color) override;
    bool ReadPixels(const Types::TRect& rect, Pixels& pixels) const override;
    void Polyline(std::span<const Types::TPoint> points, const TPenData& pen) override;
    void Polygon(std::span<const Types::TPoint> points, const TPenData& pen,
                 const TBrushData& brush) override;
    void FillRect(const Types::TRect& rect, const TBrushData& brush) override;
    void Rectangle(const Types::TRect& rect, const Types::TSize& corner, const TPenData& pen,
                   const TBrushData& brush) override;
    void Ellipse(const Types::TRect& rect, const TPenData& pen, const TBrushData& brush) override;
    void Arc(EArc kind, const Types::TRect& rect, const Types::TPoint& from, const Types::TPoint& to,
             const TPenData& pen, const TBrushData& brush) override;
    void Text(const Types::TPoint& at, const System::UnicodeString& text, const TFontData& font,
              const TTextOptions& options) override;
    void Image(const Pixels& image, const Types::TRect& source, const Types::TRect& target,
               const TImageOptions& options) override;
    void FocusRect(const Types::TRect& rect) override;
    void FloodFill(const Types::TPoint& at, TPixel color, EFlood kind, const TBrushData& brush) override;

private:
    /// The pixels of a rectangle, its edges the right way round.
    Types::TRect Pixel(const Types::TRect& rect) const;
    /// What a pixel of the library covers.
    Types::TRect Cell(int x, int y) const;
    TBrushData Scaled(const TBrushData& brush);
    TPenData Scaled(TPenData pen) const;
    void Fill(const Types::TRect& pixels, TPixel color, Graphics::TPenMode mode);
    /// Where the line of a pen runs through for a place of the widget.
    Types::TPoint LinePlace(const Types::TPoint& place, const TPenData& pen) const;
    void DrawRound(const TRoundShape& shape, const TPenData& pen, const TBrushData& brush);
    std::vector<Types::TPoint> Places(std::span<const Types::TPoint> points) const;
    void DrawClosed(std::vector<Types::TPoint> places, const TPenData& pen, const TBrushData& brush);
    void DrawLines(std::span<const Types::TPoint> places, const TPenData& pen);
    /// A level or upright line of one of the library's pixels, which may be more than one here.
    void DrawStraight(const Types::TPoint& from, const Types::TPoint& to, const TPenData& pen);
    void DrawStrokes(std::span<const Types::TPoint> places, const TPenData& pen);
    bool DrawSmooth(const Pixels& image, const Types::TRect& source, const Types::TRect& target,
                    const TImageOptions& options);

    Types::TRect mPart;
    CQtScale mScale;
    Pixels mPixels;
    QImage mImage;
    CPixelDevice mShapes;
    /// In the pixels of the widget, as the library counts them.
    CDeviceState mState;
    std::optional<CQtTexts> mTexts;
    /// The last pattern that was scaled, and what came of it.
    TSharedPixels mPattern;
    TSharedPixels mScaledPattern;
};

} // namespace Toolkits
