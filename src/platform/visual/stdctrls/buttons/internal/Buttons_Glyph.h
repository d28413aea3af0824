// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/visual/controls/Controls_Control.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/stdctrls/buttons/Buttons_Types.h"

#include <memory>

namespace Buttons
{

/// The picture of a button, in as many parts as there are states, and how it is laid out with the caption.
class TRS8_BTL_API CButtonGlyph
{
public:
    CButtonGlyph();
    ~CButtonGlyph();
    CButtonGlyph(const CButtonGlyph&) = delete;
    CButtonGlyph& operator=(const CButtonGlyph&) = delete;

    Graphics::TBitmap* Bitmap() const noexcept { return mBitmap.get(); }
    /// Takes a copy, and as many parts as a picture that is a whole number of times as wide as high has.
    void Assign(Graphics::TBitmap* bitmap);
    /// 1 to 4.
    int getParts() const noexcept { return mParts; }
    void setParts(int parts);
    /// The size of a part.
    Types::TSize PartSize() const;

    /// How picture and caption stand to each other; -1 puts them into the middle.
    struct TPlacing
    {
        TButtonLayout layout = blGlyphLeft;
        int margin = -1;
        int spacing = 4;
    };
    /// Draws both within the rectangle, in the middle of it across the layout.
    void Draw(const Controls::TControl& control, Graphics::TCanvas& canvas, const Types::TRect& rect,
              const TPlacing& placing, TButtonState state, bool isWrapped) const;
    /// The corner of the picture, and the rectangle of the caption, of those sizes.
    static std::pair<Types::TPoint, Types::TRect> Place(const Types::TRect& rect, const TPlacing& placing,
                                                        const Types::TSize& glyph, const Types::TSize& text);

    /// Called after each change.
    void setOnChange(const Classes::TNotifyEvent& event) { mOnChange = event; }

private:
    void BitmapChanged(System::TObject* sender);
    void DrawPart(Graphics::TCanvas& canvas, const Types::TPoint& place, TButtonState state) const;

    std::unique_ptr<Graphics::TBitmap> mBitmap;
    int mParts = 1;
    Classes::TNotifyEvent mOnChange;
};

/// A picture for a button's kind; the caller owns it. Null for `bkCustom`.
std::unique_ptr<Graphics::TBitmap> MakeKindGlyph(TBitBtnKind kind);

} // namespace Buttons
