// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "platform/visual/stdctrls/edits/EditForm.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

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
    /// The texts that were painted, each with a bar behind.
    std::string Painted() const
    {
        edit->Update();
        std::istringstream calls(System::ToUtf8(edit->GetWindow()->LastPainting()->AsText()));
        std::string texts;
        for (std::string call; std::getline(calls, call);) {
            const std::size_t begin = call.find('"');
            if (call.starts_with("text ") && begin != std::string::npos) {
                texts += call.substr(begin + 1, call.find('"', begin + 1) - begin - 1) + "|";
            }
        }
        return texts;
    }

    /// A width that has room for so many digits in a row.
    void MakeRoom(int digits)
    {
        const UnicodeString text(std::u16string(static_cast<std::size_t>(digits), u'0'));
        edit->setWidth(Toolkits::CurrentToolkit().TextExtent(edit->GetShownFont().getData(), text).cx + 8);
    }

    Classes::TStrings& lines = *edit->getLines();
};

/// One that acts and paints in place of its window.
class PaintedMemoTest : public MemoTest
{
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

TEST_F(MemoTest, TakesNoMoreThanCanBeTyped)
{
    edit->setMaxLength(5);
    driver.Type(u"abcdefg");
    EXPECT_EQ(edit->getText(), u"abcde");
    EXPECT_EQ(edit->getSelStart(), 5);
    driver.Press(VK_BACK);
    driver.Type(u"xy");
    EXPECT_EQ(edit->getText(), u"abcdx");
    edit->SelectAll();
    driver.Insert(u"1234567");
    EXPECT_EQ(edit->getText(), u"12345");
}

TEST_F(MemoTest, KeepsTheCharactersThatItHas)
{
    edit->setText(u"20\u00A0m\u2028\r\nx\u2029y");
    edit->setSelStart(edit->getText().Length());
    driver.Type(u"z");
    EXPECT_EQ(edit->getText(), u"20\u00A0m\u2028\r\nx\u2029yz");
}

TEST_F(MemoTest, KeepsItsSelectionWhileItIsLeft)
{
    edit->setText(u"ab\r\ncdef");
    edit->setSelStart(1);
    edit->setSelLength(4);
    driver.Focus(u"fOther");
    EXPECT_EQ(edit->getSelText(), u"b\r\nc");
    driver.Focus(u"fEdit");
    driver.Type(u"x");
    EXPECT_EQ(edit->getText(), u"axdef");
}

TEST_F(PaintedMemoTest, PaintsTheLinesThatAreSeenAlone)
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

TEST_F(PaintedMemoTest, WrapsLinesThatAreTooLong)
{
    MakeRoom(5);
    for (const auto& [text, rows] : {std::pair(u"00 00 00", "00 00 |00|"),
                                     {u"00000   00", "00000   |00|"},
                                     {u"000000000000", "00000|00000|00|"},
                                     {u"00000\r\n\r\n0", "00000||0|"},
                                     {u"", "|"}}) {
        SCOPED_TRACE(rows);
        edit->setText(text);
        EXPECT_EQ(Painted(), rows);
    }
    // A pair isn't parted.
    edit->setText(u"0\U0001F600\U0001F600\U0001F600\U0001F600");
    std::string painted = Painted();
    EXPECT_GT(std::erase(painted, '|'), 1);
    EXPECT_EQ(painted, System::ToUtf8(edit->getText()));
    edit->setText(u"00 00 00");
    edit->setWordWrap(false);
    EXPECT_EQ(Painted(), "00 00 00|");
    edit->setWordWrap(true);
    edit->setScrollBars(Stdctrls::ssBoth);
    EXPECT_EQ(Painted(), "00 00 00|");
}

TEST_F(PaintedMemoTest, FindsThePlaceInAWrappedLine)
{
    MakeRoom(5);
    edit->setText(u"00 00 11 11");
    const int height = Toolkits::CurrentToolkit().FontMetrics(edit->GetShownFont().getData()).height;
    driver.Click(u"fEdit", {.X = 5, .Y = 5 + height});
    EXPECT_EQ(edit->getSelStart(), 6);
    // Behind the end of a row that goes on, the caret stays in it.
    driver.Click(u"fEdit", {.X = 1000, .Y = 5});
    EXPECT_EQ(edit->getSelStart(), 5);
    driver.Click(u"fEdit", {.X = 1000, .Y = 1000});
    EXPECT_EQ(edit->getSelStart(), 11);
    driver.Click(u"fEdit", {.X = 5, .Y = -50});
    EXPECT_EQ(edit->getSelStart(), 0);
}

TEST_F(PaintedMemoTest, MovesItsCaretOverWrappedRows)
{
    MakeRoom(5);
    edit->setText(u"00 00 11 1\r\n22");
    edit->setSelStart(2);
    const auto after = [&](System::Word key) {
        driver.Press(key);
        return edit->getSelStart();
    };
    EXPECT_EQ(after(VK_DOWN), 8);
    EXPECT_EQ(after(VK_HOME), 6);
    EXPECT_EQ(after(VK_END), 10) << "it is the line's end too";
    EXPECT_EQ(after(VK_UP), 4);
    EXPECT_EQ(after(VK_END), 5) << "the place behind is the next row's";
    EXPECT_EQ(after(VK_UP), 5) << "there is no row above";
    EXPECT_EQ(after(VK_DOWN), 10);
    EXPECT_EQ(after(VK_DOWN), 14);
    EXPECT_EQ(after(VK_PRIOR), 2) << "the height of a page is more than all rows";
}

TEST_F(PaintedMemoTest, ScrollsWithinALineOfAnyLength)
{
    MakeRoom(5);
    edit->setText(UnicodeString(std::u16string(1'000'000, u'1') + u"22222333"));
    driver.Press(VK_END, {ssCtrl});
    EXPECT_TRUE(Painted().ends_with("|11111|12222|2333|")) << Painted();
    driver.Press(VK_HOME, {ssCtrl});
    EXPECT_TRUE(Painted().starts_with("11111|11111|"));
}

TEST_F(PaintedMemoTest, AlignsItsRows)
{
    edit->setText(u"0\r\n00");
    edit->setAlignment(Classes::taRightJustify);
    edit->Update();
    const Types::TSize extent = Toolkits::CurrentToolkit().TextExtent(edit->GetShownFont().getData(), u"00");
    const UnicodeString painted = edit->GetWindow()->LastPainting()->AsText();
    const int left = edit->getClientWidth() - 4 - extent.cx;
    EXPECT_GT(painted.Pos(u"text " + UnicodeString(left) + u","), 0) << System::ToUtf8(painted);
}

} // namespace
