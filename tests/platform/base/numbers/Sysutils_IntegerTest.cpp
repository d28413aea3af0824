// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_Integer.h"

#include "platform/base/Sysutils_Exception.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace
{

using System::Int64;
using System::UnicodeString;

TEST(SysutilsIntegerTest, WritesIntegers)
{
    EXPECT_EQ(Sysutils::IntToStr(LLONG_MIN), u"-9223372036854775808");
    EXPECT_EQ(Sysutils::UIntToStr(ULLONG_MAX), u"18446744073709551615");
    EXPECT_EQ(Sysutils::IntToHex(255, 4), u"00FF");
    EXPECT_EQ(Sysutils::IntToHex(0, 0), u"0");
    EXPECT_EQ(Sysutils::IntToHex(-1, 2), u"FFFFFFFF");
    EXPECT_EQ(Sysutils::IntToHex(Int64(-1), 2), u"FFFFFFFFFFFFFFFF");
    EXPECT_EQ(Sysutils::IntToHex(1, INT_MAX).Length(), 64);
    EXPECT_EQ(Sysutils::IntToHex(1, INT_MIN), u"1");
}

TEST(SysutilsIntegerTest, WritesIntegersOfEachLength)
{
    for (Int64 power = 1; power < LLONG_MAX / 10; power *= 10) {
        for (const Int64 value : {power - 1, power, power + 1, 1 - power, -power}) {
            EXPECT_EQ(Sysutils::IntToStr(value), UnicodeString(std::to_string(value).c_str()));
        }
    }
}

TEST(SysutilsIntegerTest, ReadsIntegers)
{
    const struct
    {
        const char16_t* text;
        int value;
        /// 0, or the place of the first character that doesn't fit.
        int code;
    } cases[] = {
        {u"0", 0, 0},
        {u"  -12", -12, 0},
        {u"+7", 7, 0},
        {u"2147483647", INT_MAX, 0},
        {u"-2147483648", INT_MIN, 0},
        {u"2147483648", 214748364, 10},
        {u"-2147483649", -214748364, 11},
        {u"$ff", 255, 0},
        {u"0xFF", 255, 0},
        {u"X1f", 31, 0},
        {u"-$10", -16, 0},
        {u"$FFFFFFFF", -1, 0},
        {u"$100000000", 0x10000000, 10},
        {u"", 0, 1},
        {u"  ", 0, 3},
        {u"-", 0, 2},
        {u"$", 0, 2},
        {u"12 ", 12, 3},
        {u"1.5", 1, 2},
        {u"+-1", 0, 2},
        {u"1a", 1, 2},
        {u"\u0661", 0, 1},
    };
    for (const auto& c : cases) {
        int value = 0;
        int code = -1;
        System::Val(c.text, value, code);
        EXPECT_EQ(value, c.value) << UnicodeString(c.text);
        EXPECT_EQ(code, c.code) << UnicodeString(c.text);
        value = 4711;
        EXPECT_EQ(Sysutils::TryStrToInt(c.text, value), c.code == 0) << UnicodeString(c.text);
        EXPECT_EQ(value, c.code == 0 ? c.value : 4711) << UnicodeString(c.text);
        EXPECT_EQ(Sysutils::StrToIntDef(c.text, 4711), value) << UnicodeString(c.text);
        if (c.code == 0) {
            EXPECT_EQ(Sysutils::StrToInt(c.text), c.value) << UnicodeString(c.text);
        } else {
            EXPECT_THROW(Sysutils::StrToInt(c.text), Sysutils::EConvertError) << UnicodeString(c.text);
        }
    }
    EXPECT_EQ(Sysutils::StrToInt64(u"-9223372036854775808"), LLONG_MIN);
    EXPECT_EQ(Sysutils::StrToInt64(u"$FFFFFFFFFFFFFFFF"), -1);
    EXPECT_EQ(Sysutils::StrToInt64Def(u"9223372036854775808", 7), 7);
    EXPECT_THROW(Sysutils::StrToInt64(u"x"), Sysutils::EConvertError);
}

} // namespace
