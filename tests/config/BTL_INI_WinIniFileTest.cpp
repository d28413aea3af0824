// SPDX-License-Identifier: MIT
#include "config/BTL_INI_WinIniFile.h"

#include "BTL_INI_FailedSave.h"
#include "BTL_INI_IniFileFolder.h"
#include "platform/runtime/classes/Classes_StringList.h"

#include <string>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace
{

using Classes::TStringList;
using System::UnicodeString;

class CWinIniFileTest : public testing::Test, protected Support::IniFileFolder
{
};

TEST_F(CWinIniFileTest, AWriteOfWhichOneCallFailsLeavesTheOldOrTheNewFile)
{
    if (!Support::CanFailCalls) {
        GTEST_SKIP() << "The calls of this processor can't be failed.";
    }
    Support::ExpectOldOrNew(Path(), "[S]\r\na=1\r\n",
                            [&] { BTL::CWIN_IniFile(file, u"S").WriteInt("b", 2); });
}

TEST_F(CWinIniFileTest, TakesTheAttributeAwayWhenSaved)
{
    Fill("[S]\r\na=\r\nb=12 pieces\r\nc=TRUE\r\n");
    BTL::CWIN_IniFile ini(file, u"S");
    EXPECT_FALSE(ini.KeyExists(u"a"));
    EXPECT_TRUE(ini.KeyExists(u"b"));
    EXPECT_EQ(ini.ReadInt("b", 0), 12);
    EXPECT_EQ(ini.ReadInt("c", 5), 5);
    chmod(Path().c_str(), 0444);
    EXPECT_THROW(ini.EraseSection(u"S"), Sysutils::Exception);
    ini.DeleteKey(u"b");
    EXPECT_TRUE(ini.KeyExists(u"b"));
    ini.Flush();
    EXPECT_TRUE(ini.FileReadOnly());
    ini.Save();
    EXPECT_FALSE(ini.FileReadOnly());
    ini.DiscardCache();
    ini.DeleteKey(u"b");
    EXPECT_FALSE(ini.KeyExists(u"b"));
}

TEST_F(CWinIniFileTest, ReadsAsFarAsItsBuffer)
{
    BTL::CWIN_IniFile ini(file, u"S");
    ini.WriteString(u"a", UnicodeString(std::u16string_view(std::u16string(70000, u'x'))));
    EXPECT_EQ(ini.ReadString(u"a", u"").Length(), 65534);
}

TEST_F(CWinIniFileTest, KeepsAndClearsMoreThanAListHolds)
{
    std::string text = "[S]\r\n";
    std::string sections;
    for (int i = 10000; i < 20000; ++i) {
        text += "key" + std::to_string(i) + "=old\r\n";
        sections += "[Other" + std::to_string(i) + "]\r\nk=1\r\n";
    }
    Fill(text + "empty=\r\n" + sections);
    BTL::CWIN_IniFile ini(file, u"S");
    TStringList lines{u"key10000=new", u" KEY19999 =new", u"empty=new", u"none", u"added=new"};
    ini.WriteMissingSectionValues(u"S", &lines);
    EXPECT_EQ(Content(), text + "empty=\r\nadded=new\r\n" + sections);
    ini.Clear();
    EXPECT_EQ(Content(), "");
}

TEST_F(CWinIniFileTest, WritesASectionInOneStep)
{
    Fill("[S]\r\na=1\r\n");
    BTL::CWIN_IniFile ini(file, u"S");
    TStringList lines{u"a=2", u"b=3", u"=4", u"c=5"};
    EXPECT_THROW(ini.WriteSectionValues(u"S", &lines), Sysutils::Exception);
    EXPECT_EQ(Content(), "[S]\r\na=2\r\nb=3\r\n");
    EXPECT_EQ(ini.getSection(), u"S");
    chmod(Path().c_str(), 0444);
    lines.Delete(2);
    EXPECT_THROW(ini.WriteSectionValues(u"S", &lines), Sysutils::Exception);
    EXPECT_THROW(ini.Clear(), Sysutils::Exception);
    EXPECT_EQ(Content(), "[S]\r\na=2\r\nb=3\r\n");
}

TEST_F(CWinIniFileTest, TextOfAFailureIsTheLanguageTables)
{
    const auto former = BTL::GetIniText;
    BTL::GetIniText = [](BTL::EIniText) { return UnicodeString(u"<%s>"); };
    BTL::CWIN_IniFile ini(UnicodeString(folder.Path()), u"S");
    try {
        ini.WriteInt("a", 1);
        ADD_FAILURE() << "was written";
    } catch (const Sysutils::Exception& fault) {
        EXPECT_EQ(fault.getMessage(), u'<' + UnicodeString(folder.Path()) + u'>');
    }
    BTL::GetIniText = former;
}

} // namespace
