// SPDX-License-Identifier: MIT
#include "text/dates/BTL_DT_Reading.h"

#include "platform/base/Sysutils_Exception.h"
#include "text/dates/DatesSupport.h"

#include <gtest/gtest.h>

namespace
{

using Support::Day;
using System::TDateTime;
using System::UnicodeString;
using Sysutils::EConvertError;
using Sysutils::EncodeTime;

class DateReadingTest : public Support::DatesTest
{
};

TEST_F(DateReadingTest, TakesNumbersForDates)
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

TEST_F(DateReadingTest, ReadsByMask)
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

TEST_F(DateReadingTest, SplitsDates)
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
        {u"dd.MM.yyyy", u'.', u"1. 2 .2022", u"2022| 2 |1"},
        {u"dd.MM.yyyy", u'.', u" 01 . x", u"| x| 01 "},
        {u"dd.MM.yyyy", u'.', u".2", u"|2|"},
        {u"dd.MM.yyyy", u'.', u"", u"||"},
        {u"dd.MM.yyyy", u'.', u"1.2.3.4", u"3|2|1"},
        {u"M/d/yyyy", u'/', u"2/1/2022", u"2022|2|1"},
        {u"yyyy-MM-dd", u'-', u"2022-2-%", u"2022|2|%"},
        {u"d. M. yyyy", u'.', u"1. 2. 2022", u"2022|2|1"},
        {u"MM.yyyy", u'.', u"3.2022.17", u"2022|3|"},
        {u"dd.MM", u'.', u"17.3.2022", u"|3|17"},
        {u"yyyy", u'.', u"2022", u"2022||"},
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

TEST_F(DateReadingTest, SplitsDatesWithTimes)
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

TEST_F(DateReadingTest, FindsAValidDate)
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
}

TEST(DateReadingFailureTest, NamesTheText)
{
    const auto messageOf = [](auto read) {
        try {
            read();
        } catch (const EConvertError& fault) {
            return fault.getMessage();
        }
        return UnicodeString(u"no failure");
    };
    const UnicodeString form = u" is not a valid date or time of the form ";
    EXPECT_EQ(messageOf([] { BTL::StrToDate(u"31.02.2022", u"dd.mm.yyyy"); }),
              u"'31.02.2022'" + form + u"'dd.mm.yyyy'");
    EXPECT_EQ(messageOf([] { BTL::StrToTime(u"25:00", u"hh:nn"); }), u"'25:00'" + form + u"'hh:nn'");
    EXPECT_EQ(messageOf([] { BTL::StrToDateTime(u"20220201x5", u"yyyymmddhh"); }),
              u"'20220201x5'" + form + u"'yyyymmddhh'");
    EXPECT_NE(messageOf([] { BTL::StrToDateTime(u"31.2.2022"); }).Pos(u"'31.2.2022'"), 0);
    EXPECT_NE(messageOf([] { BTL::StrToTime(u"25:00"); }).Pos(u"'25:00'"), 0);
}

} // namespace
