// SPDX-License-Identifier: MIT
#include "platform/visual/menus/Menus.h"

#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using namespace Menus;
using System::TObject;
using System::UnicodeString;

class MenuTest : public testing::Test
{
protected:
    TMenuItem* Add(const UnicodeString& caption, TMenuItem* parent = nullptr)
    {
        auto* const item = new TMenuItem(&mMenu);
        item->setCaption(caption);
        (parent == nullptr ? mMenu.getItems() : parent)->Add(item);
        return item;
    }

    Support::ScriptedBoxes mToolkit;
    TPopupMenu mMenu;
};

TEST(ShortCutTest, IsTextBothWays)
{
    using namespace Classes;
    struct TCase
    {
        System::Word key;
        TShiftState shift;
        UnicodeString text;
    };
    const TCase cases[] = {
        {'S', {ssCtrl}, u"Ctrl+S"}, {VK_F12, {ssShift, ssCtrl, ssAlt}, u"Shift+Ctrl+Alt+F12"},
        {VK_DELETE, {}, u"Del"},    {VK_NUMPAD0 + 7, {ssAlt}, u"Alt+Num 7"},
        {VK_F24, {}, u"F24"},
    };
    for (const TCase& row : cases) {
        const TShortCut shortCut = ShortCut(row.key, row.shift);
        EXPECT_EQ(ShortCutToText(shortCut), row.text);
        EXPECT_EQ(TextToShortCut(row.text.LowerCase()), shortCut);
        System::Word key = 0;
        TShiftState shift;
        ShortCutToKey(shortCut, key, shift);
        EXPECT_EQ(key, row.key);
        EXPECT_EQ(shift, row.shift);
    }
    EXPECT_EQ(TextToShortCut(u"Alt+Ctrl+X"), ShortCut('X', {ssCtrl, ssAlt}));
    for (const char16_t* text : {u"", u"Ctrl+", u"Ctrl", u"Nonsense", u"F25", u"Ctrl+SS"}) {
        EXPECT_EQ(TextToShortCut(text), scNone) << UnicodeString(text);
    }
    EXPECT_EQ(ShortCutToText(scNone), u"");
}

/// One that the script has open while other things happen.
class ScriptedMenuTest : public MenuTest
{
};

TEST_F(MenuTest, ChecksOneOfAGroup)
{
    TMenuItem* items[] = {Add(u"a"), Add(u"b"), Add(u"c"), Add(u"d")};
    for (TMenuItem* item : items) {
        item->setRadioItem(item != items[3]);
        item->setChecked(true);
    }
    items[0]->setGroupIndex(1);
    items[0]->setChecked(true);
    EXPECT_TRUE(items[0]->getChecked());
    EXPECT_FALSE(items[1]->getChecked());
    EXPECT_TRUE(items[2]->getChecked());
    EXPECT_TRUE(items[3]->getChecked());
    items[1]->setDefault(true);
    items[2]->setDefault(true);
    EXPECT_FALSE(items[1]->getDefault());
}

TEST_F(MenuTest, HoldsItemsUntilTheyGo)
{
    TMenuItem* const file = Add(u"&File");
    TMenuItem* const save = Add(u"&Save", file);
    EXPECT_EQ(file->Find(u"sAve"), save);
    EXPECT_EQ(save->GetParentMenu(), &mMenu);
    EXPECT_EQ(save->GetParentComponent(), file);
    EXPECT_EQ(file->GetParentComponent(), &mMenu);
    EXPECT_THROW(mMenu.getItems()->Add(save), EMenuError);
    EXPECT_THROW(save->Add(mMenu.getItems()), EMenuError);
    EXPECT_THROW(file->Delete(1), EMenuError);
    delete save;
    EXPECT_EQ(file->GetCount(), 0);
    mMenu.getItems()->Clear();
    EXPECT_EQ(mMenu.GetComponentCount(), 0);
}

TEST_F(MenuTest, DoesWhatAShortcutStandsForWhereItCanBeUsed)
{
    int clicks = 0;
    TMenuItem* const file = Add(u"&File");
    TMenuItem* const save = Add(u"&Save", file);
    save->setShortCut(TextToShortCut(u"Ctrl+S"));
    save->setAutoCheck(true);
    save->OnClick = [&](TObject*) { ++clicks; };
    EXPECT_TRUE(mMenu.DispatchShortCut(TextToShortCut(u"Ctrl+S")));
    EXPECT_TRUE(save->getChecked());
    file->setEnabled(false);
    EXPECT_FALSE(mMenu.DispatchShortCut(TextToShortCut(u"Ctrl+S")));
    EXPECT_FALSE(mMenu.DispatchShortCut(TextToShortCut(u"Ctrl+T")));
    EXPECT_FALSE(mMenu.DispatchShortCut(Classes::scNone));
    EXPECT_EQ(clicks, 1);
}

TEST_F(MenuTest, OpensAndDoesWhatIsChosenIfItIsStillThere)
{
    UnicodeString log;
    TMenuItem* const file = Add(u"&File");
    TMenuItem* const save = Add(u"&Save", file);
    save->OnClick = [&](TObject*) { log += u"saved "; };
    mMenu.OnPopup = [&](TObject*) { log += u"opened "; };
    mToolkit.AnswerMenu(u"File|Save");
    mMenu.Popup(0, 0);
    mMenu.Popup(0, 0);
    EXPECT_EQ(log, u"opened saved opened ");
    mMenu.OnPopup = nullptr;
    file->setVisible(false);
    mToolkit.AnswerMenu(u"File|Save");
    EXPECT_THROW(mMenu.Popup(0, 0), std::logic_error);
}

TEST_F(ScriptedMenuTest, BearsItemsThatGoWhileItIsOpen)
{
    int clicks = 0;
    const auto click = [&](TObject*) { ++clicks; };
    TMenuItem* const file = Add(u"&File");
    Add(u"&Save", file)->OnClick = click;
    Toolkits::CurrentToolkit().Post([&] {
        file->Clear();
        Add(u"&Save", file)->OnClick = click;
    });
    mToolkit.AnswerMenu(u"File|Save");
    mMenu.Popup(0, 0);
    EXPECT_EQ(clicks, 0);
    Toolkits::CurrentToolkit().Post([&] { delete file; });
    mToolkit.AnswerMenu(u"File|Save");
    mMenu.Popup(0, 0);
    EXPECT_EQ(clicks, 0);
}

TEST_F(MenuTest, BearsAClickThatDestroysItsItemOrMenu)
{
    auto menu = std::make_unique<TPopupMenu>();
    auto* const item = new TMenuItem;
    item->setCaption(u"x");
    menu->getItems()->Add(item);
    item->OnClick = [&](TObject*) { menu.reset(); };
    mToolkit.AnswerMenu(u"x");
    menu->Popup(0, 0);
    EXPECT_EQ(menu, nullptr);
}

} // namespace
