// SPDX-License-Identifier: MIT
#include "text/verifiers/BTL_DateTextVerifier.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/dates/Sysutils_Date.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using System::TDateTime;
using System::UnicodeString;
using System::Word;

class DateTextVerifierTest : public testing::Test
{
protected:
    DateTextVerifierTest()
    {
        Sysutils::DateSeparator = u'.';
        Sysutils::TimeSeparator = u':';
        Sysutils::ShortDateFormat = u"dd.MM.yyyy";
    }

    /// What the field shows when it is left.
    static UnicodeString Left(const UnicodeString& text)
    {
        UnicodeString result = text;
        CDateTextVerifier verifier;
        EXPECT_EQ(verifier.ExitText(result), result != text);
        return result;
    }

    /// The day, held within its month; the month and year of today for 0.
    static UnicodeString DayOf(Word year, Word month, int day)
    {
        Word today[3];
        Sysutils::DecodeDate(Sysutils::Date(), today[0], today[1], today[2]);
        TDateTime date;
        while (!Sysutils::TryEncodeDate(year == 0 ? today[0] : year, month == 0 ? today[1] : month,
                                        static_cast<Word>(day == 0 ? today[2] : day), date)) {
            day = (day == 0 ? today[2] : day) - 1;
        }
        return Sysutils::DateTimeToStr(date);
    }

    Support::FormatSettingsGuard settings;
};

TEST_F(DateTextVerifierTest, JudgesTimes)
{
    CTimeTextVerifier verifier;
    for (const auto& [text, isOk] : {std::pair(u"23:59:999", true),
                                     {u"24:00", false},
                                     {u"1:", true},
                                     {u"1", true},
                                     {u"", true},
                                     {u"12:60", false},
                                     {u"12:30:1000", false},
                                     {u":30", false},
                                     {u"1::", false},
                                     {u"1:2:3:4", false},
                                     {u"x", false},
                                     {u"%", true},
                                     {u"_x", true},
                                     {u"-1", false},
                                     {u"99999999999", false}}) {
        EXPECT_EQ(verifier(text), isOk) << UnicodeString(text);
    }
    CTimeTextVerifier dotted(u"h");
    EXPECT_TRUE(dotted(u"12h30"));
    EXPECT_FALSE(dotted(u"12:30"));
}

TEST_F(DateTextVerifierTest, JudgesDates)
{
    CDateTextVerifier verifier;
    for (const auto& [text, isOk] : {std::pair(u"31.12.", true),
                                     {u"1.2.3.4", false},
                                     {u"45.13", true},
                                     {u"", true},
                                     {u"..", true},
                                     {u"...", false},
                                     {u"1.x", false},
                                     {u"%.2.2022", true},
                                     {u"__.02.2022", true},
                                     {u"-1.2", false},
                                     {u"1.%5", true}}) {
        EXPECT_EQ(verifier(text), isOk) << UnicodeString(text);
    }
}

TEST_F(DateTextVerifierTest, CompletesDatesByTodays)
{
    EXPECT_EQ(Left(u"5"), DayOf(0, 0, 5));
    EXPECT_EQ(Left(u"31"), DayOf(0, 0, 31));
    EXPECT_EQ(Left(u""), DayOf(0, 0, 0));
    EXPECT_EQ(Left(u".2."), DayOf(0, 2, 0));
    EXPECT_EQ(Left(u"31.4."), DayOf(0, 4, 31));
    EXPECT_EQ(Left(u"31.2.2022"), u"28.02.2022");
    EXPECT_EQ(Left(u"29.2.2024"), u"29.02.2024");
    EXPECT_EQ(Left(u"45.13.2022"), u"31.12.2022");
    EXPECT_EQ(Left(u"1.1.2022"), u"01.01.2022");
    EXPECT_EQ(Left(u"01.01.2022"), u"01.01.2022");
    Sysutils::ShortDateFormat = u"M/d/yyyy";
    Sysutils::DateSeparator = u'/';
    EXPECT_EQ(Left(u"2/31/2023"), u"2/28/2023");
}

TEST_F(DateTextVerifierTest, KeepsFilters)
{
    EXPECT_EQ(Left(u"%.2.2022"), u"%.2.2022");
    EXPECT_EQ(Left(u" %.02.. "), u"%.02");
    EXPECT_EQ(Left(u"_5."), u"_5");
}

TEST_F(DateTextVerifierTest, KnowsThreePartsAlone)
{
    const CTimeTextVerifier time;
    const CDateTextVerifier date;
    EXPECT_TRUE(time.IsValueOk(0, 0));
    EXPECT_FALSE(date.IsValueOk(0, 0));
    EXPECT_TRUE(date.IsValueOk(9999, 2));
    for (const int index : {-1, 3}) {
        const Support::ScriptedBoxes boxes{IDYES, IDYES, IDNO, IDNO};
        EXPECT_THROW(time.IsValueOk(1, index), UTL::XAssert);
        EXPECT_THROW(date.IsValueOk(1, index), UTL::XAssert);
        EXPECT_FALSE(time.IsValueOk(1, index)) << "the fault was let pass";
        EXPECT_FALSE(date.IsValueOk(1, index)) << "the fault was let pass";
    }
}

} // namespace
