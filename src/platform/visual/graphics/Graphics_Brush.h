// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/visual/graphics/Graphics_Color.h"
#include "platform/visual/graphics/Graphics_Object.h"

namespace Graphics
{

class TBitmap;

/// What a canvas fills areas with: solid white at first.
///
///     canvas->getBrush()->setColor(clBtnFace);
///     canvas->getBrush()->setStyle(bsSolid);
///     canvas->FillRect(rect);
class TRS8_BTL_API TBrush : public TGraphicsObject
{
    TRS8_BTL_CLASS(TBrush, TGraphicsObject)

public:
    TBrush() = default;
    ~TBrush() override;

    void Assign(TPersistent* source) override;

    TColor getColor() const noexcept { return mColor; }
    /// Makes a clear brush solid.
    void setColor(TColor color);
    TBrushStyle getStyle() const noexcept { return mStyle; }
    void setStyle(TBrushStyle style);

    /// Whether areas are filled with the colour alone; texts then stand on it.
    bool IsSolid() const noexcept { return mStyle == bsSolid && !mPattern; }

    /// What areas are tiled with, in place of the style; null for none. A change of colour or style ends it.
    /// The brush doesn't own it and doesn't look at it again: it keeps the pixels that the bitmap had when it
    /// was set.
    TBitmap* getBitmap() const noexcept { return mBitmap; }
    void setBitmap(TBitmap* bitmap);

    /// The brush as a device fills with it.
    Toolkits::TBrushData getData() const;

private:
    void Put(TColor color, TBrushStyle style);

    TColor mColor = clWhite;
    TBrushStyle mStyle = bsSolid;
    TBitmap* mBitmap = nullptr;
    Toolkits::TSharedPixels mPattern;
};

} // namespace Graphics

namespace Typinfo
{

/// The styles of a brush by their names.
template <>
struct TRS8_BTL_API GEnumType<Graphics::TBrushStyle>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
