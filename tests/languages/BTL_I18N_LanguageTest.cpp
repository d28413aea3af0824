// SPDX-License-Identifier: MIT
#include "languages/BTL_I18N_Language.h"

#include "platform/host/Host_Path.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

namespace fs = std::filesystem;
using BTL::ELanguage;
using System::UnicodeString;

class LanguageTest : public testing::Test
{
protected:
    void TearDown() override { BTL::SetDefLanguage(); }
};

TEST_F(LanguageTest, HasNamesAndAcronyms)
{
    const struct
    {
        ELanguage language;
        UnicodeString name;
        UnicodeString acronym;
        UnicodeString a3Acronym;
    } cases[] = {
        {ELanguage::None, u"", u"", u""},
        {ELanguage::German, u"German", u"DE", u"ger"},
        {ELanguage::English, u"English", u"EN", u"eng"},
        {ELanguage::Dutch, u"Dutch", u"NL", u"nld"},
        {ELanguage::French, u"French", u"FR", u"fre"},
        {ELanguage::Italian, u"Italian", u"IT", u"ita"},
        {ELanguage::Spanish, u"Spanish", u"ES", u"spa"},
        {ELanguage::Klingon, u"Klingon", u"XX", u"tlh"},
        {static_cast<ELanguage>(8), u"", u"", u""},
        {static_cast<ELanguage>(-1), u"", u"", u""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(BTL::GetI18NLanguageName(row.language), row.name);
        EXPECT_EQ(BTL::GetLanguageAcronym(row.language), row.acronym);
        EXPECT_EQ(BTL::GetLanguageA3Acronym(row.language), row.a3Acronym);
        if (!row.name.IsEmpty()) {
            EXPECT_EQ(BTL::GetLanguage(row.name), row.language);
            EXPECT_EQ(BTL::GetLanguage(row.name.UpperCase()), row.language);
        }
    }
    for (const char16_t* text : {u"", u"DE", u"ger", u"German ", u"Deutsch"}) {
        EXPECT_EQ(BTL::GetLanguage(text), ELanguage::None) << UnicodeString(text);
    }
}

TEST_F(LanguageTest, HasACurrentOne)
{
    EXPECT_EQ(BTL::GetCurLanguage(), ELanguage::German);
    BTL::SetCurLanguage(ELanguage::Dutch);
    EXPECT_EQ(BTL::GetCurrLanguage(), ELanguage::Dutch);
    EXPECT_EQ(BTL::GetCurLanguageA3Acronym(), u"nld");
    BTL::SetCurrLanguage(ELanguage::None);
    EXPECT_EQ(BTL::GetCurLanguage(), ELanguage::German);
    BTL::SetCurrLanguage(static_cast<ELanguage>(8));
    EXPECT_EQ(BTL::GetCurLanguage(), static_cast<ELanguage>(8));
    EXPECT_EQ(BTL::GetCurrLanguageA3Acronym(), u"");
    BTL::SetDefLanguage();
    EXPECT_EQ(BTL::GetCurLanguage(), ELanguage::German);
}

TEST(LanguageChild, DISABLED_MakeFolders)
{
    using BTL::GetI18NLanguageBinPath;
    const auto english = Sysutils::HostPath(GetI18NLanguageBinPath(ELanguage::English));
    const bool made = fs::is_directory(english);
    fs::remove(english);
    static_cast<void>(GetI18NLanguageBinPath(ELanguage::English));
    const bool madeAgain = fs::exists(english);
    const UnicodeString none = GetI18NLanguageBinPath(ELanguage::None);
    static_cast<void>(GetI18NLanguageBinPath(ELanguage::English));
    Support::PrintResult(std::to_string(made) + std::to_string(madeAgain) +
                         std::to_string(fs::exists(english)) + System::ToUtf8(none));
}

TEST_F(LanguageTest, MakesAFolderWhenAskedForItAfterAnother)
{
    const Support::TempFolder temp;
    const fs::path bin = temp.Path() / "Bin";
    fs::create_directories(bin);
    const std::string none = System::ToUtf8(Sysutils::FromHostPath((temp.Path() / "BIN_").string())) + "\\";
    EXPECT_EQ(Support::RunChildTest("LanguageChild.DISABLED_MakeFolders", bin / "program"), "101" + none);
    EXPECT_TRUE(fs::is_directory(temp.Path() / "BIN_"));
}

} // namespace
