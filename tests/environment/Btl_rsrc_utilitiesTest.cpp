// SPDX-License-Identifier: MIT
#include "environment/Btl_rsrc_utilities.h"

#include "platform/host/Host_Path.h"
#include "support/ProgramImage.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace std::string_literals;

namespace
{

using BTL::CVersionInfo;
using System::UnicodeString;

class RsrcUtilitiesTest : public testing::Test
{
protected:
    UnicodeString Write(const std::string& texts) const
    {
        std::ofstream(mFolder.Path() / "program", std::ios::binary)
            << Support::ProgramImage(texts).getBytes();
        return File();
    }
    UnicodeString File() const { return Sysutils::FromHostPath((mFolder.Path() / "program").string()); }

    static std::vector<UnicodeString> Texts(const CVersionInfo& info)
    {
        const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, tag] = info;
        return {a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, UnicodeString(tag)};
    }

    Support::TempFolder mFolder;
};

TEST_F(RsrcUtilitiesTest, ReadsEachFieldByItsKey)
{
    const UnicodeString file = Write(
        "Translation=040704E4\0Comments=c & d\0LegalTrademarks=t&\0ProductVersion=5.6&\0CompanyName=A & B&&\0"
        "LegalCopyright=\xC2\xA9 "
        "&\0FileDescription=des&\0Builder=b&\0Dateidatum=1.2.26\0FileVersion=1.2.3.4\0"
        "Autor=au&\0InternalName=in&\0OriginalFilename=o&.so\0ProductName=p&\0"s);
    CVersionInfo info;
    info.Reserved = u"mine";
    info.Tag = 7;
    ASSERT_TRUE(BTL::ReadVersionInfo(file, info));
    EXPECT_EQ(Texts(info), (std::vector<UnicodeString>{
                               u"o&.so", u"in&", u"au&", u"des&", u"1.2.3.4", u"1.2.26", u"b&", u"mine",
                               u"A && B&&&&", u"p&&", u"5.6&", u"c && d", u"\u00A9 &&", u"t&&", file, u"0"}));
}

TEST_F(RsrcUtilitiesTest, KeysThatAreMissingGiveEmptyTexts)
{
    const UnicodeString file = Write("Translation=000004E4\0FileVersion=1"s);
    CVersionInfo info;
    info.Author = u"former";
    ASSERT_TRUE(BTL::ReadVersionInfo(file.c_str(), info));
    EXPECT_EQ(Texts(info), (std::vector<UnicodeString>{u"", u"", u"", u"", u"1", u"", u"", u"", u"", u"", u"",
                                                       u"", u"", u"Not available!", file, u"0"}));
}

TEST_F(RsrcUtilitiesTest, AFileWithoutDataLeavesTheRecordAsItWas)
{
    std::ofstream(mFolder.Path() / "program") << "no program";
    CVersionInfo info;
    info.Company = u"former";
    info.Tag = 7;
    const auto before = Texts(info);
    EXPECT_FALSE(BTL::ReadVersionInfo(File(), info));
    EXPECT_FALSE(BTL::ReadVersionInfo(File() + u"x", info));
    EXPECT_FALSE(BTL::ReadVersionInfo(static_cast<const System::WideChar*>(nullptr), info));
    EXPECT_EQ(Texts(info), before);
}

TEST_F(RsrcUtilitiesTest, DamagedDataSayThatThereAreNone)
{
    CVersionInfo info;
    info.Reserved = u"mine";
    info.Author = u"former";
    EXPECT_FALSE(BTL::ReadVersionInfo(Write("FileVersion=1\0CompanyName=A"s), info));
    EXPECT_EQ(Texts(info),
              (std::vector<UnicodeString>{u"", u"", u"", u"", u"", u"", u"", u"", u"TARMIS", u"", u"",
                                          u"No Versioninfo available!", u"TARMIS", u"TARMIS", u"", u"0"}));
}

TEST_F(RsrcUtilitiesTest, ReadsWhatTheBuildPutsIntoAnAddIn)
{
    CVersionInfo info;
    ASSERT_TRUE(BTL::ReadVersionInfo(Sysutils::FromHostPath(ADD_IN), info));
    EXPECT_EQ(info.Description, u"\u201CWitness\u201D, 5 \u00B5m");
    EXPECT_EQ(info.Comments, u"a\\0 \"b\"; ${c}\n%d");
    EXPECT_EQ(info.Company, u"A && B");
    EXPECT_EQ(info.InternalName, u"lifetime_add_in");
    EXPECT_EQ(info.OriginalFilename, u"liblifetime_add_in.so");
    EXPECT_EQ(info.Product, u"TRS8_BTL");
    EXPECT_EQ(info.Copyright, u"");
}

TEST_F(RsrcUtilitiesTest, VersionsAreReadAsNumbers)
{
    const struct
    {
        const char* version;
        bool isRead;
        std::vector<unsigned> numbers;
    } cases[] = {{"1.2.3.4", true, {1, 2, 3, 4}},
                 {"7", true, {7, 0, 0, 0}},
                 {"", true, {0, 0, 0, 0}},
                 {"1.x", false, {1, 0, 0, 0}},
                 {"1.2.3.4.5", false, {1, 2, 3, 4}}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.version);
        unsigned a = 9, b = 9, c = 9, d = 9;
        const UnicodeString product =
            Write("Translation=000004E4\0FileVersion=8\0ProductVersion="s + test.version);
        EXPECT_EQ(BTL::GetProductVersionNos(product, a, b, c, d), test.isRead);
        EXPECT_EQ((std::vector{a, b, c, d}), test.numbers);
        const UnicodeString file =
            Write("Translation=000004E4\0ProductVersion=8\0FileVersion="s + test.version);
        EXPECT_EQ(BTL::GetFileVersionNos(file, a, b, c, d), test.isRead);
        EXPECT_EQ((std::vector{a, b, c, d}), test.numbers);
    }
    unsigned a = 9, b = 9, c = 9, d = 9;
    EXPECT_TRUE(BTL::GetFileVersionNos(u"no such file", a, b, c, d));
    EXPECT_EQ((std::vector{a, b, c, d}), (std::vector<unsigned>{0, 0, 0, 0}));
    // This program has its version from the project's.
    EXPECT_TRUE(BTL::GetFileVersionNos(a, b, c, d));
    unsigned e = 0, f = 0, g = 0, h = 0;
    EXPECT_TRUE(BTL::GetProductVersionNos(e, f, g, h));
    EXPECT_EQ((std::vector{a, b, c, d}), (std::vector{e, f, g, h}));
    EXPECT_NE(a + b + c, 0);
}

} // namespace
