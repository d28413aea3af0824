// SPDX-License-Identifier: MIT
#include "config/WIN_IniFileW2.h"

#include "config/WIN_IniFileW.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

TEST(IniFileW2Test, HasAFolderOfItsOwn)
{
    const Support::TempFolder folder;
    WIN::CIniFileW2::SetPath(UnicodeString(folder.Path()) + u'\\');
    WIN::CIniFileW::SetPath(u"\\none\\");
    WIN::CIniFileW2 ini(u"s", u"a.ini");
    WIN::CIniFileW::SetPath(u"");
    WIN::CIniFileW2::SetPath(u"");
    ini.WriteString(u"k", u"\u0416");
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "a.ini"));
    EXPECT_EQ(ini.ReadString(u"k"), u"\u0416");
    char16_t buffer[10];
    EXPECT_EQ(ini.ReadStringBuf(u"k", buffer, 10, nullptr), 1U);
    EXPECT_EQ(ini.ReadKeys(buffer, 10), 2U);
}

} // namespace
