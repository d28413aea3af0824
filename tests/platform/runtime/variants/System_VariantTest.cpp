// SPDX-License-Identifier: MIT
#include "platform/runtime/variants/Variants.h"

#include "platform/base/Sysutils_Exception.h"
#include "support/FormatSettingsGuard.h"

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <sstream>

#include <gmock/gmock.h>

namespace
{

using namespace System;
using namespace Variants;
using Sysutils::EVariantError;
using testing::ElementsAre;

/// Stands for a conversion that raises.
constexpr const WideChar* None = nullptr;

Variant Decimal(UInt64 value)
{
    return Variant(value).AsType(varDecimal);
}

class VariantTest : public testing::Test
{
protected:
    VariantTest()
    {
        Sysutils::FormatSettings = Sysutils::TFormatSettings();
        Sysutils::FormatSettings.DecimalSeparator = u',';
    }

private:
    Support::FormatSettingsGuard mGuard;
};

TEST_F(VariantTest, ConvertsEachTypeIntoEachOther)
{
    static constexpr Word targets[] = {varShortInt, varInteger, varLongWord, varInt64,   varUInt64,
                                       varSingle,   varDouble,  varCurrency, varBoolean, varUString};
    // The results as text, in the order of the targets.
    const struct
    {
        Variant from;
        const WideChar* results[std::size(targets)];
    } cases[] = {
        {Variant(), {u"0", u"0", u"0", u"0", u"0", u"0", u"0", u"0", u"False", u""}},
        {Null(), {None, None, None, None, None, None, None, None, None, None}},
        {Variant({0, 0}, varInteger), {None, None, None, None, None, None, None, None, None, None}},
        {true,
         {u"-1", u"-1", u"4294967295", u"-1", u"18446744073709551615", u"-1", u"-1", u"-1", u"True",
          u"True"}},
        {short{-5}, {u"-5", u"-5", None, u"-5", None, u"-5", u"-5", u"-5", u"True", u"-5"}},
        {200, {None, u"200", u"200", u"200", u"200", u"200", u"200", u"200", u"True", u"200"}},
        {LLONG_MIN,
         {None, None, None, u"-9223372036854775808", None, u"-9,223372E18", u"-9,22337203685478E18", None,
          u"True", u"-9223372036854775808"}},
        {Decimal(ULLONG_MAX),
         {None, None, None, None, u"18446744073709551615", u"1,844674E19", u"1,84467440737096E19", None,
          u"True", u"18446744073709551615"}},
        {2.5, {u"2", u"2", u"2", u"2", u"2", u"2,5", u"2,5", u"2,5", u"True", u"2,5"}},
        {-3.5, {u"-4", u"-4", None, u"-4", None, u"-3,5", u"-3,5", u"-3,5", u"True", u"-3,5"}},
        {1.6F, {u"2", u"2", u"2", u"2", u"2", u"1,6", u"1,60000002384186", u"1,6", u"True", u"1,6"}},
        {1e300, {None, None, None, None, None, None, u"1E300", None, u"True", u"1E300"}},
        {double{NAN}, {None, None, None, None, None, u"NAN", u"NAN", None, u"True", u"NAN"}},
        {Currency::OfUnits(25000), {u"2", u"2", u"2", u"2", u"2", u"2,5", u"2,5", u"2,5", u"True", u"2,5"}},
        {Currency::OfUnits(-35000),
         {u"-4", u"-4", None, u"-4", None, u"-3,5", u"-3,5", u"-3,5", u"True", u"-3,5"}},
        {Currency::OfUnits(LLONG_MAX),
         {None, None, None, u"922337203685478", u"922337203685478", u"9,223372E14", u"922337203685478",
          u"922337203685477,5807", u"True", u"922337203685477,5807"}},
        {TDateTime(2.75),
         {u"3", u"3", u"3", u"3", u"3", u"2,75", u"2,75", u"2,75", u"True", u"1900-01-01 18:00:00"}},
        {u" 12 ", {u"12", u"12", u"12", u"12", u"12", u"12", u"12", u"12", u"True", u" 12 "}},
        {u"7", {u"7", u"7", u"7", u"7", u"7", u"7", u"7", u"7", u"True", u"7"}},
        {"1,5", {u"2", u"2", u"2", u"2", u"2", u"1,5", u"1,5", u"1,5", u"True", u"1,5"}},
        {u"$10", {u"16", u"16", u"16", u"16", u"16", u"16", u"16", u"16", u"True", u"$10"}},
        {u"1e9",
         {None, u"1000000000", u"1000000000", u"1000000000", u"1000000000", u"1E9", u"1000000000",
          u"1000000000", u"True", u"1e9"}},
        {u"18446744073709551615",
         {None, None, None, None, u"18446744073709551615", u"1,844674E19", u"1,84467440737096E19", None,
          u"True", u"18446744073709551615"}},
        {u"TRUE", {None, None, None, None, None, None, None, None, u"True", u"TRUE"}},
        {u"1.5", {None, None, None, None, None, None, None, None, None, u"1.5"}},
        {u"", {None, None, None, None, None, None, None, None, None, u""}},
    };
    for (const auto& test : cases) {
        for (std::size_t i = 0; i < std::size(targets); ++i) {
            const testing::Message where = testing::Message()
                                           << test.from << " " << VarTypeAsText(test.from.Type()) << " to "
                                           << VarTypeAsText(targets[i]);
            if (test.results[i] == None) {
                EXPECT_THROW(test.from.AsType(targets[i]), EVariantError) << where;
                continue;
            }
            const Variant result = test.from.AsType(targets[i]);
            EXPECT_EQ(result.Type(), targets[i]) << where;
            EXPECT_EQ(UnicodeString(result), test.results[i]) << where;
        }
    }
}

TEST_F(VariantTest, HoldsEachCppTypeAndGivesItBack)
{
    const auto roundTrip = [](auto value, Word type) {
        const Variant variant = value;
        EXPECT_EQ(variant.Type(), type);
        EXPECT_EQ(variant.As<decltype(value)>(), value);
        const decltype(value) back = variant;
        EXPECT_EQ(back, value);
    };
    roundTrip(SCHAR_MIN, varInteger);
    roundTrip(static_cast<signed char>(SCHAR_MIN), varShortInt);
    roundTrip('a', varShortInt);
    roundTrip(Byte{255}, varByte);
    roundTrip(short{-2}, varSmallint);
    roundTrip(Word{65535}, varWord);
    roundTrip(UINT_MAX, varLongWord);
    roundTrip(LONG_MIN, varInt64);
    roundTrip(LLONG_MAX, varInt64);
    roundTrip(ULLONG_MAX, varUInt64);
    roundTrip(1.5F, varSingle);
    roundTrip(0.1, varDouble);
    roundTrip(false, varBoolean);
    roundTrip(UnicodeString(u"ä\u4E2D"), varUString);
    roundTrip(AnsiString("a\0b", 3), varString);
    roundTrip(TDateTime(-1.25), varDate);
    roundTrip(Currency(0.0001), varCurrency);
    EXPECT_EQ(Variant(UTF8String(u"\u4E2D")), u"\u4E2D");
    EXPECT_EQ(Variant(static_cast<const char*>(nullptr)), u"");
    EXPECT_LE(sizeof(Variant), 24U);
}

TEST_F(VariantTest, ReadsTextsOfOtherTypes)
{
    EXPECT_EQ(Variant(u"1900-01-01 18:00:00").As<TDateTime>(), TDateTime(2.75));
    EXPECT_EQ(VarToDateTime("1899-12-29"), TDateTime(-1));
    EXPECT_THROW(VarToDateTime(u"yesterday"), EVariantError);
    EXPECT_EQ(Variant(u"922337203685477,5807").As<Currency>(), Currency::OfUnits(LLONG_MAX));
    EXPECT_FALSE(Variant("false").As<bool>());
    EXPECT_FALSE(Variant("0,0").As<bool>());
    EXPECT_EQ(Variant(u"\u4E2D").As<AnsiString>(), "?");
    EXPECT_EQ(Variant(u"x").AsType(varOleStr).Type(), varOleStr);
}

TEST_F(VariantTest, TellsWhatCouldNotBeConverted)
{
    const auto message = [](const std::function<void()>& call) -> UnicodeString {
        try {
            call();
        } catch (const EVariantError& error) {
            return error.getMessage();
        }
        return u"nothing raised";
    };
    EXPECT_EQ(message([] { Variant(u"x").As<int>(); }),
              u"Could not convert variant of type (UnicodeString) into type (Integer)");
    EXPECT_EQ(message([] { Null().As<AnsiString>(); }),
              u"Could not convert variant of type (Null) into type (UnicodeString)");
    EXPECT_EQ(message([] { Variant(300).As<Byte>(); }),
              u"Overflow while converting variant of type (Integer) into type (Byte)");
    EXPECT_EQ(message([] {
                  Variant({0, 1}, varByte).ChangeType(varDouble);
              }),
              u"Could not convert variant of type (Array Byte) into type (Double)");
    EXPECT_EQ(message([] { Variant(1).AsType(varDispatch); }),
              u"Could not convert variant of type (Integer) into type (Dispatch)");
    EXPECT_EQ(VarTypeAsText(varByRef | varArray | 0x0FF), u"ByRef Array $00FF");

    Variant kept = u"x";
    EXPECT_THROW(kept.ChangeType(varInteger), EVariantError);
    EXPECT_THROW(VarCast(kept, Null(), varInteger), EVariantError);
    EXPECT_EQ(kept, u"x");
}

TEST_F(VariantTest, ComparesByRules)
{
    const Variant array = VarArrayOf({1, u"a"});
    enum TOrder
    {
        Equal,
        Less,
        Apart
    };
    const struct
    {
        Variant a;
        Variant b;
        TOrder order;
        TVariantRelationship relationship;
    } cases[] = {
        {Null(), Null(), Equal, vrEqual},
        {Null(), Unassigned(), Less, vrNotEqual},
        {Null(), -1, Less, vrNotEqual},
        {Null(), array, Less, vrNotEqual},
        {Unassigned(), Unassigned(), Equal, vrEqual},
        {Unassigned(), 0, Equal, vrNotEqual},
        {Unassigned(), u"", Equal, vrNotEqual},
        {Unassigned(), u"a", Less, vrNotEqual},
        {Unassigned(), false, Equal, vrNotEqual},
        {1, 1.0, Equal, vrEqual},
        {1, 1.5, Less, vrLessThan},
        {-1, ULLONG_MAX, Less, vrLessThan},
        {LLONG_MAX, Decimal(ULLONG_MAX), Less, vrLessThan},
        {9007199254740992.0, 9007199254740993LL, Less, vrLessThan},
        {Currency(0.1), 0.1, Equal, vrEqual},
        {Currency::OfUnits(LLONG_MAX - 1), Currency::OfUnits(LLONG_MAX), Less, vrLessThan},
        {Currency(2), 2, Equal, vrEqual},
        {TDateTime(2), 2.5, Less, vrLessThan},
        {u"1900-01-01", TDateTime(2), Equal, vrEqual},
        {false, true, Less, vrLessThan},
        {true, -1, Equal, vrEqual},
        {"TRUE", true, Equal, vrEqual},
        {u"a", "a", Equal, vrEqual},
        {u"A", u"a", Less, vrLessThan},
        {u"10", u"9", Less, vrLessThan},
        {9, u"10", Less, vrLessThan},
        {u"1,5", 1.5, Equal, vrEqual},
        {u"x", 5, Apart, vrNotEqual},
        {u"x", true, Apart, vrNotEqual},
        {double{NAN}, double{NAN}, Apart, vrNotEqual},
        {array, VarArrayOf({1.0, "a"}), Equal, vrEqual},
        {array, VarArrayOf({1, u"b"}), Apart, vrNotEqual},
        {array, Variant({1, 2}, varVariant), Apart, vrNotEqual},
        {array, 1, Apart, vrNotEqual},
    };
    for (const auto& [a, b, order, relationship] : cases) {
        const testing::Message where = testing::Message() << a << " with " << b;
        EXPECT_EQ(a == b, order == Equal) << where;
        EXPECT_EQ(b == a, order == Equal) << where;
        EXPECT_EQ(a < b, order == Less) << where;
        EXPECT_EQ(b > a, order == Less) << where;
        EXPECT_FALSE(a > b) << where;
        EXPECT_EQ(VarCompareValue(a, b), relationship) << where;
        EXPECT_EQ(VarSameValue(b, a), relationship == vrEqual) << where;
    }
    EXPECT_TRUE(Variant(5) == 5 && 5 == Variant(5) && Variant(u"a") != "b" &&
                UnicodeString(u"a") == Variant("a"));
    EXPECT_TRUE(Variant(5) > 4.5 && 4 < Variant(5) && Variant(TDateTime(1)) <= TDateTime(1));
}

TEST_F(VariantTest, PromotesInArithmetic)
{
    const Variant two = 2;
    const Currency price = 2.5;
    const struct
    {
        Variant result;
        Variant expected;
        Word type;
    } cases[] = {
        {two + 3, 5, varInteger},
        {3 - Variant(Byte{5}), -2, varInteger},
        {two * INT_MAX, 4294967294LL, varInt64},
        {Variant(LLONG_MAX) + 1, 9223372036854775808ULL, varUInt64},
        {Variant(LLONG_MIN) - 1, -9223372036854775809.0, varDouble},
        {Variant(ULLONG_MAX) * ULLONG_MAX, 0x1p128, varDouble},
        {Variant(ULLONG_MAX) - 1, 18446744073709551614ULL, varUInt64},
        {Variant(1ULL) - two, -1, varInt64},
        {two / 4, 0.5, varDouble},
        {two + 0.5, 2.5, varDouble},
        {true + two, 1, varInteger},
        {two + Unassigned(), 2, varInteger},
        {two * Null(), Null(), varNull},
        {Null() / 0, Null(), varNull},
        {u"a" + Variant(u"b"), u"ab", varUString},
        {Variant("a") + "b", "ab", varString},
        {Variant("a") + u"b", u"ab", varUString},
        {Variant() + "a", "a", varString},
        {Variant(u"1") + 2, 3, varDouble},
        {Variant(u"3") - u"1,5", 1.5, varDouble},
        {Variant(price) + 1, Currency(3.5), varCurrency},
        {Variant(price) - 0.25, Currency(2.25), varCurrency},
        {two * price, Currency(5), varCurrency},
        {Variant(price) * 0.5, 1.25, varDouble},
        {Variant(price) / 2, Currency(1.25), varCurrency},
        {Variant(price) / price, 1, varDouble},
        {Variant(TDateTime(5)) + 0.5, TDateTime(5.5), varDate},
        {Variant(TDateTime(5)) - TDateTime(2), 3, varDouble},
        {Variant(TDateTime(5)) * 2, 10, varDouble},
        {-two, -2, varInteger},
        {-Variant(u"1,5"), -1.5, varDouble},
        {-Variant(true), 1, varInteger},
        {-Null(), Null(), varNull},
        {-Variant(TDateTime(1.5)), TDateTime(-1.5), varDate},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(test.result, test.expected) << "case " << &test - cases;
        EXPECT_EQ(test.result.Type(), test.type) << "case " << &test - cases;
    }
    Variant sum = 1;
    sum += 2;
    sum *= two;
    sum -= 1.5;
    sum /= 3;
    EXPECT_EQ(sum, 1.5);
    // Texts grow in place, but to the type that their sum has.
    const Variant first = "a";
    Variant text = first;
    text += "b";
    text += text;
    text += Variant();
    EXPECT_EQ(text.Type(), varString);
    text += u"\u4E2D";
    text += text;
    text += "c";
    EXPECT_EQ(text, u"abab\u4E2Dabab\u4E2Dc");
    EXPECT_EQ(text.Type(), varUString);
    EXPECT_EQ(first, "a");
    Variant former = Variant(u"x").AsType(varOleStr);
    former += "y";
    EXPECT_EQ(former.Type(), varUString);
    EXPECT_THROW(former += 1, EVariantError);
    EXPECT_EQ(former, u"xy");
    former += Null();
    EXPECT_TRUE(former.IsNull());
    Variant digits = u"4";
    digits += 1;
    EXPECT_EQ(digits, 5);
    EXPECT_THROW(two + u"x", EVariantError);
    EXPECT_THROW(two + VarArrayOf({1}), EVariantError);
    EXPECT_THROW(two / 0, Sysutils::EDivByZero);
    EXPECT_THROW(Variant(Currency::OfUnits(LLONG_MAX)) + 1, Sysutils::EIntOverflow);
}

TEST_F(VariantTest, ArraysKeepTheirElementsByIndex)
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

TEST_F(VariantTest, ArraysHaveElementsOfEachType)
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

TEST_F(VariantTest, CopiesOfArraysAreValues)
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

TEST_F(VariantTest, ArraysNestToALimit)
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

TEST_F(VariantTest, AnswersByType)
{
    const struct
    {
        Variant value;
        bool ordinal;
        bool floating;
        bool text;
        const WideChar* string;
    } cases[] = {
        {Variant(), false, false, false, u""},
        {Null(), false, false, false, u"?"},
        {Byte{5}, true, false, false, u"5"},
        {true, true, false, false, u"True"},
        {1.5F, false, true, false, u"1,5"},
        {Currency(1), false, true, false, u"1"},
        {TDateTime(2), false, false, false, u"1900-01-01"},
        {u"5", false, false, true, u"5"},
        {"a", false, false, true, u"a"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(VarIsOrdinal(test.value), test.ordinal) << test.value;
        EXPECT_EQ(VarIsFloat(test.value), test.floating) << test.value;
        EXPECT_EQ(VarIsNumeric(test.value), test.ordinal || test.floating) << test.value;
        EXPECT_EQ(VarIsStr(test.value), test.text) << test.value;
        EXPECT_EQ(VarToStrDef(test.value, u"?"), test.string) << test.value;
    }
    EXPECT_EQ(VarToStr(Null()), u"");
    EXPECT_TRUE(VarIsType(5, {varByte, varInteger}));
    EXPECT_FALSE(VarIsType(5, {varByte, varWord}));
    std::ostringstream stream;
    stream << Null() << Variant(u"ä") << VarArrayOf({1});
    EXPECT_EQ(stream.str(), "(Null)\xC3\xA4(Array Variant)");
}

} // namespace
