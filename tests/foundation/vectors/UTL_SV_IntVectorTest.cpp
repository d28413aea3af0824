// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_IntVector.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/vectors/TypedVectorSupport.h"
#include "foundation/vectors/UTL_SV_Int64Vector.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>
#include <vector>

#include <climits>
#include <cstdint>
#include <functional>
#include <limits>
#include <utility>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST(IntVectorTest, IntsAsCommaText)
{
    Support::ExpectReads<UTL::CIntVector, int>({
        {u"", {}, u""},
        {u"  ", {}, u""},
        {u"1, 2 ,3", {1, 2, 3}, u"1,2,3"},
        {u"1,2,", {1, 2}, u"1,2"},
        {u"1,,2", {1}, u"1"},
        {u"1, \t,2", {1}, u"1"},
        {u",1", {}, u""},
        {u"\r\n-7\t,+8", {-7, 8}, u"-7,8"},
        {u"$10,0x1F,xa", {16, 31, 10}, u"16,31,10"},
        {u"2147483647,-2147483648,007", {INT_MAX, INT_MIN, 7}, u"2147483647,-2147483648,7"},
        {u"1,2147483648", {1}, nullptr},
        {u"1,2,x,4", {1, 2}, nullptr},
        {u"1,2 3", {1}, nullptr},
        {u"-", {}, nullptr},
        {u"1,2.5", {1}, nullptr},
        {u"1;2", {}, nullptr},
        {u"4,99999999999999999999999", {4}, nullptr},
        {u"4,\u0665", {4}, nullptr},
    });
    EXPECT_THAT(UTL::CIntVector("1, 2 ,3"), ElementsAre(1, 2, 3));
}

template <class Vector>
class IntegerVectorTest : public testing::Test
{
};

using IntegerVectors = testing::Types<UTL::CIntVector, UTL::CInt64Vector>;
TYPED_TEST_SUITE(IntegerVectorTest, IntegerVectors);

TYPED_TEST(IntegerVectorTest, SumsExtremesAndDefaults)
{
    using T = typename TypeParam::value_type;
    using Limits = std::numeric_limits<T>;
    TypeParam v;
    EXPECT_EQ(v.GetMaxValue(), 0);
    EXPECT_EQ(v.GetMinValue(), 0);
    EXPECT_EQ(v.GetSum(), 0);
    EXPECT_EQ(v.AtOrDef(0, 7), 7);

    v.setCommaText(u"-3,-9,-4");
    EXPECT_EQ(v.GetMaxValue(), -3);
    EXPECT_EQ(v.GetMinValue(), -9);
    EXPECT_EQ(v.GetSum(), -16);
    EXPECT_EQ(v.AtOrDef(1, 7), -9);
    for (const int index : {-1, 3, INT_MIN, INT_MAX}) {
        EXPECT_EQ(v.AtOrDef(index, 7), 7) << index;
    }
    v.resize(0);
    v.push_back(Limits::max());
    v.push_back(1);
    EXPECT_EQ(v.GetSum(), Limits::min());

    const TypeParam* const none = nullptr;
    EXPECT_THAT(TypeParam(none), IsEmpty());
    EXPECT_EQ(TypeParam(&v), v);
}

TEST(IntVectorTest, IntsInTheObjectSlotsOfAList)
{
    Classes::TStringList list;
    for (const char16_t* line : {u"a", u"b", u"c"}) {
        list.Add(line);
    }
    UTL::CIntVector("5,-6").MoveObjectsTo(&list);
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(list.getObjects(1)), -6);
    EXPECT_EQ(list.getObjects(2), nullptr);
    UTL::CIntVector v(9, 9);
    v.SetObjects(&list);
    EXPECT_THAT(v, ElementsAre(5, -6, 0));
    UTL::CIntVector("1,2,3,4").MoveObjectsTo(&list);
    v.SetObjects(&list);
    EXPECT_THAT(v, ElementsAre(1, 2, 3));

    const std::pair<int, std::function<void()>> faults[] = {
        {90, [&] { v.SetObjects(nullptr); }},
        {105, [&] { v.MoveObjectsTo(nullptr); }},
    };
    for (const auto& [line, call] : faults) {
        const Support::ScriptedBoxes boxes({IDYES, IDNO});
        try {
            call();
            ADD_FAILURE() << line << " raised nothing";
        } catch (const UTL::XAssert& fault) {
            EXPECT_EQ(fault.getLine(), line);
            EXPECT_EQ(fault.getFile(), "UTL_SV_IntVector.cpp");
        }
        EXPECT_NO_THROW(call());
        EXPECT_THAT(v, ElementsAre(1, 2, 3));
    }
}

TEST(IntVectorTest, HoldsWhatItsBracesHold)
{
    UTL::CIntVector numbers{3, 1, 2};
    EXPECT_EQ(numbers.getCommaText(), u"3,1,2");
    numbers = {5};
    EXPECT_EQ(numbers.getCommaText(), u"5");
    EXPECT_EQ(UTL::CIntVector(5).getCommaText(), u"0,0,0,0,0") << "a count";
    EXPECT_TRUE(UTL::CIntVector{}.empty());
}

TEST(IntVectorTest, GoesFromAndToSpansAndRanges)
{
    const std::vector<int> source{1, 2, 3};
    const UTL::CIntVector numbers(source);
    EXPECT_EQ(numbers.getCommaText(), u"1,2,3");
    const std::span<const int> view = numbers;
    EXPECT_EQ(view.data(), numbers.data());
    EXPECT_EQ(UTL::CIntVector(view.subspan(1)).getCommaText(), u"2,3");
    UTL::CIntVector copy(numbers);
    EXPECT_EQ(copy, numbers);
    EXPECT_EQ(UTL::CIntVector(u"4,5").getCommaText(), u"4,5") << "a text is no range of numbers";
    static_assert(!std::constructible_from<UTL::CIntVector, std::vector<double>>, "it would cut the values");
}

} // namespace
