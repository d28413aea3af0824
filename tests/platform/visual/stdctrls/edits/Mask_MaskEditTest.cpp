// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Mask_MaskEdit.h"

#include "platform/visual/stdctrls/edits/EditForm.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

namespace
{

using Mask::TMaskEdit;
using System::UnicodeString;

class MaskEditTest : public testing::Test, protected Support::TEditForm<TMaskEdit>
{
protected:
    MaskEditTest()
    {
        Sysutils::DateSeparator = u'.';
        Sysutils::TimeSeparator = u':';
    }

    Support::FormatSettingsGuard settings;
};

TEST_F(MaskEditTest, ShowsValuesByTheirMaskAndGivesThemBack)
{
    struct TCase
    {
        const char16_t* mask;
        const char16_t* value;
        const char16_t* shown;
        const char16_t* back;
    };
    for (const TCase& test : {
             TCase{u"", u"free", u"free", u"free"},
             {u"!99/99/00;1;_", u"", u"__.__.__", u"  .  .  "},
             {u"!99/99/00;1;_", u"1.2.03", u"_1._2.03", u" 1. 2.03"},
             {u"99/99/00;1;_", u"1.2.03", u"1_.2_.03", u"1 .2 .03"},
             {u"99/99/00;1;_", u"01.02.03", u"01.02.03", u"01.02.03"},
             {u"99/99/00;0;_", u"010203", u"01.02.03", u"010203"},
             {u"99/99/00;0;_", u"01", u"01.__.__", u"01"},
             {u"!99/99/00;0;#", u"0203", u"##.02.03", u"0203"},
             {u"!\\(999\\) 000\\-0000;0;_", u"5551234567", u"(555) 123-4567", u"5551234567"},
             {u">LL<aa;1; ", u"ABcd", u"ABcd", u"ABcd"},
             {u"00:00", u"12:5", u"12:5_", u"12:5 "},
             {u"A_A", u"x y", u"x y", u"x y"},
         }) {
        SCOPED_TRACE(UnicodeString(test.mask) + u" of " + test.value);
        edit->setEditMask({});
        edit->setText({});
        edit->setEditMask(test.mask);
        edit->setText(test.value);
        EXPECT_EQ(edit->getEditText(), test.shown);
        EXPECT_EQ(edit->getText(), test.back);
        EXPECT_EQ(edit->getIsMasked(), *test.mask != 0);
        edit->setText(edit->getText());
        EXPECT_EQ(edit->getEditText(), test.shown);
    }
}

TEST_F(MaskEditTest, HoldsWhatIsTypedToItsPlaces)
{
    struct TCase
    {
        const char16_t* mask;
        const char16_t* typed;
        const char16_t* shown;
    };
    for (const TCase& test : {
             TCase{u"99/99/00;1;_", u"x12345", u"12.34.5_"},
             {u"99/99/00;1;_", u"1.23.4567", u"1_.23.45"},
             {u">L<L<>L;1;_", u"aBc", u"Abc"},
             {u"#00;1;_", u"-12", u"-12"},
             {u"\\A\\B0;1;_", u"7", u"AB7"},
             {u"cC;1;_", u"? ", u"? "},
             {u"AAA;1;_", u"a-b1", u"ab1"},
         }) {
        for (const bool inOnePiece : {false, true}) {
            SCOPED_TRACE(UnicodeString(test.mask) + (inOnePiece ? u" pasted" : u" typed"));
            edit->setEditMask({});
            edit->setText({});
            edit->setEditMask(test.mask);
            edit->setSelStart(0);
            inOnePiece ? driver.Insert(test.typed) : driver.Type(test.typed);
            EXPECT_EQ(edit->getEditText(), test.shown);
        }
    }
}

TEST_F(MaskEditTest, EmptiesPlacesRatherThanRemoveThem)
{
    edit->setEditMask(u"99/99/00;1;_");
    edit->setText(u"12.34.56");
    edit->setSelStart(3);
    driver.Press(VK_BACK);
    EXPECT_EQ(edit->getEditText(), u"12.34.56");
    driver.Press(VK_BACK);
    EXPECT_EQ(edit->getEditText(), u"1_.34.56");
    edit->setSelStart(0);
    driver.Press(VK_DELETE);
    EXPECT_EQ(edit->getEditText(), u"__.34.56");
    edit->SelectAll();
    driver.Press(VK_DELETE);
    EXPECT_EQ(edit->getEditText(), u"__.__.__");
    edit->GetWindowEvents().TextEdited(u"5__.__.__");
    EXPECT_EQ(edit->getEditText(), u"5_.__.__");
}

TEST_F(MaskEditTest, LetsNobodyLeaveAnIncompleteText)
{
    edit->setEditMask(u"99/99/00;1;_");
    driver.Press(VK_TAB);
    EXPECT_EQ(driver.Focused(), u"fOther");
    driver.Press(VK_TAB);
    driver.Type(u"12");
    EXPECT_THROW(edit->ValidateEdit(), Mask::EDBEditError);
    driver.Press(VK_TAB);
    EXPECT_EQ(driver.Focused(), u"fEdit");
    EXPECT_EQ(toolkit.TakeShown().size(), 1U);
    EXPECT_EQ(edit->getSelStart(), 6);
    driver.Press(VK_ESCAPE);
    EXPECT_EQ(edit->getEditText(), u"__.__.__");
    driver.Type(u"010203");
    driver.Press(VK_TAB);
    EXPECT_EQ(driver.Focused(), u"fOther");
}

TEST_F(MaskEditTest, BearsAnyMask)
{
    for (const char16_t* mask : {u";", u"\\", u"!><", u"<>", u";;", u"0;0;", u"!!!;x;yz", u"\\;0;1;*"}) {
        SCOPED_TRACE(UnicodeString(mask));
        edit->setEditMask(mask);
        edit->setText(u"12345");
        edit->SelectAll();
        driver.Type(u"9a;");
        driver.Press(VK_BACK);
        EXPECT_NO_THROW(edit->setText(edit->getText()));
        edit->setModified(false);
    }
    EXPECT_EQ(edit->getEditText(), u";*");
}

} // namespace
