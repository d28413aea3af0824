// SPDX-License-Identifier: MIT
#include "text/dates/BTL_DT_Calendar.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "text/dates/DatesSupport.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace
{

using BTL::ECurrentDate;
using Support::Day;
using Support::NotANumber;
using System::TDateTime;
using System::UnicodeString;
using System::Word;
using Sysutils::EConvertError;

class CalendarTest : public Support::DatesTest
{
};

TEST_F(CalendarTest, CompletesYears)
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

TEST_F(CalendarTest, NamesRangesOfDays)
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

TEST_F(CalendarTest, AddsMonthsToFields)
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

TEST_F(CalendarTest, FaultsOnYearsBeyondTheCalendar)
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

TEST_F(CalendarTest, MovesDates)
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

} // namespace
