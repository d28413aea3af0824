// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_IsoDate.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateSupport.h"

#include <gmock/gmock.h>

using namespace Sysutils;
using Support::Clock;
using Support::ClockOf;
using Support::Day;
using Support::DayOf;
using System::TDateTime;
using System::UnicodeString;

namespace
{

TEST(IsoDateTest, ReadsTheForms)
{
    const struct
    {
        const char16_t* text;
        Day day;
        Clock clock;
        std::optional<int> offset;
    } cases[] = {
        {u"2022-02-28", {2022, 2, 28}, {0, 0, 0, 0}, {}},
        {u"2022-02-28T12:30", {2022, 2, 28}, {12, 30, 0, 0}, {}},
        {u"2022-02-28 12:30:59", {2022, 2, 28}, {12, 30, 59, 0}, {}},
        {u"2022-02-28t12:30:59.25z", {2022, 2, 28}, {12, 30, 59, 250}, 0},
        {u"2022-02-28T12:30:59,2506Z", {2022, 2, 28}, {12, 30, 59, 251}, 0},
        {u"2022-02-28T12:30:59.123456789+05:30", {2022, 2, 28}, {12, 30, 59, 123}, 330},
        {u"2022-02-28T12:30-0130", {2022, 2, 28}, {12, 30, 0, 0}, -90},
        {u"2022-02-28T12:30-08", {2022, 2, 28}, {12, 30, 0, 0}, -480},
        {u"2022-02-28T12:30\u221208:00", {2022, 2, 28}, {12, 30, 0, 0}, -480},
        {u"2022-02-28T24:00", {2022, 3, 1}, {0, 0, 0, 0}, {}},
        {u"2016-12-31T23:59:60Z", {2017, 1, 1}, {0, 0, 0, 0}, 0},
        {u"2022-12-31T23:59:59.9995", {2023, 1, 1}, {0, 0, 0, 0}, {}},
        {u"1899-12-29T06:00:00", {1899, 12, 29}, {6, 0, 0, 0}, {}},
        {u"0001-01-01T00:00:00.001", {1, 1, 1}, {0, 0, 0, 1}, {}},
        {u"9999-12-31T23:59:59.999", {9999, 12, 31}, {23, 59, 59, 999}, {}},
    };
    for (const auto& [text, day, clock, offset] : cases) {
        SCOPED_TRACE(UnicodeString(text));
        const TIsoDateTime read = IsoToDateTime(text);
        EXPECT_EQ(DayOf(read.value), day);
        EXPECT_EQ(ClockOf(read.value), clock);
        EXPECT_EQ(read.offset, offset);
    }
}

TEST(IsoDateTest, TellsTheFaultAndItsPlace)
{
    const struct
    {
        const char16_t* text;
        const char* fault;
    } cases[] = {
        {u"", "the year needs 4 digits (character 1)"},
        {u"22-02-28", "the year needs 4 digits (character 3)"},
        {u"0000-01-01", "the year is not in 1 to 9999 (character 1)"},
        {u"20220228", "'-' is missing behind the year (character 5)"},
        {u"2022-13-01", "the month is not in 1 to 12 (character 6)"},
        {u"2022-02-29", "the day of this month is not in 1 to 28 (character 9)"},
        {u"2022-2-28", "the month needs 2 digits (character 7)"},
        {u"2022-02-28x", "a T or a blank is missing in front of the time (character 11)"},
        {u" 2022-02-28", "the year needs 4 digits (character 1)"},
        {u"2022-02-28T", "the hour needs 2 digits (character 12)"},
        {u"2022-02-28T1230", "':' is missing behind the hour (character 14)"},
        {u"2022-02-28T25:00", "the hour is not in 0 to 24 (character 12)"},
        {u"2022-02-28T24:01", "no time is later than 24:00 (character 12)"},
        {u"2022-02-28T12:60", "the minute is not in 0 to 59 (character 15)"},
        {u"2022-02-28T12:00:61", "the second is not in 0 to 60 (character 18)"},
        {u"2022-02-28T12:00:00.", "the fraction of a second needs a digit (character 21)"},
        {u"2022-02-28T12:00+1", "the hour of the offset needs 2 digits (character 19)"},
        {u"2022-02-28T12:00+24:00", "the hour of the offset is not in 0 to 23 (character 18)"},
        {u"2022-02-28T12:00+01:", "the minute of the offset needs 2 digits (character 21)"},
        {u"2022-02-28T12:00 Z", "more text follows (character 17)"},
        {u"2022-02-28T12:00Z ", "more text follows (character 18)"},
        {u"9999-12-31T24:00", "there is no such year (character 1)"},
        {u"２022-02-28", "the year needs 4 digits (character 1)"},
    };
    for (const auto& [text, fault] : cases) {
        SCOPED_TRACE(UnicodeString(text));
        TIsoDateTime value{TDateTime(1), 2};
        EXPECT_FALSE(TryIsoToDateTime(text, value));
        EXPECT_EQ(value, (TIsoDateTime{TDateTime(1), 2}));
        try {
            IsoToDateTime(text);
            ADD_FAILURE() << "nothing was raised";
        } catch (const EConvertError& error) {
            EXPECT_EQ(std::string(error.what()), "'" + System::ToUtf8(UnicodeString(text)) +
                                                     "' is no date and time of ISO 8601: " + fault);
        }
    }
}

TEST(IsoDateTest, ComesBack)
{
    for (const char16_t* text :
         {u"2022-02-28T00:00:00", u"2022-02-28T12:30:59", u"2022-02-28T12:30:59.007", u"2022-02-28T12:30:59Z",
          u"2022-02-28T12:30:59+05:30", u"2022-02-28T12:30:59.500-23:59", u"0001-01-01T00:00:00",
          u"1899-12-29T18:00:00.001", u"1899-12-30T00:00:00", u"9999-12-31T23:59:59.999"}) {
        SCOPED_TRACE(UnicodeString(text));
        const TIsoDateTime read = IsoToDateTime(text);
        EXPECT_EQ(DateTimeToIso(read.value, read.offset), text);
    }
}

TEST(IsoDateTest, WritesTheDateAlone)
{
    for (const char16_t* const text : {u"2026-11-25", u"0001-01-01", u"1899-12-29", u"9999-12-31"}) {
        SCOPED_TRACE(UnicodeString(text));
        EXPECT_EQ(DateToIso(IsoToDateTime(text).value), text);
        EXPECT_EQ(DateToIso(IsoToDateTime(UnicodeString(text) + u"T23:59:59.999").value), text);
    }
}

TEST(IsoDateTest, TellsTheMomentInUniversalTime)
{
    const struct
    {
        const char16_t* text;
        const char16_t* universal;
    } cases[] = {
        {u"2022-03-01T00:30:00+01:00", u"2022-02-28T23:30:00"},
        {u"2022-02-28T23:30:00-01:00", u"2022-03-01T00:30:00"},
        {u"2022-02-28T23:30:00Z", u"2022-02-28T23:30:00"},
        {u"2022-02-28T23:30:00", u"2022-02-28T23:30:00"},
        {u"1899-12-30T00:30:00+01:00", u"1899-12-29T23:30:00"},
    };
    for (const auto& [text, universal] : cases) {
        SCOPED_TRACE(UnicodeString(text));
        EXPECT_EQ(DateTimeToIso(IsoToDateTime(text).InUniversalTime()), universal);
    }
}

TEST(IsoDateTest, WritesNothingThatIsNoDate)
{
    for (const double value : Support::ValuesWithoutADate) {
        EXPECT_THROW(DateTimeToIso(value), EConvertError) << value;
        EXPECT_THROW(DateToIso(value), EConvertError) << value;
    }
    EXPECT_THROW(DateTimeToIso(1, 1440), EConvertError);
    EXPECT_THROW(DateTimeToIso(1, -1440), EConvertError);
    EXPECT_THROW(DateTimeToIso(1, INT_MIN), EConvertError);
}

} // namespace
