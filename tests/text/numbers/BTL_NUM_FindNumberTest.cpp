// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_FindNumber.h"

#include "platform/base/Sysutils_Locale.h"
#include "text/numbers/NumbersSupport.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

using FindNumberTest = Support::WideNumbersTest;

TEST_F(FindNumberTest, FindsTheFirstNumber)
{
    const struct
    {
        const char16_t* text;
        int position;
        int integerLength;
        int floatLength;
    } cases[] = {
        {u"U=-3.5E-2V", 3, 2, 7},
        {u".5", 2, 1, 1},
        {u"5.", 1, 1, 1},
        {u"1,5 kV", 1, 1, 3},
        {u"5E-V", 1, 1, 3},
        {u"5EV", 1, 1, 1},
        {u"5E", 1, 1, 1},
        {u"1e3 V", 1, 1, 3},
        {u"2e1.5x", 1, 1, 5},
        {u"a+-7", 3, 2, 2},
        {u"1;5", 1, 1, 3},
        {u"1.2.3", 1, 1, 3},
        {u"5e-.5", 1, 1, 3},
        {u"5e+12,5e1", 1, 1, 7},
        {u"U=\u22123.5E\u22122V", 3, 2, 7},
        {u"\u2212\u22125", 2, 2, 2},
        {u"\u20135", 2, 1, 1},
    };
    Sysutils::DecimalSeparator = u';';
    for (const auto& c : cases) {
        const UnicodeString text = c.text;
        int position = 0;
        int length = 0;
        EXPECT_TRUE(BTL::Find1stInt(text, position, length)) << text;
        EXPECT_EQ(position, c.position) << text;
        EXPECT_EQ(length, c.integerLength) << text;
        EXPECT_TRUE(BTL::Find1stFloat(text, position, length)) << text;
        EXPECT_EQ(position, c.position) << text;
        EXPECT_EQ(length, c.floatLength) << text;
        EXPECT_EQ(BTL::Cut1stFloat(text), text.SubString(c.position, c.floatLength));
    }
    for (const char16_t* none : {u"", u"abc", u"+-", u"E", u"."}) {
        int position = 4711;
        int length = 4711;
        EXPECT_FALSE(BTL::Find1stInt(none, position, length));
        EXPECT_FALSE(BTL::Find1stFloat(none, position, length));
        EXPECT_EQ(position, 4711);
        EXPECT_EQ(length, 4711);
        EXPECT_TRUE(BTL::Cut1stFloat(none, position).IsEmpty());
        EXPECT_EQ(position, 0);
    }
}

} // namespace
