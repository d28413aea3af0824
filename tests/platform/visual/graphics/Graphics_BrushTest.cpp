// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Brush.h"

#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "support/DrawnPixels.h"

#include <gtest/gtest.h>

namespace
{

using namespace Graphics;

TEST(GraphicsBrushTest, AColourMakesAClearBrushSolid)
{
    TBrush brush;
    brush.setColor(clBtnFace);
    brush.setStyle(bsClear);
    EXPECT_EQ(brush.getColor(), clBtnFace);
    brush.setColor(clBtnFace);
    EXPECT_EQ(brush.getStyle(), bsSolid);
    brush.setStyle(bsCross);
    brush.setColor(clRed);
    EXPECT_EQ(brush.getStyle(), bsCross);
    EXPECT_EQ(brush.getData().color, Support::Red);
}

TEST(GraphicsBrushTest, TilesWithTheBitmapAsItWas)
{
    TBitmap tile(2, 1);
    tile.getCanvas()->setPixels(1, 0, clBlack);
    TBrush brush;
    brush.setBitmap(&tile);
    tile.getCanvas()->setPixels(0, 0, clRed);

    TBitmap bitmap(5, 2);
    bitmap.getCanvas()->setBrush(&brush);
    bitmap.getCanvas()->FillRect({1, 0, 5, 2});
    EXPECT_EQ(Support::Drawn(*bitmap.SharePixels()), ".#.#.\n.#.#.\n");
    brush.setColor(clBlue);
    EXPECT_EQ(brush.getBitmap(), nullptr);
    EXPECT_FALSE(brush.getData().pattern);
}

TEST(GraphicsBrushTest, TellsChangesAndPublishes)
{
    TBrush brush;
    TBrush other;
    int changes = 0;
    brush.setOnChange([&](System::TObject*) { ++changes; });
    brush.Assign(&other);
    brush.setColor(clWhite);
    EXPECT_EQ(changes, 0);
    Typinfo::SetOrdProp(&other, u"Style", bsVertical);
    brush.Assign(&other);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(brush.getStyle(), bsVertical);
    EXPECT_THROW(brush.Assign(nullptr), Sysutils::EConvertError);
}

} // namespace
