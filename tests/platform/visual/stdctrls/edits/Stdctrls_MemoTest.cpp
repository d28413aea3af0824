// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/stdctrls/edits/EditForm.h"

#include <gtest/gtest.h>

namespace
{

using Classes::ssCtrl;
using Classes::ssShift;
using Stdctrls::TEdit;
using Stdctrls::TMemo;
using System::UnicodeString;

class MemoTest : public testing::Test, protected Support::TEditForm<TMemo, TEdit>
{
protected:
    Classes::TStrings& lines = *edit->getLines();
};

TEST_F(MemoTest, HasTheLinesOfItsText)
{
    EXPECT_EQ(lines.getCount(), 0);
    lines.Add(u"a");
    lines.Add(u"b");
    EXPECT_EQ(edit->getText(), u"a\r\nb\r\n");
    EXPECT_EQ(lines.getCount(), 2);
    lines.Insert(1, u"x");
    lines.setStrings(0, u"A");
    lines.Delete(2);
    EXPECT_EQ(lines.getText(), u"A\r\nx\r\n");
    edit->setText(u"one\ntwo\rthree");
    EXPECT_EQ(lines.getCommaText(), u"one,two,three");
    EXPECT_EQ(edit->getText(), u"one\r\ntwo\r\nthree");
    lines.Add(u"four");
    EXPECT_EQ(edit->getText(), u"one\r\ntwo\r\nthree\r\nfour");
    Classes::TStringList other{u"1", u"2"};
    edit->setLines(&other);
    lines.AddStrings(&other);
    EXPECT_EQ(edit->getText(), u"1\r\n2\r\n1\r\n2\r\n");
    EXPECT_THROW(lines.getStrings(4), Classes::EStringListError);
    EXPECT_THROW(lines.Insert(6, u""), Classes::EStringListError);
    EXPECT_THROW(lines.Delete(-1), Classes::EStringListError);
    lines.Clear();
    EXPECT_EQ(edit->getText(), u"");
}

TEST_F(MemoTest, MovesItsCaretOverLines)
{
    edit->setText(u"long line\r\nab\r\n\r\nlast");
    edit->setCaretPos({.X = 5, .Y = 0});
    driver.Press(VK_DOWN);
    EXPECT_EQ(edit->getCaretPos(), (Types::TPoint{.X = 2, .Y = 1}));
    driver.Press(VK_END);
    driver.Press(VK_RIGHT);
    EXPECT_EQ(edit->getCaretPos(), (Types::TPoint{.X = 0, .Y = 2}));
    driver.Press(VK_NEXT, {ssShift});
    EXPECT_EQ(edit->getSelText(), u"\r\n");
    driver.Press(VK_HOME, {ssCtrl});
    driver.Press(VK_UP);
    EXPECT_EQ(edit->getCaretPos(), (Types::TPoint{.X = 0, .Y = 0}));
    edit->setCaretPos({.X = 99, .Y = 99});
    EXPECT_EQ(edit->getCaretPos(), (Types::TPoint{.X = 4, .Y = 3}));
    edit->setCaretPos({.X = 0, .Y = 2});
    driver.Press(VK_BACK);
    EXPECT_EQ(lines.getCommaText(), u"\"long line\",ab,last");
}

TEST_F(MemoTest, WantsTheKeysThatItIsToldTo)
{
    driver.Type(u"a");
    driver.Press(VK_RETURN);
    driver.Type(u"b");
    EXPECT_EQ(edit->getText(), u"a\r\nb");
    edit->setWantReturns(false);
    driver.Press(VK_RETURN);
    EXPECT_EQ(edit->getText(), u"a\r\nb");
    edit->setWantTabs(true);
    driver.Press(VK_TAB);
    EXPECT_EQ(edit->getText(), u"a\r\nb\t");
    edit->setWantTabs(false);
    driver.Press(VK_TAB);
    EXPECT_EQ(driver.Focused(), u"fOther");
}

TEST_F(MemoTest, PaintsTheLinesThatAreSeenAlone)
{
    std::u16string text;
    for (int i = 0; i < 300'000; ++i) {
        text += u"line " + std::u16string(UnicodeString(i).AsView()) + u"\r\n";
    }
    edit->setText(UnicodeString(text));
    driver.Press(VK_END, {ssCtrl});
    driver.Type(u"end");
    edit->Update();
    EXPECT_EQ(lines.getCount(), 300'001);
    const UnicodeString painted = edit->GetWindow()->LastPainting()->AsText();
    EXPECT_GT(painted.Pos(u"line 299999"), 0);
    EXPECT_EQ(painted.Pos(u"\"line 1\""), 0);
    driver.Click(u"fEdit", {.X = 10'000, .Y = 5});
    EXPECT_GT(edit->getCaretPos().Y, 299'980);
    EXPECT_EQ(edit->getCaretPos().X, 11);
}

} // namespace
