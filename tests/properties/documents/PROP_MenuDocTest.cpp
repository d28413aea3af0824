// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/host/Host_Path.h"
#include "platform/toolkit/MessageBox.h"
#include "properties/documents/PROP_Document.h"
#include "properties/documents/SampleForm.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

namespace fs = std::filesystem;
using PROP::CMenuDoc;
using Sample::Body;
using System::UnicodeString;

class MenuDocTest : public testing::Test
{
protected:
    fs::path Path() const { return mTemp.Path() / "menu.txt"; }
    UnicodeString File() const { return Sysutils::FromHostPath(Path().string()); }
    /// Captions and shortcuts of all items with a name.
    UnicodeString Items() const
    {
        UnicodeString text;
        for (const Menus::TMenuItem* const item : {mForm.file, mForm.save, mForm.help}) {
            text += item->getCaption() + u'|' + UnicodeString(int(item->getShortCut())) + u'\n';
        }
        return text;
    }

    Support::TempFolder mTemp;
    Sample::TForm mForm;
};

TEST_F(MenuDocTest, HasASectionForEachMenu)
{
    CMenuDoc document(mForm.mainMenu);
    document.SetAndWrite(File(), nullptr);
    EXPECT_EQ(Body(Path()), "[MAIN_MENU_ITEMS]\nmnFile=[\"&File\"]\nmnHelp=[\"&Help, \"\"now\"\"\"]\n"
                            "[mnFile]\nmnSave=[\"&Save\",\"Ctrl+S\"]\n");
    EXPECT_EQ(document.getMenuName(), u"MAIN_MENU_ITEMS");
    ASSERT_NE(document.getNext(), nullptr);
    EXPECT_EQ(document.getNext()->getMenuName(), u"mnFile");
    EXPECT_EQ(document.getNext()->getNext(), nullptr);
    // Taken anew, in place of all.
    document.SetProperties(nullptr);
    EXPECT_EQ(document.getObjects().size(), 2);
    EXPECT_EQ(document.getNext()->getNext(), nullptr);
}

TEST_F(MenuDocTest, ChangesNothingWhenItIsReadBack)
{
    mForm.save->setShortCut(Classes::TShortCut{0x07});
    mForm.help->setCaption(u"\"\", \"");
    mForm.file->setCaption(u" [x] = \u4F60; ");
    const UnicodeString former = Items();
    CMenuDoc(mForm.mainMenu).SetAndWrite(File(), nullptr);
    CMenuDoc document(mForm.mainMenu);
    document.ReadAndApply(File());
    EXPECT_EQ(Items(), former);
    EXPECT_EQ(mForm.line->getCaption(), u"-");
}

TEST_F(MenuDocTest, IsLaidOverTheMenuAsItWasEdited)
{
    Sample::Put(Path(),
                "[__INFO__]\nChangeDate......=26.11.2026 10:00:00\n[MAIN_MENU_ITEMS]\n"
                "mnHelp=[\"&Hilfe\",\"F1\"]\nmnGone=[\"x\"]\n[mnFile]\nmnSave=[\"&Sichern\",\"-\"]\n");
    CMenuDoc(mForm.mainMenu).ReadAndApply(File());
    EXPECT_EQ(mForm.file->getCaption(), u"&File");
    EXPECT_EQ(mForm.help->getCaption(), u"&Hilfe");
    EXPECT_EQ(Menus::ShortCutToText(mForm.help->getShortCut()), u"F1");
    EXPECT_EQ(mForm.save->getCaption(), u"&Sichern");
    EXPECT_EQ(Menus::ShortCutToText(mForm.save->getShortCut()), u"Ctrl+S");
}

/// As many topmost items as there are objects on all levels.
TEST_F(MenuDocTest, StopsAtTheSmallerOfTwoCounts)
{
    CMenuDoc document(mForm.mainMenu);
    document.InsertNewObject(u"mnHelp")->SetProperties(u"\"lost\"");
    document.Apply();
    EXPECT_EQ(mForm.help->getCaption(), u"&Help, \"now\"");
    document.InsertNewObject(u"mnSave")->SetProperties(u"\"x\"");
    document.Apply();
    EXPECT_EQ(mForm.help->getCaption(), u"lost");
    EXPECT_EQ(mForm.save->getCaption(), u"x");
}

TEST_F(MenuDocTest, IsAppliedOnlyIfItWasRead)
{
    EXPECT_THROW(CMenuDoc(static_cast<Menus::TMenu*>(nullptr)), UTL::XAssert);
    CMenuDoc taken(mForm.mainMenu);
    taken.SetProperties(nullptr);
    EXPECT_THROW(taken.Apply(), UTL::XAssert);
    CMenuDoc without(UnicodeString(u"Main"));
    without.SetProperties(nullptr);
    without.InsertNewObject(u"mnHelp")->SetProperties(u"\"x\"");
    without.Apply();
    EXPECT_NE(mForm.help->getCaption(), u"x");
}

TEST_F(MenuDocTest, HasEachNameOnceInTheFile)
{
    Sample::Put(Path(), "[a]\nmnSave=[\"x\"]\n[b]\nmnSave=[\"y\"]\n");
    CMenuDoc document(mForm.mainMenu);
    EXPECT_THROW(document.LoadFromFile(File()), UTL::XAssert);
}

TEST_F(MenuDocTest, HasNoItemsWithoutANameNorWhatIsInThem)
{
    mForm.file->setName(u"");
    CMenuDoc document(mForm.mainMenu);
    document.SetProperties(nullptr);
    EXPECT_EQ(document.getObjects().size(), 1);
    EXPECT_EQ(document.getNext(), nullptr);
    CMenuDoc* last = nullptr;
    document.AddMenuItems(nullptr, last);
    document.ApplyMenuItem(nullptr);
    document.AddMenuItems(mForm.file, last);
    EXPECT_EQ(document.getObjects().size(), 2);
    EXPECT_EQ(last, &document);
}

TEST_F(MenuDocTest, EndsWhereAHandlerDestroysItems)
{
    CMenuDoc document(mForm.mainMenu);
    for (const char16_t* const name : {u"mnFile", u"mnSave", u"mnHelp"}) {
        document.InsertNewObject(name)->SetProperties(u"\"x\",\"F2\"");
    }
    mForm.mainMenu->OnChange = Classes::TNotifyEvent([&](System::TObject*) {
        mForm.mainMenu->OnChange = nullptr;
        delete mForm.save;
        delete mForm.line;
        delete mForm.file;
    });
    document.Apply();
    EXPECT_EQ(mForm.mainMenu->getItems()->GetCount(), 1);
}

TEST_F(MenuDocTest, MayBeEmptiedWhileItIsApplied)
{
    CMenuDoc document(mForm.mainMenu);
    for (const char16_t* const name : {u"mnFile", u"mnHelp"}) {
        document.InsertNewObject(name)->SetProperties(u"\"x\",\"F2\"");
    }
    mForm.mainMenu->OnChange =
        Classes::TNotifyEvent([&](System::TObject*) { document.getObjects().clear(); });
    document.Apply();
    EXPECT_EQ(mForm.file->getCaption(), u"x");
    EXPECT_EQ(Menus::ShortCutToText(mForm.file->getShortCut()), u"F2");
    EXPECT_EQ(mForm.help->getCaption(), u"x") << "by what was there at first";
}

TEST_F(MenuDocTest, MayEndBeforeItsMenuWhileItIsApplied)
{
    auto document = std::make_unique<CMenuDoc>(mForm.mainMenu);
    for (const char16_t* const name : {u"mnFile", u"mnSave", u"mnHelp"}) {
        document->InsertNewObject(name)->SetProperties(UnicodeString(u"\"77\""));
    }
    mForm.mainMenu->OnChange = Classes::TNotifyEvent([&](System::TObject*) { document = nullptr; });
    document->Apply();
    EXPECT_EQ(document, nullptr);
    EXPECT_EQ(Items(), u"77|0\n77|0\n77|0\n");
}

TEST_F(MenuDocTest, EndsAChainOfAnyLength)
{
    CMenuDoc document(mForm.mainMenu);
    CMenuDoc* last = &document;
    Menus::TMenuItem parent;
    parent.Add(Sample::Made<Menus::TMenuItem>(&parent, u"mnBelow"));
    parent.GetItem(0)->Add(Sample::Made<Menus::TMenuItem>(&parent, u"mnDeep"));
    for (int i = 0; i < 20'000; ++i) {
        CMenuDoc* const current = last;
        current->AddMenuItems(&parent, last);
        last->getObjects().clear();
    }
    EXPECT_NE(last, &document);
}

} // namespace
