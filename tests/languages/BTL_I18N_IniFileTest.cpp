// SPDX-License-Identifier: MIT
#include "languages/BTL_I18N_IniFile.h"

#include "languages/LanguageFile.h"
#include "support/ChildProgram.h"

#include <gtest/gtest.h>

namespace
{

namespace fs = std::filesystem;
using BTL::Ci18nIniFile;
using System::UnicodeString;

TEST(I18nIniFileTest, ReadsAndWritesItsFile)
{
    const Support::LanguageFile file("[IDS]\n0012=short\n000000012=long\n");
    Ci18nIniFile texts(file.Name(), u"IDS", "0000");
    EXPECT_TRUE(texts.Exists());
    EXPECT_TRUE(texts.Exists(12));
    EXPECT_FALSE(texts.Exists(13));
    EXPECT_EQ(texts.GetString(12), u"short");
    texts.WriteString(13, u"a\nb");
    EXPECT_EQ(texts.ReadString(u"0013", u""), u"a\\nb");
    texts.WriteString(u"0014", u"plain");
    EXPECT_EQ(texts.GetString(14), u"plain");

    Ci18nIniFile later;
    later.Init(u"IDS", u"new 100%d.ids", file.Path(), nullptr);
    EXPECT_EQ(later.GetString(12), u"long");
    later.Init(u"IDS", u"none.ids", file.Path(), nullptr);
    EXPECT_FALSE(later.Exists());
}

TEST(I18nIniFileChild, DISABLED_PrintTextsOfTheProgram)
{
    Ci18nIniFile later;
    later.Init(u"Station", "0000");
    Support::PrintResult(
        System::ToUtf8(Ci18nIniFile(u"Station", nullptr).GetString(12) + later.GetString(12)));
}

TEST(I18nIniFileTest, LiesWithTheLanguageFilesOfTheProgram)
{
    const Support::TempFolder temp;
    fs::create_directories(temp.Path() / "Bin");
    fs::create_directories(temp.Path() / "ProgramData" / "IDS");
    std::ofstream(temp.Path() / "ProgramData" / "IDS" / "Station_German.ids")
        << "[IDS]\n0012=short\n000000012=long\n";
    EXPECT_EQ(Support::RunChildTest("I18nIniFileChild.DISABLED_PrintTextsOfTheProgram",
                                    temp.Path() / "Bin" / "program"),
              "longshort");
}

} // namespace
