// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Buttons_BitBtn.h"

#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/buttons/internal/Buttons_Glyph.h"

namespace
{

using namespace Buttons;

class BitBtnTest : public Support::ShownForm
{
protected:
    /// How many pixels of the colour the button shows.
    int CountPixels(Graphics::TColor color)
    {
        Graphics::TBitmap bitmap(mButton->getWidth(), mButton->getHeight());
        mButton->PaintTo(bitmap.getCanvas()->getHandle(), 0, 0);
        int count = 0;
        for (int y = 0; y < bitmap.getHeight(); ++y) {
            for (int x = 0; x < bitmap.getWidth(); ++x) {
                count += bitmap.getCanvas()->getPixels(x, y) == color ? 1 : 0;
            }
        }
        return count;
    }

    TBitBtn* mButton = Add<TBitBtn>(u"Button");
};

TEST_F(BitBtnTest, IsGivenAllByItsKind)
{
    struct TRow
    {
        TBitBtnKind kind;
        const char16_t* caption;
        int result;
        bool isDefault;
        bool isCancel;
    };
    for (const auto& [kind, caption, result, isDefault, isCancel] : {TRow{bkOK, u"OK", 1, true, false},
                                                                     {bkCancel, u"Cancel", 2, false, true},
                                                                     {bkYes, u"&Yes", 6, true, false},
                                                                     {bkNo, u"&No", 7, false, true},
                                                                     {bkClose, u"&Close", 8, false, false},
                                                                     {bkRetry, u"&Retry", 4, false, false}}) {
        SCOPED_TRACE(kind);
        mButton->setKind(kind);
        EXPECT_EQ(mButton->getKind(), kind);
        EXPECT_EQ(mButton->getCaption(), caption);
        EXPECT_EQ(mButton->getModalResult(), result);
        EXPECT_EQ(mButton->getDefault(), isDefault);
        EXPECT_EQ(mButton->getCancel(), isCancel);
        EXPECT_EQ(mButton->getNumGlyphs(), 2);
    }
    mButton->setModalResult(99);
    EXPECT_EQ(mButton->getKind(), bkCustom);
    mButton->setKind(bkOK);
    mButton->getGlyph()->getCanvas()->setPixels(0, 0, Graphics::clRed);
    EXPECT_EQ(mButton->getKind(), bkCustom);
}

TEST_F(BitBtnTest, ClosesItsForm)
{
    mButton->setKind(bkClose);
    mForm.Show();
    mDriver.Click(u"Button");
    EXPECT_FALSE(mForm.getVisible());
}

TEST_F(BitBtnTest, ShowsTheGlyphOfItsState)
{
    Graphics::TBitmap glyph(24, 8);
    for (const auto& [left, color] :
         {std::pair(0, Graphics::clRed), {8, Graphics::clLime}, {16, Graphics::clBlue}}) {
        glyph.getCanvas()->getBrush()->setColor(Graphics::clFuchsia);
        glyph.getCanvas()->FillRect({left, 0, left + 8, 8});
        glyph.getCanvas()->getBrush()->setColor(color);
        glyph.getCanvas()->FillRect({left + 2, 2, left + 6, 6});
    }
    mButton->setGlyph(&glyph);
    EXPECT_EQ(mButton->getNumGlyphs(), 3);
    mForm.Show();
    EXPECT_EQ(CountPixels(Graphics::clRed), 16);
    EXPECT_EQ(CountPixels(Graphics::clFuchsia), 0);
    mButton->setEnabled(false);
    EXPECT_EQ(CountPixels(Graphics::clLime), 16);
    mButton->setEnabled(true);
    mDriver.Mouse(u"Button",
                  {.action = Toolkits::EMouseAction::Down, .shift = {Classes::ssLeft}, .place = {3, 3}});
    EXPECT_EQ(CountPixels(Graphics::clBlue), 16);
    mButton->setNumGlyphs(99);
    EXPECT_EQ(mButton->getNumGlyphs(), 4);
}

TEST_F(BitBtnTest, PlacesPictureAndCaption)
{
    struct TRow
    {
        CButtonGlyph::TPlacing placing;
        Types::TPoint glyph;
        Types::TPoint text;
    };
    const Types::TRect rect{0, 0, 100, 50};
    for (const auto& [placing, glyph, text] : {TRow{{blGlyphLeft, -1, 4}, {33, 20}, {47, 20}},
                                               {{blGlyphRight, -1, 4}, {57, 20}, {33, 20}},
                                               {{blGlyphTop, -1, 4}, {45, 13}, {40, 27}},
                                               {{blGlyphBottom, 2, 4}, {45, 38}, {40, 24}},
                                               {{blGlyphLeft, 5, 4}, {5, 20}, {19, 20}},
                                               {{blGlyphLeft, 5, -1}, {5, 20}, {47, 20}},
                                               {{blGlyphLeft, -1, -1}, {23, 20}, {56, 20}}}) {
        SCOPED_TRACE(testing::Message() << placing.layout << ' ' << placing.margin << ' ' << placing.spacing);
        const auto [at, textRect] = CButtonGlyph::Place(rect, placing, {10, 10}, {20, 10});
        EXPECT_EQ(at, glyph);
        EXPECT_EQ((Types::TPoint{textRect.Left, textRect.Top}), text);
    }
    // Alone, each stands in the middle.
    EXPECT_EQ(CButtonGlyph::Place(rect, {blGlyphLeft, -1, 4}, {10, 10}, {}).first, (Types::TPoint{45, 20}));
    EXPECT_EQ(CButtonGlyph::Place(rect, {blGlyphLeft, -1, 4}, {}, {20, 10}).second,
              (Types::TRect{40, 20, 60, 30}));
}

} // namespace
