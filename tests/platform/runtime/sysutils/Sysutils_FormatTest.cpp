// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_Format.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/sysutils/System_Printf.h"

#include <climits>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

using System::TVarArgs;
using System::TVarRec;
using System::UnicodeString;

namespace
{

Sysutils::TFormatSettings GermanSettings()
{
    Sysutils::TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.ThousandSeparator = u'.';
    settings.CurrencyString = u"EUR";
    settings.CurrencyFormat = 3;
    settings.CurrencyDecimals = 1;
    return settings;
}

UnicodeString FailureOf(const UnicodeString& format, TVarArgs arguments)
{
    try {
        return u"no failure: " + Sysutils::Format(format, arguments);
    } catch (const Sysutils::EConvertError& error) {
        return error.getMessage();
    }
}

TEST(FormatTest, TakesTextsOfTheStandardAndDates)
{
    const std::string utf8 = "gr\xC3\xB6\xC3\x9F"
                             "er";
    EXPECT_EQ(Sysutils::Format(u"%s %s %s", utf8, std::string_view(utf8).substr(4, 2), std::u16string(u"→")),
              u"größer ß →");
    const System::TDateTime date(2022, 2, 28);
    EXPECT_EQ(Sysutils::Format(u"%s", date + 1), (date + 1).DateTimeString());
}

TEST(FormatTest, NeedsNoArguments)
{
    EXPECT_EQ(Sysutils::Format(u"100 %%"), u"100 %");
    EXPECT_EQ(Sysutils::Format(u""), u"");
    EXPECT_THROW(Sysutils::Format(u"%d"), Sysutils::EConvertError);
}

} // namespace

TEST(FormatTest, FillsEachType)
{
    const Sysutils::TFormatSettings plain;
    const struct
    {
        const char16_t* format;
        const char16_t* result;
        TVarRec argument;
    } cases[] = {
        {u"100%% of %d", u"100% of 7", 7},
        {u"%D", u"-7", -7},
        {u"%d", u"-9223372036854775808", LLONG_MIN},
        {u"%d", u"18446744073709551615", ULLONG_MAX},
        {u"%.3d", u"-007", -7},
        {u"%.0d", u"0", 0},
        {u"%u", u"4294967295", -1},
        {u"%u", u"18446744073709551615", -1LL},
        {u"%x", u"ABC", 0xabc},
        {u"%.6X", u"000ABC", 0xabc},
        {u"%x", u"FFFFFFFF", -1},
        {u"[%5d]", u"[   42]", 42},
        {u"[%-5d]", u"[42   ]", 42},
        {u"[%05d]", u"[   42]", 42},
        {u"[%1d]", u"[42]", 42},
        {u"%e", u"1.23450000000000E+003", 1234.5},
        {u"%.3e", u"1.23E+003", 1234.5},
        {u"%g", u"0.1", 0.1},
        {u"%.3g", u"1.23E003", 1234.5},
        {u"%f", u"2.50", 2.5},
        {u"%.0f", u"3", 2.5},
        {u"%.2f", u"1.01", 1.005},
        {u"%.18f", u"0.100000000000000000", 0.1},
        {u"%.65535f", u"0.500000000000000000", 0.5},
        {u"%n", u"1,234,567.89", 1234567.891},
        {u"%f", u"NAN", std::numeric_limits<double>::quiet_NaN()},
        {u"%8g", u"     INF", std::numeric_limits<double>::infinity()},
        {u"%s", u"ab→", u"ab→"},
        {u"%.2s|", u"ab|", "abc"},
        {u"[%-4s]", u"[x   ]", u'x'},
        {u"[%4.1s]", u"[   x]", u"xyz"},
        {u"%s", u"", UnicodeString()},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(Sysutils::Format(test.format, {test.argument}, plain), test.result)
            << UnicodeString(test.format);
    }
    const auto address = reinterpret_cast<std::uintptr_t>(&plain);
    EXPECT_EQ(Sysutils::Format(u"%p", static_cast<const void*>(&plain)),
              Sysutils::IntToHex(static_cast<System::Int64>(address), 16));
}

TEST(FormatTest, FollowsTheSettings)
{
    const Sysutils::TFormatSettings german = GermanSettings();
    EXPECT_EQ(Sysutils::Format(u"%f|%n|%m|%.2m|%g", {1.5, 12345.5, 1234.25, 2.0, 0.25}, german),
              u"1,50|12.345,50|1.234,3 EUR|2,00 EUR|0,25");
}

TEST(FormatTest, TakesArgumentsByIndexAndStar)
{
    const struct
    {
        const char16_t* format;
        const char16_t* result;
    } cases[] = {
        {u"%1:s-%0:d", u"b-1"}, {u"%2:s%0:d%s%s", u"c1bc"}, {u"%0:d%0:d", u"11"}, {u"%0:-3d%1:3s", u"1    b"},
        {u"%*:s", u"b"},        {u"[%*s]", u"[b]"},         {u"[%0:*s]", u"[b]"}, {u"%2:s %%", u"c %"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(Sysutils::Format(test.format, 1, u"b", u"c"), test.result) << UnicodeString(test.format);
    }
    EXPECT_EQ(Sysutils::Format(u"[%*d][%-*d][%*.*f]", 4, 1, 4, 1, -6, 1, 2.0), u"[   1][1   ][2.0   ]");
    EXPECT_EQ(Sysutils::Format(u"%.*f", -1, 2.0), u"2.00");
}

TEST(FormatTest, RefusesWhatDoesNotFit)
{
    const int place = 0;
    const struct
    {
        const char16_t* format;
        TVarRec argument;
        const char16_t* why;
    } misfits[] = {
        {u"%d", u"x", u"argument 1, a text, doesn't fit %d"},
        {u"%d", 1.5, u"argument 1, a float, doesn't fit %d"},
        {u"%5.2d", u'x', u"argument 1, a character, doesn't fit %5.2d"},
        {u"%f", 1, u"argument 1, an integer, doesn't fit %f"},
        {u"%% %-8s|", 1U, u"argument 1, an integer, doesn't fit %-8s"},
        {u"%s", true, u"argument 1, a truth value, doesn't fit %s"},
        {u"%s", static_cast<const void*>(&place), u"argument 1, a pointer, doesn't fit %s"},
        {u"%p", 1, u"argument 1, an integer, doesn't fit %p"},
        {u"%0:X", u"x", u"argument 1, a text, doesn't fit %0:X"},
        {u"%*d", u"x", u"argument 1, a text, doesn't fit %*"},
        {u"%q", 1, u"no conversion stands at character 1"},
        {u"%", 1, u"no conversion stands at character 1"},
        {u"a%5", 1, u"no conversion stands at character 2"},
        {u"%-", 1, u"no conversion stands at character 1"},
        {u"%.", 1, u"no conversion stands at character 1"},
        {u"%0:", 1, u"no conversion stands at character 1"},
        {u"%% %5%", 1, u"no conversion stands at character 4"},
        {u"%d % d", 1, u"no conversion stands at character 4"},
        {u"%--5d", 1, u"no conversion stands at character 1"},
        {u"%0:0:d", 1, u"no conversion stands at character 1"},
        {u"%\u0164", 1, u"no conversion stands at character 1"},
        {u"%\xD800", 1, u"no conversion stands at character 1"},
        {u"%*:d", -1, u"the index -1 is negative"},
    };
    for (const auto& test : misfits) {
        const UnicodeString format(test.format);
        EXPECT_EQ(FailureOf(format, {test.argument}),
                  u"Format '" + format + u"' invalid or incompatible with argument: " + test.why);
    }
    EXPECT_EQ(FailureOf(u"%s|%d|%s", {u"a", 5, true}),
              u"Format '%s|%d|%s' invalid or incompatible with argument: argument 3, a truth value, doesn't "
              u"fit %s");
    const struct
    {
        const char16_t* format;
        const char16_t* which;
    } missing[] = {
        {u"%d%5d", u"%5d takes argument 2"},
        {u"%1:d", u"%1:d takes argument 2"},
        {u"%4294967296:d", u"%4294967296:d takes argument 65536"},
        {u"%*d", u"%*d takes argument 2"},
        {u"%.*d", u"%.*d takes argument 2"},
    };
    for (const auto& [format, which] : missing) {
        EXPECT_EQ(FailureOf(format, {1}),
                  u"No argument for format '" + UnicodeString(format) + u"': " + which);
    }
}

TEST(FormatTest, WritesATruthValueAsAnInteger)
{
    EXPECT_EQ(Sysutils::Format(u"%d %.2d %x", true, false, true), u"1 00 1");
}

TEST(FormatTest, KeepsTheResultOnFailure)
{
    UnicodeString result = u"old";
    EXPECT_THROW(Sysutils::FmtStr(result, u"%d", {u"x"}), Sysutils::EConvertError);
    EXPECT_EQ(result, u"old");
    Sysutils::FmtStr(result, u"<%s>", {result});
    EXPECT_EQ(result, u"<old>");
}

TEST(FormatTest, StaysBounded)
{
    EXPECT_EQ(Sysutils::Format(u"%99999999999999d", 1).Length(), 65535);
    UnicodeString greedy;
    for (int i = 0; i < 1000; ++i) {
        greedy += u"%0:65535d";
    }
    EXPECT_THROW(Sysutils::Format(greedy, 1), Sysutils::EConvertError);
    UnicodeString greedyPrintf;
    for (int i = 0; i < 1000; ++i) {
        greedyPrintf += u"%.65535d";
    }
    const std::vector<TVarRec> arguments(1000, TVarRec(1));
    EXPECT_THROW(System::Printf(greedyPrintf, TVarArgs(std::span(arguments))), Sysutils::EConvertError);

    // What the arguments bring themselves is not limited.
    const UnicodeString large = UnicodeString::StringOfChar(u'x', 20'000'000);
    EXPECT_EQ(Sysutils::Format(u"%s", large).Length(), large.Length());
}
