// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/host/objects/Host_CriticalSection.h"
#include "platform/toolkit/PaintDevice.h"
#include "platform/visual/graphics/Graphics_Brush.h"
#include "platform/visual/graphics/Graphics_CopyMode.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "platform/visual/graphics/Graphics_Pen.h"
#include "platform/visual/graphics/Graphics_TextFormat.h"

#include <span>

namespace Graphics
{

class TGraphic;

/// The side on which a canvas begins.
enum TCanvasOrientation
{
    coLeftToRight,
    coRightToLeft
};

/// What a flood ends at: all colours but the given one, or that one.
enum TFillStyle
{
    fsSurface,
    fsBorder
};

/// What is drawn with: a font, a pen and a brush, over a device of the toolkit. Co-ordinates are pixels, `Y`
/// downwards. Shapes lie within their rectangle, lines leave their last point out. Where there is nothing to
/// draw on, a call that draws raises `EInvalidGraphicOperation`; texts can be measured all the same.
///
///     TCanvas* const canvas = bitmap.getCanvas();
///     canvas->getBrush()->setColor(clWhite);
///     canvas->FillRect(canvas->getClipRect());
///     canvas->getFont()->setStyle({fsBold});
///     canvas->TextOut(4, 4, u"Pressure");
class TRS8_BTL_API TCanvas : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TCanvas, Classes::TPersistent)

public:
    TCanvas();
    ~TCanvas() override;

    /// What texts, lines and areas are drawn with. The canvas owns them; writing copies.
    TFont* getFont() const noexcept { return &mFont; }
    void setFont(TFont* font);
    TPen* getPen() const noexcept { return &mPen; }
    void setPen(TPen* pen);
    TBrush* getBrush() const noexcept { return &mBrush; }
    void setBrush(TBrush* brush);

    /// What `Draw`, `StretchDraw` and `CopyRect` make of what is there; `cmSrcCopy` at first.
    TCopyMode getCopyMode() const noexcept { return mCopyMode; }
    void setCopyMode(TCopyMode mode) noexcept { mCopyMode = mode; }
    TCanvasOrientation getCanvasOrientation() const noexcept { return mOrientation; }
    void setCanvasOrientation(TCanvasOrientation orientation) noexcept { mOrientation = orientation; }

    /// The device that is drawn on, made on demand; null if there is none. A device that is set stays its
    /// maker's and must outlive its use here; null takes it away.
    HDC getHandle();
    void setHandle(HDC handle);
    /// Whether there is a device already.
    bool HandleAllocated() const noexcept { return mDevice != nullptr; }
    /// What can be drawn on.
    Types::TRect getClipRect();

    /// Where `LineTo` starts; also where the last text ended.
    Types::TPoint getPenPos() const;
    void setPenPos(const Types::TPoint& position);
    void MoveTo(int x, int y) { setPenPos({.X = x, .Y = y}); }
    /// A line from the pen's position, which moves to the end.
    void LineTo(int x, int y);
    void Polyline(std::span<const Types::TPoint> points);
    void Polyline(const Types::TPoint* points, int highest);
    /// A curve through the first point and each third one, which the others pull at.
    void PolyBezier(std::span<const Types::TPoint> points);
    void PolyBezier(const Types::TPoint* points, int highest);
    /// As `PolyBezier`, but from the pen's position, which moves to the end.
    void PolyBezierTo(std::span<const Types::TPoint> points);
    /// A closed shape in the pen, filled with the brush by the even-odd rule.
    void Polygon(std::span<const Types::TPoint> points);
    void Polygon(const Types::TPoint* points, int highest);

    /// Fills with the brush, without a line.
    void FillRect(const Types::TRect& rect);
    /// A frame, one pixel wide, in the brush.
    void FrameRect(const Types::TRect& rect);
    /// Shapes in the pen, filled with the brush.
    void Rectangle(int left, int top, int right, int bottom);
    void Rectangle(const Types::TRect& rect);
    void RoundRect(int left, int top, int right, int bottom, int width, int height);
    void RoundRect(const Types::TRect& rect, int width, int height);
    void Ellipse(int left, int top, int right, int bottom);
    void Ellipse(const Types::TRect& rect);
    /// The ellipse in the rectangle, from the radius through (x3, y3) counterclockwise to that through
    /// (x4, y4): its line; that closed by a straight one; that closed by the radii.
    void Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
    void Chord(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
    void Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
    /// The dotted frame of what has the focus; drawn twice it is gone.
    void DrawFocusRect(const Types::TRect& rect);
    /// Fills with the brush what is around the place.
    void FloodFill(int x, int y, TColor color, TFillStyle style);

    /// The measures of one line of text in the font.
    Types::TSize TextExtent(const System::UnicodeString& text) const;
    int TextWidth(const System::UnicodeString& text) const { return TextExtent(text).cx; }
    int TextHeight(const System::UnicodeString& text) const { return TextExtent(text).cy; }
    /// The measures of the font.
    Toolkits::TTextMetrics GetTextMetrics() const;
    /// One line of text, on the brush's colour if the brush is solid.
    void TextOut(int x, int y, const System::UnicodeString& text);
    /// As `TextOut`, but within the rectangle, which the brush fills first.
    void TextRect(const Types::TRect& rect, int x, int y, const System::UnicodeString& text);
    /// Lines of text by the `DT_...` flags, as `Graphics::DrawText`; `DT_MODIFYSTRING` changes `text` to what
    /// was drawn, `DT_CALCRECT` draws nothing and changes `rect`.
    int DrawText(System::UnicodeString& text, Types::TRect& rect, unsigned flags);
    /// As `DrawText`, with the flags as a set.
    void TextRect(Types::TRect& rect, System::UnicodeString& text, const TTextFormat& format = {});

    /// The graphic in its size, or stretched; null and an empty one draw nothing.
    void Draw(int x, int y, TGraphic* graphic);
    /// As `Draw`, but lets show through what is below: 0 all, 255 nothing.
    void Draw(int x, int y, TGraphic* graphic, unsigned char opacity);
    void StretchDraw(const Types::TRect& rect, TGraphic* graphic);
    /// A part of another canvas, or of the same one, stretched. Nothing of a canvas that isn't kept.
    void CopyRect(const Types::TRect& rect, TCanvas* source, const Types::TRect& sourceRect);
    /// A part of a bitmap, stretched, with the brush in place of `color`.
    void BrushCopy(const Types::TRect& rect, TBitmap* bitmap, const Types::TRect& sourceRect, TColor color);

    /// A pixel's colour; -1 as a colour where there is none.
    TColor getPixels(int x, int y);
    /// Nothing happens outside.
    void setPixels(int x, int y, TColor color);

    /// Keeps other threads from the canvas between the two, as far as they ask as well.
    void Lock();
    void Unlock();
    bool TryLock();
    int getLockCount() const noexcept { return mLockCount; }
    /// Lets the next call take font, pen and brush anew. They always are; the call is there for old callers.
    void Refresh() {}

    const Classes::TNotifyEvent& getOnChange() const noexcept { return mOnChange; }
    /// Called after each change of the picture.
    void setOnChange(const Classes::TNotifyEvent& event) { mOnChange = event; }
    const Classes::TNotifyEvent& getOnChanging() const noexcept { return mOnChanging; }
    /// Called before each change of the picture.
    void setOnChanging(const Classes::TNotifyEvent& event) { mOnChanging = event; }

protected:
    /// Sets the device by `setHandle`; called when one is needed and there is none.
    virtual void CreateHandle();
    virtual void Changing();
    virtual void Changed();
    /// The device to draw on; `EInvalidGraphicOperation` if there is none.
    Toolkits::PaintDevice& RequiredDevice();

private:
    friend class TGraphic;

    /// Calls the events around what `call` draws on the device.
    template <class Call>
    void Drawn(Call call);
    void DrawArc(Toolkits::EArc kind, const Types::TRect& rect, const Types::TPoint& from,
                 const Types::TPoint& to);
    void DrawLine(const System::UnicodeString& text, const Types::TPoint& at, const Types::TRect* clip);

    // A getter of a const canvas gives the objects themselves, as for any object that a class owns.
    mutable TFont mFont;
    mutable TPen mPen;
    mutable TBrush mBrush;
    Toolkits::PaintDevice* mDevice = nullptr;
    TCopyMode mCopyMode = cmSrcCopy;
    TCanvasOrientation mOrientation = coLeftToRight;
    // The text behind which the pen stands; it is measured when the place is asked for.
    mutable System::UnicodeString mTextAtPen;
    mutable System::GSharedBlock<TFontBlock> mFontAtPen;
    mutable Types::TPoint mPenPos;
    CRITICAL_SECTION mLock;
    int mLockCount = 0;
    Classes::TNotifyEvent mOnChange;
    Classes::TNotifyEvent mOnChanging;
};

} // namespace Graphics

namespace Typinfo
{

// The enumerations of a canvas, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Graphics::TCanvasOrientation>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
