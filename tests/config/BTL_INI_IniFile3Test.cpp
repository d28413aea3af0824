// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniFile3.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "support/TempFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

TEST(CIniFile3Test, ReadsValuesFromAnImage)
{
    const Support::TempFolder folder;
    const auto path = folder.Path() / "a.ini";
    std::ofstream(path) << "[S]\nb=1\na=2\n";
    BTL::CIniFile3 ini{UnicodeString(path)};
    std::filesystem::remove(path);
    Classes::TStringList values{u"old"};
    ini.ReadValues(u"S", &values);
    EXPECT_EQ(values.getCommaText(), u"1,2");
    ini.ReadValues(u"S", nullptr);
    ini.Init(UnicodeString(path));
    ini.ReadValues(u"S", &values);
    EXPECT_TRUE(values.empty());
}

TEST(CIniFile3Test, HasNothingToReadWithoutAFile)
{
    const BTL::CIniFile3 ini;
    Classes::TStringList values{u"old"};
    ini.ReadValues(u"S", &values);
    EXPECT_TRUE(values.empty());
    EXPECT_EQ(ini.getIni(), nullptr);
}

} // namespace
