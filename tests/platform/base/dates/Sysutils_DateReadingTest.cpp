// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_DateReading.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateSupport.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace Sysutils;
using Support::Clock;
using Support::ClockOf;
using Support::Day;
using Support::DayOf;
using Support::GermanSettings;
using System::TDateTime;
using System::UnicodeString;
using System::Word;

namespace
{

TFormatSettings SettingsFor(const UnicodeString& shortDateFormat)
{
    TFormatSettings settings = GermanSettings();
    settings.ShortDateFormat = shortDateFormat;
    return settings;
}

TEST(DateReadingTest, ReadsDatesInTheOrderOfTheSettings)
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
        {u"", u"2.1.2022", {2022, 2, 1}},           {u"MM.yyyy", u"3.2022", {2022, 3, 1}},
        {u"yyyy", u"2022", {2022, 1, 1}},           {u"dd.MM", u"1.2", {thisYear, 2, 1}},
        {u"dd.MM", u"1.2.2022", {2022, 2, 1}},
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
    for (const UnicodeString text : {u"3.2022.17", u"3", u"17.3.2022"}) {
        EXPECT_THROW(StrToDate(text, SettingsFor(u"MM.yyyy")), EConvertError) << text;
    }
    TFormatSettings blanks = SettingsFor(u"d m yyyy");
    blanks.DateSeparator = u' ';
    EXPECT_EQ(DayOf(StrToDate(u"1 2 2022", blanks)), Day(2022, 2, 1));
}

TEST(DateReadingTest, GivesShortYearsTheirCentury)
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

TEST(DateReadingTest, ReadsTimes)
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
    TFormatSettings settings = GermanSettings();
    for (const auto& c : cases) {
        EXPECT_EQ(ClockOf(StrToTime(c.text, settings)), c.expected) << c.text;
    }
    settings.TimePMString = u"\u212A";
    EXPECT_EQ(ClockOf(StrToTime(u"1 k", settings)), Clock(13, 0, 0, 0)) << "the sign of kelvin folds to a k";
    const UnicodeString refused[] = {u"",        u"x",      u"24:00",     u"10:60",         u"10:00:60",
                                     u"10:",     u"10:00:", u"10:00:00,", u"10:00:00,1000", u"13 pm",
                                     u"1 pm am", u"-1",     u"10.5",      u"10:00 x"};
    for (const UnicodeString& text : refused) {
        TDateTime value = 47;
        EXPECT_FALSE(TryStrToTime(text, value, settings)) << text;
        EXPECT_EQ(value, 47);
    }
}

TEST(DateReadingTest, ReadsDatesWithTimes)
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

TEST(DateReadingTest, FailsInThreeWays)
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

} // namespace
