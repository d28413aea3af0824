// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_GroupBox.h"

#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"

namespace
{

using namespace Stdctrls;

class GroupBoxTest : public Support::ShownForm
{
protected:
    TGroupBox* mGroup = Add<TGroupBox>(u"Group");
    TButton* mButton = Add<TButton>(u"Button", mGroup);
};

TEST_F(GroupBoxTest, FocusesItsFirstControlByItsMark)
{
    auto* const other = Add<TButton>(u"Other");
    mGroup->setCaption(u"&Speed");
    mForm.Show();
    mDriver.Focus(other->getName());
    mDriver.Press('S', {Classes::ssAlt});
    EXPECT_EQ(mDriver.Focused(), u"Button");
}

TEST_F(GroupBoxTest, AlignsWithinItsFrameBelowItsCaption)
{
    mGroup->SetBounds(0, 0, 100, 80);
    mButton->setAlign(Controls::alClient);
    const int top = mGroup->getCanvas()->TextHeight(u"0") + 2;
    EXPECT_EQ(mButton->getBoundsRect(), (Types::TRect{2, top, 98, 78}));
    mGroup->setCtl3D(false);
    EXPECT_EQ(mButton->getBoundsRect(), (Types::TRect{1, top - 1, 99, 79}));
}

TEST_F(GroupBoxTest, DrawsItsFrameAroundItsCaption)
{
    mGroup->SetBounds(0, 0, 100, 80);
    mGroup->setCtl3D(false);
    const auto pixelsOnFrame = [&](const System::UnicodeString& caption) {
        mGroup->setCaption(caption);
        Graphics::TBitmap bitmap(100, 80);
        mGroup->PaintTo(bitmap.getCanvas()->getHandle(), 0, 0);
        const int row = mGroup->getCanvas()->TextHeight(u"0") / 2 - 1;
        int count = 0;
        for (int x = 0; x < 100; ++x) {
            count += Graphics::ColorToRGB(bitmap.getCanvas()->getPixels(x, row)) ==
                             Graphics::ColorToRGB(Graphics::clWindowFrame)
                         ? 1
                         : 0;
        }
        return count;
    };
    EXPECT_EQ(pixelsOnFrame(u""), 100);
    EXPECT_LT(pixelsOnFrame(u"Speed"), 90);
}

} // namespace
