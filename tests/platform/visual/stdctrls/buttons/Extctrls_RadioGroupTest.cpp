// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Extctrls_RadioGroup.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_RadioButton.h"

namespace
{

using Extctrls::TRadioGroup;

class RadioGroupTest : public Support::ShownForm
{
protected:
    RadioGroupTest()
    {
        mGroup->SetBounds(0, 0, 110, 100);
        mGroup->getItems()->AddStrings({u"One", u"Two", u"Three"});
        mGroup->OnClick = [this](System::TObject*) { mLog += System::UnicodeString(mGroup->getItemIndex()); };
        mForm.Show();
    }

    TRadioGroup* mGroup = Add<TRadioGroup>(u"Group");
};

TEST_F(RadioGroupTest, HasAButtonForEachItem)
{
    EXPECT_EQ(mGroup->GetControlCount(), 3);
    EXPECT_EQ(mGroup->getButtons(2)->getCaption(), u"Three");
    EXPECT_THROW(mGroup->getButtons(3), Classes::EListError);
    mGroup->setItemIndex(2);
    mGroup->getItems()->Delete(0);
    EXPECT_EQ(mGroup->getItemIndex(), 1);
    EXPECT_TRUE(mGroup->getButtons(1)->getChecked());
    EXPECT_EQ(mGroup->getButtons(1)->getCaption(), u"Three");
    mGroup->getItems()->Clear();
    EXPECT_EQ(mGroup->GetControlCount(), 0);
    EXPECT_EQ(mGroup->getItemIndex(), -1);
}

TEST_F(RadioGroupTest, CallsItsClickForEachChange)
{
    mGroup->setItemIndex(1);
    mGroup->setItemIndex(1);
    mGroup->getButtons(0)->setChecked(true);
    mDriver.Focus(u"Group");
    mDriver.Press(VK_DOWN);
    mGroup->setItemIndex(77);
    mGroup->setItemIndex(-5);
    EXPECT_EQ(TakeLog(), u"1012");
    EXPECT_EQ(mGroup->getItemIndex(), -1);
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(mGroup->getButtons(i)->getChecked()) << i;
    }
}

TEST_F(RadioGroupTest, ArrangesItsButtonsInColumns)
{
    mGroup->setColumns(2);
    const auto bounds = [&](int index) { return mGroup->getButtons(index)->getBoundsRect(); };
    EXPECT_EQ(bounds(0).Left, bounds(1).Left);
    EXPECT_EQ(bounds(2).Left, bounds(0).Left + 50);
    EXPECT_EQ(bounds(2).Top, bounds(0).Top);
    EXPECT_EQ(bounds(1).Top, bounds(0).Bottom);
    mGroup->setColumns(-3);
    EXPECT_EQ(mGroup->getColumns(), 1);
    mGroup->setHeight(0);
    EXPECT_EQ(bounds(2).Height(), 0);
}

TEST_F(RadioGroupTest, DisablesItsButtonsWithItself)
{
    mGroup->setEnabled(false);
    EXPECT_FALSE(mGroup->getButtons(0)->getEnabled());
    mGroup->getItems()->Add(u"Four");
    EXPECT_FALSE(mGroup->getButtons(3)->getEnabled());
}

TEST_F(RadioGroupTest, IsPrintedWithItsChoice)
{
    mGroup->setItemIndex(1);
    EXPECT_NE(mDriver.Print().find("110x100 \"Group\" items 3 index 1\n"), std::string::npos)
        << mDriver.Print();
}

TEST_F(RadioGroupTest, MayBeDestroyedByItsOwnClick)
{
    mGroup->OnClick = [](System::TObject* sender) { delete sender; };
    mGroup->setItemIndex(0);
    EXPECT_EQ(mForm.FindComponent(u"Group"), nullptr);
}

} // namespace
