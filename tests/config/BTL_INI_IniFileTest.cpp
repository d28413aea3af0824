// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniFile.h"

#include "config/BTL_INI_WinIniFile.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "support/TempFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace
{

using Classes::TStringList;
using System::UnicodeString;

class CIniFileTest : public testing::Test
{
protected:
    CIniFileTest() { std::ofstream(folder.Path() / "a.ini") << "[S]\nb=1\na=[x y]\n[T]\nc=3\n[Empty]\n"; }

    const Support::TempFolder folder;
    const UnicodeString file{folder.Path() / "a.ini"};
};

TEST_F(CIniFileTest, WalksThroughItsKeys)
{
    UnicodeString read;
    BTL::CIniFile ini(u"S", file, [&](const UnicodeString& key, BTL::CIniFile* from) {
        read += key + u'=' + from->GetVclString(key) + u';';
    });
    ini.ReadAll();
    EXPECT_EQ(read, u"b=1;a=[x y];");
    TStringList list{u"old"};
    ini.GetAllKeys(&list);
    EXPECT_EQ(list.getCommaText(), u"old,b,a");
    ini.ReadSections(&list);
    EXPECT_EQ(list.getCommaText(), u"S,T,Empty");
    ini.GetAllKeys(nullptr);
    BTL::CIniFile quiet(u"S", u"a.ini", UnicodeString(folder.Path()) + u'\\', {});
    quiet.ReadAll();
    quiet.GetAllKeys(&list);
    EXPECT_EQ(list.getCount(), 5);
    BTL::CIniFile missing(u"None", file, {});
    missing.GetAllKeys(&list);
    EXPECT_EQ(list.getCount(), 5);
}

/// Reads the keys itself.
class CCountingFile : public BTL::CIniFile
{
public:
    using CIniFile::CIniFile;
    int count = 0;

    void Read(const UnicodeString&) override { ++count; }
};

TEST_F(CIniFileTest, LetsADerivedClassRead)
{
    CCountingFile sections(file, {});
    sections.ReadAll();
    EXPECT_EQ(sections.count, 3);
}

TEST_F(CIniFileTest, WalksThroughSections)
{
    UnicodeString read;
    BTL::CSectionReader reader(file, [&](const UnicodeString& section, const System::WideChar* name) {
        BTL::CWIN_IniFile ini(name, section);
        read += section + u':' + ini.ReadString(u"c", u"") + u';';
    });
    reader.ReadAll();
    EXPECT_EQ(read, u"S:;T:3;Empty:;");
    TStringList list;
    reader.GetAllSections(&list);
    EXPECT_EQ(list.getCommaText(), u"S,T,Empty");
    EXPECT_TRUE(reader.SectionExists(u"t"));
    EXPECT_FALSE(reader.SectionExists(u"Empty"));
    BTL::CSectionReader(file, {}).ReadAll();
}

TEST_F(CIniFileTest, FindsAFileWithoutAFolderWhereTheEnginesDo)
{
    BTL::CIniFile::SetPath(UnicodeString(folder.Path()) + u'\\');
    TStringList list;
    BTL::CSectionReader(u"a.ini", {}).GetAllSections(&list);
    EXPECT_EQ(list.getCommaText(), u"S,T,Empty");
    EXPECT_EQ(BTL::CIniFile(u"S", u"a.ini", {}).GetVclString(u"b"), u"1");
    EXPECT_EQ(BTL::CIniFile2(u"S", u"a.ini").ReadString(u"b"), u"") << "named as it is";
    BTL::CIniFile::SetPath(u"");
}

TEST_F(CIniFileTest, ReadsUnderOtherNames)
{
    BTL::CIniFile2 ini(u"S", file);
    EXPECT_EQ(ini.GetIniFileName(), file);
    EXPECT_EQ(ini.ReadInt(u"b", 0), 1);
    EXPECT_EQ(ini.ReadString(u"b"), u"1");
    EXPECT_EQ(ini.ReadString(u"none", u"d"), u"d");
    EXPECT_EQ(ini.ReadCommaText(u"a"), u"x y");
    EXPECT_EQ(ini.ReadCommaText(u"none", u"d"), u"d");
    ini.WriteInt(u"i", -4);
    EXPECT_EQ(ini.ReadInt(u"i", 0), -4);
    ini.WriteFloat(u"f", 0.25);
    EXPECT_EQ(ini.ReadFloat(u"f", 0), 0.25);
    EXPECT_EQ(ini.ReadFloat(u"none", 1.5), 1.5);
    ini.WriteString(u"s", u"text");
    EXPECT_EQ(ini.ReadString(u"s"), u"text");
    BTL::CWIN_IniFile other(file, u"S");
    EXPECT_EQ(other.ReadFloat("f", 0), 0.25);
    const BTL::CIniFile2 bare(u"a");
    EXPECT_EQ(bare.GetIniFileName(), u"a");
    EXPECT_EQ(BTL::CIniFile2().GetIniFileName(), u"");
}

} // namespace
