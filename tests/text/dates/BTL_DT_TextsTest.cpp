// SPDX-License-Identifier: MIT
#include "text/dates/BTL_DT_Texts.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "text/dates/DatesSupport.h"

#include <gtest/gtest.h>

namespace
{

using Support::Day;
using Support::NotANumber;
using System::TDateTime;
using System::UnicodeString;
using Sysutils::EncodeTime;

class DateTextsTest : public Support::DatesTest
{
};

TEST_F(DateTextsTest, ShowsAValidDate)
{
    EXPECT_EQ(BTL::GetValidDateString(u"31.2.2021"), u"28.02.2021");
    EXPECT_EQ(BTL::GetValidDateTimeString(u"31.2.2021 18:00:00,005"), u"28.02.2021 18:00:00,005");
}

TEST_F(DateTextsTest, ShowsMilliseconds)
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

TEST_F(DateTextsTest, WritesPartsForSQL)
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

TEST_F(DateTextsTest, WritesValuesForSQLAndFileNames)
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

TEST_F(DateTextsTest, ShowsMonthAndYearInShort)
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
