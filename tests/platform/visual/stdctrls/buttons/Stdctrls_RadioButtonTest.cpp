// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_RadioButton.h"

#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_GroupBox.h"

namespace
{

using namespace Stdctrls;

class RadioButtonTest : public Support::ShownForm
{
protected:
    RadioButtonTest()
    {
        for (TRadioButton* button : {mSlow, mFast, mOther}) {
            button->OnClick = Note(button->getName());
            button->setTop(20 * button->getTabOrder() + 20);
        }
        mGroup->setHeight(200);
        mGroup->setTop(0);
        mFast->setCaption(u"&Fast");
        mForm.setHeight(400);
        mForm.Show();
    }

    TButton* mButton = Add<TButton>(u"Button");
    TGroupBox* mGroup = Add<TGroupBox>(u"Group");
    TRadioButton* mSlow = Add<TRadioButton>(u"Slow", mGroup);
    TRadioButton* mFast = Add<TRadioButton>(u"Fast", mGroup);
    TRadioButton* mOther = Add<TRadioButton>(u"Other");
};

TEST_F(RadioButtonTest, IsCheckedAloneInItsParent)
{
    mOther->setChecked(true);
    mDriver.Click(u"Slow");
    mDriver.Click(u"Fast");
    mDriver.Click(u"Fast");
    EXPECT_EQ(TakeLog(), u"Other Slow Fast ");
    EXPECT_FALSE(mSlow->getChecked());
    EXPECT_TRUE(mFast->getChecked());
    EXPECT_TRUE(mOther->getChecked());
    mFast->setChecked(false);
    EXPECT_EQ(TakeLog(), u"");
    EXPECT_FALSE(mFast->getChecked());
}

TEST_F(RadioButtonTest, FollowsTheFocusOfTheArrowKeys)
{
    mDriver.Click(u"Slow");
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mDriver.Focused(), u"Fast");
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mDriver.Focused(), u"Slow");
    mDriver.Press(VK_UP);
    EXPECT_EQ(TakeLog(), u"Slow Fast Slow Fast ");
    EXPECT_TRUE(mFast->getTabStop());
    EXPECT_FALSE(mSlow->getTabStop());
}

TEST_F(RadioButtonTest, IsCheckedByItsMark)
{
    mDriver.Focus(u"Button");
    mDriver.Type(u"f");
    EXPECT_EQ(mDriver.Focused(), u"Fast");
    EXPECT_EQ(TakeLog(), u"Fast ");
    EXPECT_NE(mDriver.Print().find("\"&Fast\" focused checked\n"), std::string::npos) << mDriver.Print();
}

TEST_F(RadioButtonTest, WaitsForTheMouseToBeLetGo)
{
    mDriver.Mouse(u"Slow",
                  {.action = Toolkits::EMouseAction::Down, .shift = {Classes::ssLeft}, .place = {3, 3}});
    EXPECT_EQ(mDriver.Focused(), u"Slow");
    EXPECT_FALSE(mSlow->getChecked());
    mDriver.Mouse(u"Slow", {.action = Toolkits::EMouseAction::Up, .place = {3, 3}});
    EXPECT_TRUE(mSlow->getChecked());
}

TEST_F(RadioButtonTest, MayBeDestroyedByItsOwnClick)
{
    mSlow->OnClick = [](System::TObject* sender) { delete sender; };
    mDriver.Focus(u"Slow");
    EXPECT_EQ(mForm.FindComponent(u"Slow"), nullptr);
}

} // namespace
