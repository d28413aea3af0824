// SPDX-License-Identifier: MIT
#include "config/WIN_IniFileW.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

TEST(IniFileWTest, ReadsUnderTheUsualNames)
{
    const Support::TempFolder folder;
    WIN::CIniFileW ini(u"s", UnicodeString(folder.Path() / "a.ini"));
    EXPECT_EQ(ini.GetIniFileName(), UnicodeString(folder.Path() / "a.ini"));
    ini.WriteString(u"text", u"\u0416");
    ini.WriteFloat(u"number", 5.5F);
    ini.WriteBool(u"bool", true);
    ini.WriteCommaText(u"list", u"a,b");
    ini.WriteEscSeqString(u"lines", u"a\nb");
    ini.WriteUTF8String(u"utf8", u"\u0416");
    UnicodeString out;
    EXPECT_TRUE(ini.GetString(u"text", out));
    EXPECT_EQ(out, u"\u0416");
    EXPECT_EQ(ini.GetVclString(u"text"), u"\u0416");
    EXPECT_EQ(ini.GetAnsiString("text", ""), "?");
    EXPECT_EQ(ini.GetUnicodeString(u"text", u""), u"\u0416");
    EXPECT_EQ(ini.GetSTDString("text", ""), "?");
    EXPECT_EQ(ini.GetInt(u"number", 0), 5);
    EXPECT_EQ(ini.GetInt64(u"number", 7), 7);
    EXPECT_EQ(ini.GetFloat(u"number", 0), 5.5F);
    EXPECT_TRUE(ini.GetBool(u"bool", false));
    EXPECT_FALSE(ini.GetBool(u"bool", u"a", u"true", true));
    EXPECT_EQ(ini.GetCommaText(u"list", u""), u"a,b");
    EXPECT_TRUE(ini.GetCommaText(u"list", out, u""));
    EXPECT_EQ(ini.GetEscSeqString(u"lines", u""), u"a\nb");
    EXPECT_EQ(ini.GetUTF8String(u"utf8", u""), u"\u0416");
    char16_t wide[100];
    char narrow[100];
    EXPECT_EQ(ini.GetString(u"list", wide, 100, u""), 5U);
    EXPECT_EQ(ini.GetString("list", narrow, 100, ""), 5U);
    EXPECT_EQ(ini.GetSections(wide, 100), 2U);
    EXPECT_EQ(ini.GetSections(narrow, 100), 2U);
    EXPECT_EQ(ini.GetKeys(wide, 100), ini.GetKeys(narrow, 100));
}

} // namespace
