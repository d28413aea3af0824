// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/visual/menus/Menus.h"
#include "properties/objects/Gauges.h"
#include "properties/objects/PROP_Object.h"
#include "properties/values/PROP_Filter.h"

#include <gtest/gtest.h>

namespace
{

using Gauges::Lines;
using Menus::TextToShortCut;
using Menus::TMenuItem;
using PROP::CMenuItem;
using PROP::CProperties;
using System::UnicodeString;

CMenuItem Read(const char16_t* text)
{
    return CMenuItem(u"mnSave", UnicodeString(text));
}

TEST(MenuItemTextTest, HasAShortCutInItsFormOfTwoPartsAlone)
{
    struct TCase
    {
        const char16_t* text;
        const char16_t* caption;
        const char16_t* shortCut;
        const char* properties;
    };
    for (const auto& [text, caption, shortCut, properties] : {
             TCase{u"\"&Save\",\"Ctrl+S\"", u"&Save", u"Ctrl+S", ""},
             {u"\"&Save\"", u"&Save", u"", ""},
             {u"&Save", u"&Save", u"", ""},
             {u"Save as", u"Save as", u"", ""},
             {u"\"a, \"\"b\"\"\",\"-\"", u"a, \"b\"", u"-", ""},
             {u"\"&Save\",invisible", u"&Save", u"invisible", ""},
             {u"\"&Save\",invisible,\"Ctrl+S\"", u"&Save", u"", "Visible=false\n=\n"},
             {u"\"\",\"\"", u"", u"", ""},
             {u"", u"", u"", ""},
         }) {
        SCOPED_TRACE(UnicodeString(text));
        const CMenuItem item = Read(text);
        EXPECT_EQ(item.getCaption(), caption);
        EXPECT_EQ(item.getShortCut(), shortCut);
        EXPECT_EQ(Lines(item.getProperties()), properties);
    }
}

TEST(MenuItemTextTest, PutsTheWordsBetweenCaptionAndShortCut)
{
    CMenuItem item(u"mnSave");
    EXPECT_EQ(item.GetPropString(), u"\"\"");
    item.AddProperty(u"Caption", u"Say \"hi\"");
    EXPECT_EQ(item.GetPropString(), u"\"Say \"hi\"\"");
    item.AddProperty(u"Visible", u"false");
    item.AddProperty(u"ShortCut", u"Ctrl+S");
    EXPECT_EQ(item.GetPropString(), u"\"Say \"hi\"\",invisible,\"Ctrl+S\"");
    CProperties all;
    item.GetProperties(all);
    EXPECT_EQ(Lines(all), "Visible=false\nCaption=Say \"hi\"\nShortCut=Ctrl+S\n");
    PROP::ACaptionProp captioned(u"Label1", UnicodeString(u"\"Name\",visible,\"Hint(a)\""));
    EXPECT_EQ(captioned.GetPropString(), u"\"Name\",visible,Hint(a)");
}

TEST(MenuItemTextTest, ComparesCaptionAndShortCutToo)
{
    CProperties difference;
    Read(u"\"a\",\"Ctrl+S\"").GetDifferenceOf(Read(u"\"b\""), difference);
    EXPECT_EQ(Lines(difference), "Caption=b\nShortCut=\n");
}

TEST(MenuItemTextTest, TakesCaptionAndShortCutOfAnItem)
{
    TMenuItem item;
    item.setName(u"mnSave");
    item.setCaption(u"&Save");
    item.setHint(u"x");
    EXPECT_EQ(CMenuItem(&item).GetPropString(), u"\"&Save\"");
    item.setShortCut(TextToShortCut(u"Ctrl+S"));
    const CMenuItem taken(&item);
    EXPECT_EQ(taken.getName(), u"mnSave");
    EXPECT_EQ(taken.GetPropString(), u"\"&Save\",\"Ctrl+S\"");
    // One without a text stays the item's.
    item.setShortCut(Classes::TShortCut{0x07});
    ASSERT_EQ(Menus::ShortCutToText(item.getShortCut()), u"");
    EXPECT_EQ(CMenuItem(&item).getShortCut(), u"-");
    EXPECT_THROW(CMenuItem(static_cast<TMenuItem*>(nullptr)), UTL::XAssert);
}

TEST(MenuItemTextTest, AddsThePropertiesOfAFilter)
{
    TMenuItem item;
    item.setName(u"mnSave");
    item.setCaption(u"&Save");
    PROP::CFilter filter;
    filter.getProperties().setCommaText(u"Hint,Visible");
    item.setHint(u"x");
    CMenuItem taken(u"other", UnicodeString(u"\"former\",readonly,\"word\""));
    taken.SetProperties(&item, &filter);
    EXPECT_EQ(taken.getName(), u"mnSave");
    EXPECT_EQ(taken.getCaption(), u"&Save");
    EXPECT_EQ(Lines(taken.getProperties()), "ReadOnly=true\n=\nHint=x\nVisible=True\n");
}

TEST(MenuItemTextTest, GivesAnItemCaptionAndShortCut)
{
    const auto former = TextToShortCut(u"Ctrl+F");
    for (const auto& [text, shortCut] : {
             std::pair(u"\"new\",\"Ctrl+S\"", TextToShortCut(u"Ctrl+S")),
             {u"\"new\",\"\"", Classes::scNone},
             {u"\"new\"", Classes::scNone},
             {u"\"new\",\"-\"", former},
             {u"\"new\",\"no key\"", former},
         }) {
        SCOPED_TRACE(UnicodeString(text));
        TMenuItem item;
        item.setShortCut(former);
        Read(text).ApplyProperties(&item);
        EXPECT_EQ(item.getCaption(), u"new");
        EXPECT_EQ(item.getShortCut(), shortCut);
    }
    TMenuItem item;
    Read(u"\"new\",invisible,\"Enabled(False)\"").ApplyProperties(&item);
    EXPECT_FALSE(item.getVisible());
    EXPECT_FALSE(item.getEnabled());
    EXPECT_THROW(Read(u"").ApplyProperties(&item), UTL::XAssert);
    // On another object there are the properties alone.
    Gauges::TGauge gauge;
    Read(u"\"new\",\"Text(x)\",active").ApplyProperties(&gauge);
    EXPECT_EQ(gauge.Text, u"x");
}

TEST(MenuItemTextTest, EndsWithAnItemThatAHandlerDestroys)
{
    Menus::TMainMenu menu;
    auto* const item = new TMenuItem(&menu);
    menu.getItems()->Add(item);
    menu.OnChange = Classes::TNotifyEvent([&](System::TObject*) {
        menu.OnChange = nullptr;
        delete item;
    });
    Read(u"\"new\",visible,\"Ctrl+S\"").ApplyProperties(item);
    EXPECT_EQ(menu.getItems()->GetCount(), 0);
}

} // namespace
