// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_FloatPicture.h"

#include "platform/base/numbers/GermanSettingsSupport.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using Support::German;
using System::UnicodeString;

TEST(SysutilsFloatPictureTest, WritesFloatsByPictures)
{
    const struct
    {
        const char16_t* format;
        double value;
        const char16_t* expected;
    } cases[] = {
        {u"", 1234.5, u"1234,5"},
        {u"0", 1234.5, u"1235"},
        {u"0", 0.4, u"0"},
        {u"#", 0.4, u""},
        {u"0000", 12, u"0012"},
        {u"0000", -12, u"-0012"},
        {u"0.00", 1234.5, u"1234,50"},
        {u"0.00", 1.005, u"1,01"},
        {u"0.0#", 1.25, u"1,25"},
        {u"0.0#", 1, u"1,0"},
        {u"#.##", 1, u"1"},
        {u"#.##", 0.5, u",5"},
        {u"#.##", 0.001, u""},
        {u"0.", 5, u"5"},
        {u"#,##0.00", 1234567.891, u"1.234.567,89"},
        {u"#,##0", 123, u"123"},
        {u"0,000", 12, u"0.012"},
        {u"0.000E+00", 12345, u"1,235E+04"},
        {u"0.000E-00", 12345, u"1,235E04"},
        {u"0.0e+0", 0.00012, u"1,2e-4"},
        {u"00.0E+00", 12345, u"12,3E+03"},
        {u"0.00E+00", 0, u"0,00E+00"},
        {u"0.0E+0", 9.96, u"1,0E+1"},
        {u"0 'units'", 3, u"3 units"},
        {u"\"0;#\" 0", 3, u"0;# 3"},
        {u"0%", 3, u"3%"},
        {u"00-00", 1234, u"12-34"},
        {u"0'open", 3, u"3open"},
        {u"0;(0)", -3, u"(3)"},
        {u"0;(0)", 3, u"3"},
        {u"0;;zero", 0, u"zero"},
        {u"0;;zero", -3, u"-3"},
        {u"0.0;-0.0;'none'", 0.01, u"none"},
        {u"0;(0)", -0.4, u"0"},
        {u"0", 1e18, u"1E18"},
        {u"0", 123456789012345678.0, u"123456789012346000"},
        {u"0", std::numeric_limits<double>::infinity(), u"INF"},
        {u";", 1.5, u"1,5"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Sysutils::FormatFloat(c.format, c.value, German()), c.expected)
            << UnicodeString(c.format) << " " << c.value;
    }
}

TEST(SysutilsFloatPictureTest, TakesIntegersOfAnyWidth)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings = German();
    const UnicodeString picture = u"#,##0";
    EXPECT_EQ(Sysutils::FormatFloat(picture, 1234567), u"1.234.567");
    EXPECT_EQ(Sysutils::FormatFloat(picture, short{-1234}), u"-1.234");
    EXPECT_EQ(Sysutils::FormatFloat(picture, 4294967295U), u"4.294.967.295");
    EXPECT_EQ(Sysutils::FormatFloat(picture, 123456789012345678L), u"123.456.789.012.345.678");
    EXPECT_EQ(Sysutils::FormatFloat(picture, std::size_t{1000}, Sysutils::TFormatSettings()), u"1,000");
    EXPECT_EQ(Sysutils::FormatFloat(u"0.0", 1.5F), u"1,5");
}

TEST(SysutilsFloatPictureTest, FollowsTheSettingsOfTheProcess)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings = German();
    EXPECT_EQ(Sysutils::FormatFloat(u"0.0", 1.5), u"1,5");
}

} // namespace
