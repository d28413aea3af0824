// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Checklst_CheckListBox.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/ShownForm.h"

namespace
{

using Checklst::TCheckListBox;
using Stdctrls::cbChecked;
using Stdctrls::cbGrayed;
using Toolkits::EMouseAction;

class CheckListBoxTest : public Support::ShownForm
{
protected:
    CheckListBoxTest()
    {
        mBox->SetBounds(0, 0, 100, 100);
        mBox->getItems()->AddStrings({u"d", u"c", u"b", u"a"});
        mBox->OnClickCheck = Note(u"check");
        mBox->OnClick = Note(u"click");
        mForm.Show();
        mDriver.Focus(u"Box");
    }

    void ClickAt(int index, int x) { mDriver.Click(u"Box", {x, mBox->ItemRect(index).Top + 2}); }

    TCheckListBox* mBox = Add<TCheckListBox>(u"Box");
};

TEST_F(CheckListBoxTest, IsCheckedByItsBoxesAndTheSpaceBar)
{
    ClickAt(1, 4);
    EXPECT_TRUE(mBox->getChecked(1));
    ClickAt(2, 40);
    EXPECT_FALSE(mBox->getChecked(2));
    EXPECT_EQ(TakeLog(), u"check click click ");
    mDriver.Press(VK_SPACE);
    EXPECT_TRUE(mBox->getChecked(2));
    mBox->setAllowGrayed(true);
    mDriver.Press(VK_SPACE);
    mDriver.Press(VK_SPACE);
    EXPECT_EQ(mBox->getState(2), cbGrayed);
    EXPECT_EQ(TakeLog(), u"check check check ");
    EXPECT_NE(mDriver.Print().find("items 4 index 2 checked 1 grayed 2\n"), std::string::npos)
        << mDriver.Print();
}

TEST_F(CheckListBoxTest, KeepsTheMarksWithTheirItems)
{
    mBox->setChecked(0, true);
    mBox->setState(1, cbGrayed);
    mBox->setHeader(3, true);
    mBox->setSorted(true);
    EXPECT_TRUE(mBox->getChecked(3));
    EXPECT_EQ(mBox->getState(2), cbGrayed);
    EXPECT_TRUE(mBox->getHeader(0));
    mBox->getItems()->Insert(0, u"aa");
    EXPECT_TRUE(mBox->getChecked(4));
    EXPECT_EQ(TakeLog(), u"");
}

TEST_F(CheckListBoxTest, LeavesHeadingsAndWhatCantBeUsedAlone)
{
    mBox->setItemEnabled(0, false);
    mBox->setHeader(1, true);
    ClickAt(0, 4);
    ClickAt(1, 4);
    EXPECT_EQ(TakeLog(), u"click click ");
    mBox->CheckAll(cbChecked, true, false);
    EXPECT_FALSE(mBox->getChecked(0));
    EXPECT_FALSE(mBox->getChecked(1));
    EXPECT_TRUE(mBox->getChecked(3));
    mBox->setState(2, cbGrayed);
    mBox->CheckAll(cbChecked, false);
    EXPECT_TRUE(mBox->getChecked(0));
    EXPECT_EQ(mBox->getState(2), cbGrayed);
}

TEST_F(CheckListBoxTest, DrawsHeadingsInTheirColours)
{
    mBox->setHeader(0, true);
    mBox->setHeaderBackgroundColor(Graphics::clLime);
    Graphics::TBitmap bitmap(100, 100);
    mBox->PaintTo(bitmap.getCanvas()->getHandle(), 0, 0);
    const auto colorAt = [&](int index) {
        return bitmap.getCanvas()->getPixels(98, mBox->ItemRect(index).Top + 2);
    };
    EXPECT_EQ(colorAt(0), Graphics::clLime);
    EXPECT_NE(colorAt(1), Graphics::clLime);
}

TEST_F(CheckListBoxTest, RefusesItemsThatArentThere)
{
    for (const int index : {-1, 4}) {
        EXPECT_THROW(static_cast<void>(mBox->getChecked(index)), Classes::EListError);
        EXPECT_THROW(mBox->setChecked(index, true), Classes::EListError);
        EXPECT_THROW(mBox->setHeader(index, true), Classes::EListError);
        EXPECT_THROW(mBox->setItemEnabled(index, true), Classes::EListError);
    }
}

TEST_F(CheckListBoxTest, MayBeDestroyedWhileItIsChecked)
{
    mBox->OnClickCheck = [](System::TObject* sender) { delete sender; };
    ClickAt(1, 4);
    EXPECT_EQ(mForm.FindComponent(u"Box"), nullptr);
}

} // namespace
