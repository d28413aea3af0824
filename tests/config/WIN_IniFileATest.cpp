// SPDX-License-Identifier: MIT
#include "config/WIN_IniFileA.h"

#include "platform/host/profile/Host_Profile.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

TEST(IniFileATest, IsOfTheCodePage)
{
    const Support::TempFolder folder;
    const UnicodeString file(folder.Path() / "a.ini");
    WIN::CIniFileA ini("s\xE4", file);
    EXPECT_EQ(ini.GetIniFileName(), file);
    ini.WriteString("\xFC", "\xDF");
    EXPECT_EQ(Host::ReadProfileValue(file, u"S\u00C4", u"\u00DC"), UnicodeString(u"\u00DF"));
    EXPECT_EQ(ini.GetVclString("\xDC"), "\xDF");
    EXPECT_EQ(ini.GetUnicodeString(u"\u00FC", u""), u"\u00DF");
    ASSERT_TRUE(Host::WriteProfileValue(file, u"s\u00E4", u"k", u"\u0416"));
    EXPECT_EQ(ini.GetVclString("k", "def"), "?");
}

} // namespace
