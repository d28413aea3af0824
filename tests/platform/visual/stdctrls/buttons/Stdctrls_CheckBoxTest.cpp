// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"

#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"

namespace
{

using namespace Stdctrls;

class CheckBoxTest : public Support::ShownForm
{
protected:
    CheckBoxTest()
    {
        mBox->setCaption(u"&Log");
        mBox->OnClick = [this](System::TObject*) { mLog += System::UnicodeString(int{mBox->getState()}); };
        mForm.Show();
    }

    TButton* mOther = Add<TButton>(u"Other");
    TCheckBox* mBox = Add<TCheckBox>(u"Box");
};

TEST_F(CheckBoxTest, GoesThroughItsStatesAsTheUserPresses)
{
    for (int i = 0; i < 3; ++i) {
        mDriver.Click(u"Box");
    }
    EXPECT_EQ(TakeLog(), u"101");
    mBox->setAllowGrayed(true);
    for (int i = 0; i < 4; ++i) {
        mDriver.Press(VK_SPACE);
    }
    EXPECT_EQ(TakeLog(), u"0210");
    EXPECT_FALSE(mBox->getChecked());
}

TEST_F(CheckBoxTest, CallsItsClickForEachChangeByTheProgram)
{
    mBox->setChecked(true);
    mBox->setChecked(true);
    mBox->setState(cbGrayed);
    EXPECT_FALSE(mBox->getChecked());
    mBox->setChecked(false);
    mBox->Perform(BM_SETCHECK, 1);
    EXPECT_EQ(mBox->Perform(BM_GETCHECK), 1);
    mBox->setState(static_cast<TCheckBoxState>(3));
    EXPECT_EQ(TakeLog(), u"1201");
}

TEST_F(CheckBoxTest, TakesTheFocusByItsMark)
{
    mDriver.Focus(u"Other");
    mDriver.Press('L', {Classes::ssAlt});
    EXPECT_EQ(mDriver.Focused(), u"Box");
    EXPECT_TRUE(mBox->getChecked());
    mBox->setEnabled(false);
    mDriver.Press('L', {Classes::ssAlt});
    EXPECT_TRUE(mBox->getChecked());
}

TEST_F(CheckBoxTest, IsPrintedWithItsMark)
{
    mBox->setState(cbGrayed);
    EXPECT_NE(mDriver.Print().find("97x17 \"&Log\" grayed\n"), std::string::npos);
    mBox->setChecked(true);
    EXPECT_NE(mDriver.Print().find("97x17 \"&Log\" checked\n"), std::string::npos);
}

TEST_F(CheckBoxTest, PublishesItsState)
{
    Typinfo::SetOrdProp(mBox, u"State", cbGrayed);
    EXPECT_EQ(Typinfo::GetOrdProp(mBox, u"Checked"), 0);
    Typinfo::SetOrdProp(mBox, u"Checked", 1);
    EXPECT_EQ(mBox->getState(), cbChecked);
    EXPECT_EQ(Typinfo::GetEnumName(Typinfo::TypeInfoOf<TCheckBoxState>(), cbGrayed), u"cbGrayed");
    Typinfo::SetOrdProp(mBox, u"Alignment", Classes::taLeftJustify);
    EXPECT_EQ(mBox->getAlignment(), Classes::taLeftJustify);
}

TEST_F(CheckBoxTest, MayBeDestroyedWhileItIsChecked)
{
    mBox->OnClick = [](System::TObject* sender) { delete sender; };
    mDriver.Press('L', {Classes::ssAlt});
    EXPECT_EQ(mForm.FindComponent(u"Box"), nullptr);
}

} // namespace
