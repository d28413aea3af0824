// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_GSimpleVector.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/vectors/UTL_SV_IntVector.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <set>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using UTL::ECapacity;
using Ints = UTL::GSimpleVector<int>;

Ints Of(std::initializer_list<int> values)
{
    Ints result;
    result.assign(values.begin(), values.end());
    return result;
}

TEST(VectorTest, GrowsByItsIncrementAndNeverShrinks)
{
    Ints v;
    EXPECT_EQ(v.capacity(), 0U);
    for (int i = 0; i < 33; ++i) {
        v.push_back(i);
    }
    EXPECT_EQ(v.capacity(), 48U);
    EXPECT_EQ(v.NewCapacity(), 64U);
    EXPECT_EQ(v[32], 32);

    v.resize(2);
    v.erase(v.begin(), v.end());
    EXPECT_EQ(v.capacity(), 48U);
    v.pop_back();
    EXPECT_EQ(v.size(), 0U);

    Ints wide(ECapacity(0), 100, 16);
    EXPECT_EQ(wide.size(), 0U);
    EXPECT_EQ(wide.capacity(), 100U);
    wide.resize(100);
    wide.push_front(1);
    EXPECT_EQ(wide.capacity(), 116U);

    Ints smallSteps(ECapacity(0), 0, 3);
    Ints noSteps(ECapacity(0), -1, 0);
    for (int i = 0; i < 4; ++i) {
        smallSteps.insert(smallSteps.begin(), i);
        noSteps.push_back(i);
    }
    EXPECT_EQ(smallSteps.capacity(), 6U);
    EXPECT_THAT(smallSteps, ElementsAre(3, 2, 1, 0));
    EXPECT_EQ(noSteps.capacity(), 4U);
}

TEST(VectorTest, BulkOperationsReserveWhatTheyNeed)
{
    const Ints three = Of({1, 2, 3});
    const struct
    {
        const char* name;
        std::function<void(Ints&)> change;
        unsigned capacity;
        std::vector<int> content;
    } cases[] = {
        {"append", [&](Ints& v) { v.append(three); }, 5, {8, 9, 1, 2, 3}},
        {"resize", [](Ints& v) { v.resize(4, 7); }, 4, {8, 9, 7, 7}},
        {"resize to zeros", [](Ints& v) { v.resize(4); }, 4, {8, 9, 0, 0}},
        {"resize down", [](Ints& v) { v.resize(1, 7); }, 2, {8}},
        {"insert count", [](Ints& v) { v.insert(v.begin() + 1, 2U, 7); }, 4, {8, 7, 7, 9}},
        {"insert range", [&](Ints& v) { v.insert(v.end(), three.begin(), three.end()); }, 5, {8, 9, 1, 2, 3}},
        {"insert nothing", [&](Ints& v) { v.insert(v.begin(), three.end(), three.end()); }, 2, {8, 9}},
        {"assign count", [](Ints& v) { v.assign(3U, 7); }, 3, {7, 7, 7}},
        {"assign range", [&](Ints& v) { v.assign(three.begin(), three.end()); }, 3, {1, 2, 3}},
        {"Assign", [&](Ints& v) { v.Assign(&three); }, 3, {1, 2, 3}},
        {"Assign null", [](Ints& v) { v.Assign(nullptr); }, 2, {}},
        {"reserve", [](Ints& v) { v.reserve(5); }, 5, {8, 9}},
        {"reserve less", [](Ints& v) { v.reserve(1); }, 2, {8, 9}},
        {"union", [&](Ints& v) { v.Union(three); }, 6, {1, 2, 3, 8, 9}},
        {"intersect",
         [&](Ints& v) {
             v.DoIntersect(three, Of({1, 2, 3, 4}));
         },
         6,
         {1, 2, 3}},
    };
    for (const auto& c : cases) {
        Ints v(ECapacity(0), 2, 4);
        v.push_back(8);
        v.push_back(9);
        c.change(v);
        EXPECT_EQ(v.capacity(), c.capacity) << c.name;
        EXPECT_THAT(v, ElementsAreArray(c.content)) << c.name;
    }
}

TEST(VectorTest, CopiesTakeOverCapacityAndIncrement)
{
    Ints v(ECapacity(0), 20, 7);
    v.push_back(5);
    Ints copy(v);
    v[0] = 6;
    EXPECT_THAT(copy, ElementsAre(5));
    EXPECT_EQ(copy.capacity(), 20U);
    EXPECT_EQ(copy.increment(), 7U);

    Ints assigned = Of({1, 2, 3});
    assigned = copy;
    EXPECT_EQ(assigned.capacity(), 20U);
    EXPECT_EQ(assigned.increment(), 7U);
    const Ints& self = assigned;
    assigned = self;
    assigned.Assign(&self);
    EXPECT_THAT(assigned, ElementsAre(5));

    Ints kept;
    kept.Assign(&copy);
    EXPECT_EQ(kept.capacity(), 1U);
    EXPECT_EQ(kept.increment(), 16U);

    const Ints moved = std::move(copy);
    EXPECT_THAT(moved, ElementsAre(5));
    EXPECT_EQ(Ints(-3).capacity(), 0U);
    EXPECT_THAT(Ints(2), ElementsAre(0, 0));
    EXPECT_THAT(Ints(2, 9), ElementsAre(9, 9));
}

TEST(VectorTest, ComparesLexicographically)
{
    const struct
    {
        Ints a;
        Ints b;
        bool isLess;
    } cases[] = {
        {Of({2, 1}), Of({2, 1, 0}), true}, {Of({2, 1, 0}), Of({2, 1}), false},
        {Of({3}), Of({2, 9}), false},      {Of({2, 9}), Of({3}), true},
        {Of({}), Of({0}), true},           {Of({}), Of({}), false},
        {Of({1, 2}), Of({1, 2}), false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.a < c.b, c.isLess);
        EXPECT_EQ(c.a == c.b, !(c.a < c.b) && !(c.b < c.a));
    }
}

TEST(VectorTest, FindsDeletesAndReorders)
{
    Ints v = Of({1, 3, 3, -2, -2});
    EXPECT_EQ(v.IndexOf(3), 1);
    EXPECT_EQ(v.IndexOf(7), -1);
    EXPECT_EQ(v.IndexOfMaxValue(), 1);
    EXPECT_EQ(v.IndexOfMinValue(), 3);
    EXPECT_EQ(Ints().IndexOfMaxValue(), -1);
    EXPECT_EQ(Ints().IndexOfMinValue(), -1);

    EXPECT_EQ(v.Remove(3), 1);
    EXPECT_EQ(v.Remove(7), -1);
    EXPECT_THAT(v, ElementsAre(1, 3, -2, -2));
    v.Delete(0);
    v.Swap(0, 2);
    EXPECT_THAT(v, ElementsAre(-2, -2, 3));
    v.Reverse();
    EXPECT_THAT(v, ElementsAre(3, -2, -2));
    v.Sort();
    EXPECT_THAT(v, ElementsAre(-2, -2, 3));

    EXPECT_EQ(v.erase(v.begin()), v.begin());
    EXPECT_EQ(v.erase(v.begin(), v.begin()), v.begin());
    EXPECT_EQ(v.insert(v.begin() + 1, 8), v.begin() + 1);
    EXPECT_THAT(v, ElementsAre(-2, 8, 3));
    EXPECT_EQ(v.erase(v.begin() + 1, v.end()), v.begin() + 1);
    EXPECT_THAT(v, ElementsAre(-2));
}

TEST(VectorTest, TakesItsOwnElementsAsArguments)
{
    for (const unsigned size : {15U, 16U}) {
        Ints base;
        for (unsigned i = 0; i < size; ++i) {
            base.push_back(static_cast<int>(i));
        }
        Ints v = base;
        v.push_back(v[3]);
        EXPECT_EQ(v[size], 3);
        v = base;
        v.insert(v.begin(), v[size - 1]);
        EXPECT_EQ(v[0], static_cast<int>(size - 1));
        v = base;
        v.insert(v.begin(), 3U, v[5]);
        EXPECT_EQ(v[2], 5);
        v = base;
        v.insert(v.begin() + 2, v.begin() + 1, v.begin() + 4);
        EXPECT_THAT(std::vector<int>(v.begin(), v.begin() + 6), ElementsAre(0, 1, 1, 2, 3, 2));
        v = base;
        v.append(v);
        EXPECT_EQ(v.size(), 2 * size);
        EXPECT_EQ(v[size + 4], 4);
        v = base;
        v.assign(2U, v[4]);
        EXPECT_THAT(v, ElementsAre(4, 4));
        v = base;
        v.assign(v.begin() + 1, v.begin() + 3);
        EXPECT_THAT(v, ElementsAre(1, 2));
        v = base;
        v.resize(40, v[7]);
        EXPECT_EQ(v[39], 7);
    }
}

/// What an operation does if its argument is a fault of the program: the line of the box, and nothing
/// changed after the answer No.
TEST(VectorTest, ReportsFaultsOfItsCaller)
{
    const Ints other = Of({1, 2});
    const Ints one = Of({1});
    const struct
    {
        int line;
        const char* expression;
        std::function<void(Ints&)> call;
        const char* file = "UTL_SV_GSimpleVector.hpp";
        bool isReading = false;
    } cases[] = {
        {131, "SimpleVector out of range. Index = 2, Size = 2", [](Ints& v) { v.at(2) = 0; },
         "UTL_SV_GSimpleVector.hpp", true},
        {138, "SimpleVector out of range. Index = -1, Size = 2",
         [](Ints& v) { static_cast<void>(std::as_const(v).at(static_cast<unsigned>(-1))); },
         "UTL_SV_GSimpleVector.hpp", true},
        {133, "SimpleVector out of range. Index = 3, Size = 2", [](Ints& v) { v[3] = 0; },
         "UTL_SV_GSimpleVector.h", true},
        {134, "SimpleVector out of range. Index = 4, Size = 2",
         [](Ints& v) { static_cast<void>(std::as_const(v)[4]); }, "UTL_SV_GSimpleVector.h", true},
        {324, "", [&](Ints& v) { v.insert(v.begin(), other.end(), other.begin()); }},
        {353, "", [](Ints& v) { v.erase(v.end(), v.begin()); }},
        {375, "", [](Ints& v) { v.Swap(2, 0); }},
        {376, "", [](Ints& v) { v.Swap(0, -1); }},
        {386, "", [](Ints& v) { v.Delete(2); }},
        {386, "", [](Ints& v) { v.Delete(-1); }},
        {509, "", [&](Ints& v) { v.Intersect(v, other); }},
        {509, "", [&](Ints& v) { v.Intersect(other, v); }},
        {521, "",
         [&](Ints& v) {
             v.DoIntersect(Of({1, 2, 3}), other);
         }},
    };
    for (const auto& c : cases) {
        Support::ScriptedBoxes boxes({IDYES, IDNO});
        Ints v = Of({1, 2});
        try {
            c.call(v);
            ADD_FAILURE() << c.line << " raised nothing";
        } catch (const UTL::XAssert& fault) {
            EXPECT_EQ(fault.getLine(), c.line);
            EXPECT_EQ(fault.getFile(), c.file) << c.line;
            EXPECT_EQ(fault.getExpression(), c.expression) << c.line;
        }
        if (c.isReading) {
            EXPECT_THROW(c.call(v), Sysutils::ERangeError) << c.line;
        } else {
            EXPECT_NO_THROW(c.call(v)) << c.line;
        }
        EXPECT_THAT(v, ElementsAre(1, 2)) << c.line;
        EXPECT_EQ(boxes.TakeShown().size(), 2U) << c.line;
    }
}

TEST(VectorTest, RefusesPositionsOutsideAndSizesTooLarge)
{
    Ints other(4);
    Ints v = Of({1, 2, 3});
    EXPECT_THROW(v.insert(other.begin() + 1, 0), Sysutils::ERangeError);
    EXPECT_THROW(v.insert(nullptr, 2U, 0), Sysutils::ERangeError);
    EXPECT_THROW(v.insert(v.end() + 1, other.begin(), other.end()), Sysutils::ERangeError);
    EXPECT_THROW(v.erase(v.end()), Sysutils::ERangeError);
    EXPECT_THROW(v.erase(v.begin(), v.end() + 1), Sysutils::ERangeError);
    EXPECT_THROW(Ints().erase(nullptr), Sysutils::ERangeError);
    EXPECT_THROW(v.reserve(UINT_MAX), Sysutils::EOutOfMemory);
    EXPECT_THROW(v.resize(UINT_MAX), Sysutils::EOutOfMemory);
    EXPECT_THROW(v.insert(v.begin(), UINT_MAX, 0), Sysutils::EOutOfMemory);
    EXPECT_THAT(v, ElementsAre(1, 2, 3));
}

TEST(VectorTest, KeepsASortedSet)
{
    Ints v;
    unsigned index = 9;
    EXPECT_EQ(v.InsIndexOf(5), 0);
    EXPECT_FALSE(v.FindIndexOf(5, index));
    EXPECT_EQ(index, 0U);

    v = Of({5, 7});
    EXPECT_EQ(v.AddSorted(5, true), 0);
    EXPECT_THAT(v, ElementsAre(5, 5, 7));
    EXPECT_EQ(v.AddSorted(5, false), -1);
    EXPECT_EQ(v.AddSorted(6, false), 2);
    EXPECT_EQ(v.AddSorted(8, true), 4);
    EXPECT_EQ(v.InsIndexOf(6), 2);
    EXPECT_EQ(v.InsIndexOf(9), 5);
    EXPECT_TRUE(v.FindIndexOf(7, index));
    EXPECT_EQ(index, 3U);
    EXPECT_TRUE(v.Contains(8));
    EXPECT_FALSE(v.Contains(9));
    EXPECT_FALSE(v.Contains(4));

    v.DelSorted(5);
    v.DelSorted(4);
    EXPECT_THAT(v, ElementsAre(5, 6, 7, 8));
    v.AddSorted(7, true);
    v.DelAllSorted(7);
    v.DelAllSorted(1);
    EXPECT_THAT(v, ElementsAre(5, 6, 8));
}

TEST(VectorTest, CombinesSortedVectors)
{
    const auto combined = [](const Ints& start, const std::function<void(Ints&)>& change) {
        Ints v = start;
        change(v);
        return v;
    };
    const Ints a = Of({1, 3, 3, 5});
    const Ints b = Of({2, 3, 5, 5, 6});
    EXPECT_THAT(combined(a, [&](Ints& v) { v.Union(b); }), ElementsAre(1, 2, 3, 3, 5, 6));
    EXPECT_THAT(combined(a, [&](Ints& v) { v.Union(Of({9, 0, 9})); }), ElementsAre(0, 1, 3, 3, 5, 9));
    EXPECT_THAT(combined(a, [&](Ints& v) { v.Intersect(b); }), ElementsAre(3, 3, 5));
    EXPECT_THAT(combined(a, [&](Ints& v) { v.Intersect(Ints()); }), IsEmpty());
    EXPECT_THAT(combined(a, [&](Ints& v) { v.DelAllSorted(b); }), ElementsAre(1));
    EXPECT_THAT(combined(a, [&](Ints& v) { v.DelAllSorted(Ints()); }), ElementsAre(1, 3, 3, 5));
    EXPECT_THAT(combined(Of({7}), [&](Ints& v) { v.Intersect(a, b); }), ElementsAre(3, 5));
    EXPECT_THAT(combined(Of({7}), [&](Ints& v) { v.Intersect(b, a); }), ElementsAre(3, 5));
    EXPECT_THAT(combined(Of({7}), [&](Ints& v) { v.DoIntersect(a, a); }), ElementsAre(1, 3, 5));

    // With itself.
    EXPECT_THAT(combined(a, [](Ints& v) { v.Union(v); }), ElementsAre(1, 3, 3, 5));
    EXPECT_THAT(combined(a, [](Ints& v) { v.Intersect(v); }), ElementsAre(1, 3, 3, 5));
    EXPECT_THAT(combined(a, [](Ints& v) { v.DelAllSorted(v); }), IsEmpty());
}

TEST(VectorTest, AgreesWithAStandardSet)
{
    std::mt19937 random(4711);
    std::set<int> expected;
    Ints v;
    for (int i = 0; i < 2000; ++i) {
        const int value = static_cast<int>(random() % 200);
        if (random() % 3 == 0) {
            expected.erase(value);
            v.DelSorted(value);
        } else {
            EXPECT_EQ(v.AddSorted(value, false) >= 0, expected.insert(value).second);
        }
        EXPECT_EQ(v.Contains(value), expected.contains(value));
    }
    EXPECT_THAT(v, ElementsAreArray(expected.begin(), expected.end()));
}

/// Its order answers anything.
struct Restless
{
    int value;

    bool operator==(const Restless& other) const { return value == other.value; }
    bool operator<(const Restless&) const
    {
        static std::mt19937 random(1);
        return random() % 3 != 0;
    }
};

TEST(VectorTest, KeepsItsElementsInAnOrderThatContradictsItself)
{
    UTL::GSimpleVector<Restless> v;
    std::vector<int> expected;
    for (int i = 0; i < 1'000; ++i) {
        v.push_back({i});
        expected.push_back(i);
    }
    for (int i = 0; i < 20; ++i) {
        v.Sort();
    }
    std::vector<int> values;
    std::transform(v.begin(), v.end(), std::back_inserter(values), [](Restless r) { return r.value; });
    EXPECT_THAT(values, testing::UnorderedElementsAreArray(expected));
    for (int i = 0; i < 100; ++i) {
        UTL::GSimpleVector<Restless> other = v;
        other.resize(100);
        v.DelAllSorted(Restless{i});
        v.Union(other);
        v.AddSorted(Restless{i}, true);
        v.Intersect(other, other);
    }
    EXPECT_LE(v.size(), 101U);
}

TEST(VectorTest, SortsWhatIsNoNumberToTheEnd)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    UTL::GSimpleVector<double> v;
    for (int i = 0; i < 100; ++i) {
        v.push_back(i % 3 == 0 ? nan : 100 - i);
    }
    v.Sort();
    EXPECT_EQ(v[0], 2);
    EXPECT_FALSE(std::isnan(v[65]));
    EXPECT_TRUE(std::isnan(v[66]));
    EXPECT_TRUE(v.Contains(98));
    EXPECT_FALSE(v.Contains(nan));
    v.DelAllSorted(nan);
    EXPECT_EQ(v.size(), 100U);
    EXPECT_EQ(v.AddSorted(nan, false), 66);
}

} // namespace
