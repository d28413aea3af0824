// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Buttons_SpeedButton.h"

#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_GroupBox.h"

namespace
{

using Buttons::TSpeedButton;
using Toolkits::EMouseAction;

class SpeedButtonTest : public Support::ShownForm
{
protected:
    SpeedButtonTest()
    {
        for (TSpeedButton* button : {mPen, mBrush, mSave}) {
            button->OnClick = Note(button->getName());
        }
        mPen->setGroupIndex(1);
        mBrush->setGroupIndex(1);
        mForm.Show();
    }

    TSpeedButton* mPen = Add<TSpeedButton>(u"Pen");
    TSpeedButton* mBrush = Add<TSpeedButton>(u"Brush");
    TSpeedButton* mSave = Add<TSpeedButton>(u"Save");
};

TEST_F(SpeedButtonTest, StaysDownAloneInItsGroup)
{
    mDriver.Click(u"Pen");
    mDriver.Click(u"Brush");
    EXPECT_FALSE(mPen->getDown());
    EXPECT_TRUE(mBrush->getDown());
    mDriver.Click(u"Brush");
    EXPECT_TRUE(mBrush->getDown());
    mDriver.Click(u"Save");
    EXPECT_FALSE(mSave->getDown());
    EXPECT_EQ(TakeLog(), u"Pen Brush Brush Save ");
}

TEST_F(SpeedButtonTest, MayBeUpAsItsWholeGroup)
{
    mPen->setAllowAllUp(true);
    EXPECT_TRUE(mBrush->getAllowAllUp());
    mDriver.Click(u"Brush");
    mDriver.Click(u"Brush");
    EXPECT_FALSE(mBrush->getDown());
    mBrush->setDown(true);
    mPen->setDown(true);
    EXPECT_FALSE(mBrush->getDown());
    mSave->setDown(true);
    EXPECT_FALSE(mSave->getDown());
    EXPECT_EQ(TakeLog(), u"Brush Brush ");
}

TEST_F(SpeedButtonTest, LeavesGroupsOfOtherParentsAlone)
{
    auto* const box = Add<Stdctrls::TGroupBox>(u"Box");
    auto* const other = Add<TSpeedButton>(u"Other", box);
    other->setGroupIndex(1);
    other->setDown(true);
    mDriver.Click(u"Pen");
    EXPECT_TRUE(other->getDown());
    mBrush->setGroupIndex(2);
    mBrush->setDown(true);
    EXPECT_TRUE(mPen->getDown());
}

TEST_F(SpeedButtonTest, IsPressedByItsMarkAndNeverFocused)
{
    mSave->setCaption(u"&S");
    mDriver.Press('S', {Classes::ssAlt});
    mSave->setEnabled(false);
    mDriver.Press('S', {Classes::ssAlt});
    mSave->setEnabled(true);
    mSave->setVisible(false);
    mDriver.Press('S', {Classes::ssAlt});
    EXPECT_EQ(TakeLog(), u"Save ");
    EXPECT_EQ(mDriver.Focused(), u"");
}

TEST_F(SpeedButtonTest, IsntPressedWhereTheMouseIsLetGoOutside)
{
    mDriver.Mouse(u"Pen", {.action = EMouseAction::Down, .shift = {Classes::ssLeft}, .place = {3, 3}});
    mDriver.Mouse(u"Pen", {.action = EMouseAction::Move, .shift = {Classes::ssLeft}, .place = {3, 300}});
    mDriver.Mouse(u"Pen", {.action = EMouseAction::Up, .place = {3, 300}});
    EXPECT_EQ(TakeLog(), u"");
    EXPECT_FALSE(mPen->getDown());
}

TEST_F(SpeedButtonTest, TellsOfADoubleClickWhileItIsDown)
{
    mPen->OnDblClick = Note(u"twice");
    mSave->OnDblClick = Note(u"twice");
    mDriver.DoubleClick(u"Save");
    EXPECT_EQ(TakeLog(), u"Save Save ");
    mDriver.DoubleClick(u"Pen");
    EXPECT_EQ(TakeLog(), u"Pen twice Pen ");
}

TEST_F(SpeedButtonTest, IsPrintedWhenItIsDown)
{
    mPen->setDown(true);
    EXPECT_NE(mDriver.Print().find("TSpeedButton Pen 0,30 23x22 \"\" down\n"), std::string::npos)
        << mDriver.Print();
}

TEST_F(SpeedButtonTest, MayBeDestroyedByItsOwnClick)
{
    mPen->OnClick = [](System::TObject* sender) { delete sender; };
    mDriver.Click(u"Pen");
    EXPECT_EQ(mForm.FindComponent(u"Pen"), nullptr);
}

} // namespace
