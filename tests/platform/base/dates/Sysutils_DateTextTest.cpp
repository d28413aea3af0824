// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_DateText.h"

#include "platform/base/dates/Sysutils_DateSupport.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

using namespace Sysutils;
using Support::GermanSettings;
using System::TDateTime;
using System::UnicodeString;

namespace
{

TEST(DateTextTest, FormatsByPicture)
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

TEST(DateTextTest, WritesZerosWithoutADate)
{
    for (const double value : Support::ValuesWithoutADate) {
        EXPECT_EQ(FormatDateTime(u"d.m.yy yyyy ddd mmmm h:nn am/pm", value, GermanSettings()),
                  u"0.0.00 0000   12:00 am")
            << value;
        EXPECT_EQ(DateTimeToStr(value, GermanSettings()), u"00.00.0000") << value;
    }
}

TEST(DateTextTest, WritesByTheSettings)
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

} // namespace
