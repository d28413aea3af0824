// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "support/ShowPainted.h"

#include <stdexcept>
#include <utility>

namespace
{

using namespace Stdctrls;
using System::TObject;
using System::UnicodeString;

class ComboBoxTest : public Support::ShownForm
{
protected:
    ComboBoxTest()
    {
        mBox->setText({});
        mBox->getItems()->AddStrings({u"Ampere", u"Ohm", u"Volt", u"Watt"});
        mBox->OnClick = Note(u"click");
        mBox->OnChange = Note(u"change");
        mBox->OnDropDown = Note(u"drop");
        mBox->OnCloseUp = Note(u"close");
        mForm.Show();
        mDriver.Focus(u"Box");
    }

    TComboBox* mBox = Add<TComboBox>(u"Box");
};

/// One that acts and paints in place of its window: desktops have keys of their own.
class PaintedComboBoxTest : public ComboBoxTest
{
};

TEST_F(ComboBoxTest, ShowsTheItemThatAProgramChooses)
{
    for (const TComboBoxStyle style : {csDropDown, csDropDownList}) {
        SCOPED_TRACE(style);
        mBox->setStyle(style);
        mBox->setItemIndex(2);
        EXPECT_EQ(mBox->getText(), u"Volt");
        mBox->setText(u"Ohm");
        EXPECT_EQ(mBox->getItemIndex(), 1);
        mBox->setItemIndex(99);
        EXPECT_EQ(mBox->getText(), u"");
    }
    mBox->setText(u"WATT");
    EXPECT_EQ(mBox->getItemIndex(), 3);
    mBox->setText(u"Tesla");
    EXPECT_EQ(mBox->getText(), u"");
    mBox->setStyle(csDropDown);
    mBox->setText(u"Tesla");
    EXPECT_EQ(mBox->getText(), u"Tesla");
    EXPECT_EQ(mBox->getItemIndex(), -1);
    EXPECT_EQ(TakeLog(), u"");
}

TEST_F(ComboBoxTest, IsChosenFromByKeys)
{
    mBox->setStyle(csDropDownList);
    struct TRow
    {
        System::Word key;
        int from;
        int to;
    };
    for (const auto& [key, from, to] : {TRow{VK_DOWN, -1, 0},
                                        {VK_DOWN, 3, 3},
                                        {VK_UP, 2, 1},
                                        {VK_LEFT, 2, 1},
                                        {VK_RIGHT, 2, 3},
                                        {VK_HOME, 2, 0},
                                        {VK_END, 0, 3},
                                        {VK_NEXT, 0, 3},
                                        {VK_PRIOR, 3, 0}}) {
        SCOPED_TRACE(testing::Message() << key << " from " << from);
        mBox->setItemIndex(from);
        mDriver.Press(key);
        EXPECT_EQ(mBox->getItemIndex(), to);
        EXPECT_EQ(TakeLog(), from == to ? u"" : u"click change ");
    }
    mBox->OnSelect = Note(u"select");
    mDriver.Type(u"w");
    EXPECT_EQ(mBox->getText(), u"Watt");
    EXPECT_EQ(TakeLog(), u"click select ");
}

TEST_F(ComboBoxTest, IsChosenFromByKeysBesideWhatIsTyped)
{
    mDriver.Type(u"x");
    TakeLog();
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mBox->getText(), u"Ampere");
    mDriver.Press(VK_NEXT);
    EXPECT_EQ(mBox->getText(), u"Watt");
    EXPECT_EQ(TakeLog(), u"click change click change ");
    mBox->setText(u"Ohm");
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mBox->getText(), u"Volt");
}

TEST_F(ComboBoxTest, ChoosesNothingWhenItIsLeft)
{
    Add<TButton>(u"Other");
    mBox->setAutoComplete(false);
    mDriver.Type(u"Ohm");
    mBox->setSelStart(1);
    mBox->setSelLength(2);
    EXPECT_EQ(TakeLog(), u"change change change ");
    mDriver.Focus(u"Other");
    EXPECT_EQ(TakeLog(), u"");
    EXPECT_EQ(mBox->getSelText(), u"hm");
}

TEST_F(ComboBoxTest, TakesALongerTextThanCanBeTyped)
{
    mBox->setMaxLength(3);
    mBox->setText(u"Tesla");
    mBox->setSelStart(5);
    mDriver.Press(VK_BACK);
    EXPECT_EQ(mBox->getText(), u"Tesl");
    mDriver.Type(u"x");
    EXPECT_EQ(mBox->getText(), u"Tesl");
    mDriver.Press(VK_BACK);
    mDriver.Press(VK_BACK);
    mDriver.Type(u"xy");
    EXPECT_EQ(mBox->getText(), u"Tex");
}

TEST_F(PaintedComboBoxTest, OpensAndClosesItsList)
{
    mBox->setStyle(csDropDownList);
    mDriver.Click(u"Box");
    EXPECT_TRUE(mBox->getDroppedDown());
    EXPECT_NE(mDriver.Print().find("\"\" focused items 4 open\n"), std::string::npos) << mDriver.Print();
    mDriver.Choose(u"Box", 2);
    EXPECT_EQ(TakeLog(), u"drop click change close ");
    mDriver.Press(VK_DOWN, {Classes::ssAlt});
    mDriver.Press(VK_UP);
    mDriver.Press(VK_ESCAPE);
    EXPECT_EQ(mBox->getText(), u"Volt");
    EXPECT_EQ(TakeLog(), u"drop click change close ");
    mDriver.Press(VK_F4);
    mDriver.Press(VK_DOWN);
    mDriver.Press(VK_RETURN);
    EXPECT_EQ(mBox->getText(), u"Watt");
    mBox->setDroppedDown(true);
    mBox->Perform(CB_SHOWDROPDOWN, 0);
    EXPECT_EQ(TakeLog(), u"drop click change close drop close ");
    mBox->setStyle(csSimple);
    mBox->setDroppedDown(true);
    EXPECT_FALSE(mBox->getDroppedDown());
}

TEST_F(PaintedComboBoxTest, KeepsEnterAndEscapeOfTheFormWhileItIsOpen)
{
    auto* const ok = Add<TButton>(u"Ok");
    ok->setDefault(true);
    ok->OnClick = Note(u"ok");
    mBox->setDroppedDown(true);
    mDriver.Press(VK_RETURN);
    mDriver.Press(VK_RETURN);
    EXPECT_EQ(TakeLog(), u"drop close ok ");
    mBox->setDroppedDown(true);
    mDriver.Press(VK_TAB);
    EXPECT_EQ(TakeLog(), u"drop close ");
}

TEST_F(ComboBoxTest, CantBeChosenFromWhileItIsDisabled)
{
    mBox->setEnabled(false);
    EXPECT_THROW(mDriver.Choose(u"Box", 1), std::logic_error);
    mBox->setEnabled(true);
    mDriver.Choose(u"Box", 99);
    EXPECT_EQ(mBox->getItemIndex(), -1);
}

TEST_F(ComboBoxTest, LetsItsListBeFilledAsItOpens)
{
    mBox->OnDropDown = [this](TObject*) { mBox->getItems()->Add(u"Tesla"); };
    mDriver.Press(VK_F4);
    mDriver.Choose(u"Box", 4);
    EXPECT_EQ(mBox->getText(), u"Tesla");
}

TEST_F(ComboBoxTest, IsTypedInto)
{
    mBox->setAutoComplete(false);
    mDriver.Type(u"abc");
    EXPECT_EQ(TakeLog(), u"change change change ");
    mDriver.Press(VK_LEFT);
    mDriver.Press(VK_BACK);
    EXPECT_EQ(mBox->getText(), u"ac");
    mDriver.Press(VK_DELETE);
    mDriver.Press(VK_DELETE);
    EXPECT_EQ(mBox->getText(), u"a");
    mDriver.Press(VK_HOME);
    mDriver.Press(VK_BACK);
    mDriver.Type(u"xy");
    mDriver.Press(VK_END, {Classes::ssShift});
    EXPECT_EQ(mBox->getSelText(), u"a");
    mDriver.Press('C', {Classes::ssCtrl});
    mDriver.Press(VK_HOME);
    mDriver.Press('V', {Classes::ssCtrl});
    EXPECT_EQ(mBox->getText(), u"axya");
    mDriver.Press('A', {Classes::ssCtrl});
    mDriver.Press('X', {Classes::ssCtrl});
    EXPECT_EQ(mBox->getText(), u"");
    mBox->setMaxLength(3);
    mDriver.Press('V', {Classes::ssCtrl});
    EXPECT_EQ(mBox->getText(), u"axy");
    mDriver.Type(u"z");
    EXPECT_EQ(mBox->getText(), u"axy");
}

TEST_F(ComboBoxTest, TakesAnEditBackAndMovesByWords)
{
    mBox->setAutoComplete(false);
    mDriver.Type(u"one two");
    mDriver.Press(VK_LEFT, {Classes::ssCtrl});
    EXPECT_EQ(mBox->getSelStart(), 4);
    mDriver.Press(VK_DELETE, {Classes::ssCtrl});
    EXPECT_EQ(mBox->getText(), u"one ");
    mDriver.Press('Z', {Classes::ssCtrl});
    EXPECT_EQ(mBox->getText(), u"one two");
    mBox->setText(u"a\U0001F600");
    mDriver.Press(VK_END);
    mDriver.Press(VK_BACK);
    EXPECT_EQ(mBox->getText(), u"a");
}

TEST_F(ComboBoxTest, ChoosesTheItemThatIsTyped)
{
    mBox->setAutoComplete(false);
    mDriver.Type(u"Ohm");
    EXPECT_EQ(mBox->getItemIndex(), 1);
    mDriver.Type(u"s");
    EXPECT_EQ(mBox->getItemIndex(), -1);
}

TEST_F(ComboBoxTest, CompletesWhatIsTyped)
{
    mDriver.Type(u"v");
    EXPECT_EQ(mBox->getText(), u"Volt");
    EXPECT_EQ(mBox->getSelText(), u"olt");
    EXPECT_EQ(TakeLog(), u"change click change ");
    mDriver.Type(u"ox");
    EXPECT_EQ(mBox->getText(), u"Vox");
    EXPECT_EQ(mBox->getItemIndex(), -1);
    mDriver.Press(VK_BACK);
    EXPECT_EQ(mBox->getText(), u"Vo");
}

TEST_F(ComboBoxTest, KeepsItsSelectionWithinItsText)
{
    mBox->setText(u"Volt");
    mBox->setSelStart(2);
    mBox->setSelLength(99);
    EXPECT_EQ(mBox->getSelText(), u"lt");
    mBox->setSelText(u"x");
    EXPECT_EQ(mBox->getText(), u"Vox");
    EXPECT_EQ(mBox->getSelStart(), 3);
    mBox->setSelStart(-4);
    mBox->setSelLength(-4);
    EXPECT_EQ(mBox->getSelStart() + mBox->getSelLength(), 0);
    mBox->SelectAll();
    mBox->setText({});
    EXPECT_EQ(mBox->getSelLength(), 0);
}

TEST_F(ComboBoxTest, KeepsItsChoiceAsItemsMove)
{
    mBox->setItemIndex(2);
    mBox->getItems()->Insert(0, u"Tesla");
    EXPECT_EQ(mBox->getItemIndex(), 3);
    mBox->setSorted(true);
    EXPECT_EQ(mBox->getItems()->getStrings(mBox->getItemIndex()), u"Volt");
    mBox->DeleteSelected();
    EXPECT_EQ(mBox->getText(), u"");
    EXPECT_EQ(mBox->getItems()->getCommaText(), u"Ampere,Ohm,Tesla,Watt");
    mBox->setText(u"x");
    mBox->Clear();
    EXPECT_EQ(mBox->getText(), u"");
    EXPECT_EQ(mBox->getItemCount(), 0);
}

TEST_F(ComboBoxTest, AnswersTheMessagesOfItemData)
{
    mBox->Perform(CB_SETITEMDATA, 1, 77);
    EXPECT_EQ(mBox->Perform(CB_GETITEMDATA, 1), 77);
    EXPECT_EQ(mBox->Perform(CB_GETITEMDATA, 0), 0);
    EXPECT_EQ(mBox->Perform(CB_GETITEMDATA, 4), -1);
    EXPECT_EQ(mBox->Perform(CB_SETCURSEL, 2), 2);
    EXPECT_EQ(mBox->Perform(CB_GETCURSEL), 2);
    EXPECT_EQ(mBox->Perform(CB_GETCOUNT), 4);
}

TEST_F(ComboBoxTest, HearsOfWhatItsNativeWindowDid)
{
    mBox->GetWindowEvents().TextEdited(u"Volt");
    mBox->GetWindowEvents().SelectionMoved(1, 2);
    EXPECT_EQ(mBox->getSelText(), u"ol");
    EXPECT_EQ(mBox->getItemIndex(), 2);
    mBox->GetWindowEvents().DropChanged(true);
    mBox->GetWindowEvents().Chosen(0);
    mBox->GetWindowEvents().DropChanged(false);
    EXPECT_EQ(TakeLog(), u"change drop click change close ");
    mBox->setText({});
    mBox->GetWindowEvents().TextEdited(u"O");
    EXPECT_EQ(mBox->getText(), u"Ohm");
    EXPECT_EQ(mBox->getSelText(), u"hm");
    mBox->GetWindowEvents().TextEdited(u"O");
    EXPECT_EQ(mBox->getText(), u"O");
}

TEST_F(PaintedComboBoxTest, LetsItsItemBeDrawn)
{
    mBox->setStyle(csOwnerDrawFixed);
    mBox->setItemIndex(1);
    UnicodeString drawn;
    mBox->OnDrawItem = [&](Controls::TWinControl*, int index, const Types::TRect&, TOwnerDrawState state) {
        drawn += UnicodeString(index) + (state.Contains(odComboBoxEdit) ? u"e" : u"");
    };
    Graphics::TBitmap bitmap(145, 21);
    mBox->PaintTo(bitmap.getCanvas()->getHandle(), 0, 0);
    EXPECT_EQ(drawn, u"1e");
}

TEST_F(ComboBoxTest, HasItsFieldDrawnWhereItsStyleSaysSo)
{
    mBox->setItemIndex(1);
    Controls::TWinControl& other = *Add<TButton>(u"Other");
    ASSERT_TRUE(Support::ShowPainted(mForm));
    for (const TComboBoxStyle style : {csOwnerDrawFixed, csOwnerDrawVariable, csDropDownList, csDropDown}) {
        SCOPED_TRACE(style);
        mBox->setStyle(style);
        const bool isDrawn = style == csOwnerDrawFixed || style == csOwnerDrawVariable;
        TOwnerDrawState seen;
        int index = -1;
        mBox->OnDrawItem = [&](Controls::TWinControl* box, int drawn, const Types::TRect& rect,
                               TOwnerDrawState state) {
            EXPECT_EQ(box, mBox);
            EXPECT_GT(rect.Width(), 50);
            EXPECT_LE(rect.Right, mBox->getWidth());
            EXPECT_TRUE(mBox->getCanvas()->HandleAllocated());
            index = drawn;
            seen = state;
        };
        for (const bool isFocused : {true, false}) {
            (isFocused ? *mBox : other).SetFocus();
            mBox->Repaint();
            EXPECT_EQ(index, isDrawn ? 1 : -1);
            EXPECT_EQ(seen.Contains(odComboBoxEdit), isDrawn);
            EXPECT_EQ(seen.Contains(odFocused), isDrawn && isFocused);
        }
        mBox->OnDrawItem = nullptr;
    }
}

TEST_F(ComboBoxTest, MeasuresEachItemOnceBeforeTheListOpens)
{
    UnicodeString log;
    mBox->OnMeasureItem = [&](Controls::TWinControl* box, int index, int& height) {
        EXPECT_EQ(box, mBox);
        EXPECT_EQ(height, 30);
        EXPECT_FALSE(mBox->getDroppedDown());
        log += UnicodeString(index) + u" ";
        height += index;
    };
    const auto opened = [&] {
        mBox->setDroppedDown(true);
        mBox->setDroppedDown(false);
        return std::exchange(log, {});
    };
    mBox->setStyle(csOwnerDrawFixed);
    mBox->setItemHeight(30);
    EXPECT_EQ(opened(), u"");
    mBox->setStyle(csOwnerDrawVariable);
    EXPECT_EQ(log, u"");
    EXPECT_EQ(opened(), u"0 1 2 3 ");
    EXPECT_EQ(opened(), u"");
    mBox->getItems()->Insert(1, u"Farad");
    EXPECT_EQ(opened(), u"1 ");
    mBox->getItems()->Add(u"Henry");
    mBox->OnMeasureItem = [](Controls::TWinControl* box, int, int&) { delete box; };
    EXPECT_THROW(mBox->setDroppedDown(true), Sysutils::EAbort);
    EXPECT_EQ(mForm.FindComponent(u"Box"), nullptr);
}

TEST_F(ComboBoxTest, MayBeDestroyedByEachOfItsEvents)
{
    const auto destroy = [](TObject* sender) { delete sender; };
    Classes::TNotifyEvent TComboBox::*const events[] = {&TComboBox::OnClick, &TComboBox::OnChange,
                                                        &TComboBox::OnDropDown, &TComboBox::OnCloseUp};
    for (const auto event : events) {
        auto* const box = Add<TComboBox>(u"Gone");
        box->getItems()->AddStrings({u"a", u"b"});
        box->setStyle(csDropDownList);
        box->*event = destroy;
        mDriver.Focus(u"Gone");
        mDriver.Press(VK_F4);
        if (mForm.FindComponent(u"Gone") != nullptr) {
            mDriver.Choose(u"Gone", 1);
        }
        EXPECT_EQ(mForm.FindComponent(u"Gone"), nullptr);
    }
}

TEST_F(ComboBoxTest, TakesATextOfMegabytes)
{
    mBox->setText(UnicodeString(std::u16string(10000000, u'x')));
    mDriver.Press(VK_END);
    mDriver.Type(u"y");
    EXPECT_EQ(mBox->getText().Length(), 10000001);
    EXPECT_EQ(mBox->getSelStart(), 10000001);
}

} // namespace
