// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/Typinfo_PropValue.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "platform/visual/stdctrls/edits/EditForm.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

using namespace Stdctrls;
using Classes::ssCtrl;
using Classes::ssShift;
using Classes::TShiftState;
using System::TObject;
using System::UnicodeString;
using System::Word;

/// The text with `|` at the caret and `[` at the other end of the selection.
UnicodeString Shown(const TCustomEdit& edit)
{
    UnicodeString text = edit.GetText();
    const int start = edit.getSelStart();
    const int end = start + edit.getSelLength();
    const int anchor = edit.GetCaret() == end ? start : end;
    const bool isForward = anchor < edit.GetCaret();
    text.Insert(u"|", edit.GetCaret() + 1);
    if (edit.getSelLength() > 0) {
        text.Insert(u"[", anchor + (isForward ? 1 : 2));
    }
    return text;
}

class EditTest : public testing::Test, protected Support::TEditForm<TEdit>
{
protected:
    EditTest()
    {
        edit->OnChange = [this](TObject*) { ++changes; };
    }

    int changes = 0;
};

/// One that acts and paints in place of its window: desktops have keys of their own.
class PaintedEditTest : public EditTest
{
};

TEST_F(PaintedEditTest, IsEditedByKeys)
{
    struct TCase
    {
        const char16_t* text;
        int start, length;
        Word key;
        TShiftState shift;
        const char16_t* shown;
    };
    const TShiftState none;
    const TShiftState shift{ssShift};
    const TShiftState ctrl{ssCtrl};
    const TShiftState both{ssCtrl, ssShift};
    for (const TCase& test : {TCase{u"abc", 1, 0, VK_RIGHT, none, u"ab|c"},
                              {u"abc", 1, 0, VK_LEFT, shift, u"|a[bc"},
                              {u"abc", 0, 2, VK_LEFT, none, u"|abc"},
                              {u"abc", 0, 2, VK_RIGHT, none, u"ab|c"},
                              {u"abc", 1, 0, VK_HOME, none, u"|abc"},
                              {u"abc", 1, 0, VK_END, shift, u"a[bc|"},
                              {u"one two", 0, 0, VK_RIGHT, ctrl, u"one |two"},
                              {u"one two", 7, 0, VK_LEFT, both, u"one |two["},
                              {u"abc", 1, 0, VK_DELETE, none, u"a|c"},
                              {u"abc", 1, 2, VK_DELETE, none, u"a|"},
                              {u"abc", 1, 0, VK_BACK, none, u"|bc"},
                              {u"abc", 0, 0, VK_BACK, none, u"|abc"},
                              {u"one two", 7, 0, VK_BACK, ctrl, u"one |"},
                              {u"one two", 0, 0, VK_DELETE, ctrl, u"|two"},
                              {u"abc", 1, 1, 'A', ctrl, u"[abc|"},
                              {u"a\U0001F600", 3, 0, VK_BACK, none, u"a|"},
                              {u"abc", 1, 0, VK_DOWN, none, u"ab|c"},
                              {u"abc", 3, 0, VK_RETURN, none, u"abc|"}}) {
        edit->setText(test.text);
        edit->setSelStart(test.start);
        edit->setSelLength(test.length);
        driver.Press(test.key, test.shift);
        EXPECT_EQ(Shown(*edit), test.shown) << UnicodeString(test.text) << ' ' << test.key;
        EXPECT_EQ(driver.Focused(), u"fEdit");
    }
}

TEST_F(PaintedEditTest, TypesAndTellsEachChange)
{
    driver.Type(u"1,5");
    EXPECT_EQ(Shown(*edit), u"1,5|");
    EXPECT_EQ(changes, 3);
    EXPECT_TRUE(edit->getModified());
    edit->setText(u"2");
    EXPECT_EQ(changes, 4);
    EXPECT_FALSE(edit->getModified());
    EXPECT_EQ(Shown(*edit), u"|2");
    edit->setText(u"2");
    EXPECT_EQ(changes, 4);
    driver.Press(VK_END);
    driver.Type(u"3");
    driver.Press('Z', {ssCtrl});
    EXPECT_EQ(edit->getText(), u"2");
    driver.Press('Z', {ssCtrl});
    EXPECT_EQ(edit->getText(), u"23");
}

TEST_F(EditTest, CutsCopiesAndPastes)
{
    edit->setText(u"voltage");
    edit->SelectAll();
    driver.Press('C', {ssCtrl});
    driver.Press(VK_END);
    driver.Press('V', {ssCtrl});
    EXPECT_EQ(Shown(*edit), u"voltagevoltage|");
    edit->setSelStart(0);
    edit->setSelLength(7);
    driver.Press(VK_DELETE, {ssShift});
    EXPECT_EQ(Shown(*edit), u"|voltage");
    Toolkits::CurrentToolkit().SetClipboardText(u"one\r\ntwo");
    driver.Press(VK_INSERT, {ssShift});
    EXPECT_EQ(Shown(*edit), u"one|voltage");
    edit->ClearSelection();
    edit->SelectAll();
    edit->ClearSelection();
    EXPECT_EQ(edit->getText(), u"");
    EXPECT_TRUE(edit->getCanUndo());
}

TEST_F(EditTest, HoldsWhatIsTypedToItsTraits)
{
    struct TCase
    {
        std::function<void(TEdit&)> prepare;
        const char16_t* text;
    };
    const TCase cases[] = {
        {[](TEdit& e) { e.setMaxLength(3); }, u"a1B"},
        {[](TEdit& e) { e.setMaxLength(-3); }, u"a1B2"},
        {[](TEdit& e) { e.setNumbersOnly(true); }, u"12"},
        {[](TEdit& e) { e.setCharCase(ecUpperCase); }, u"A1B2"},
        {[](TEdit& e) { e.setCharCase(ecLowerCase); }, u"a1b2"},
        {[](TEdit& e) { e.setReadOnly(true); }, u""},
        {[](TEdit& e) {
             e.OnKeyPress = [](TObject*, System::WideChar& key) { key = key == u'1' ? 0 : key; };
         },
         u"aB2"},
    };
    for (const TCase& test : cases) {
        auto* const tested = new TEdit(&form);
        tested->setParent(&form);
        test.prepare(*tested);
        tested->SetFocus();
        driver.Type(u"a1B2");
        EXPECT_EQ(tested->getText(), test.text);
        delete tested;
    }
    edit->setMaxLength(4);
    edit->setText(u"longer than that");
    EXPECT_EQ(edit->getText(), u"longer than that");
    edit->SetFocus();
    driver.Insert(u"abcdefg");
    EXPECT_EQ(edit->getText(), u"abcd");
}

TEST_F(EditTest, TakesALongerTextThanCanBeTyped)
{
    edit->setMaxLength(3);
    edit->setText(u"abcdef");
    edit->setSelStart(4);
    driver.Press(VK_BACK);
    EXPECT_EQ(edit->getText(), u"abcef");
    EXPECT_EQ(edit->getSelStart(), 3);
    driver.Type(u"x");
    EXPECT_EQ(edit->getText(), u"abcef");
    edit->SelectAll();
    driver.Type(u"1234");
    EXPECT_EQ(edit->getText(), u"123");
}

TEST_F(EditTest, KeepsItsSelectionWhileItIsLeft)
{
    edit->setAutoSelect(false);
    edit->setText(u"abcdef");
    edit->setSelStart(1);
    edit->setSelLength(3);
    driver.Focus(u"fOther");
    EXPECT_EQ(edit->getSelText(), u"bcd");
    driver.Focus(u"fEdit");
    driver.Type(u"x");
    EXPECT_EQ(edit->getText(), u"axef");
}

TEST_F(EditTest, KeepsItsKeysFromTheForm)
{
    int keys = 0;
    form.OnKeyDown = [&](TObject*, Word&, TShiftState) { ++keys; };
    form.OnKeyUp = [&](TObject*, Word&, TShiftState) { ++keys; };
    form.OnShortCut = [&](TObject*, Word, TShiftState, bool&) { ++keys; };
    driver.Press(VK_F5);
    EXPECT_EQ(keys, 1);
}

TEST_F(EditTest, HearsOfKeysThatCameDuringAnother)
{
    UnicodeString typed;
    edit->OnKeyPress = [&](TObject*, System::WideChar& key) { typed += UnicodeString(key); };
    edit->OnChange = [&](TObject*) {
        if (edit->getText() == u"a") {
            driver.Type(u"b");
        }
    };
    driver.Type(u"a");
    EXPECT_EQ(typed, u"ab");
    EXPECT_EQ(edit->getText(), u"ab");
}

TEST_F(PaintedEditTest, KeepsAPasswordFromTheClipboard)
{
    edit->setPasswordChar(u'*');
    edit->setText(u"secret");
    Toolkits::CurrentToolkit().SetClipboardText(u"before");
    edit->SelectAll();
    edit->CopyToClipboard();
    edit->CutToClipboard();
    EXPECT_EQ(Toolkits::CurrentToolkit().GetClipboardText(), u"before");
    EXPECT_EQ(edit->getText(), u"secret");
    edit->Update();
    const UnicodeString painted = edit->GetWindow()->LastPainting()->AsText();
    EXPECT_EQ(painted.Pos(u"secret"), 0);
    EXPECT_GT(painted.Pos(u"******"), 0);
}

TEST_F(EditTest, SelectsAllWhenItIsReachedByTheTabKeyButNotByAClick)
{
    edit->setText(u"abc");
    driver.Press(VK_TAB);
    EXPECT_EQ(driver.Focused(), u"fOther");
    driver.Press(VK_TAB);
    EXPECT_EQ(Shown(*edit), u"[abc|");
    driver.Press(VK_TAB);
    driver.Click(u"fEdit", {.X = 400, .Y = 5});
    EXPECT_EQ(Shown(*edit), u"abc|");
}

TEST_F(PaintedEditTest, IsSelectedByTheMouse)
{
    edit->setText(u"one two");
    driver.Click(u"fEdit", {.X = 0, .Y = 5});
    EXPECT_EQ(Shown(*edit), u"|one two");
    Toolkits::TMouseInput mouse;
    mouse.action = Toolkits::EMouseAction::Down;
    driver.Mouse(u"fEdit", mouse);
    mouse.action = Toolkits::EMouseAction::Move;
    mouse.place = {.X = 1000, .Y = 5};
    driver.Mouse(u"fEdit", mouse);
    EXPECT_EQ(Shown(*edit), u"[one two|");
    mouse.action = Toolkits::EMouseAction::Up;
    driver.Mouse(u"fEdit", mouse);
    mouse.action = Toolkits::EMouseAction::DoubleClick;
    mouse.place = {.X = 5, .Y = 5};
    driver.Mouse(u"fEdit", mouse);
    EXPECT_EQ(edit->getSelText(), u"one ");
}

TEST_F(EditTest, HoldsPlacesWithinTheText)
{
    edit->setText(u"abc");
    edit->setSelStart(99);
    EXPECT_EQ(edit->getSelStart(), 3);
    edit->setSelStart(-1);
    edit->setSelLength(INT_MAX);
    EXPECT_EQ(edit->getSelText(), u"abc");
    edit->setSelLength(-5);
    EXPECT_EQ(edit->getSelLength(), 0);
    edit->setSelText(u"x");
    EXPECT_EQ(Shown(*edit), u"x|abc");
}

TEST_F(EditTest, TakesOverWhatItsWindowTells)
{
    auto& events = edit->GetWindowEvents();
    edit->setText(u"aaa");
    edit->setSelStart(1);
    events.TextEdited(u"aaaa");
    EXPECT_EQ(Shown(*edit), u"aa|aa");
    EXPECT_TRUE(edit->getModified());
    events.SelectionMoved(1, 2);
    EXPECT_EQ(edit->getSelText(), u"aa");
    events.TextEdited(u"a");
    EXPECT_EQ(Shown(*edit), u"a|");
    edit->setReadOnly(true);
    events.TextEdited(u"ab");
    EXPECT_EQ(edit->getText(), u"a");
}

TEST_F(EditTest, TakesItsHeightFromTheFont)
{
    const int height = edit->getHeight();
    edit->getFont()->setSize(20);
    EXPECT_GT(edit->getHeight(), height);
    edit->setAutoSize(false);
    edit->setHeight(7);
    edit->getFont()->setSize(30);
    EXPECT_EQ(edit->getHeight(), 7);
}

TEST_F(EditTest, BearsItsDestructionAndFaultsOfItsHandlers)
{
    edit->OnChange = [](TObject*) { throw Sysutils::Exception(u"no"); };
    driver.Type(u"a");
    EXPECT_EQ(toolkit.TakeShown().size(), 1U);
    EXPECT_EQ(edit->getText(), u"a");
    const Classes::TComponentWatch watch(edit);
    edit->OnChange = [](TObject* sender) { delete sender; };
    driver.Press(VK_BACK);
    EXPECT_FALSE(watch.IsAlive());
    other->SetFocus();
    driver.Type(u"b");
    EXPECT_EQ(other->getText(), u"b");
}

TEST_F(EditTest, StaysUsableWithALargeText)
{
    const int length = 5'000'000;
    edit->setText(UnicodeString::StringOfChar(u'x', length));
    driver.Press(VK_END);
    for (int i = 0; i < 20; ++i) {
        driver.Type(u"y");
        driver.Press(VK_HOME);
        driver.Press(VK_DELETE);
        driver.Press(VK_END);
        edit->Update();
    }
    EXPECT_EQ(edit->getText().Length(), length);
    EXPECT_EQ(edit->getText().SubString(length - 19), UnicodeString::StringOfChar(u'y', 20));
}

TEST_F(EditTest, PublishesItsProperties)
{
    Typinfo::SetPropValue(edit, u"CharCase", u"ecUpperCase");
    Typinfo::SetPropValue(edit, u"Text", u"ab");
    EXPECT_EQ(edit->getText(), u"AB");
    EXPECT_EQ(Typinfo::GetOrdProp(edit, u"MaxLength"), 0);
}

} // namespace
