// SPDX-License-Identifier: MIT
#include "config/BTL_INI_Utilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/inifiles/Inifiles.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace
{

using Classes::TStringList;
using System::UnicodeString;

class CIniUtilitiesTest : public testing::Test
{
protected:
    void Fill(const char* name, std::string_view bytes) const
    {
        std::ofstream(folder.Path() / name, std::ios::binary) << bytes;
    }
    std::string Content(const char* name) const
    {
        std::ostringstream text;
        text << std::ifstream(folder.Path() / name, std::ios::binary).rdbuf();
        return text.str();
    }
    UnicodeString Named(const char* name) const { return folder.Path() / name; }

    const Support::TempFolder folder;
    TStringList names{u"old"};
    TStringList values{u"old"};
};

TEST_F(CIniUtilitiesTest, ReadsASection)
{
    Fill("a.ini", "[S]\r\nb=1\r\na=\r\n[Empty]\r\n");
    EXPECT_TRUE(BTL::SectionExists(Named("a.ini"), u"s"));
    EXPECT_FALSE(BTL::SectionExists(Named("a.ini"), u"Empty"));
    BTL::ReadSections(Named("a.ini"), &names);
    EXPECT_EQ(names.getCommaText(), u"S,Empty");
    BTL::ReadSection(Named("a.ini"), u"S", &names, &values);
    EXPECT_EQ(names.getCommaText() + u'|' + values.getCommaText(), u"b,a|1,");
    TStringList alone{u"old"};
    BTL::ReadSectionValues(Named("a.ini"), u"S", &alone);
    EXPECT_TRUE(alone.Equals(&values));
    BTL::ReadSection(Named("a.ini"), u"None", &names, &values);
    EXPECT_TRUE(names.empty() && values.empty());
    BTL::ReadSection(Named("a.ini"), u"S", nullptr, nullptr);
}

TEST_F(CIniUtilitiesTest, WritesASection)
{
    Fill("a.ini", "[S]\r\na=1\r\nc=3\r\n");
    names.setCommaText(u"a,b");
    values.setCommaText(u"5,\" 6 \"");
    BTL::WriteSection(Named("a.ini"), u"S", &names, &values);
    EXPECT_EQ(Content("a.ini"), "[S]\r\na=5\r\nc=3\r\nb=\" 6 \"\r\n");
}

TEST_F(CIniUtilitiesTest, UnequalListsAreAFault)
{
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    names.Add(u"second");
    EXPECT_THROW(BTL::WriteSection(Named("a.ini"), u"S", &names, &values), UTL::XAssert);
    BTL::WriteSection(Named("a.ini"), u"S", nullptr, &values);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "a.ini"));
}

TEST_F(CIniUtilitiesTest, CopiesAFile)
{
    Fill("from.ini", "[S]\r\na=1\r\n[T]\r\nb=2\r\n");
    Fill("to.ini", "[S]\r\na=0\r\nc=3\r\n[Own]\r\no=1\r\n");
    BTL::CopyIniFile(Named("to.ini"), Named("from.ini"));
    EXPECT_EQ(Content("to.ini"), "[S]\r\na=1\r\nc=3\r\n[Own]\r\no=1\r\n[T]\r\nb=2\r\n");
    const std::string before = Content("to.ini");
    BTL::CopyIniFile(Named("to.ini"), Named("none.ini"));
    EXPECT_EQ(Content("to.ini"), before);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "none.ini"));
}

TEST_F(CIniUtilitiesTest, FailureOfAWritePasses)
{
    const UnicodeString nowhere = Named("none") + u"\\a.ini";
    EXPECT_THROW(BTL::WriteSection(nowhere, u"S", &names, &values), Inifiles::EIniFileException);
    Fill("from.ini", "[S]\r\na=1\r\n");
    EXPECT_THROW(BTL::CopyIniFile(nowhere, Named("from.ini")), Inifiles::EIniFileException);
    names.Add(u"b=c");
    values.Add(u"x");
    EXPECT_THROW(BTL::WriteSection(Named("a.ini"), u"S", &names, &values), Inifiles::EIniFileException);
    EXPECT_EQ(Content("a.ini"), "[S]\r\nold=old\r\n");
}

} // namespace
