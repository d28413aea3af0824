// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_Calendar.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <tuple>

using namespace Sysutils;
using Support::Clock;
using Support::ClockOf;
using Support::Day;
using Support::DayOf;
using Support::FirstDay;
using Support::LastDay;
using System::TDateTime;
using System::Word;

namespace
{

TEST(CalendarTest, KnowsTheCalendar)
{
    const struct
    {
        Day day;
        double value;
        int dayOfWeek;
    } cases[] = {
        {{1899, 12, 30}, 0, 7},     {{1899, 12, 31}, 1, 1},   {{1899, 12, 29}, -1, 6},
        {{1900, 3, 1}, 61, 5},      {{1970, 1, 1}, 25569, 5}, {{2000, 2, 29}, 36585, 3},
        {{2022, 12, 22}, 44917, 5}, {{1, 1, 1}, FirstDay, 2}, {{9999, 12, 31}, LastDay, 6},
    };
    for (const auto& c : cases) {
        const auto [year, month, day] = c.day;
        EXPECT_EQ(EncodeDate(year, month, day), c.value) << year;
        EXPECT_EQ(DayOf(c.value), c.day) << c.value;
        EXPECT_EQ(DayOfWeek(c.value), c.dayOfWeek) << c.value;
    }
    // Over all years the days follow each other: looked at where months meet, and at some days between.
    constexpr int stride = 97;
    auto first = static_cast<int>(FirstDay);
    int between = first;
    for (Word year = 1; year <= 9999; ++year) {
        for (Word month = 1; month <= 12; ++month) {
            const int days = MonthDays[IsLeapYear(year)][month - 1U];
            for (const int day : {1, 2, days - 1, days}) {
                ASSERT_EQ(DayOf(first + day - 1), Day(year, month, day)) << first;
            }
            for (; between < first + days; between += stride) {
                ASSERT_EQ(DayOf(between), Day(year, month, between - first + 1)) << between;
            }
            first += days;
        }
    }
    EXPECT_EQ(first, LastDay + 1);
}

TEST(CalendarTest, RefusesDaysAndTimesThatDoNotExist)
{
    const Day days[] = {{0, 1, 1},     {10000, 1, 1}, {2022, 0, 1},  {2022, 13, 1}, {2022, 1, 0},
                        {2022, 1, 32}, {2023, 2, 29}, {1900, 2, 29}, {2022, 4, 31}, {65535, 12, 31}};
    for (const auto& [year, month, day] : days) {
        TDateTime value = 47;
        EXPECT_FALSE(TryEncodeDate(year, month, day, value)) << year << '-' << month << '-' << day;
        EXPECT_EQ(value, 47);
        EXPECT_THROW(EncodeDate(year, month, day), EConvertError);
        EXPECT_THROW(TDateTime(year, month, day), EConvertError);
    }
    const Clock times[] = {{24, 0, 0, 0}, {0, 60, 0, 0}, {0, 0, 60, 0}, {0, 0, 0, 1000}};
    for (const auto& [hour, minute, second, milliSecond] : times) {
        TDateTime value = 47;
        EXPECT_FALSE(TryEncodeTime(hour, minute, second, milliSecond, value)) << hour;
        EXPECT_EQ(value, 47);
        EXPECT_THROW(EncodeTime(hour, minute, second, milliSecond), EConvertError);
        EXPECT_THROW(TDateTime(hour, minute, second, milliSecond), EConvertError);
    }
}

TEST(CalendarTest, RoundsToMilliseconds)
{
    const struct
    {
        double value;
        Day day;
        Clock clock;
    } cases[] = {
        {0.25, {1899, 12, 30}, {6, 0, 0, 0}},
        {-0.25, {1899, 12, 30}, {6, 0, 0, 0}},
        {-1.25, {1899, 12, 29}, {6, 0, 0, 0}},
        {0.9999999999, {1899, 12, 31}, {0, 0, 0, 0}},
        {-1.9999999999, {1899, 12, 30}, {0, 0, 0, 0}},
        {44917.9999999999, {2022, 12, 23}, {0, 0, 0, 0}},
        {44917.99999998, {2022, 12, 22}, {23, 59, 59, 998}},
        {44917 + (36309123 + 0.4) / MSecsPerDay, {2022, 12, 22}, {10, 5, 9, 123}},
        {FirstDay - 0.5, {1, 1, 1}, {12, 0, 0, 0}},
        {LastDay + 0.999999999, {9999, 12, 31}, {23, 59, 59, 999}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(DayOf(c.value), c.day) << c.value;
        EXPECT_EQ(ClockOf(c.value), c.clock) << c.value;
    }
    for (const Word milliSecond : {Word(0), Word(1), Word(499), Word(500), Word(999)}) {
        EXPECT_EQ(ClockOf(LastDay + EncodeTime(23, 59, 59, milliSecond)), Clock(23, 59, 59, milliSecond));
    }
}

TEST(CalendarTest, HasNoFieldsWithoutADate)
{
    for (const double value : Support::ValuesWithoutADate) {
        EXPECT_EQ(DayOf(value), Day(0, 0, 0)) << value;
        EXPECT_EQ(ClockOf(value), Clock(0, 0, 0, 0)) << value;
        EXPECT_EQ(DayOfWeek(value), 0) << value;
        EXPECT_THROW(IncMonth(value, 1), EConvertError) << value;
        Word field = 0;
        EXPECT_FALSE(DecodeDateFully(value, field, field, field, field)) << value;
    }
    Word year = 0;
    Word other = 0;
    Word dayOfWeek = 0;
    EXPECT_TRUE(DecodeDateFully(EncodeDate(2024, 2, 29), year, other, other, dayOfWeek));
    EXPECT_EQ(dayOfWeek, 5);
}

TEST(CalendarTest, MovesByMonths)
{
    const struct
    {
        int months;
        Day from;
        Day to;
    } cases[] = {
        {1, {2022, 1, 31}, {2022, 2, 28}},
        {1, {2024, 1, 31}, {2024, 2, 29}},
        {12, {2022, 1, 31}, {2023, 1, 31}},
        {-12, {2024, 2, 29}, {2023, 2, 28}},
        {-1, {2022, 1, 15}, {2021, 12, 15}},
        {1, {2022, 12, 15}, {2023, 1, 15}},
        {-2, {1900, 1, 31}, {1899, 11, 30}},
        {9999 * 12 - 1, {1, 1, 1}, {9999, 12, 1}},
        {-(9999 * 12 - 1), {9999, 12, 31}, {1, 1, 31}},
    };
    const TDateTime time = EncodeTime(18, 0, 0, 0);
    for (const auto& c : cases) {
        const auto [year, month, day] = c.from;
        TDateTime from = EncodeDate(year, month, day);
        ReplaceTime(from, time);
        const TDateTime to = IncMonth(from, c.months);
        EXPECT_EQ(DayOf(to), c.to) << year << '+' << c.months;
        EXPECT_EQ(ClockOf(to), Clock(18, 0, 0, 0)) << year << '+' << c.months;
    }
    const TDateTime first = EncodeDate(1, 1, 1);
    EXPECT_THROW(IncMonth(first, -1), EConvertError);
    EXPECT_THROW(IncMonth(first, std::numeric_limits<int>::max()), EConvertError);
    EXPECT_THROW(IncMonth(first, std::numeric_limits<int>::min()), EConvertError);
}

TEST(CalendarTest, ReplacesDayAndTime)
{
    TDateTime value = -1.25;
    ReplaceTime(value, 44000.75);
    EXPECT_EQ(value, -1.75);
    ReplaceDate(value, 44000.1);
    EXPECT_EQ(value, 44000.75);
    ReplaceDate(value, -3.5);
    EXPECT_EQ(value, -3.75);
    ReplaceTime(value, -0.5);
    EXPECT_EQ(value, -3.5);
}

TEST(CalendarTest, ShowsTheLocalClock)
{
    ASSERT_EQ(setenv("TZ", "XYZ-05:30", 1), 0);
    tzset();
    const auto localClock = [] {
        return 25569 + (static_cast<double>(std::time(nullptr)) + 5.5 * 3600) / SecsPerDay;
    };
    const double before = localClock();
    const TDateTime now = Now();
    const double second = 1.0 / SecsPerDay;
    EXPECT_GE(now, before - second);
    EXPECT_LE(now, localClock() + 2 * second);
    // The day may change between the calls.
    const TDateTime date = Date();
    EXPECT_TRUE(date == std::trunc(now) || date == std::trunc(now) + 1);
    const TDateTime time = Time();
    EXPECT_TRUE(time >= 0 && time < 1);
    EXPECT_GE(TDateTime::CurrentDateTime(), now);
    EXPECT_EQ(CurrentYear(), std::get<0>(DayOf(Now())));
}

} // namespace
