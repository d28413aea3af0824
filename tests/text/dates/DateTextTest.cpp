// SPDX-License-Identifier: MIT
#include "text/dates/BTL_DT_Utilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Date.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace
{

using BTL::ECurrentDate;
using System::TDateTime;
using System::UnicodeString;
using System::Word;
using Sysutils::EConvertError;
using Sysutils::EncodeTime;

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TDateTime Day(Word year, Word month, Word day)
{
    return Sysutils::EncodeDate(year, month, day);
}

/// All tests start with day first.
class DateTextTest : public testing::Test
{
protected:
    DateTextTest()
    {
        Sysutils::FormatSettings = Sysutils::TFormatSettings();
        SetOrder(u"dd.MM.yyyy", u'.');
        Sysutils::DecimalSeparator = u',';
    }

    static void SetOrder(const UnicodeString& picture, System::WideChar separator)
    {
        Sysutils::ShortDateFormat = picture;
        Sysutils::DateSeparator = separator;
    }

private:
    Support::FormatSettingsGuard mGuard;
};

TEST_F(DateTextTest, TakesNumbersForDates)
{
    const TDateTime date = Day(2022, 12, 22);
    EXPECT_EQ(BTL::StrToDateTime(u"44000"), 44000);
    EXPECT_EQ(BTL::StrToDateTime(u" 12,05"), 12.05);
    EXPECT_EQ(BTL::StrToDateTime(u"22.12.2022 18:00"), date + 0.75);
    EXPECT_EQ(BTL::StrToDate(u"44000"), 44000);
    EXPECT_EQ(BTL::StrToDate(u"12.05"), 12);
    EXPECT_EQ(BTL::StrToDate(u"-1.25"), -1);
    EXPECT_EQ(BTL::StrToDate(u"22.12.2022 18:00"), date + 0.75);
    EXPECT_EQ(BTL::StrToTime(u"44000.75"), 0.75);
    EXPECT_EQ(BTL::StrToTime(u"-1.25"), 0.25);
    EXPECT_EQ(BTL::StrToTime(u"18:00"), 0.75);
    for (const UnicodeString text : {u"", u"0", u"x", u"31.2.2022"}) {
        EXPECT_THROW(BTL::StrToDateTime(text), EConvertError) << text;
        EXPECT_THROW(BTL::StrToDate(text), EConvertError) << text;
    }
    EXPECT_THROW(BTL::StrToDate(u"0.5"), EConvertError);
    EXPECT_THROW(BTL::StrToTime(u"25:00"), EConvertError);
}

TEST_F(DateTextTest, ReadsByMask)
{
    const TDateTime date = Day(2022, 12, 22);
    const TDateTime time = EncodeTime(10, 5, 9, 123);
    const UnicodeString mask = u"yyyy-mm-dd hh:nn:ss.ccc";
    EXPECT_EQ(BTL::StrToDateTime(u"2022-12-22 10:05:09.123", mask), date + time);
    EXPECT_EQ(BTL::StrToDateTime(u"2022-12-22", mask), date);
    EXPECT_EQ(BTL::StrToDateTime(u"2022/12/22/and more", u"yyyy-mm-dd"), date);
    EXPECT_EQ(BTL::StrToDateTime(u"100509", u"hhnnss"), EncodeTime(10, 5, 9, 0));
    EXPECT_EQ(BTL::StrToDateTime(u"221222", u"yymmdd"), Day(22, 12, 22));
    EXPECT_EQ(BTL::StrToDateTime(u"1899122906", u"yyyymmddhh"), -1.25);
    EXPECT_EQ(BTL::StrToDateTime(u"2022", u"YYYY"), 0);
    EXPECT_EQ(BTL::StrToDateTime(u"", u"hh:nn"), 0);
    EXPECT_THROW(BTL::StrToDateTime(u"10:05", u"hh:nn dd.mm.yyyy"), EConvertError) << "the date is missing";
    for (const UnicodeString text : {u"", u"2022-12", u"2022-13-01", u"2022-1a-22", u"20221222",
                                     u"2022-12-22 24", u"2022-12-32", u"-022-12-22", u"2\uFFFF22-12-22"}) {
        EXPECT_THROW(BTL::StrToDateTime(text, mask), EConvertError) << text;
    }
    const UnicodeString nines = UnicodeString::StringOfChar(u'9', 1000);
    EXPECT_THROW(BTL::StrToDateTime(nines, UnicodeString::StringOfChar(u'y', 1000)), EConvertError);

    EXPECT_EQ(BTL::StrToDate(u"22.12.2022 10:05", u"dd.mm.yyyy hh:nn"), date);
    EXPECT_EQ(BTL::StrToDate(u"22.12", u"dd.mm.yyyy"), 0);
    EXPECT_EQ(BTL::StrToDate(u"00.12.2022", u"dd.mm.yyyy"), 0);
    EXPECT_THROW(BTL::StrToDate(u"31.02.2022", u"dd.mm.yyyy"), EConvertError);
    EXPECT_EQ(BTL::StrToTime(u"99 10:05", u"dd hh:nn"), EncodeTime(10, 5, 0, 0));
    EXPECT_THROW(BTL::StrToTime(u"10:60", u"hh:nn"), EConvertError);
}

TEST_F(DateTextTest, CompletesYears)
{
    const struct
    {
        int year;
        int expected;
    } cases[] = {{0, 2000}, {49, 2049}, {50, 1950}, {99, 1999}, {100, 100}, {2022, 2022}, {-1, 1999}};
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::To4DigitYear(c.year), c.expected);
        EXPECT_EQ(BTL::To4DigitYear(UnicodeString(c.year)), UnicodeString(c.expected));
    }
    EXPECT_EQ(BTL::To4DigitYear(u"x"), u"2000");
    EXPECT_EQ(BTL::YearCorrection(49), 2049);
    EXPECT_EQ(BTL::YearCorrection(50), 50);
    EXPECT_EQ(BTL::YearCorrection(99), 99);

    TDateTime date = Day(4, 2, 29);
    Sysutils::ReplaceTime(date, 0.75);
    EXPECT_EQ(BTL::To4DigitYear(date), Day(2004, 2, 29) + 0.75);
    BTL::Set4DigitYear(date);
    EXPECT_EQ(date, Day(2004, 2, 29) + 0.75);
    EXPECT_EQ(BTL::To4DigitYear(Day(99, 12, 31)), Day(1999, 12, 31));
    EXPECT_EQ(BTL::To4DigitYear(Day(100, 1, 1)), Day(100, 1, 1));
    EXPECT_TRUE(std::isnan(BTL::To4DigitYear(TDateTime(NotANumber))));
    // 1 February, so short before midnight that it shows the next day; that stays.
    const TDateTime almost = std::nextafter(Day(22, 1, 31).Val, 0.0);
    ASSERT_EQ(Sysutils::FormatDateTime(u"yyyy-mm-dd hh", almost), u"0022-02-02 00");
    EXPECT_EQ(Sysutils::FormatDateTime(u"yyyy-mm-dd hh", BTL::To4DigitYear(almost)), u"2022-02-02 00");
}

TEST_F(DateTextTest, NamesRangesOfDays)
{
    const struct
    {
        TDateTime today;
        int range;
        TDateTime from;
        TDateTime to;
    } cases[] = {
        {Day(2024, 2, 14), 1, Day(2024, 2, 14), Day(2024, 2, 14)},
        {std::nextafter(Day(2024, 2, 15).Val, 0.0), 1, Day(2024, 2, 15), Day(2024, 2, 15)},
        {Day(2024, 2, 14), 2, Day(2024, 2, 12), Day(2024, 2, 18)},
        {Day(2024, 2, 17), 2, Day(2024, 2, 12), Day(2024, 2, 18)},
        {Day(2024, 2, 18), 2, Day(2024, 2, 19), Day(2024, 2, 25)},
        {Day(2024, 2, 14), 3, Day(2024, 2, 1), Day(2024, 2, 29)},
        {Day(2024, 12, 31), 3, Day(2024, 12, 1), Day(2024, 12, 31)},
        {Day(2024, 2, 14) + 0.75, 4, Day(2024, 1, 1), Day(2024, 12, 31)},
        {Day(2024, 3, 1), 5, Day(2024, 2, 29), Day(2024, 2, 29)},
        {Day(2024, 2, 14), 6, Day(2024, 2, 5), Day(2024, 2, 11)},
        {Day(2024, 1, 31), 7, Day(2023, 12, 1), Day(2023, 12, 31)},
        {Day(2024, 3, 31), 7, Day(2024, 2, 1), Day(2024, 2, 29)},
        {Day(2024, 2, 29), 8, Day(2023, 1, 1), Day(2023, 12, 31)},
        {Day(2024, 2, 14), 0, Day(2024, 2, 14), 47},
        {Day(2024, 2, 14), 9, Day(2024, 2, 14), 47},
    };
    for (const auto& c : cases) {
        TDateTime from = 46;
        TDateTime to = 47;
        BTL::GetCurrentDate(c.today, static_cast<ECurrentDate>(c.range), from, to);
        EXPECT_EQ(from, c.from) << c.range;
        EXPECT_EQ(to, c.to) << c.range;
    }
    TDateTime from;
    TDateTime to;
    EXPECT_THROW(BTL::GetCurrentDate(NotANumber, BTL::kCD_ThisMonth, from, to), EConvertError);
    const TDateTime before = Sysutils::Date();
    BTL::GetCurrentDate(BTL::kCD_Today, from, to);
    EXPECT_TRUE(from == to && from >= before && from <= Sysutils::Date());
}

TEST_F(DateTextTest, AddsMonthsToFields)
{
    const struct
    {
        Word year;
        Word month;
        Word day;
        int months;
        TDateTime expected;
    } cases[] = {
        {2023, 1, 31, 1, Day(2023, 2, 28)},
        {2024, 1, 31, 1, Day(2024, 2, 29)},
        {2023, 1, 31, 12, Day(2024, 1, 31)},
        {2023, 1, 31, -1, Day(2022, 12, 31)},
        {2023, 99, 15, 1, Day(2024, 1, 15)},
        {2023, 0, 15, 0, Day(2022, 12, 15)},
        {22, 12, 31, 2, Day(2023, 2, 28)},
        {99, 5, 1, 0, Day(99, 5, 1)},
        {65535, 1, 1, -65535 * 12 + 9999 * 12, Day(9999, 1, 1)},
    };
    for (const auto& c : cases) {
        Word year = c.year;
        Word month = c.month;
        Word day = c.day;
        BTL::AddMonths(year, month, day, c.months);
        EXPECT_EQ(Day(year, month, day), c.expected) << c.year << '+' << c.months;
    }
    EXPECT_EQ(BTL::AddMonths(Day(2024, 1, 31) + 0.75, 1), Day(2024, 2, 29));
    EXPECT_EQ(BTL::AddMonths(Day(22, 1, 31), 1), Day(2022, 2, 28));
    EXPECT_THROW(BTL::AddMonths(NotANumber, 24'000), EConvertError);
}

TEST_F(DateTextTest, FaultsOnYearsBeyondTheCalendar)
{
    for (const int months : {-24, 9999 * 12, INT_MIN, INT_MAX}) {
        const Support::ScriptedBoxes boxes{IDNO, IDYES};
        Word year = 1;
        Word month = 2;
        Word day = 3;
        BTL::AddMonths(year, month, day, months);
        EXPECT_EQ(Day(year, month, day), Day(1, 2, 3)) << months;
        EXPECT_THROW(BTL::AddMonths(year, month, day, months), UTL::XAssert) << months;
    }
    const Support::ScriptedBoxes boxes{IDNO};
    EXPECT_EQ(BTL::AddMonths(Day(2024, 2, 29) + 0.75, 9999 * 12), Day(2024, 2, 29));
}

TEST_F(DateTextTest, MovesDates)
{
    const TDateTime date = Day(2024, 2, 29) + 0.75;
    const struct
    {
        int unit;
        int n;
        TDateTime expected;
    } cases[] = {
        {1, 1, Day(2025, 2, 28) + 0.75},
        {1, -4, Day(2020, 2, 29) + 0.75},
        {2, 1, Day(2024, 3, 29) + 0.75},
        {3, 2, Day(2024, 3, 14) + 0.75},
        {4, -60, Day(2023, 12, 31) + 0.75},
        {5, 6, Day(2024, 3, 1)},
        {5, 0, date},
        {6, -1080, Day(2024, 2, 29)},
        {0, 5, date},
        {7, 5, date},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::CalcNextDate(date, c.n, static_cast<BTL::EDateIntervalUnit>(c.unit)), c.expected)
            << c.unit << '|' << c.n;
    }
    // Time runs forwards on either side of day zero.
    EXPECT_EQ(BTL::IncDay(-1.25, 1), 0.25);
    EXPECT_EQ(BTL::IncWeek(-1.25, 1), 6.25);
    EXPECT_EQ(BTL::IncDay(0.25, -2), -2.25);
    EXPECT_EQ(BTL::IncHour(-1.25, 6), -1.5);
    EXPECT_EQ(BTL::IncMinute(0.0, -360), -1.75);
    EXPECT_TRUE(std::isnan(BTL::IncDay(NotANumber, INT_MAX)));
    EXPECT_THROW(BTL::IncYear(date, INT_MAX), EConvertError);
    EXPECT_THROW(BTL::IncYear(date, INT_MIN), EConvertError);
    EXPECT_THROW(BTL::IncMonth(date, INT_MIN), EConvertError);

    EXPECT_EQ(BTL::GetDayOf(date), 29);
    EXPECT_EQ(BTL::GetMonthOf(date), 2);
    EXPECT_EQ(BTL::GetYearOf(date), 2024);
    EXPECT_EQ(BTL::GetYearOf(NotANumber), 0);
}

TEST_F(DateTextTest, SplitsDates)
{
    EXPECT_EQ(BTL::TrimDate(u" ..1.2.. "), u"1.2");
    EXPECT_EQ(BTL::TrimDate(u" . "), u"");
    EXPECT_EQ(BTL::TrimDate(u""), u"");
    const struct
    {
        UnicodeString picture;
        System::WideChar separator;
        UnicodeString text;
        UnicodeString expected;
    } cases[] = {
        {u"dd.MM.yyyy", u'.', u"1.2.2022", u"2022|2|1"},
        {u"dd.MM.yyyy", u'.', u" 01 . x", u"|x|01"},
        {u"dd.MM.yyyy", u'.', u".2", u"|2|"},
        {u"dd.MM.yyyy", u'.', u"", u"||"},
        {u"dd.MM.yyyy", u'.', u"1.2.3.4", u"3|2|1"},
        {u"M/d/yyyy", u'/', u"2/1/2022", u"2022|2|1"},
        {u"yyyy-MM-dd", u'-', u"2022-2-%", u"2022|2|%"},
        {u"d. M. yyyy", u'.', u"1. 2. 2022", u"2022|2|1"},
    };
    for (const auto& c : cases) {
        SetOrder(c.picture, c.separator);
        UnicodeString year = u"y";
        UnicodeString month = u"m";
        UnicodeString day = u"d";
        BTL::DecodeDate(c.text, year, month, day);
        EXPECT_EQ(year + u'|' + month + u'|' + day, c.expected) << c.picture << ' ' << c.text;
    }
}

TEST_F(DateTextTest, SplitsDatesWithTimes)
{
    const struct
    {
        UnicodeString text;
        UnicodeString expected;
    } cases[] = {
        {u" .1.2.2022.  10:05:09,123 pm", u"2022|2|1|10|05|09|123"},
        {u"1.2 10", u"|2|1|10|||"},
        {u"1.2.22 :5", u"22|2|1||5||"},
        {u"1", u"||1||||"},
        {u"", u"||||||"},
        {u"1.2.2022 10:05:09.123", u"2022|2|1|10|05|09.123|"},
    };
    for (const auto& c : cases) {
        // The text may be one of the parts.
        UnicodeString year = c.text;
        UnicodeString month;
        UnicodeString day;
        UnicodeString hour;
        UnicodeString minute;
        UnicodeString second;
        UnicodeString milliSecond = u"old";
        BTL::DecodeDateTime(year, year, month, day, hour, minute, second, milliSecond);
        UnicodeString all = year;
        for (const UnicodeString& part : {month, day, hour, minute, second, milliSecond}) {
            all += u'|' + part;
        }
        EXPECT_EQ(all, c.expected) << c.text;
    }
}

TEST_F(DateTextTest, FindsAValidDate)
{
    const struct
    {
        UnicodeString text;
        TDateTime expected;
    } cases[] = {
        {u"31.2.2021", Day(2021, 2, 28)},
        {u"31.2.2024", Day(2024, 2, 29)},
        {u"0.13.2021", Day(2021, 12, 1)},
        {u"", Day(1, 1, 1)},
        {u"1.2.22", Day(22, 2, 1)},
        {u"1_.%2.2_0_2_2", Day(2022, 2, 1)},
        {u"x.y.z", Day(1, 1, 1)},
        {u"-5.-5.-5", Day(1, 1, 1)},
        {u"99.99.99999", Day(9999, 12, 31)},
        {u"5.99999999999.5", Day(5, 1, 5)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::GetValidDate(c.text), c.expected) << c.text;
        EXPECT_EQ(BTL::GetValidDateTime(u" " + c.text + u" "), c.expected) << c.text;
    }
    EXPECT_EQ(BTL::GetValidDateTime(u"31.2.2021  18:00 "), Day(2021, 2, 28) + 0.75);
    EXPECT_EQ(BTL::GetValidDateTime(u"29.12.1899 6:00"), -1.25);
    EXPECT_THROW(BTL::GetValidDateTime(u"31.2.2021 x"), EConvertError);
    EXPECT_EQ(BTL::GetValidDateString(u"31.2.2021"), u"28.02.2021");
    EXPECT_EQ(BTL::GetValidDateTimeString(u"31.2.2021 18:00:00,005"), u"28.02.2021 18:00:00,005");
}

TEST_F(DateTextTest, ShowsMilliseconds)
{
    const TDateTime date = Day(2022, 2, 1);
    EXPECT_EQ(BTL::GetDateTimeStringWithMSec(date), u"01.02.2022");
    EXPECT_EQ(BTL::GetDateTimeStringWithMSec(date + EncodeTime(10, 5, 9, 0)), u"01.02.2022 10:05:09");
    EXPECT_EQ(BTL::GetDateTimeStringWithMSec(date + EncodeTime(10, 5, 9, 7)), u"01.02.2022 10:05:09,007");
    Sysutils::LongTimeFormat = u"hh:nn:ss.z";
    EXPECT_EQ(BTL::GetDateTimeStringWithMSec(date + EncodeTime(10, 5, 9, 7)), u"01.02.2022 10:05:09.7");

    Sysutils::LongTimeFormat = u"hh";
    const TDateTime before = Sysutils::Now();
    const UnicodeString now = BTL::GetLocalTime();
    EXPECT_TRUE(now == Sysutils::DateTimeToStr(before) || now == Sysutils::DateTimeToStr(Sysutils::Now()));
    const UnicodeString today = BTL::GetCurrentDate();
    EXPECT_TRUE(today == Sysutils::DateToStr(before) || today == Sysutils::DateToStr(Sysutils::Now()));
}

TEST_F(DateTextTest, WritesPartsForSQL)
{
    const struct
    {
        UnicodeString text;
        UnicodeString date;
        UnicodeString dateTime;
    } cases[] = {
        {u"1.2.2022", u"2022-02-01", u"2022-02-01"},
        {u"%.2.22", u"2022-02-%", u"2022-02-%"},
        {u"_._.22", u"2022-_-_", u"2022-_-_"},
        {u"1.2", u"2000-02-01", u"2000-02-01"},
        {u"1", u"2000-01", u"2000-01"},
        {u"", u"2000", u"2000"},
        {u"01.02.1950", u"1950-02-01", u"1950-02-01"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::GetSQLDateString(c.text, false), c.date) << c.text;
        EXPECT_EQ(BTL::GetSQLDateString(c.text, true), u'\'' + c.date + u'\'') << c.text;
        EXPECT_EQ(BTL::GetSQLDateTimeString(c.text, false), c.dateTime) << c.text;
    }
    const struct
    {
        UnicodeString time;
        UnicodeString expected;
    } times[] = {
        {u"10:5:9,123", u" 10:05:09.123"},
        {u"1:2:3,4", u" 01:02:03.0004"},
        {u"10:%", u" 10:%"},
        {u"_:_:_,%", u" _:_:_.%"},
        {u"10", u" 10"},
        {u"10:05:09,12", u" 10:05:09.12"},
        {u":5", u""},
    };
    for (const auto& c : times) {
        EXPECT_EQ(BTL::GetSQLDateTimeString(u"1.2.2022 " + c.time, false), u"2022-02-01" + c.expected)
            << c.time;
        EXPECT_EQ(BTL::GetSQLDateTimeString(u"1.2.2022 " + c.time, true), u"'2022-02-01" + c.expected + u"'")
            << c.time;
    }
    EXPECT_EQ(BTL::GetSQLDateString(u"' OR '.2.2022", true), u"'2022-02-'' OR '''");
}

TEST_F(DateTextTest, WritesValuesForSQLAndFileNames)
{
    const struct
    {
        TDateTime value;
        UnicodeString sql;
        UnicodeString fileName;
    } cases[] = {
        {Day(2022, 2, 1), u"2022-2-1", u"2022-2-1"},
        {Day(2022, 2, 1) + EncodeTime(10, 5, 9, 7), u"2022-2-1 10:5:9.7", u"2022-2-1_10-5-9-7"},
        {EncodeTime(0, 0, 0, 1), u"0:0:0.1", u"0-0-0-1"},
        {0.5, u"12:0:0.0", u"12-0-0-0"},
        {-1.25, u"1899-12-29 6:0:0.0", u"1899-12-29_6-0-0-0"},
        {0, u"", u""},
        {NotANumber, u"", u""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::GetSQLDateTimeString(c.value, false), c.sql);
        EXPECT_EQ(BTL::GetSQLDateTimeString(c.value, true), u'\'' + c.sql + u'\'');
        EXPECT_EQ(BTL::GetValidFileName(c.value), c.fileName);
    }
    EXPECT_EQ(BTL::GetSQLDateString(Day(2022, 2, 1) + 0.5, false), u"2022-2-1");
    EXPECT_EQ(BTL::GetSQLDateString(Day(2022, 2, 1), true), u"'2022-2-1'");
}

TEST_F(DateTextTest, ShowsMonthAndYearInShort)
{
    const struct
    {
        UnicodeString date;
        UnicodeString months;
        UnicodeString expected;
    } cases[] = {
        {u"15.03.2022", u"12", u"0323"},
        {u"15.03.2022", u"0", u"0322"},
        {u"15.03.2022", u"x", u"0323"},
        {u"1.12.22", u"1", u"0123"},
        {u"1.12.99", u"1", u"0100"},
        {u"1.1.00", u"-1", u"1299"},
        {u"1.1.2022", u"1200", u"0122"},
        {u"1.12.22", u"-11", u"0122"},
        {u"122022", u"1", u""},
        {u"1.122022", u"1", u""},
        {u"1.x.2022", u"1", u""},
        {u"1.1.20xx", u"1", u""},
        {u"1.1.22", u"-2147483648", u"0551"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::GetShortDate(c.date, c.months), c.expected) << c.date << '+' << c.months;
    }
    for (const UnicodeString date : {u"", u"1.1.2", u"01.01.20222"}) {
        const Support::ScriptedBoxes boxes{IDYES, IDNO};
        try {
            BTL::GetShortDate(date, u"1");
            ADD_FAILURE() << date;
        } catch (const UTL::XAssert& fault) {
            EXPECT_EQ(fault.getFile(), "BTL_DateTimeUtilities");
            EXPECT_EQ(fault.getLine(), 250);
        }
        EXPECT_EQ(BTL::GetShortDate(date, u"1"), u"");
    }
}

} // namespace
