// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_FloatReading.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/GermanSettingsSupport.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace
{

using Support::German;
using System::Int64;
using System::UnicodeString;

TEST(SysutilsFloatReadingTest, ReadsFloats)
{
    const double refused = -4711;
    const struct
    {
        const char16_t* text;
        double value;
    } cases[] = {
        {u"0", 0},
        {u"1,5", 1.5},
        {u"  -1,5  ", -1.5},
        {u"+,5", 0.5},
        {u"5,", 5},
        {u"1e3", 1000},
        {u"1,5E-3", 0.0015},
        {u"1E+2", 100},
        {u"0,1", 0.1},
        {u"123456789012345678", 123456789012345678.0},
        {u"9007199254740993", 9007199254740992.0},
        {u"1,7976931348623157e308", std::numeric_limits<double>::max()},
        {u"1e-400", 0},
        {u"5e-324", std::numeric_limits<double>::denorm_min()},
        {u"0,000000000000000000000000000000000000000000000000000000000000000000001", 1e-69},
        {u"1e400", refused},
        {u"", refused},
        {u" ", refused},
        {u",", refused},
        {u"-", refused},
        {u"-,", refused},
        {u"+-1", refused},
        {u"--1", refused},
        {u"1.5", refused},
        {u"1,5,", refused},
        {u"1 5", refused},
        {u"1e", refused},
        {u"e5", refused},
        {u"inf", refused},
        {u"nan", refused},
        {u"0x10", refused},
        {u"1,5x", refused},
        {u"\t1", refused},
    };
    for (const auto& c : cases) {
        double value = refused;
        EXPECT_EQ(Sysutils::TryStrToFloat(c.text, value, German()), c.value != refused)
            << UnicodeString(c.text);
        EXPECT_EQ(value, c.value) << UnicodeString(c.text);
    }
    EXPECT_TRUE(std::signbit(Sysutils::StrToFloat(u"-0", German())));
    EXPECT_THROW(Sysutils::StrToFloat(u"1.5", German()), Sysutils::EConvertError);
}

TEST(SysutilsFloatReadingTest, FollowsTheSettingsOfTheProcess)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings = German();
    EXPECT_EQ(Sysutils::StrToFloat(u"1,5"), 1.5);
    EXPECT_EQ(Sysutils::StrToFloatDef(u"1.5", 7), 7);
}

TEST(SysutilsFloatReadingTest, ShortAndLongWayReadTheSameFloat)
{
    std::mt19937_64 random(4711);
    for (int i = 0; i < 20000; ++i) {
        const auto digits = static_cast<Int64>(random() >> (8 + random() % 50));
        UnicodeString text(digits);
        const int decimals = static_cast<int>(random() % 18);
        text = UnicodeString::StringOfChar(u'0', decimals + 1 - text.Length()) + text;
        text.Insert(u".", text.Length() - decimals + 1);
        double shortWay = 0;
        double longWay = 0;
        ASSERT_TRUE(Sysutils::BufferToFloat(text.AsView(), u'.', shortWay)) << text;
        ASSERT_TRUE(Sysutils::BufferToFloat((text + u"e0").AsView(), u'.', longWay)) << text;
        ASSERT_EQ(shortWay, longWay) << text;
    }
}

} // namespace
