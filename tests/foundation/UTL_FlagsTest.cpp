// SPDX-License-Identifier: MIT
#include "foundation/UTL_Flags.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/vectors/UTL_SV_IntVector.h"
#include "platform/toolkit/MessageBox.h"
#include "support/MemoryLimit.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <random>
#include <ranges>

namespace
{

using System::UnicodeString;
using UTL::CFlags;

CFlags Flags(const char* digits)
{
    CFlags flags;
    while (*digits != 0) {
        flags.setCount(flags.getCount() + 1);
        flags.setItem(flags.getCount() - 1, *digits++ == '1');
    }
    return flags;
}

std::vector<bool> BitsOf(const CFlags& flags)
{
    std::vector<bool> bits;
    bits.reserve(static_cast<std::size_t>(flags.getCount()));
    for (int i = 0; i < flags.getCount(); ++i) {
        bits.push_back(flags.getItem(i));
    }
    return bits;
}

TEST(FlagsTest, WritesAndReadsCommaText)
{
    const struct
    {
        const char16_t* text;
        const char* flags;
    } cases[] = {
        {u"", ""},         {u"1", "1"},
        {u"1,0,1", "101"}, {u" 2 , x,-1,\"1\" $F", "10111"},
        {u"0,,1", "001"},  {u"99999999999,1.5", "00"},
        {u"1,2,0", "110"}, {u"1;0", "0"},
        {u"1,0,", "100"},  {u"1 0", "10"},
    };
    for (const auto& test : cases) {
        CFlags flags(3, true);
        flags.setCommaText(test.text);
        EXPECT_EQ(flags, Flags(test.flags)) << UnicodeString(test.text);
        CFlags back;
        back.setCommaText(flags.getCommaText());
        EXPECT_EQ(back, flags);
    }
    EXPECT_EQ(CFlags(3, true).getCommaText(), u"1,1,1");
    EXPECT_EQ(CFlags(0).getCommaText(), u"");
    EXPECT_EQ(Flags("10100")._GetDebugInfo(), u"Byte-Count: 1 Bits: 1010 0");
    EXPECT_EQ(CFlags(9, true)._GetDebugInfo(), u"Byte-Count: 2 Bits: 1111 1111 1");
    EXPECT_EQ(CFlags(0)._GetDebugInfo(), u"Byte-Count: 1 Bits:");
}

TEST(FlagsTest, SurplusBitsNeverShow)
{
    for (const int count : {0, 1, 3, 7, 8, 9, 64, 71, 511, 512, 513, 600}) {
        CFlags flags(count, true);
        EXPECT_EQ(flags.AreAllFlagsTrue(), count > 0) << count;
        EXPECT_EQ(flags.AreAllFlagsFalse(), count == 0) << count;
        EXPECT_EQ(~flags, CFlags(count)) << count;
        EXPECT_TRUE(flags.AreAllFlagsFalse()) << count;
        flags |= CFlags(700, true);
        EXPECT_EQ(flags, CFlags(count, true)) << count;
        flags.setCount(count + 9);
        EXPECT_EQ(flags, CFlags(CFlags(count, true), count + 9)) << "new flags are false";
        flags.setCount(count);
        EXPECT_EQ(flags, CFlags(count, true)) << count;
        for (int i = 0; i < count; ++i) {
            CFlags hole(count, true);
            EXPECT_TRUE(hole.SetFlag(i, false));
            EXPECT_FALSE(hole.AreAllFlagsTrue()) << count << ", " << i;
            EXPECT_FALSE((~hole).AreAllFlagsFalse()) << count << ", " << i;
        }
    }
    CFlags flags(8, true);
    flags.setCount(3);
    flags.setCount(8);
    EXPECT_EQ(flags, Flags("11100000"));
    EXPECT_EQ(CFlags(-3, true), CFlags(0));
    flags.setCount(INT_MIN);
    EXPECT_EQ(flags.getCount(), 0);
}

TEST(FlagsTest, CombinesTheBytesThatBothHave)
{
    const CFlags nine = Flags("110011001");
    const CFlags five = Flags("10101");
    EXPECT_EQ(nine & five, Flags("100010001")) << "the second byte stays";
    EXPECT_EQ(nine | five, Flags("111011001"));
    EXPECT_EQ(nine ^ five, Flags("011001001"));
    EXPECT_EQ(five | nine, Flags("11101"));
    CFlags flags = nine;
    flags.SetFlags(five, true);
    EXPECT_EQ(flags, Flags("111011001"));
    flags.ClearFlags(five);
    EXPECT_EQ(flags, Flags("010001001"));
    flags.SetFlags();
    flags.ClearFlags(flags);
    EXPECT_TRUE(flags.AreAllFlagsFalse());

    // Against flag by flag, over whole words and their rests.
    std::mt19937 random(3);
    for (const int count : {1, 64, 512, 1000, 1024}) {
        CFlags a(count);
        CFlags b(count);
        for (int i = 0; i < count; ++i) {
            a.setItem(i, random() % 2 == 0);
            b.setItem(i, random() % 2 == 0);
        }
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ((a & b).getItem(i), a.getItem(i) && b.getItem(i));
            EXPECT_EQ((a | b).getItem(i), a.getItem(i) || b.getItem(i));
            EXPECT_EQ((a ^ b).getItem(i), a.getItem(i) != b.getItem(i));
        }
    }
}

TEST(FlagsTest, AssignmentTellsOfChanges)
{
    CFlags flags = Flags("1010");
    EXPECT_FALSE(flags.Assign(flags));
    EXPECT_FALSE(flags.Assign(Flags("1010")));
    EXPECT_TRUE(flags.Assign(Flags("101")));
    const CFlags same = Flags("101");
    EXPECT_FALSE(flags.Assign(&same));
    const CFlags* const null = nullptr;
    EXPECT_TRUE(flags.Assign(null));
    EXPECT_EQ(flags, CFlags(3));
    EXPECT_FALSE(flags.Assign(null));
    UTL::CIntVector values;
    for (const int value : {0, 5, -1, 0}) {
        values.push_back(value);
    }
    flags.Assign(values);
    EXPECT_EQ(flags, Flags("0110"));
    EXPECT_EQ(CFlags(flags, 2), Flags("01"));
    EXPECT_EQ(CFlags(flags, 10), Flags("0110000000"));
    flags.Clear();
    EXPECT_EQ(flags, CFlags(0));
    EXPECT_TRUE(flags.AreAllFlagsFalse());
}

TEST(FlagsTest, OrdersByCountFirst)
{
    EXPECT_LT(CFlags(7, true), CFlags(8));
    EXPECT_FALSE(CFlags(8) < CFlags(7, true));
    EXPECT_LT(Flags("100000000"), Flags("010000000")) << "the first flag is the lowest bit";
    EXPECT_LT(Flags("000000001"), Flags("100000000"));
    EXPECT_FALSE(Flags("1") < Flags("1"));
}

TEST(FlagsTest, PositionsOutsideAreFaults)
{
    CFlags flags(9, true);
    for (const int i : {-1, 9, 15, INT_MAX, INT_MIN}) {
        const std::pair<int, std::function<bool()>> cases[] = {
            {407, [&] { return flags.getItem(i); }},
            {415, [&] { return flags.setItem(i, true), false; }},
            {334, [&] { return flags.SetFlag(i, true); }},
            {334, [&] { return flags.ChangeFlag(i, false); }},
        };
        for (const auto& [line, call] : cases) {
            const Support::ScriptedBoxes boxes({IDYES, IDNO});
            try {
                call();
                ADD_FAILURE() << i;
            } catch (const UTL::XAssert& fault) {
                EXPECT_EQ(fault.getFile(), "UTL_Flags.cpp");
                EXPECT_EQ(fault.getLine(), line);
            }
            EXPECT_FALSE(call()) << "the fault was let pass";
        }
    }
    EXPECT_EQ(flags, CFlags(9, true));
    EXPECT_FALSE(flags.SetFlag(8, true));
    EXPECT_TRUE(flags.ChangeFlag(8, false));
    EXPECT_EQ(BitsOf(flags), std::vector<bool>({true, true, true, true, true, true, true, true, false}));
}

TEST(FlagsTest, IsARangeOfItsFlags)
{
    static_assert(std::ranges::random_access_range<const CFlags>);
    const CFlags flags{true, false, true};
    EXPECT_EQ(flags, Flags("101"));
    EXPECT_EQ(std::vector<bool>(flags.begin(), flags.end()), BitsOf(flags));
    EXPECT_EQ(std::count(flags.begin(), flags.end(), true), 2);
    EXPECT_EQ(flags.size(), 3U);
    EXPECT_TRUE(CFlags().empty() && CFlags().begin() == CFlags().end());
    EXPECT_EQ((CFlags{2, true}), Flags("11")) << "a count and a value";
    EXPECT_EQ(CFlags{2}, Flags("00"));
}

TEST(FlagsTest, FindsThePositionsThatAreTrue)
{
    for (const char* const digits : {"", "0", "1", "00000000", "000000001", "10000001",
                                     "0100000000000000000100010", "11111111111111111"}) {
        SCOPED_TRACE(digits);
        const CFlags flags = Flags(digits);
        std::string found(std::strlen(digits), '0');
        for (int i = flags.NextTrue(0); i >= 0; i = flags.NextTrue(i + 1)) {
            found[static_cast<std::size_t>(i)] = '1';
        }
        EXPECT_EQ(found, digits);
        EXPECT_EQ(flags.NextTrue(-5), flags.NextTrue(0));
        EXPECT_EQ(flags.NextTrue(INT_MAX), -1);
    }
}

using FlagsMemoryTest = Support::OutOfMemoryTest;

TEST_F(FlagsMemoryTest, RaisesForTooManyFlags)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { const CFlags flags(INT_MAX); }));
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { CFlags().setCount(INT_MAX); }));
}

} // namespace
