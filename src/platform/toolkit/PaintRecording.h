// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/toolkit/PaintDevice.h"

namespace Toolkits
{

/// A device that keeps what is drawn, to draw it again on another one, in any size, or to tell it as text.
///
///     Toolkits::PaintRecording recording;
///     canvas.setHandle(&recording);
///     canvas.TextOut(2, 2, u"Pressure");
///     recording.AsText();     // text 2,2 "Pressure" font Tahoma -11 color #000000 on #FFFFFF
class TRS8_BTL_API PaintRecording final : public PaintDevice
{
public:
    PaintRecording();
    /// `bounds` is what `ClipRect` gives where nothing was clipped; otherwise 16,384 pixels each way.
    explicit PaintRecording(const Types::TRect& bounds);
    ~PaintRecording() override;

    /// Draws all of it on `device`, which keeps its origin and clip rectangle: what is at `from` comes to
    /// `to`, in which it is stretched. Nothing for an empty `from`.
    void Play(PaintDevice& device, const Types::TRect& from, const Types::TRect& to) const;
    /// Adds all that `other` has.
    void Append(const PaintRecording& other);
    /// The calls, one a line. A colour is #RRGGBB; what is usual isn't told: a solid pen of width 1, a brush
    /// that is solid, modes that copy.
    System::UnicodeString AsText() const;
    /// The smallest rectangle from the origin that has all that is drawn in it, whatever it is clipped to.
    Types::TSize Extent() const;
    /// Forgets all.
    void Clear();
    /// How many calls it holds.
    std::size_t Count() const noexcept;

    void PushState() override;
    void PopState() override;
    void MoveOrigin(int dx, int dy) override;
    void IntersectClip(const Types::TRect& rect) override;
    Types::TRect ClipRect() const override;
    /// Always false: no pixels are kept.
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
    struct TRecords;

    Types::TRect mBounds;
    System::GOwner<TRecords> mRecords;
};

} // namespace Toolkits
