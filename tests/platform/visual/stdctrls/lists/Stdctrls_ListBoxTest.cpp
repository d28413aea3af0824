// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Stdctrls_ListBox.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/ShownForm.h"

#include <stdexcept>

namespace
{

using namespace Stdctrls;
using Classes::TShiftState;
using System::TObject;
using System::UnicodeString;
using Toolkits::EMouseAction;
using Toolkits::TMouseInput;
using Types::TRect;

class ListBoxTest : public Support::ShownForm
{
protected:
    ListBoxTest()
    {
        mBox->SetBounds(0, 0, 100, 4 * mBox->getItemHeight());
        mBox->getItems()->AddStrings({u"apple", u"banana", u"blackberry", u"cherry", u"date", u"elderberry"});
        mBox->OnClick = [this](TObject*) { mLog += UnicodeString(mBox->getItemIndex()); };
        mForm.Show();
        mDriver.Focus(u"Box");
    }

    void ClickItem(int index, const TShiftState& shift = {})
    {
        const TRect rect = mBox->ItemRect(index);
        const Types::TPoint place{rect.Left + 5, rect.Top + 2};
        mDriver.Mouse(
            u"Box",
            {.action = EMouseAction::Down, .shift = shift + TShiftState{Classes::ssLeft}, .place = place});
        mDriver.Mouse(u"Box", {.action = EMouseAction::Up, .shift = shift, .place = place});
    }

    UnicodeString Selected() const
    {
        UnicodeString places;
        for (int i = 0; i < mBox->getCount(); ++i) {
            places += mBox->getSelected(i) ? UnicodeString(i) : UnicodeString();
        }
        return places;
    }

    TListBox* mBox = Add<TListBox>(u"Box");
};

TEST_F(ListBoxTest, IsChosenFromByMouseAndKeys)
{
    struct TRow
    {
        System::Word key;
        int from;
        int to;
    };
    for (const auto& [key, from, to] : {TRow{VK_DOWN, 1, 2},
                                        {VK_DOWN, 5, 5},
                                        {VK_DOWN, -1, 0},
                                        {VK_UP, 0, 0},
                                        {VK_UP, 3, 2},
                                        {VK_LEFT, 3, 2},
                                        {VK_RIGHT, 3, 4},
                                        {VK_NEXT, 0, 3},
                                        {VK_NEXT, 4, 5},
                                        {VK_PRIOR, 5, 2},
                                        {VK_HOME, 3, 0},
                                        {VK_END, 3, 5}}) {
        SCOPED_TRACE(testing::Message() << key << " from " << from);
        mBox->setItemIndex(from);
        TakeLog();
        mDriver.Press(key);
        EXPECT_EQ(mBox->getItemIndex(), to);
        EXPECT_EQ(TakeLog(), from == to ? UnicodeString() : UnicodeString(to));
    }
    mBox->setTopIndex(1);
    ClickItem(3);
    ClickItem(3);
    EXPECT_EQ(TakeLog(), u"33");
    EXPECT_EQ(mDriver.Focused(), u"Box");
}

TEST_F(ListBoxTest, FollowsTheMouseUntilItIsLetGo)
{
    const int height = mBox->getItemHeight();
    mDriver.Mouse(u"Box", {.action = EMouseAction::Down, .shift = {Classes::ssLeft}, .place = {5, 1}});
    EXPECT_EQ(mBox->getItemIndex(), 0);
    mDriver.Mouse(u"Box",
                  {.action = EMouseAction::Move, .shift = {Classes::ssLeft}, .place = {5, 2 * height + 1}});
    EXPECT_EQ(mBox->getItemIndex(), 2);
    EXPECT_EQ(TakeLog(), u"");
    mDriver.Mouse(u"Box", {.action = EMouseAction::Up, .place = {5, 2 * height + 1}});
    EXPECT_EQ(TakeLog(), u"2");
    mDriver.Mouse(u"Box", {.action = EMouseAction::Move, .place = {5, 1}});
    EXPECT_EQ(mBox->getItemIndex(), 2);
}

TEST_F(ListBoxTest, GoesToWhatIsTyped)
{
    mBox->setAutoCompleteDelay(60000);
    mDriver.Type(u"BL");
    EXPECT_EQ(mBox->getItemIndex(), 2);
    mDriver.Type(u"x");
    EXPECT_EQ(mBox->getItemIndex(), 2);
    mBox->setAutoCompleteDelay(0);
    mDriver.Type(u"c");
    EXPECT_EQ(mBox->getItemIndex(), 3);
    mDriver.Type(u"bb");
    EXPECT_EQ(mBox->getItemIndex(), 2);
    mBox->setAutoCompleteDelay(60000);
    mBox->setAutoComplete(false);
    mDriver.Type(u"bbd");
    EXPECT_EQ(mBox->getItemIndex(), 4);
}

TEST_F(ListBoxTest, KeepsItsChoiceAsItemsMove)
{
    mBox->setItemIndex(2);
    mBox->getItems()->Insert(0, u"zero");
    EXPECT_EQ(mBox->getItemIndex(), 3);
    mBox->getItems()->Delete(1);
    EXPECT_EQ(mBox->getItemIndex(), 2);
    mBox->setSorted(true);
    EXPECT_EQ(mBox->getItems()->getStrings(mBox->getItemIndex()), u"blackberry");
    mBox->getItems()->Add(u"aardvark");
    EXPECT_EQ(mBox->getItems()->getStrings(0), u"aardvark");
    EXPECT_EQ(mBox->getItems()->getStrings(mBox->getItemIndex()), u"blackberry");
    mBox->getItems()->setStrings(mBox->getItemIndex(), u"zz");
    EXPECT_EQ(mBox->getItemIndex(), mBox->getCount() - 1);
    mBox->getItems()->Delete(mBox->getItemIndex());
    EXPECT_EQ(mBox->getItemIndex(), -1);
    EXPECT_EQ(TakeLog(), u"");
}

TEST_F(ListBoxTest, KeepsObjectsWithTheirItems)
{
    Classes::TStringList objects;
    mBox->AddItem(u"aaa", &objects);
    mBox->setSorted(true);
    EXPECT_EQ(mBox->getItems()->getObjects(0), &objects);
    EXPECT_EQ(mBox->getItems()->IndexOfObject(&objects), 0);
    EXPECT_EQ(mBox->Perform(LB_GETITEMDATA, 0), reinterpret_cast<std::intptr_t>(&objects));
    EXPECT_EQ(mBox->Perform(LB_GETITEMDATA, 99), -1);
    mBox->Perform(LB_SETITEMDATA, 1, 5);
    EXPECT_EQ(mBox->Perform(LB_GETITEMDATA, 1), 5);
    Classes::TStringList copy;
    copy.Assign(mBox->getItems());
    EXPECT_EQ(copy.getObjects(0), &objects);
    TListBox other;
    other.setItems(&copy);
    EXPECT_EQ(other.getItems()->getObjects(0), &objects);
}

TEST_F(ListBoxTest, ChoosesSeveralAsTheUserOfADesktopDoes)
{
    mBox->setMultiSelect(true);
    mBox->setHeight(10 * mBox->getItemHeight());
    const TShiftState ctrl{Classes::ssCtrl};
    const TShiftState shift{Classes::ssShift};
    ClickItem(1);
    ClickItem(3, ctrl);
    EXPECT_EQ(Selected(), u"13");
    ClickItem(5, shift);
    EXPECT_EQ(Selected(), u"345");
    ClickItem(3, ctrl);
    EXPECT_EQ(Selected(), u"45");
    EXPECT_EQ(mBox->getSelCount(), 2);
    mDriver.Press(VK_UP, shift);
    EXPECT_EQ(Selected(), u"23");
    mDriver.Press(VK_HOME, ctrl);
    mDriver.Press(VK_SPACE, ctrl);
    EXPECT_EQ(Selected(), u"023");
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(Selected(), u"1");
    mBox->SelectAll();
    EXPECT_EQ(mBox->getSelCount(), 6);
    mBox->setSelected(0, false);
    EXPECT_NE(mDriver.Print().find("items 6 index 1 selected 1,2,3,4,5\n"), std::string::npos)
        << mDriver.Print();
    mBox->DeleteSelected();
    EXPECT_EQ(mBox->getItems()->getCommaText(), u"apple");
}

TEST_F(ListBoxTest, TurnsItemsOverWithoutExtendedSelect)
{
    mBox->setMultiSelect(true);
    mBox->setExtendedSelect(false);
    ClickItem(0);
    ClickItem(2);
    ClickItem(0);
    EXPECT_EQ(Selected(), u"2");
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(Selected(), u"2");
    mDriver.Press(VK_SPACE);
    EXPECT_EQ(Selected(), u"12");
}

TEST_F(ListBoxTest, MovesAndCopiesWhatIsChosen)
{
    auto* const other = Add<TListBox>(u"Other");
    mBox->setMultiSelect(true);
    mBox->setSelected(1, true);
    mBox->setSelected(4, true);
    mBox->CopySelection(other);
    EXPECT_EQ(other->getItems()->getCommaText(), u"banana,date");
    mBox->MoveSelection(other);
    EXPECT_EQ(mBox->getItems()->getCommaText(), u"apple,blackberry,cherry,elderberry");
    EXPECT_EQ(mBox->getSelCount(), 0);
    other->MoveSelection(nullptr);
    EXPECT_EQ(other->getCount(), 4);
    EXPECT_EQ(other->getSelCount(), -1);
}

TEST_F(ListBoxTest, KnowsWhereItsItemsAre)
{
    const int height = mBox->getItemHeight();
    mBox->setTopIndex(1);
    EXPECT_EQ(mBox->ItemRect(2), (TRect{0, height, 100, 2 * height}));
    EXPECT_EQ(mBox->ItemRect(0).Top, -height);
    EXPECT_EQ(mBox->ItemRect(7), TRect());
    EXPECT_EQ(mBox->ItemAtPos({5, height + 1}, true), 2);
    EXPECT_EQ(mBox->ItemAtPos({5, -1}, true), -1);
    mBox->setTopIndex(99);
    EXPECT_EQ(mBox->getTopIndex(), 2);
    mBox->setHeight(8 * height);
    EXPECT_EQ(mBox->getTopIndex(), 0);
    EXPECT_EQ(mBox->ItemAtPos({5, 6 * height + 1}, true), -1);
    EXPECT_EQ(mBox->ItemAtPos({5, 6 * height + 1}, false), 6);
}

TEST_F(ListBoxTest, HasRoomForABarBelowWhatIsTooWide)
{
    EXPECT_EQ(mBox->getItemHeight() * 4, mBox->getClientHeight());
    mBox->setTopIndex(5);
    EXPECT_EQ(mBox->getTopIndex(), 2);
    mBox->setScrollWidth(500);
    // What the bar covers is no row that is seen.
    mBox->setItemIndex(0);
    mBox->setItemIndex(3);
    const int rows = (mBox->getClientHeight() - 17) / mBox->getItemHeight();
    EXPECT_EQ(mBox->getTopIndex(), 4 - rows);
    mBox->setTopIndex(5);
    EXPECT_EQ(mBox->getTopIndex(), 6 - rows);
    mBox->setScrollWidth(-1);
    EXPECT_EQ(mBox->getScrollWidth(), 0);
    EXPECT_EQ(mBox->getTopIndex(), 2);
}

TEST_F(ListBoxTest, FillsColumnsFromTheLeft)
{
    const int height = mBox->getItemHeight();
    mBox->setHeight(2 * height);
    mBox->setColumns(2);
    EXPECT_EQ(mBox->ItemRect(3), (TRect{50, height, 100, 2 * height}));
    EXPECT_EQ(mBox->ItemAtPos({60, height + 1}, true), 3);
    mBox->setItemIndex(5);
    EXPECT_EQ(mBox->getTopIndex(), 2);
    EXPECT_EQ(mBox->ItemRect(5), (TRect{50, height, 100, 2 * height}));
    mDriver.Press(VK_LEFT);
    EXPECT_EQ(mBox->getItemIndex(), 3);
}

TEST_F(ListBoxTest, TurnsWithTheWheel)
{
    TMouseInput wheel{.action = EMouseAction::Wheel, .place = {5, 5}, .wheelDelta = -120};
    mDriver.Mouse(u"Box", wheel);
    EXPECT_EQ(mBox->getTopIndex(), 2);
    wheel.wheelDelta = 120;
    mDriver.Mouse(u"Box", wheel);
    EXPECT_EQ(mBox->getTopIndex(), 0);
    EXPECT_EQ(mBox->getItemIndex(), -1);
}

TEST_F(ListBoxTest, LetsItsItemsBeDrawnAndMeasured)
{
    UnicodeString drawn;
    mBox->OnMeasureItem = [](Controls::TWinControl*, int index, int& height) { height = 10 + 5 * index; };
    mBox->setStyle(lbOwnerDrawVariable);
    mBox->setHeight(60);
    mBox->OnDrawItem = [&](Controls::TWinControl* control, int index, const TRect& rect,
                           TOwnerDrawState state) {
        EXPECT_EQ(control, mBox);
        drawn += UnicodeString(index) + u":" + UnicodeString(rect.Top) + u"-" + UnicodeString(rect.Bottom) +
                 (state.Contains(odSelected) ? u"s" : u"") + (state.Contains(odFocused) ? u"f" : u"") + u" ";
    };
    mBox->setItemIndex(1);
    Graphics::TBitmap bitmap(100, 60);
    mBox->PaintTo(bitmap.getCanvas()->getHandle(), 0, 0);
    EXPECT_EQ(drawn, u"0:0-10 1:10-25sf 2:25-45 3:45-70 ");
    EXPECT_EQ(mBox->ItemAtPos({1, 26}, true), 2);
    mBox->setItemIndex(5);
    EXPECT_LE(mBox->ItemRect(5).Bottom, 60);
}

TEST_F(ListBoxTest, DrawsOnlyWhatIsSeen)
{
    mBox->setStyle(lbOwnerDrawFixed);
    mBox->setHeight(64);
    for (int i = 0; i < 5000; ++i) {
        mBox->getItems()->Add(UnicodeString(i));
    }
    int drawn = 0;
    mBox->OnDrawItem = [&](auto&&...) { ++drawn; };
    Graphics::TBitmap bitmap(100, 64);
    mBox->PaintTo(bitmap.getCanvas()->getHandle(), 0, 0);
    EXPECT_EQ(drawn, 5);
}

TEST_F(ListBoxTest, AsksForItsItemsInAVirtualStyle)
{
    EXPECT_THROW(mBox->setCount(3), Classes::EInvalidOperation);
    mBox->setStyle(lbVirtual);
    mBox->OnData = [](Controls::TWinControl*, int index, UnicodeString& data) {
        data = u"item " + UnicodeString(index);
    };
    mBox->setCount(1000000);
    mBox->setItemIndex(999999);
    EXPECT_EQ(mBox->GetItemText(999999), u"item 999999");
    EXPECT_EQ(mBox->getTopIndex(), 999996);
    mBox->OnDataFind = [](Controls::TWinControl*, const UnicodeString& text) {
        return text == u"x" ? 17 : -1;
    };
    mDriver.Type(u"x");
    EXPECT_EQ(mBox->getItemIndex(), 17);
    EXPECT_THROW(mBox->GetItemText(1000000), Classes::EListError);
    mBox->setCount(5);
    EXPECT_EQ(mBox->getItemIndex(), -1);
}

TEST_F(ListBoxTest, TellsOfADoubleClickAndMayBeDestroyedByIt)
{
    mBox->OnDblClick = Note(u" twice");
    mDriver.DoubleClick(u"Box");
    EXPECT_EQ(TakeLog(), u"2 twice 2");
    mBox->OnDblClick = [](TObject* sender) { delete sender; };
    mDriver.DoubleClick(u"Box");
    EXPECT_EQ(mForm.FindComponent(u"Box"), nullptr);
}

TEST_F(ListBoxTest, RefusesItemsThatArentThere)
{
    for (const int index : {-1, 6, 1000}) {
        SCOPED_TRACE(index);
        EXPECT_THROW(static_cast<void>(mBox->getSelected(index)), Classes::EListError);
        EXPECT_THROW(mBox->setSelected(index, true), Classes::EListError);
        EXPECT_THROW(mBox->getItems()->Delete(index), Classes::EStringListError);
        mBox->setItemIndex(index);
        EXPECT_EQ(mBox->getItemIndex(), -1);
    }
    mBox->setColumns(-4);
    mBox->setItemHeight(-4);
    mBox->SetBounds(0, 0, -4, -4);
    mBox->setItemIndex(3);
    mDriver.Press(VK_NEXT);
    EXPECT_EQ(mBox->getItemIndex(), 4);
}

TEST_F(ListBoxTest, HoldsManyItemsInOrderAndKeepsOneOfThemChosen)
{
    constexpr int count = 20000;
    mBox->getItems()->Clear();
    mBox->setSorted(true);
    mBox->getItems()->Add(u"110000x");
    mBox->setItemIndex(0);
    {
        const Classes::GUpdateScope scope(*mBox->getItems());
        for (int i = 0; i < count; ++i) {
            // Each goes to another place than the one before.
            mBox->getItems()->Add(UnicodeString(100000 + (i * 7919LL) % count));
        }
    }
    EXPECT_EQ(mBox->getCount(), count + 1);
    EXPECT_EQ(mBox->getItems()->getStrings(mBox->getItemIndex()), u"110000x");
    EXPECT_EQ(mBox->getItems()->getStrings(0), u"100000");
    mBox->setMultiSelect(true);
    mBox->SelectAll();
    EXPECT_EQ(mBox->getSelCount(), count + 1);
}

TEST_F(ListBoxTest, PublishesWhatAFormSets)
{
    Typinfo::SetOrdProp(mBox, u"ItemIndex", 2);
    EXPECT_EQ(mBox->getItemIndex(), 2);
    Typinfo::SetOrdProp(mBox, u"Sorted", 1);
    Typinfo::SetOrdProp(mBox, u"Style", lbOwnerDrawFixed);
    Typinfo::SetOrdProp(mBox, u"ItemHeight", 33);
    EXPECT_EQ(mBox->ItemRect(1).Top, 33);
}

} // namespace
