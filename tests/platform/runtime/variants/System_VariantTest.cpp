// SPDX-License-Identifier: MIT
#include "platform/runtime/variants/System_Variant.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/System_VariantSupport.h"

#include <climits>
#include <functional>

#include <gmock/gmock.h>

namespace
{

using namespace System;
using namespace Support;
using namespace Variants;
using Sysutils::EVariantError;

/// Stands for a conversion that raises.
constexpr const WideChar* None = nullptr;

class VariantTest : public VariantFixture
{
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
              u"Could not convert variant 'x' of type (UnicodeString) into type (Integer)");
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

TEST_F(VariantTest, TakesTextsOfTheStandard)
{
    const std::string utf8 = "gr\xC3\xB6\xC3\x9F"
                             "er";
    const System::Variant value = utf8;
    EXPECT_EQ(value.Type(), System::varUString);
    EXPECT_EQ(value, u"größer");
    EXPECT_EQ(System::Variant(std::string_view(utf8)), value);
    EXPECT_EQ(System::Variant(std::u16string_view(u"größer")), value);
    EXPECT_EQ(System::Variant(System::TDateTime(1) + 1).Type(), System::varDate);
}

} // namespace
