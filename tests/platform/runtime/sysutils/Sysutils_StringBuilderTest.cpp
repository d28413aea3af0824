// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_StringBuilder.h"
#include "platform/base/Sysutils_Exception.h"
#include "support/MemoryLimit.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

using System::UnicodeString;
using Sysutils::TStringBuilder;

TEST(StringBuilderTest, BuildsATextOfPieces)
{
    TStringBuilder builder(4);
    EXPECT_GE(builder.getCapacity(), 4);
    builder.Append(u"a").Append("b").Append(u'c').Append(u'-', 3).Append(u'x', -1).Append(12).Append(-3LL);
    builder.AppendLine(u"end").AppendLine();
    EXPECT_EQ(builder.ToString(), u"abc---12-3end\r\n\r\n");
    builder.setLength(3);
    builder.Insert(3, u"d").Insert(0, 7U).Insert(1, u"");
    EXPECT_EQ(builder.ToString(), u"7abcd");
    builder.Remove(0, 1).Replace(u"bc", u"bcbc").Replace(u'c', u'.').Replace(u"", u"x");
    EXPECT_EQ(builder.ToString(), u"ab.b.d");
    EXPECT_EQ(builder.ToString(2, 3), u".b.");
    EXPECT_EQ(builder[5], u'd');
    builder.setChars(0, u'A');
    builder.setLength(7);
    EXPECT_EQ(builder.ToString(), UnicodeString(u"Ab.b.d\0", 7));
    builder.Clear();
    EXPECT_EQ(builder.getLength(), 0);
    EXPECT_EQ(builder.Append(TStringBuilder(u"other").ToString()).getLength(), 5);
}

TEST(StringBuilderTest, RefusesPositionsOutside)
{
    using Outside = Sysutils::EArgumentOutOfRangeException;
    TStringBuilder builder(u"abc");
    for (const int index : {-1, 4, INT_MAX, INT_MIN}) {
        EXPECT_THROW(builder.getChars(index), Outside);
        EXPECT_THROW(builder.setChars(index, u'x'), Outside);
        EXPECT_THROW(builder.Insert(index, u"x"), Outside);
        EXPECT_THROW(builder.Remove(index, 1), Outside);
        EXPECT_THROW(builder.ToString(0, index), Outside);
    }
    EXPECT_THROW(builder[3], Outside);
    EXPECT_THROW(builder.Remove(1, 3), Outside);
    EXPECT_THROW(builder.setLength(-1), Outside);
    EXPECT_THROW(builder.setCapacity(2), Outside);
    EXPECT_THROW(builder.Append(u'x', INT_MAX), Sysutils::EOutOfMemory);
    EXPECT_EQ(builder.ToString(), u"abc");
}

using StringBuilderMemoryTest = Support::OutOfMemoryTest;

TEST_F(StringBuilderMemoryTest, RaisesForTooMuchRoom)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { const TStringBuilder builder(INT_MAX); }));
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { TStringBuilder().setCapacity(INT_MAX); }));
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { TStringBuilder().setLength(INT_MAX - 1); }));
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { TStringBuilder().Append(u'x', INT_MAX - 1); }));
}

} // namespace
