// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniStream.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/FormatSettingsGuard.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <fstream>
#include <memory>

#include <gtest/gtest.h>

using BTL::CIniStream;
using BTL::CIniStreamEx;
using BTL::CIniStringStream;
using Classes::TMemoryStream;
using Classes::TStringStream;
using System::AnsiString;
using System::UnicodeString;

namespace
{

UnicodeString Value(BTL::AIni& ini, const UnicodeString& section, const UnicodeString& key)
{
    ini.setSection(section);
    return ini.ReadString(key, UnicodeString(u"none"));
}

TEST(IniStreamTest, ReadsAndWritesTypedValues)
{
    TMemoryStream stream;
    CIniStream ini(&stream, false);
    ini.setSection(u"Run");
    ini.WriteBool("on", true);
    ini.WriteInt("count", -5);
    ini.WriteFloat("limit", 0.5);
    ini.WriteEscSeqString("note", u"a\r\nb");
    ini.WriteCommaText("comma", u" x ");
    ini.WriteUTF8String(u"wide", u"\u03B1");
    ini.Save();
    EXPECT_EQ(stream.AsView(), "[Run]\r\ncomma=[ x ]\r\ncount=-5\r\nlimit=0.5\r\nnote=a\\r\\nb\r\non=1\r\n"
                               "wide=\xC3\x8E\xC2\xB1\r\n\r\n");
    EXPECT_EQ(ini.getStreamSize(), stream.getSize());

    CIniStream again(&stream, true);
    again.setSection(u"Run");
    EXPECT_TRUE(again.ReadBool("on", false));
    EXPECT_EQ(again.ReadInt("count", 0), -5);
    EXPECT_EQ(again.ReadFloat("limit", 0), 0.5);
    EXPECT_EQ(again.ReadEscSeqString("note", u""), u"a\r\nb");
    EXPECT_EQ(again.ReadCommaText("comma", u""), u" x ");
    EXPECT_EQ(again.ReadUTF8String(u"wide", u""), u"\u03B1");
    EXPECT_EQ(again.GetItemCount(), 6);
    EXPECT_EQ(again.GetItemCount(u"Run"), 6);
}

TEST(IniStreamTest, LoadsInTheCodingThatIsAskedFor)
{
    TStringStream stream(AnsiString("[a]\r\nx=\xE4\r\n"));
    CIniStream ansi(&stream, BTL::imAnsi, true);
    EXPECT_EQ(Value(ansi, u"a", u"x"), u"\u00E4");
    CIniStream utf8(&stream, BTL::imUTF8, true);
    EXPECT_EQ(Value(utf8, u"a", u"x"), u"\uFFFD");
    CIniStream other(&stream, static_cast<BTL::EIniMode>(2), true);
    EXPECT_EQ(Value(other, u"a", u"x"), u"\uFFFD");
    CIniStream none(&stream, BTL::imAnsi, false);
    EXPECT_EQ(Value(none, u"a", u"x"), u"none");
    CIniStream named(&stream, u"\\folder\\a.ini", true);
    EXPECT_EQ(named.getFileName(), u"a.ini");
    EXPECT_EQ(named.GetItemCount(), 1);
}

TEST(IniStreamTest, WorksWithoutAStream)
{
    CIniStream ini;
    ini.setSection(u"a");
    ini.WriteInt("x", 1);
    ini.Save();
    ini.SaveAnsi();
    ini.Load();
    ini.ReadHeadline();
    EXPECT_EQ(ini.getStreamSize(), 0);
    EXPECT_EQ(ini.GetItemCount(), 1);
    TMemoryStream stream;
    ini.setHeadline(u"Head");
    ini.SaveToStream(&stream);
    EXPECT_EQ(stream.AsView(), "Head\r\n\r\n[a]\r\nx=1\r\n\r\n");
    CIniStream other;
    other.LoadFromStream(&stream);
    EXPECT_EQ(Value(other, u"a", u"x"), u"1");
    EXPECT_EQ(other.getHeadline(), u"");
}

TEST(IniStreamTest, HandsClosuresOn)
{
    TStringStream stream(AnsiString("head\r\n[a]\r\nx=1\r\n"));
    CIniStream ini(&stream, false);
    int told = 0;
    ini.setOnReadHeadline([&](const AnsiString&) { told += 1; });
    ini.setOnLoadSection([&](const AnsiString&, int) { told += 10; });
    ini.setOnLoadKey([&](const AnsiString&, const AnsiString&, int) { told += 100; });
    ini.setOnSaveSection([&](const AnsiString&) { told += 1000; });
    ini.setOnSaveKey([&](const AnsiString&, const AnsiString&, int) { told += 10000; });
    ini.ReadHeadline();
    ini.Load();
    EXPECT_EQ(told, 112);
    ini.Save();
    EXPECT_EQ(told, 11112);
    EXPECT_TRUE(ini.getOnLoadKey());
}

TEST(IniStreamTest, CopiesFromStoreToStore)
{
    CIniStringStream from(u"[a]\r\nx=1\r\n[b]\r\ny=2\r\n");
    CIniStream to;
    to.setSection(u"c");
    to.WriteInt("z", 3);
    to.SetValues(&from);
    TMemoryStream stream;
    to.SaveToStream(&stream);
    EXPECT_EQ(stream.AsView(), "[a]\r\nx=1\r\n\r\n[b]\r\ny=2\r\n\r\n");
}

TEST(IniStreamTest, AStreamOfItsOwnIsMadeOpenedOrTakenOver)
{
    const Support::TempFolder folder;
    const auto path = folder.Path() / "a.ini";
    std::ofstream(path, std::ios::binary) << "[a]\r\nx=1\r\n";
    {
        CIniStreamEx ini(path, Classes::fmOpenReadWrite, true);
        EXPECT_EQ(Value(ini, u"a", u"x"), u"1");
        EXPECT_EQ(ini.getFileName(), u"a.ini");
        ini.WriteInt("x", 2);
        ini.Save();
    }
    EXPECT_EQ(BTL::LoadStringFromFile(path), "[a]\r\nx=2\r\n\r\n");
    {
        CIniStreamEx ini(path, u"b");
        EXPECT_EQ(std::filesystem::file_size(path), 0u);
        ini.WriteInt("y", 3);
        ini.Save();
    }
    EXPECT_EQ(BTL::LoadStringFromFile(path), "[b]\r\ny=3\r\n\r\n");
    CIniStreamEx taken(new TStringStream(AnsiString("[a]\r\nx=4\r\n")), true);
    EXPECT_EQ(Value(taken, u"a", u"x"), u"4");
    CIniStreamEx text(u"[a]\r\nx=5\r\n", true);
    EXPECT_EQ(Value(text, u"a", u"x"), u"5");
    EXPECT_THROW(CIniStreamEx(folder.Path() / "missing", Classes::fmOpenRead, true), Classes::EFOpenError);
}

TEST(IniStreamTest, AFileThatIsSetIsLoadedIfThereIsSomething)
{
    const Support::TempFolder folder;
    const auto path = folder.Path() / "a.ini";
    std::ofstream(path, std::ios::binary) << "[a]\r\nx=1\r\n";
    std::ofstream(folder.Path() / "empty");
    CIniStreamEx ini;
    ini.setSection(u"former");
    ini.WriteInt("y", 2);
    ini.setFile(folder.Path() / "missing");
    EXPECT_EQ(ini.getStreamSize(), 0);
    EXPECT_FALSE(ini.FileExists());
    ini.setFile(folder.Path() / "empty");
    EXPECT_EQ(ini.GetItemCount(), 1);
    ini.setFile(path);
    EXPECT_EQ(ini.getFileName(), u"a.ini");
    EXPECT_EQ(Value(ini, u"former", u"y"), u"none");
    EXPECT_EQ(Value(ini, u"a", u"x"), u"1");
    ini.WriteInt("x", 3);
    EXPECT_THROW(ini.Save(), Classes::EStreamError) << "the stream only reads";
    EXPECT_EQ(BTL::LoadStringFromFile(path), "[a]\r\nx=1\r\n");
    ini.setFile(u"");
    EXPECT_EQ(ini.getStreamSize(), 0);
}

TEST(IniStreamTest, ATextInAStringKeepsAllItsCharacters)
{
    CIniStringStream wide(
        u"Head\r\n[Gr\u00F6\u00DFe]\r\nx\u00E4=\u00E4\u03B1\r\ny=\"\u20AC\"\r\n;=\r\n[b]\r\nz=\u00E4");
    EXPECT_EQ(Value(wide, u"Gr\u00F6\u00DFe", u"x\u00E4"), u"\u00E4\u03B1");
    EXPECT_EQ(Value(wide, u"Gr\u00F6\u00DFe", u"y"), u"\u20AC");
    EXPECT_EQ(Value(wide, u"b", u"z"), u"\u00E4");
    CIniStringStream narrow("[a]\r\nx=\xC3\xA4\r\n");
    EXPECT_EQ(Value(narrow, u"a", u"x"), u"\u00E4");
    CIniStringStream empty;
    EXPECT_EQ(empty.GetItemCount(), 0);
    empty.setSection(u"a");
    empty.WriteInt("x", 1);
    empty.Save();
    EXPECT_EQ(empty.getStreamSize(), 12);
}

} // namespace
