// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/vectors/UTL_SV_BoolVector.h"
#include "foundation/vectors/UTL_SV_DoubleVector.h"
#include "foundation/vectors/UTL_SV_Int64Vector.h"
#include "foundation/vectors/UTL_SV_IntVector.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

namespace
{

using System::Int64;
using System::UnicodeString;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

template <class T>
struct TReadCase
{
    const char16_t* text;
    std::vector<T> content;
    /// Null for a text that isn't read to its end.
    const char16_t* written;
};

template <class Vector, class T>
void ExpectReads(std::initializer_list<TReadCase<T>> cases)
{
    for (const auto& c : cases) {
        Vector v;
        v.push_back(T(1));
        if (c.written == nullptr) {
            EXPECT_THROW(v.setCommaText(c.text), Sysutils::EConvertError) << UnicodeString(c.text);
        } else {
            EXPECT_NO_THROW(v.setCommaText(c.text)) << UnicodeString(c.text);
            EXPECT_EQ(v.getCommaText(), c.written) << UnicodeString(c.text);
        }
        EXPECT_THAT(v, ElementsAreArray(c.content)) << UnicodeString(c.text);
    }
}

TEST(TypedVectorTest, IntsAsCommaText)
{
    ExpectReads<UTL::CIntVector, int>({
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

TEST(TypedVectorTest, Int64sAsCommaText)
{
    ExpectReads<UTL::CInt64Vector, Int64>({
        {u"", {}, u""},
        {u" 5 ,-6", {5, -6}, u"5,-6"},
        {u"9223372036854775807,-9223372036854775808",
         {LLONG_MAX, LLONG_MIN},
         u"9223372036854775807,-9223372036854775808"},
        {u"1,9223372036854775808", {1}, nullptr},
        {u"000000000000000000000012", {12}, u"12"},
        {u"1,,x", {1}, u"1"},
        {u"1,x", {1}, nullptr},
    });
}

TEST(TypedVectorTest, BoolsAsCommaText)
{
    ExpectReads<UTL::CBoolVector, bool>({
        {u"", {}, u""},
        {u"0,2", {false, true}, u"0,1"},
        {u" -1 , 0 ,00,1", {true, false, false, true}, u"1,0,0,1"},
        {u"1,true", {true}, nullptr},
        {u"0,,1", {false}, u"0"},
    });
}

TEST(TypedVectorTest, DoublesAsCommaTextInEveryLocale)
{
    const Support::FormatSettingsGuard guard;
    for (const char16_t separator : {u'.', u','}) {
        Sysutils::FormatSettings.DecimalSeparator = separator;
        ExpectReads<UTL::CDoubleVector, double>({
            {u"", {}, u""},
            {u"1.5", {1.5}, u"1.5"},
            {u" -0.25 ,1e3, .5, 2.", {-0.25, 1000, 0.5, 2}, u"-0.25,1000,0.5,2"},
            {u"1,5", {1, 5}, u"1,5"},
            {u"1e300,1E-6,0.0001", {1e300, 1e-6, 1e-4}, u"1E300,1E-6,0.0001"},
            {u"0.1,3.14159265358979312", {0.1, 3.14159265358979312}, u"0.1,3.14159265358979"},
            {u"2.5,,1", {2.5}, u"2.5"},
            {u"2.5,1e400", {2.5}, nullptr},
            {u"2.5,nan", {2.5}, nullptr},
            {u"2.5,1.2.3", {2.5}, nullptr},
            {u"2.5;1", {}, nullptr},
            {u"2.5,1 1", {2.5}, nullptr},
        });
        EXPECT_EQ(Sysutils::FormatSettings.DecimalSeparator, separator);
        EXPECT_EQ(UTL::CDoubleVector("1.5").at(0), 1.5);
    }
}

TEST(TypedVectorTest, LongTextsComeBack)
{
    UTL::CDoubleVector doubles;
    UTL::CInt64Vector integers;
    for (int i = 0; i < 20000; ++i) {
        doubles.push_back((i - 10000) * 0.37e-3);
        integers.push_back((i - 10000) * Int64(912345678901));
    }
    const UnicodeString text = doubles.getCommaText();
    UTL::CDoubleVector readDoubles(text);
    ASSERT_EQ(readDoubles.size(), doubles.size());
    for (unsigned i = 0; i < doubles.size(); ++i) {
        ASSERT_NEAR(readDoubles[i], doubles[i], 1e-14 * std::abs(doubles[i])) << i;
    }
    EXPECT_EQ(readDoubles.getCommaText(), text);
    UTL::CInt64Vector readIntegers;
    readIntegers.setCommaText(integers.getCommaText());
    EXPECT_EQ(readIntegers, integers);
}

TEST(TypedVectorTest, StatisticsOfDoubles)
{
    const UTL::CDoubleVector v("2,4,4,4,5,5,7,9");
    EXPECT_EQ(v.GetMaxValue(), 9);
    EXPECT_EQ(v.GetMinValue(), 2);
    EXPECT_EQ(v.GetSum(), 40);
    EXPECT_EQ(v.GetMean(), 5);
    EXPECT_EQ(v.GetSumOfSquares(), 232);
    EXPECT_EQ(v.GetTotalVariance(), 32);
    EXPECT_DOUBLE_EQ(static_cast<double>(v.GetVariance()), 32.0 / 7);
    EXPECT_DOUBLE_EQ(static_cast<double>(v.GetStdDev()), std::sqrt(32.0 / 7));
    EXPECT_EQ(UTL::CDoubleVector("3,4").GetNorm(), 5);
    long double mean = -1;
    long double stdDev = -1;
    v.GetMeanAndStdDev(mean, stdDev);
    EXPECT_EQ(mean, v.GetMean());
    EXPECT_EQ(stdDev, v.GetStdDev());
    EXPECT_EQ(UTL::CDoubleVector("-3,-4").GetMaxValue(), -3);
    EXPECT_EQ(UTL::CDoubleVector("3").GetStdDev(), 0);

    const UTL::CDoubleVector none;
    EXPECT_EQ(none.GetMaxValue(), 0);
    EXPECT_EQ(none.GetMinValue(), 0);
    none.GetMeanAndStdDev(mean, stdDev);
    for (const long double value :
         {mean, stdDev, none.GetMean(), none.GetStdDev(), none.GetNorm(), none.GetSum(),
          none.GetSumOfSquares(), none.GetVariance(), none.GetTotalVariance()}) {
        EXPECT_EQ(value, 0);
    }
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

TEST(TypedVectorTest, NullIsAnEmptyVector)
{
    const UTL::CBoolVector bools(2, true);
    EXPECT_EQ(UTL::CBoolVector(&bools), bools);
    EXPECT_THAT(UTL::CBoolVector(static_cast<const UTL::CBoolVector*>(nullptr)), IsEmpty());
    const UTL::CDoubleVector doubles(2, 1.5);
    EXPECT_EQ(UTL::CDoubleVector(&doubles), doubles);
    EXPECT_THAT(UTL::CDoubleVector(static_cast<const UTL::CDoubleVector*>(nullptr)), IsEmpty());
}

TEST(TypedVectorTest, IntsInTheObjectSlotsOfAList)
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

} // namespace
