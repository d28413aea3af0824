// SPDX-License-Identifier: MIT
#include "platform/runtime/variants/System_Variant.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/System_VariantSupport.h"
#include "support/MemoryLimit.h"

#include <climits>
#include <limits>
#include <vector>

#include <gmock/gmock.h>

namespace
{

using namespace System;
using namespace Support;
using namespace Variants;
using Sysutils::EVariantError;
using testing::ElementsAre;

class VariantArrayTest : public VariantFixture
{
};

TEST_F(VariantArrayTest, ArraysKeepTheirElementsByIndex)
{
    Variant grid = VarArrayCreate({-1, 1, 5, 6}, varInteger);
    EXPECT_EQ(VarArrayDimCount(grid), 2);
    for (int x = -1; x <= 1; ++x) {
        for (int y = 5; y <= 6; ++y) {
            grid.PutElement(10 * x + y, x, y);
        }
    }
    grid.ArrayRedim(7);
    EXPECT_EQ(VarArrayHighBound(grid, 2), 7);
    for (int x = -1; x <= 1; ++x) {
        EXPECT_EQ(grid.GetElement(x, 5), 10 * x + 5);
        EXPECT_EQ(VarArrayGet(grid, {x, 6}), 10 * x + 6);
        EXPECT_EQ(grid.GetElement(x, 7), 0);
    }
    VarArrayPut(grid, u"42", {0, 7});
    EXPECT_EQ(grid.GetElement(0, 7).Type(), varInteger);
    EXPECT_THROW(grid.PutElement(u"x", 0, 7), EVariantError);
    EXPECT_EQ(grid.GetElement(0, 7), 42);

    EXPECT_THROW(grid.GetElement(2, 5), EVariantError);
    EXPECT_THROW(grid.GetElement(0, 4), EVariantError);
    EXPECT_THROW(grid.GetElement(0), EVariantError);
    EXPECT_THROW(grid.ArrayLowBound(3), EVariantError);
    EXPECT_THROW(grid.ArrayHighBound(0), EVariantError);
    EXPECT_THROW(grid.ArrayRedim(3), EVariantError);
    EXPECT_THROW(Variant(5).GetElement(0), EVariantError);
    EXPECT_THROW(Variant().ArrayRedim(3), EVariantError);
    EXPECT_EQ(Variant(5).ArrayDimCount(), 0);
}

TEST_F(VariantArrayTest, ArraysHaveElementsOfEachType)
{
    for (const Word type : {varVariant, varShortInt, varSmallint, varInteger, varInt64, varByte, varWord,
                            varLongWord, varUInt64, varDecimal, varSingle, varDouble, varBoolean, varCurrency,
                            varDate, varString, varOleStr, varUString}) {
        Variant array({1, 2}, type);
        EXPECT_EQ(array.Type(), varArray | type);
        EXPECT_EQ(array.GetElement(1).Type(), type == varVariant ? varEmpty : type);
        const Variant value = type == varBoolean ? Variant(true)
                              : type == varDate  ? Variant(TDateTime(7))
                                                 : Variant(7);
        array.PutElement(value, 2);
        EXPECT_EQ(array.GetElement(2), value) << VarTypeAsText(type);
        EXPECT_EQ(array.GetElement(2).Type(), type == varVariant ? varInteger : type);
    }
    for (const Word type : {varEmpty, varNull, varDispatch, varError, varUnknown, Word{varArray | varByte}}) {
        EXPECT_THROW(Variant({0, 1}, type), EVariantError);
    }
    for (const std::vector<int>& bounds : {std::vector<int>{}, {1}, {0, -2}, {INT_MAX, INT_MIN}}) {
        EXPECT_THROW(VarArrayCreate(bounds, varByte), EVariantError);
    }
    EXPECT_THROW(Variant({0, INT_MAX, 0, INT_MAX, 0, INT_MAX}, varByte), EVariantError);
    EXPECT_EQ(Variant({0, -1}, varByte).ArrayHighBound(), -1);
    EXPECT_EQ(VarArrayOf({}).ArrayHighBound(), -1);
}

TEST_F(VariantArrayTest, CopiesOfArraysAreValues)
{
    Variant first = VarArrayOf({1, u"a", VarArrayOf({2})});
    Variant second = first;
    second.PutElement(9, 0);
    EXPECT_EQ(first.GetElement(0), 1);
    EXPECT_EQ(second.GetElement(0), 9);

    // An array may go into itself, as a copy of what it was.
    first.PutElement(first, 0);
    EXPECT_EQ(first.GetElement(0).GetElement(0), 1);

    Variant bytes({0, 2}, varByte);
    const Variant before = bytes;
    VarArrayLock(bytes)[1] = 255;
    VarArrayUnlock(bytes);
    EXPECT_THAT(bytes.ArrayBytes(), ElementsAre(0, 255, 0));
    EXPECT_EQ(before.GetElement(1), 0);
    EXPECT_THROW(VarArrayLock(first), EVariantError);

    const Variant moved = std::move(second);
    EXPECT_TRUE(second.IsEmpty()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
    EXPECT_EQ(moved.GetElement(0), 9);
}

TEST_F(VariantArrayTest, ArraysThatHoldOthersManyTimesAreComparedOnce)
{
    const auto nested = [](const Variant& innermost) {
        Variant array = innermost;
        for (int level = 0; level < 200; ++level) {
            array = VarArrayOf({array, array});
        }
        return array;
    };
    EXPECT_EQ(nested(1), nested(1));
    EXPECT_NE(nested(1), nested(2));
    EXPECT_EQ(nested(VarArrayOf({1, u"a"})), nested(VarArrayOf({1, u"a"})));
    EXPECT_NE(nested(VarArrayOf({1, u"a"})), nested(VarArrayOf({1})));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Variant none = nested(nan);
    EXPECT_NE(none, none) << "an array is equal as its elements are";
    EXPECT_EQ(VarCompareValue(none, none), vrNotEqual);
}

TEST_F(VariantArrayTest, ArraysNestToALimit)
{
    Variant deep = VarArrayOf({7});
    for (int depth = 1; depth < Variant::MaxArrayDepth; ++depth) {
        deep = VarArrayOf({deep});
    }
    Variant copy = deep;
    copy.PutElement(deep.GetElement(0), 0);
    EXPECT_EQ(copy, deep);

    EXPECT_THROW(VarArrayOf({1, deep}), EVariantError);
    EXPECT_THROW(copy.PutElement(deep, 0), EVariantError);
    EXPECT_EQ(copy, deep);
    Variant outer({0, 1}, varVariant);
    outer.PutElement(deep.GetElement(0), 1);
    EXPECT_THROW(outer.PutElement(deep, 0), EVariantError);
    EXPECT_TRUE(outer.GetElement(0).IsEmpty());
    EXPECT_THROW(VarArrayOf({outer}), EVariantError) << "put in later, but as deep";
}

using VariantArrayMemoryTest = Support::OutOfMemoryTest;

TEST_F(VariantArrayMemoryTest, RaisesForTooManyElements)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { const Variant array({0, INT_MAX - 1}, varVariant); }));
}

} // namespace
