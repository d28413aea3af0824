// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/pictures/Extctrls_Image.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "platform/visual/graphics/Graphics_Picture.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using Extctrls::TImage;
using Types::TRect;

class ImageTest : public testing::Test
{
protected:
    ImageTest() { mImage.SetBounds(5, 5, 40, 40); }

    void Show(int width, int height)
    {
        Graphics::TBitmap bitmap(width, height);
        mImage.getPicture()->Assign(&bitmap);
    }

    Support::ScriptedBoxes mToolkit;
    TImage mImage;
};

TEST_F(ImageTest, PlacesThePicture)
{
    const struct
    {
        const char* name;
        int width, height;
        bool isCentered, isStretched, isProportional;
        TRect place;
    } cases[] = {
        {"as it is", 20, 10, false, false, false, {0, 0, 20, 10}},
        {"in the middle", 20, 10, true, false, false, {10, 15, 30, 25}},
        {"stretched", 20, 10, true, true, false, {0, 0, 40, 40}},
        {"stretched by its ratio", 20, 10, true, true, true, {0, 10, 40, 30}},
        {"by its ratio", 20, 10, false, false, true, {0, 0, 20, 10}},
        {"too large by its ratio", 80, 40, false, false, true, {0, 0, 40, 20}},
        {"too large", 80, 40, true, false, false, {-20, 0, 60, 40}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Show(c.width, c.height);
        mImage.setCenter(c.isCentered);
        mImage.setStretch(c.isStretched);
        mImage.setProportional(c.isProportional);
        EXPECT_EQ(mImage.DestRect(), c.place);
    }
}

TEST_F(ImageTest, TakesTheSizeOfItsPicture)
{
    mImage.setAutoSize(true);
    EXPECT_EQ(mImage.getWidth(), 40);
    Show(12, 34);
    EXPECT_EQ(mImage.getBoundsRect(), (TRect{5, 5, 17, 39}));
    mImage.getPicture()->getBitmap()->SetSize(8, 9);
    EXPECT_EQ(mImage.getBoundsRect(), (TRect{5, 5, 13, 14}));
    mImage.getPicture()->Assign(nullptr);
    EXPECT_EQ(mImage.getBoundsRect(), (TRect{5, 5, 13, 14}));
}

TEST_F(ImageTest, IsDrawnOnWhereItHoldsABitmap)
{
    mImage.getCanvas()->getBrush()->setColor(Graphics::clRed);
    mImage.getCanvas()->FillRect({0, 0, 40, 40});
    EXPECT_EQ(mImage.getPicture()->getWidth(), 40);
    EXPECT_EQ(mImage.getPicture()->getBitmap()->getCanvas()->getPixels(39, 39), Graphics::clRed);
    mImage.getPicture()->getMetafile();
    EXPECT_THROW(mImage.getCanvas(), Classes::EInvalidOperation);
}

TEST_F(ImageTest, LetsTheGroundThrough)
{
    mImage.setTransparent(true);
    Show(4, 4);
    EXPECT_TRUE(mImage.getPicture()->getGraphic()->getTransparent());
    mImage.setTransparent(false);
    EXPECT_FALSE(mImage.getPicture()->getGraphic()->getTransparent());
}

TEST_F(ImageTest, PaintsThePicture)
{
    const auto painted = [&] {
        Toolkits::PaintRecording recording;
        mImage.Perform(WM_PAINT, reinterpret_cast<std::uintptr_t>(&recording));
        return System::ToUtf8(recording.AsText());
    };
    EXPECT_EQ(painted(), "");
    Show(20, 10);
    EXPECT_NE(painted(), "");
}

} // namespace
