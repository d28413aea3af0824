// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_Date.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/FormatSettingsGuard.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <tuple>

#include <ctime>

using namespace Sysutils;
using System::TDateTime;
using System::UnicodeString;
using System::Word;

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double FirstDay = -693593;
constexpr double LastDay = 2958465;

using Day = std::tuple<Word, Word, Word>;
using Clock = std::tuple<Word, Word, Word, Word>;

Day DayOf(const TDateTime& value)
{
    Word year = 1;
    Word month = 1;
    Word day = 1;
    DecodeDate(value, year, month, day);
    return {year, month, day};
}

Clock ClockOf(const TDateTime& value)
{
    Word hour = 1;
    Word minute = 1;
    Word second = 1;
    Word milliSecond = 1;
    DecodeTime(value, hour, minute, second, milliSecond);
    return {hour, minute, second, milliSecond};
}

TFormatSettings GermanSettings()
{
    TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.DateSeparator = u'.';
    settings.ShortDateFormat = u"dd.MM.yyyy";
    settings.LongDateFormat = u"dddd, d. mmmm yyyy";
    settings.ShortMonthNames = {u"Jan", u"Feb", u"Mär"};
    settings.LongMonthNames = {u"Januar", u"Februar", u"März"};
    settings.ShortDayNames = {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"};
    settings.LongDayNames = {u"Sonntag", u"Montag", u"Dienstag", u"Mittwoch", u"Donnerstag"};
    settings.TimeAMString = u"v";
    settings.TimePMString = u"nachm";
    return settings;
}

TFormatSettings SettingsFor(const UnicodeString& shortDateFormat)
{
    TFormatSettings settings = GermanSettings();
    settings.ShortDateFormat = shortDateFormat;
    return settings;
}

TEST(DateTest, KnowsTheCalendar)
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
    // Over all years, a day more is the next day of the calendar.
    Day previous = DayOf(FirstDay);
    for (int value = static_cast<int>(FirstDay) + 1; value <= LastDay; ++value) {
        auto [year, month, day] = previous;
        const bool monthEnds = day == MonthDays[IsLeapYear(year)][month - 1U];
        const bool yearEnds = monthEnds && month == 12;
        const Day expected(yearEnds ? year + 1 : year, monthEnds ? month % 12 + 1 : month,
                           monthEnds ? 1 : day + 1);
        previous = DayOf(value);
        ASSERT_EQ(previous, expected) << value;
    }
}

TEST(DateTest, RefusesDaysAndTimesThatDoNotExist)
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

TEST(DateTest, RoundsToMilliseconds)
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

TEST(DateTest, HasNoFieldsWithoutADate)
{
    for (const double value : {NotANumber, Infinity, -Infinity, 1e300, -1e300, LastDay + 1, FirstDay - 1}) {
        EXPECT_EQ(DayOf(value), Day(0, 0, 0)) << value;
        EXPECT_EQ(ClockOf(value), Clock(0, 0, 0, 0)) << value;
        EXPECT_EQ(DayOfWeek(value), 0) << value;
        EXPECT_EQ(FormatDateTime(u"d.m.yy yyyy ddd mmmm h:nn am/pm", value, GermanSettings()),
                  u"0.0.00 0000   12:00 am")
            << value;
        EXPECT_EQ(DateTimeToStr(value, GermanSettings()), u"00.00.0000") << value;
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

TEST(DateTest, MovesByMonths)
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

TEST(DateTest, ReplacesDayAndTime)
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

TEST(DateTest, FormatsByPicture)
{
    const TFormatSettings settings = GermanSettings();
    const TDateTime value = EncodeDate(2022, 3, 1) + EncodeTime(14, 5, 9, 7);
    const struct
    {
        UnicodeString picture;
        UnicodeString expected;
    } cases[] = {
        {u"d/m/yy", u"1.3.22"},
        {u"DD/MM/YYYY", u"01.03.2022"},
        {u"y yyy yyyyy", u"22 2022 2022"},
        {u"ddd dddd mmm mmmm", u"Di Dienstag Mär März"},
        {u"ddddd", u"01.03.2022"},
        {u"dddddd", u"Dienstag, 1. März 2022"},
        {u"h:n:s.z", u"14:5:9.7"},
        {u"hh:nn:ss.zzz", u"14:05:09.007"},
        {u"hh:mm", u"14:05"},
        {u"hh:m mm", u"14:5 03"},
        {u"hh mmm", u"14 Mär"},
        {u"mm hh", u"03 14"},
        {u"h am/pm H", u"2 pm 14"},
        {u"h AM/PM", u"2 PM"},
        {u"hh a/p", u"02 p"},
        {u"hh 'x' ampm", u"02 x nachm"},
        {u"h 'am/pm'", u"14 am/pm"},
        {u"t|tt", u"14:05|14:05:09"},
        {u"c", u"01.03.2022 14:05:09"},
        {u"", u"01.03.2022 14:05:09"},
        {u"'day' d\" y\"", u"day 1 y"},
        {u"d'unclosed yyyy", u"1unclosed yyyy"},
        {u"d'", u"1"},
        {u"''\"\"", u""},
        {u"abe€?", u"abe€?"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FormatDateTime(c.picture, value, settings), c.expected) << c.picture;
    }
    EXPECT_EQ(FormatDateTime(u"h a/p", EncodeTime(0, 0, 0, 0), settings), u"12 a");
    EXPECT_EQ(FormatDateTime(u"h a/p", EncodeTime(12, 0, 0, 0), settings), u"12 p");
}

TEST(DateTest, WritesByTheSettings)
{
    TFormatSettings settings = GermanSettings();
    const TDateTime date = EncodeDate(2022, 2, 1);
    const TDateTime time = EncodeTime(10, 5, 9, 0);
    EXPECT_EQ(DateToStr(date + time, settings), u"01.02.2022");
    EXPECT_EQ(TimeToStr(date + time, settings), u"10:05:09");
    EXPECT_EQ(DateTimeToStr(date + time, settings), u"01.02.2022 10:05:09");
    EXPECT_EQ(DateTimeToStr(date, settings), u"01.02.2022");
    EXPECT_EQ(DateTimeToStr(date + EncodeTime(0, 0, 0, 1), settings), u"01.02.2022 00:00:00");
    EXPECT_EQ(DateTimeToStr(time, settings), u"30.12.1899 10:05:09");
    // Pictures that name each other end.
    settings.ShortDateFormat = u"d.dddddd.ddddd";
    settings.LongDateFormat = u"c";
    EXPECT_EQ(FormatDateTime(u"ddddd", date, settings), u"1..");
    settings.DateSeparator = 0;
    EXPECT_EQ(FormatDateTime(u"d/m", date, settings), u"12");

    const Support::FormatSettingsGuard guard;
    FormatSettings = GermanSettings();
    const TDateTime value = date + time;
    UnicodeString text;
    DateTimeToString(text, u"nn", value);
    EXPECT_EQ(text, u"05");
    EXPECT_EQ(value.DateString(), u"01.02.2022");
    EXPECT_EQ(value.TimeString(), u"10:05:09");
    EXPECT_EQ(UnicodeString(value), u"01.02.2022 10:05:09");
    EXPECT_EQ(value.FormatString(u"yyyy"), u"2022");
    EXPECT_EQ(TDateTime(u"1.2.2022", TDateTime::Date), date);
    EXPECT_EQ(TDateTime(u"10:05:09", TDateTime::Time), time);
    EXPECT_EQ(TDateTime(u"1.2.2022 10:05:09"), value);
}

TEST(DateTest, ReadsDatesInTheOrderOfTheSettings)
{
    const Word thisYear = CurrentYear();
    const struct
    {
        UnicodeString picture;
        UnicodeString text;
        Day expected;
    } cases[] = {
        {u"dd.MM.yyyy", u"1.2.2022", {2022, 2, 1}}, {u"dd.MM.yyyy", u"  01 . 02 . 2022 . ", {2022, 2, 1}},
        {u"dd.MM.yyyy", u"1.2", {thisYear, 2, 1}},  {u"dd.MM.yyyy", u"1.2.", {thisYear, 2, 1}},
        {u"dd.MM.yyyy", u"1.2.022", {22, 2, 1}},    {u"dd.MM.yyyy", u"30.12.0001", {1, 12, 30}},
        {u"M/d/yyyy", u"2.1.2022", {2022, 2, 1}},   {u"M/d/yyyy", u"2.1", {thisYear, 2, 1}},
        {u"yyyy/MM/dd", u"2022.2.1", {2022, 2, 1}}, {u"yyyy/MM/dd", u"2.1", {thisYear, 2, 1}},
        {u"yyyy/dd/MM", u"2022.1.2", {2022, 2, 1}}, {u"'my' dd/mm", u"1.2.2022", {2022, 2, 1}},
        {u"", u"2.1.2022", {2022, 2, 1}},
    };
    for (const auto& c : cases) {
        const TFormatSettings settings = SettingsFor(c.picture);
        EXPECT_EQ(DayOf(StrToDate(c.text, settings)), c.expected) << c.picture << '|' << c.text;
    }
    const UnicodeString refused[] = {u"",
                                     u" ",
                                     u"1",
                                     u"1.",
                                     u"31.02.2010",
                                     u"1.13.2022",
                                     u"0.1.2022",
                                     u"1.2.0000",
                                     u"1.2.20220",
                                     u"1.2.2022 x",
                                     u"1.2.2022 10:00",
                                     u"1-2-2022",
                                     u"a.b.c",
                                     u"1..2022",
                                     u"1.2.2022..",
                                     u"-1.2.2022",
                                     u"1.2.99999999999999999999"};
    for (const UnicodeString& text : refused) {
        TDateTime value = 47;
        EXPECT_FALSE(TryStrToDate(text, value, GermanSettings())) << text;
        EXPECT_EQ(value, 47);
    }
    TFormatSettings blanks = SettingsFor(u"d m yyyy");
    blanks.DateSeparator = u' ';
    EXPECT_EQ(DayOf(StrToDate(u"1 2 2022", blanks)), Day(2022, 2, 1));
}

TEST(DateTest, GivesShortYearsTheirCentury)
{
    const Word now = CurrentYear();
    for (const Word window : {Word(0), Word(1), Word(20), Word(50), Word(99)}) {
        TFormatSettings settings = GermanSettings();
        settings.TwoDigitYearCenturyWindow = window;
        for (int year = 0; year < 100; ++year) {
            const Word read = std::get<0>(DayOf(StrToDate(u"1.2." + UnicodeString(year), settings)));
            EXPECT_EQ(read % 100, year);
            const int first = window == 0 ? now / 100 * 100 : now - window;
            EXPECT_TRUE(read >= first && read < first + 100) << read << '|' << window;
        }
    }
    TFormatSettings settings = GermanSettings();
    settings.TwoDigitYearCenturyWindow = 65535;
    EXPECT_EQ(DayOf(StrToDate(u"1.2.00", settings)), Day(100, 2, 1));
}

TEST(DateTest, ReadsTimes)
{
    const struct
    {
        UnicodeString text;
        Clock expected;
    } cases[] = {
        {u"10", {10, 0, 0, 0}},
        {u"10:5", {10, 5, 0, 0}},
        {u" 10 : 05 : 09 ", {10, 5, 9, 0}},
        {u"10:05:09,123", {10, 5, 9, 123}},
        {u"10:05:09.7", {10, 5, 9, 7}},
        {u"0:00", {0, 0, 0, 0}},
        {u"12 am", {0, 0, 0, 0}},
        {u"12:30PM", {12, 30, 0, 0}},
        {u"1:30 pm", {13, 30, 0, 0}},
        {u"pm 1:30", {13, 30, 0, 0}},
        {u"1 v", {1, 0, 0, 0}},
        {u"1:00:00,001 NACHM", {13, 0, 0, 1}},
    };
    const TFormatSettings settings = GermanSettings();
    for (const auto& c : cases) {
        EXPECT_EQ(ClockOf(StrToTime(c.text, settings)), c.expected) << c.text;
    }
    const UnicodeString refused[] = {u"",        u"x",      u"24:00",     u"10:60",         u"10:00:60",
                                     u"10:",     u"10:00:", u"10:00:00,", u"10:00:00,1000", u"13 pm",
                                     u"1 pm am", u"-1",     u"10.5",      u"10:00 x"};
    for (const UnicodeString& text : refused) {
        TDateTime value = 47;
        EXPECT_FALSE(TryStrToTime(text, value, settings)) << text;
        EXPECT_EQ(value, 47);
    }
}

TEST(DateTest, ReadsDatesWithTimes)
{
    const TFormatSettings settings = GermanSettings();
    const TDateTime date = EncodeDate(2022, 12, 22);
    EXPECT_EQ(StrToDateTime(u"22.12.2022", settings), date);
    EXPECT_EQ(StrToDateTime(u" 22.12.2022  10:05:09,123 ", settings), date + EncodeTime(10, 5, 9, 123));
    EXPECT_EQ(StrToDateTime(u"22.12.2022 1 pm", settings), date + EncodeTime(13, 0, 0, 0));
    EXPECT_EQ(StrToDateTime(u"29.12.1899 6:00", settings), -1.25);
    TFormatSettings dots = settings;
    dots.TimeSeparator = u'.';
    EXPECT_EQ(StrToDateTime(u"22.12.2022 10.05.09", dots), date + EncodeTime(10, 5, 9, 0));
    for (const UnicodeString text :
         {u"10:05", u"22.12.2022 25:00", u"22.12.2022 x", u"", u"31.2.2022 1:00"}) {
        TDateTime value = 47;
        EXPECT_FALSE(TryStrToDateTime(text, value, settings)) << text;
        EXPECT_EQ(value, 47);
    }
}

/// The message of the `EConvertError` that reading raises.
template <class Read>
UnicodeString MessageOf(Read read)
{
    try {
        read();
    } catch (const EConvertError& error) {
        return error.getMessage();
    }
    return u"no error";
}

TEST(DateTest, FailsInThreeWays)
{
    const Support::FormatSettingsGuard guard;
    FormatSettings = GermanSettings();
    EXPECT_EQ(MessageOf([] { StrToDate(u"31.02.2010"); }), u"'31.02.2010' is not a valid date");
    EXPECT_EQ(MessageOf([] { StrToTime(u"25:00"); }), u"'25:00' is not a valid time");
    EXPECT_EQ(MessageOf([] { StrToDateTime(u"now"); }), u"'now' is not a valid date and time");
    EXPECT_EQ(StrToDateDef(u"x", 47), 47);
    EXPECT_EQ(StrToDateDef(u"31.12.1899", 47), 1);
    EXPECT_EQ(StrToTimeDef(u"x", 47), 47);
    EXPECT_EQ(StrToTimeDef(u"12:00", 47), 0.5);
    EXPECT_EQ(StrToDateTimeDef(u"x", 47), 47);
    EXPECT_EQ(StrToDateTimeDef(u"31.12.1899 12:00", 47), 1.5);
}

TEST(DateTest, PacksFileDates)
{
    const TDateTime value = EncodeDate(2022, 12, 22) + EncodeTime(10, 5, 9, 999);
    const int packed = (2022 - 1980) << 25 | 12 << 21 | 22 << 16 | 10 << 11 | 5 << 5 | 4;
    EXPECT_EQ(DateTimeToFileDate(value), packed);
    EXPECT_EQ(FileDateToDateTime(packed), EncodeDate(2022, 12, 22) + EncodeTime(10, 5, 8, 0));

    const int first = DateTimeToFileDate(EncodeDate(1980, 1, 1));
    const int last = DateTimeToFileDate(EncodeDate(2107, 12, 31) + EncodeTime(23, 59, 59, 0));
    EXPECT_EQ(FileDateToDateTime(first), EncodeDate(1980, 1, 1));
    EXPECT_EQ(FileDateToDateTime(last), EncodeDate(2107, 12, 31) + EncodeTime(23, 59, 58, 0));
    for (const double early : {-Infinity, NotANumber, -1e300, -1.0, 0.0, 29220.0}) {
        EXPECT_EQ(DateTimeToFileDate(early), first) << early;
    }
    for (const double late : {Infinity, 1e300, LastDay, LastDay + 1}) {
        EXPECT_EQ(DateTimeToFileDate(late), last) << late;
    }
    for (const int bad : {0, -1, 13 << 21 | 1 << 16, 2 << 21 | 30 << 16, 1 << 21 | 1 << 16 | 24 << 11}) {
        EXPECT_THROW(FileDateToDateTime(bad), EConvertError) << bad;
    }
}

TEST(DateTest, TellsTheTimeOfFiles)
{
    const Support::TempFolder folder;
    const std::string path = (folder.Path() / "f").string();
    std::ofstream(path) << 'x';
    const UnicodeString name = FromHostPath(path);
    const TDateTime value = EncodeDate(2022, 7, 22) + EncodeTime(10, 5, 8, 0);
    ASSERT_EQ(FileSetDate(name, DateTimeToFileDate(value)), 0);
    TDateTime modified;
    ASSERT_TRUE(FileAge(name, modified));
    EXPECT_EQ(modified, value);
    EXPECT_FALSE(FileAge(name + u"x", modified));
    EXPECT_EQ(modified, value);
}

TEST(DateTest, ShowsTheLocalClock)
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
