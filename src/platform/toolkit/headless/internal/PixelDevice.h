// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/headless/internal/SpanFiller.h"
#include "platform/toolkit/internal/DeviceState.h"

namespace Toolkits
{

/// Draws on pixels without a screen, the same ones on each machine. Characters are blocks; a toolkit that has
/// fonts derives from it.
class TRS8_BTL_API CPixelDevice : public PaintDevice
{
public:
    explicit CPixelDevice(Pixels& pixels, const TBrushGrid& grid = {});
    ~CPixelDevice() override;

    void PushState() override { mState.Push(); }
    void PopState() override { mState.Pop(); }
    void MoveOrigin(int dx, int dy) override { mState.MoveOrigin(dx, dy); }
    void IntersectClip(const Types::TRect& rect) override { mState.Intersect(rect); }
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

protected:
    Pixels& GetPixels() noexcept { return mPixels; }
    const CDeviceState& State() const noexcept { return mState; }

private:
    CSpanFiller Filler(const TBrushData& brush, Graphics::TPenMode mode = Graphics::pmCopy) const;
    CSpanFiller Filler(const TPenData& pen) const;
    bool IsVisible(const Types::TPoint& pixel) const;
    std::vector<Types::TPoint> ToDevice(std::span<const Types::TPoint> points) const;
    /// Points that are the device's already.
    void DrawClosed(std::vector<Types::TPoint> points, const TPenData& pen, const TBrushData& brush);
    void DrawShape(const Types::TRect& rect, const Types::TSize& corner, const TPenData& pen,
                   const TBrushData& brush);
    void MixPixel(TPixel& there, TPixel image, const TImageOptions& options) const;

    Pixels& mPixels;
    TBrushGrid mGrid;
    CDeviceState mState;
};

} // namespace Toolkits
