// SPDX-License-Identifier: MIT
#include "properties/documents/PROP_IniFile.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "os/Win_sys_utilitiesw.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/host/Host_Path.h"
#include "platform/host/profile/Host_Profile.h"
#include "platform/toolkit/MessageBox.h"
#include "properties/documents/PROP_Document.h"
#include "properties/documents/SampleForm.h"
#include "properties/objects/Gauges.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

namespace fs = std::filesystem;
using Gauges::Lines;
using PROP::CDocument;
using PROP::CMenuDoc;
using Sample::Body;
using System::UnicodeString;

class DocumentFileTest : public testing::Test
{
protected:
    fs::path Path() const { return mTemp.Path() / "texts.txt"; }
    UnicodeString File() const { return Sysutils::FromHostPath(Path().string()); }
    UnicodeString Info(const char16_t* key) const
    {
        return Host::ReadProfileValue(File(), u"__INFO__", key).value_or(u"missing");
    }

    Support::TempFolder mTemp;
};

TEST_F(DocumentFileTest, TellsWhoMadeAndChangedIt)
{
    CDocument document;
    document.InsertNewObject(u"a")->AddProperty(u"Text", u"x");
    document.SaveToFile(File());
    const std::vector<Host::ProfileEntry> info = Host::ReadProfileSection(File(), u"__INFO__");
    std::string keys;
    for (const Host::ProfileEntry& entry : info) {
        keys += System::ToUtf8(entry.key) + '\n';
    }
    EXPECT_EQ(keys,
              "CreationDateTime\nCreationAuthor..\nChangeDate......\nChangeAuthor....\nTranslation.....\n");
    EXPECT_EQ(Info(u"CreationAuthor.."), WIN::GetUserNameW());
    EXPECT_EQ(Info(u"ChangeAuthor...."), WIN::GetUserNameW());
    EXPECT_EQ(Info(u"Translation....."), u"?");
    EXPECT_NEAR(Sysutils::StrToDateTime(Info(u"CreationDateTime")).Val, Sysutils::Now().Val, 0.01);
}

TEST_F(DocumentFileTest, KeepsWhatATranslatorNotedOfIt)
{
    Sample::Put(Path(), "; mine\r\n[__INFO__]\r\nCreationDateTime=then\r\nChangeDate......=then\r\n"
                        "Translation.....=done\r\n[Gone]\r\nText=kept\r\n[a]\r\nOld=gone\r\nText=old\r\n");
    CDocument document;
    document.InsertNewObject(u"a")->AddProperty(u"Text", u"x");
    document.SaveToFile(File());
    EXPECT_EQ(Info(u"CreationDateTime"), u"then");
    EXPECT_EQ(Info(u"CreationAuthor.."), u"missing");
    EXPECT_EQ(Info(u"Translation....."), u"done");
    EXPECT_NE(Info(u"ChangeDate......"), u"then");
    EXPECT_EQ(Body(Path()), "; mine\n[Gone]\nText=kept\n[a]\nText=x\n");
}

TEST_F(DocumentFileTest, PassesOverSectionsWithoutAName)
{
    Sample::Put(Path(), "[]\r\nText=x\r\n[a]\r\n=x\r\nText=y\r\n[ ]\r\nText=z\r\n[\r\nText=u\r\n");
    CDocument document;
    document.LoadFromFile(File());
    ASSERT_EQ(document.getObjects().size(), 1);
    EXPECT_EQ(Lines(document.getObjects().Find(u"a")->getProperties()), "Text=y\n");
}

TEST_F(DocumentFileTest, KeepsItsOwnSectionFromObjectsOfThatName)
{
    for (const char16_t* const name : {u"__INFO__", u" __info__ "}) {
        SCOPED_TRACE(UnicodeString(name));
        Sample::Put(Path(), "[__INFO__]\r\nTranslation.....=done\r\n");
        Support::ScriptedBoxes boxes;
        CDocument document;
        document.InsertNewObject(name)->AddProperty(u"Text", u"x");
        document.SaveToFile(File());
        CMenuDoc menu{UnicodeString(name)};
        menu.InsertNewObject(u"a")->SetProperties(u"x");
        menu.SaveToFile(File());
        EXPECT_EQ(Info(u"Translation....."), u"done");
        EXPECT_EQ(Info(u"Text"), u"missing");
        EXPECT_EQ(Info(u"a"), u"missing");
        const auto shown = boxes.TakeShown();
        ASSERT_EQ(shown.size(), 2U);
        EXPECT_NE(UnicodeString(shown[0].box.text).Pos(name), 0);
    }
}

TEST_F(DocumentFileTest, HasSectionsInTheOrderOfNamesAndKeysAsTheyCame)
{
    CDocument document;
    PROP::CObject& b = *document.InsertNewObject(u"b");
    b.AddProperty(u"Z", u"1");
    b.AddProperty(u"A", u"");
    document.InsertNewObject(u"a")->AddProperty(u"Text", u"x");
    document.InsertNewObject(u"empty");
    document.SaveToFile(File());
    EXPECT_EQ(Body(Path()), "[a]\nText=x\n[b]\nZ=1\nA=\n");
}

TEST_F(DocumentFileTest, ReadsSectionsInTheOrderOfTheFile)
{
    Sample::Put(Path(),
                "[b]\nText=[x]\nHint=\"  y \"\n[__info__]\nChangeDate......=x\n[a]\n[b]\nCaption=z\n");
    CDocument document;
    document.LoadFromFile(File());
    std::string all;
    for (const auto& object : document.getObjects()) {
        all += System::ToUtf8(object->getName()) + ":\n" + Lines(object->getProperties());
    }
    EXPECT_EQ(all, "b:\nText=[x]\nHint=  y \nCaption=z\na:\n");
    CDocument none;
    none.LoadFromFile(File() + u"x");
    EXPECT_TRUE(none.getObjects().empty());
}

/// What a line can't hold is found before the file is touched.
TEST_F(DocumentFileTest, LeavesOutAndTellsWhatItCantHold)
{
    Sample::Put(Path(), "[kept]\nText=x\n");
    Support::ScriptedBoxes boxes;
    CDocument document;
    PROP::CObject& a = *document.InsertNewObject(u"a");
    a.AddProperty(u"Text", u"two\nlines");
    a.AddProperty(u"Good", u"one");
    a.AddProperty(u"Nul", UnicodeString(std::u16string_view(u"a\0b", 3)));
    a.AddProperty(u"Lone", UnicodeString(u'\xD800'));
    a.AddProperty(u"k=v", u"x");
    a.AddProperty(u";k", u"x");
    a.AddProperty(u"[k", u"x");
    a.AddProperty(u"", u"x");
    document.InsertNewObject(u"line\rbreak")->AddProperty(u"Text", u"x");
    document.InsertNewObject(u"br]acket")->AddProperty(u"Text", u"x");
    PROP::CObject& z = *document.InsertNewObject(u"z");
    for (int i = 0; i < 20; ++i) {
        z.AddProperty(u"Long", u"\n" + UnicodeString(i));
    }
    document.SaveToFile(File());
    EXPECT_EQ(Body(Path()), "[kept]\nText=x\n[a]\nGood=one\n");
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    const UnicodeString text = shown[0].box.text;
    for (const char16_t* const part : {u"PROP_IniFile", u"a.Text", u"a.k=v", u"br]acket", u"more"}) {
        EXPECT_NE(text.Pos(part), 0) << System::ToUtf8(text);
    }
}

TEST_F(DocumentFileTest, IsAsItWasIfItCantBeWritten)
{
    Sample::Put(Path(), "[kept]\nText=x\n");
    fs::permissions(Path(), fs::perms::owner_read);
    CDocument document;
    document.InsertNewObject(u"a")->AddProperty(u"Text", u"x");
    EXPECT_THROW(document.SaveToFile(File()), Sysutils::Exception);
    EXPECT_EQ(Sample::Content(Path()), "[kept]\nText=x\n");
    EXPECT_THROW(document.SaveToFile(Sysutils::FromHostPath(mTemp.Path().string())), Sysutils::Exception);
    EXPECT_THROW(document.SaveToFile(u""), Sysutils::Exception);
}

/// More than lists and values of the platform's profile functions hold.
TEST_F(DocumentFileTest, HasNoLimitOfLength)
{
    const UnicodeString value(std::u16string(100'000, u'v'));
    CDocument document;
    constexpr int count = 2'500;
    for (int i = 0; i < count; ++i) {
        document.InsertNewObject(u"FormMain.FrameOfThatForm.ComponentNo" + UnicodeString(i))
            ->AddProperty(u"Text", UnicodeString(i));
    }
    document.InsertNewObject(u"Z")->AddProperty(u"Text", value);
    document.SaveToFile(File());
    CDocument read;
    read.LoadFromFile(File());
    EXPECT_EQ(read.getObjects().size(), count + 1);
    UnicodeString back;
    EXPECT_TRUE(read.getObjects().Find(u"Z")->GetValue(u"Text", back));
    EXPECT_EQ(back, value);
}

TEST_F(DocumentFileTest, NeedsADocument)
{
    EXPECT_THROW(PROP::CSectionFormatIniFile(nullptr, File()), UTL::XAssert);
    EXPECT_THROW(PROP::CKeyFormatIniFile(nullptr, File(), u"s"), UTL::XAssert);
    Support::ScriptedBoxes boxes({IDNO, IDNO});
    PROP::CSectionFormatIniFile sections(nullptr, File());
    sections.Write();
    sections.Read();
    PROP::CKeyFormatIniFile keys(nullptr, File(), u"s");
    keys.Write();
    keys.Read();
    EXPECT_FALSE(fs::exists(Path()));
}

/// Makes no objects.
class CBarrenDoc : public CDocument
{
public:
    PROP::CObject* NewObject(const UnicodeString& /*name*/) const override { return nullptr; }
};

TEST_F(DocumentFileTest, NeedsAnObjectForAKey)
{
    Sample::Put(Path(), "[a]\nText=x\nHint=y\n[b]\nText=x\n");
    CBarrenDoc document;
    EXPECT_THROW(document.LoadFromFile(File()), UTL::XAssert);
    // For each section there is no object to add, and none for its first key.
    Support::ScriptedBoxes boxes({IDNO, IDNO, IDNO, IDNO});
    document.LoadFromFile(File());
    EXPECT_TRUE(document.getObjects().empty());
    EXPECT_EQ(boxes.TakeShown().size(), 4U);
}

TEST_F(DocumentFileTest, HasObjectsAsKeysOfASection)
{
    CMenuDoc document(u"Main");
    for (const auto& [name, text] : {std::pair(u"b", u"\"&Save\",\"Ctrl+S\""),
                                     {u"a", u"\"Say \"\"hi\"\", \"\"you\"\"\",\"F1\""},
                                     {u"c", u"\"-\""},
                                     {u"d", u"\"x\",invisible,\"Hint(a)\""}}) {
        document.InsertNewObject(name)->SetProperties(text);
    }
    Sample::Put(Path(), "[Main]\ngone=[\"x\"]\n[Other]\nkept=[\"y\"]\n");
    PROP::CKeyFormatIniFile(&document, File(), u"Main").Write();
    EXPECT_EQ(Body(Path()),
              "[Other]\nkept=[\"y\"]\n[Main]\nb=[\"&Save\",\"Ctrl+S\"]\n"
              "a=[\"Say \"\"hi\"\", \"\"you\"\"\",\"F1\"]\nc=[\"-\"]\nd=[\"x\",invisible,Hint(a)]\n");
    CMenuDoc read(u"Main");
    PROP::CKeyFormatIniFile(&read, File(), u"Main").Read();
    ASSERT_EQ(read.getObjects().size(), document.getObjects().size());
    for (const auto& object : document.getObjects()) {
        EXPECT_EQ(read.getObjects().Find(object->getName())->GetPropString(), object->GetPropString());
    }
}

TEST_F(DocumentFileTest, WritesNothingOfASectionThatItCantHold)
{
    Support::ScriptedBoxes boxes;
    CMenuDoc document(u"two\nlines");
    document.InsertNewObject(u"a")->SetProperties(u"x");
    document.SaveToFile(File());
    EXPECT_EQ(Body(Path()), "");
    EXPECT_EQ(boxes.TakeShown().size(), 1U);
}

} // namespace
