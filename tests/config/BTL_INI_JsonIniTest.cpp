// SPDX-License-Identifier: MIT
#include "config/BTL_INI_JsonIni.h"

#include "BTL_INI_FailedSave.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/AccessList.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <json/value.h>
#include <sys/stat.h>
#include <unistd.h>

using BTL::CJsonIni;
using Classes::TStringList;
using System::UnicodeString;

namespace
{

namespace fs = std::filesystem;

class JsonIniTest : public testing::Test
{
protected:
    fs::path File(const char* name = "all.json") const { return mFolder.Path() / name; }
    void Write(std::string_view text, const char* name = "all.json") const
    {
        std::ofstream(File(name), std::ios::binary) << text;
    }
    std::string Content(const char* name = "all.json") const
    {
        return std::string(BTL::LoadStringFromFile(File(name)).AsView());
    }
    std::ptrdiff_t FileCount() const
    {
        return std::distance(fs::directory_iterator(mFolder.Path()), fs::directory_iterator());
    }

private:
    Support::TempFolder mFolder;
};

/// The message of what `call` raises; empty if it doesn't.
template <class Call>
UnicodeString MessageOf(Call call)
{
    try {
        call();
    } catch (const Sysutils::Exception& fault) {
        return fault.getMessage();
    }
    return {};
}

std::vector<std::u16string> Items(const TStringList& list)
{
    std::vector<std::u16string> items;
    for (int i = 0; i < list.getCount(); ++i) {
        items.emplace_back(list.getStrings(i).AsView());
    }
    return items;
}

/// A document of one section.
void Fill(CJsonIni& ini)
{
    ini.setSection(u"Run");
    ini.WriteBool("on", true);
    ini.WriteInt("count", -5);
    ini.WriteInt64(u"large", System::Int64{1} << 40);
    ini.WriteFloat("limit", 0.1);
    ini.WriteString("text", "a\"\n\x80");
    ini.WriteChar("char", 'c');
}

TEST_F(JsonIniTest, ANewDocumentIsBuiltLevelByLevel)
{
    CJsonIni ini(File(), u"\\some\\folder\\station.v2.ini");
    EXPECT_EQ(ini.getJsonFileName(), UnicodeString(File()));
    ini.Load();
    EXPECT_FALSE(ini.Exists());
    EXPECT_FALSE(ini.FileExists());
    Fill(ini);
    EXPECT_TRUE(ini.Exists());
    ini.Save();
    EXPECT_EQ(Content(), "{\n\t\"station.v2\" : \n\t{\n\t\t\"Run\" : \n\t\t{\n\t\t\t\"char\" : \"c\",\n"
                         "\t\t\t\"count\" : -5,\n\t\t\t\"large\" : 1099511627776,\n"
                         "\t\t\t\"limit\" : 0.10000000000000001,\n\t\t\t\"on\" : true,\n"
                         "\t\t\t\"text\" : \"a\\\"\\n\\u20ac\"\n\t\t}\n\t}\n}\n");
}

TEST_F(JsonIniTest, ValuesComeBackInTheirTypes)
{
    const Support::FormatSettingsGuard settings;
    Sysutils::FormatSettings.DecimalSeparator = u',';
    CJsonIni written(File(), u"station.ini");
    Fill(written);
    const UnicodeString odd = UnicodeString(std::u16string_view(u"\0=]\r\n[;\U0001F600 ", 10));
    written.setSection(odd);
    written.WriteString(odd, odd);
    written.Save();
    CJsonIni ini(File(), u"station.ini");
    ini.setSection(u"Run");
    EXPECT_EQ(ini.ReadInt("count", 1), 1) << "nothing is read before";
    ini.Load();
    EXPECT_TRUE(ini.ReadBool("on", false));
    EXPECT_EQ(ini.ReadInt("count", 0), -5);
    EXPECT_EQ(ini.ReadInt64("large", 0), System::Int64{1} << 40);
    EXPECT_EQ(ini.ReadFloat("limit", 0), 0.1);
    EXPECT_EQ(ini.ReadString("text", ""), u"a\"\n\u20AC");
    EXPECT_EQ(ini.ReadChar("char", 'x'), 'c');
    EXPECT_EQ(ini.ReadFloat("count", 0), -5.0) << "as jsoncpp converts";
    EXPECT_TRUE(ini.ReadBool("count", false));
    EXPECT_EQ(ini.ReadString("count", "default"), u"default");
    EXPECT_EQ(ini.ReadInt("missing", 7), 7);
    EXPECT_TRUE(ini.SectionExists(odd));
    EXPECT_TRUE(ini.KeyExists(odd, odd));
    ini.setSection(odd);
    EXPECT_EQ(ini.ReadString(odd, u""), odd);
}

TEST_F(JsonIniTest, AValueOfAnotherTypeRaisesOrGivesTheDefault)
{
    Write(R"({"a":{"s":{"object":{},"array":[1],"large":5000000000,"null":null,"text":"5"}}})");
    CJsonIni ini(File(), u"a");
    ini.setSection(u"s");
    ini.Load();
    EXPECT_EQ(ini.ReadString("object", "default"), u"default");
    EXPECT_THROW(ini.ReadInt("object", 0), Json::LogicError);
    EXPECT_THROW(ini.ReadFloat("array", 0), Json::LogicError);
    EXPECT_THROW(ini.ReadInt("large", 0), Json::LogicError);
    EXPECT_THROW(ini.ReadBool("text", false), Json::LogicError);
    EXPECT_EQ(ini.ReadInt("null", 3), 3);
    EXPECT_EQ(ini.ReadString("null", "default"), u"default");
    EXPECT_TRUE(ini.KeyExists(u"null"));
}

TEST_F(JsonIniTest, AScopeWithoutAFileIsAFaultThatIsNotRaisedAtItsEnd)
{
    Support::ScriptedBoxes boxes({IDYES});
    CJsonIni ini(File());
    {
        const BTL::CSetIniSection scope(&ini, UnicodeString());
    }
    EXPECT_EQ(boxes.TakeShown().size(), 1U);
    EXPECT_EQ(ini.getSection(), u"");
}

TEST_F(JsonIniTest, WithoutAFileASectionIsAFault)
{
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    CJsonIni ini(File());
    EXPECT_THROW(ini.setSection(u"s"), UTL::XAssert);
    ini.setSection(u"s");
    EXPECT_EQ(ini.ReadInt("x", 1), 1);
    ini.WriteInt("x", 2);
    ini.DeleteKey(u"x");
    ini.EraseSection(u"s");
    ini.Clear();
    TStringList list;
    list.Add(u"former");
    ini.ReadSections(&list);
    EXPECT_EQ(list.getCount(), 0);
    EXPECT_FALSE(ini.Exists());
    ini.Save();
    EXPECT_EQ(Content(), "null\n");
}

TEST_F(JsonIniTest, ADocumentThatFailsToParseLeavesTheStore)
{
    const std::string deep = std::string(10'000, '[') + std::string(10'000, ']');
    const std::string objects = [] {
        std::string text;
        for (int i = 0; i < 10'000; ++i) {
            text += "{\"a\":";
        }
        return text;
    }();
    const std::string large = "{\"a\":{\"s\":{\"x\":\"" + std::string(10'000'000, 'x');
    for (const std::string& text :
         {std::string(), std::string("{"), std::string("[]"), std::string("5"), std::string("\"a\""),
          std::string(R"({"a":1})"), std::string(R"({"a":{"s":[]}})"),
          std::string(R"({"a":{"s":{},"t":true}})"), std::string("{\"a\":{\"\xCBs\":{\"x\":1}}}"),
          std::string(R"({"a":{"s":{"x":1e999}}})"), deep, objects, large, std::string(10'000'000, '{'),
          "{\"a\":{\"s\":{\"x\":" + deep + "}}}"}) {
        SCOPED_TRACE(text.substr(0, 40));
        CJsonIni ini(File(), u"a");
        ini.setSection(u"s");
        ini.WriteInt("kept", 1);
        Write(text);
        const UnicodeString message = MessageOf([&] { ini.Load(); });
        const UnicodeString begin =
            u"Parse-Error in JSON-File: \"" + UnicodeString(File()) + u"\"\nError:\n* ";
        EXPECT_EQ(message.SubString(1, begin.Length()), begin) << message;
        EXPECT_EQ(ini.ReadInt("kept", 0), 1);
        EXPECT_EQ(ini.getSection(), u"s");
    }
}

TEST_F(JsonIniTest, TakesWhatHasTheLevels)
{
    for (const std::string& text :
         {std::string("null"), std::string("{}"), std::string("{\"a\":null}"),
          std::string("{\"a\":{\"s\":null,\"t\":{}}} // note"),
          "{\"a\":{\"s\":{\"x\":" + std::string(900, '[') + std::string(900, ']') + "}}}"}) {
        SCOPED_TRACE(text.substr(0, 40));
        Write(text);
        CJsonIni ini(File(), u"a");
        ini.setSection(u"s");
        ini.Load();
        ini.WriteInt("y", 2);
        ini.Save();
        CJsonIni again(File(), u"a");
        again.Load();
        again.setSection(u"s");
        EXPECT_EQ(again.ReadInt("y", 0), 2);
    }
}

TEST_F(JsonIniTest, TheLargestDocumentThatIsExpectedLoads)
{
    CJsonIni ini(File(), u"a");
    ini.setSection(u"s");
    const UnicodeString text(std::u16string(10'000'000, u'x'));
    ini.WriteString(u"x", text);
    ini.Save();
    ini.WriteString(u"x", u"");
    ini.Load();
    EXPECT_EQ(ini.ReadString(u"x", u""), text);
}

TEST_F(JsonIniTest, AFileThatCouldNotBeLoadedIsKeptAside)
{
    CJsonIni ini(File(), u"a");
    for (const char* kept : {"all.json.unreadable1", "all.json.unreadable2"}) {
        Write(std::string("{") + kept);
        EXPECT_NE(MessageOf([&] { ini.Load(); }), u"");
        ini.Save();
        EXPECT_EQ(Content(kept), std::string("{") + kept);
        EXPECT_EQ(Content(), "{\n\t\"a\" : null\n}\n");
    }
    ini.Save();
    ini.Load();
    ini.Save();
    EXPECT_EQ(FileCount(), 3);
}

TEST_F(JsonIniTest, ASaveThatFailsRaisesAndLeavesTheFile)
{
    Write("{}");
    fs::permissions(File(), fs::perms::owner_read);
    fs::create_directory(File("folder"));
    for (const fs::path& file : {File(), File("missing") / "all.json", File("folder")}) {
        SCOPED_TRACE(file.string());
        CJsonIni ini(file, u"a");
        EXPECT_THROW(ini.Save(), Classes::EFCreateError);
        EXPECT_EQ(MessageOf([&] { ini.Save(); }),
                  System::Printf(BTL::GetIniText(BTL::EIniText::CannotWrite), UnicodeString(file)));
    }
    EXPECT_EQ(Content(), "{}");
    EXPECT_EQ(FileCount(), 2);
}

TEST_F(JsonIniTest, ASaveOfWhichOneCallFailsLeavesTheOldOrTheNewDocument)
{
    if (!Support::CanFailCalls) {
        GTEST_SKIP() << "calls of the host can't be failed here";
    }
    Support::ExpectOldOrNew(File(), "{}", [&] {
        CJsonIni ini(Sysutils::FromHostPath(File().string()), u"a");
        ini.setSection(u"s");
        ini.WriteInt("k", 1);
        ini.Save();
    });
}

TEST_F(JsonIniTest, ASaveKeepsOwnerModeAndAccessList)
{
    Write("{}");
    ASSERT_EQ(chmod(File().c_str(), 0640), 0);
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    ASSERT_EQ(chown(File().c_str(), owner, getegid()), 0);
    Support::GiveAccessList(File());
    const std::string list = Support::AccessListOf(File());
    CJsonIni(File(), u"a").Save();
    struct stat status;
    ASSERT_EQ(stat(File().c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, owner);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_EQ(Support::AccessListOf(File()), list);
}

TEST_F(JsonIniTest, InfinitiesAreRefusedAndNoNumberIsNull)
{
    CJsonIni ini(File(), u"a");
    ini.setSection(u"s");
    ini.WriteFloat("x", 1);
    EXPECT_THROW(ini.WriteFloat("x", std::numeric_limits<double>::infinity()), Sysutils::EConvertError);
    EXPECT_EQ(ini.ReadFloat("x", 0), 1);
    ini.WriteFloat("x", std::numeric_limits<double>::quiet_NaN());
    ini.WriteFloat("y", std::numeric_limits<double>::max());
    ini.Save();
    ini.Load();
    EXPECT_EQ(ini.ReadFloat("x", 2), 2);
    EXPECT_EQ(ini.ReadFloat("y", 0), std::numeric_limits<double>::max());
}

TEST_F(JsonIniTest, ListsTheCurrentSectionWhateverIsNamed)
{
    Write(R"({"a":{"t":{"z":1,"y":2},"s":{"x":1}}})");
    CJsonIni ini(File(), u"a");
    ini.setSection(u"t");
    ini.Load();
    TStringList list;
    ini.ReadSections(&list);
    EXPECT_EQ(Items(list), (std::vector<std::u16string>{u"s", u"t"}));
    ini.ReadKeys(u"s", &list);
    EXPECT_EQ(Items(list), (std::vector<std::u16string>{u"y", u"z"}));
    ini.ReadSections(nullptr);
    ini.setSection(u"u");
    ini.WriteString(u"k", u"v");
    ini.WriteString(u"l", u"w");
    ini.ReadSectionValues(u"u", &list);
    EXPECT_EQ(Items(list), (std::vector<std::u16string>{u"k=v", u"l=w"}));
}

TEST_F(JsonIniTest, WhatIsErasedIsNotTouchedAgain)
{
    CJsonIni ini(File(), u"a");
    Fill(ini);
    ini.DeleteKey(u"on");
    EXPECT_FALSE(ini.KeyExists(u"on"));
    EXPECT_FALSE(ini.KeyExists(u"Run", u"on"));
    EXPECT_TRUE(ini.KeyExists(u"Run", u"count"));
    EXPECT_FALSE(ini.KeyExists(u"other", u"count"));
    ini.EraseSection(u"other");
    EXPECT_EQ(ini.ReadInt("count", 0), -5);
    ini.EraseSection(u"Run");
    EXPECT_FALSE(ini.SectionExists(u"Run"));
    EXPECT_EQ(ini.ReadInt("count", 1), 1);
    ini.WriteInt("count", 2);
    EXPECT_FALSE(ini.KeyExists(u"count"));
    ini.setSection(u"Run");
    ini.WriteInt("count", 2);
    EXPECT_EQ(ini.ReadInt("count", 0), 2);
    ini.Clear();
    EXPECT_EQ(ini.ReadInt("count", 1), 1);
    ini.WriteInt("count", 2);
    EXPECT_FALSE(ini.SectionExists(u"Run"));
    EXPECT_TRUE(ini.Exists()) << "an empty object";
}

TEST_F(JsonIniTest, ALoadSelectsTheFileAndTheSectionAnew)
{
    CJsonIni ini(File(), u"a");
    ini.setSection(u"s");
    ini.WriteInt("x", 1);
    ini.setFile(u"b");
    ini.setSection(u"s");
    EXPECT_FALSE(ini.KeyExists(u"x"));
    ini.WriteInt("x", 2);
    ini.Save();
    ini.WriteInt("x", 3);
    ini.Load();
    EXPECT_EQ(ini.ReadInt("x", 0), 2);
    ini.setFile(u"a");
    ini.setSection(u"s");
    EXPECT_EQ(ini.ReadInt("x", 0), 1);
}

TEST_F(JsonIniTest, ImportsIniFilesWithTheTypesThatTheTextsLookLike)
{
    fs::create_directory(File("inis"));
    Write("[Run]\r\nint=42\r\nfloat=2.5\r\nyes=true\r\nno=false\r\nTRUE=TRUE\r\nword=some text\r\nempty=\r\n"
          "huge=1e999\r\n[Other]\r\nint=-7\r\n",
          "inis/a.b.ini");
    Write("[Run]\r\nint=1\r\n", "inis/second.ini");
    Write("[Run]\r\nint=1\r\n", "inis/other.txt");
    CJsonIni ini(File(), u"second");
    ini.setSection(u"Run");
    ini.WriteInt("int", 5);
    ini.WriteInt("kept", 6);
    ini.ImportIniFiles(File("inis"), u"*.ini");
    EXPECT_FALSE(fs::exists(File())) << "it isn't saved";
    ini.Save();
    const std::string content = Content();
    for (const char* part : {"\"int\" : 42", "\"float\" : 2.5", "\"yes\" : true", "\"no\" : false",
                             "\"TRUE\" : \"TRUE\"", "\"word\" : \"some text\"", "\"empty\" : \"\"",
                             "\"huge\" : \"1e999\"", "\"int\" : -7", "\"a.b\" :"}) {
        EXPECT_NE(content.find(part), std::string::npos) << part;
    }
    EXPECT_EQ(content.find("other"), std::string::npos);
    ini.setFile(u"second");
    ini.setSection(u"Run");
    EXPECT_EQ(ini.ReadInt("int", 0), 1);
    EXPECT_EQ(ini.ReadInt("kept", 0), 6);
    ini.ImportIniFiles(File("missing"), u"*");
}

} // namespace
