// SPDX-License-Identifier: MIT
#include "foundation/UTL_CVariant.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_CVariants.h"
#include "foundation/UTL_Links.h"
#include "foundation/VariantsSupport.h"
#include "platform/base/dates/Sysutils_Date.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace
{

using Support::ArrayOf;
using Support::Written;
using System::AnsiString;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;
using System::WideChar;
using UTL::CVariant;
using UTL::CVariants;

/// The message of the exception `E` that `call` raises.
template <class E = Sysutils::EVariantError, class Call>
std::string Raised(Call call)
{
    try {
        call();
    } catch (const E& error) {
        return AnsiString(error.getMessage()).c_str();
    }
    return "nothing raised";
}

template <class T>
std::string TextOf(const T& value)
{
    return AnsiString(value).c_str();
}

/// What each conversion gives, "-" where it fails.
std::string Conversions(const CVariant& value)
{
    const auto text = [](auto convert) {
        try {
            return TextOf(convert());
        } catch (const Sysutils::EVariantError&) {
            return std::string("-");
        } catch (const Sysutils::EConvertError&) {
            return std::string("!");
        }
    };
    std::string result = text([&] { return int{value.ToBool()}; });
    result += " " + text([&] { return value.ToInt(); });
    result += " " + text([&] { return value.ToInt64(); });
    result += " " + text([&] { return value.ToDouble(); });
    result += " " + text([&] { return value.ToDateTime().Val; });
    result += " '" + text([&] { return value.ToAString(); }) + "'";
    result += " '" + text([&] { return value.ToWString(); }) + "'";
    EXPECT_EQ(text([&] { return value.ToString(); }), text([&] { return value.ToWString(); }));
    return result;
}

class CVariantTest : public testing::Test
{
protected:
    CVariantTest()
    {
        Sysutils::FormatSettings.DecimalSeparator = u',';
        Sysutils::FormatSettings.DateSeparator = u'-';
        Sysutils::FormatSettings.TimeSeparator = u':';
        Sysutils::FormatSettings.ShortDateFormat = u"yyyy-mm-dd";
        Sysutils::FormatSettings.LongTimeFormat = u"hh:nn:ss";
    }

private:
    Support::FormatSettingsGuard mGuard;
};

static_assert(!std::is_constructible_v<CVariant, WideChar>, "a character is no number");

TEST_F(CVariantTest, ConvertsEachType)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        CVariant value;
        UTL::EVariantDataType type;
        const char* conversions;
        const char* written;
    } cases[] = {
        {CVariant(), UTL::vdtNull, "0 0 0 0 0 '' ''", "NULL"},
        {nullptr, UTL::vdtNull, "0 0 0 0 0 '' ''", "NULL"},
        {static_cast<const char*>(nullptr), UTL::vdtNull, "0 0 0 0 0 '' ''", "NULL"},
        {static_cast<const WideChar*>(nullptr), UTL::vdtNull, "0 0 0 0 0 '' ''", "NULL"},
        {true, UTL::vdtBool, "1 1 1 1 - '1' '1'", "1"},
        {false, UTL::vdtBool, "0 0 0 0 - '0' '0'", "0"},
        {-7, UTL::vdtInt, "1 -7 -7 -7 -7 '-7' '-7'", "-7"},
        {short{3}, UTL::vdtInt, "1 3 3 3 3 '3' '3'", "3"},
        {std::int64_t{4}, UTL::vdtInt64, "1 4 4 4 4 '4' '4'", "4"},
        {4000000000U, UTL::vdtInt64,
         "1 -294967296 4000000000 4000000000 4000000000 '4000000000' '4000000000'", "4000000000"},
        {Int64{0x100000005}, UTL::vdtInt64, "1 5 4294967301 4294967301 4294967301 '4294967301' '4294967301'",
         "4294967301"},
        {2.9, UTL::vdtDouble, "1 2 2 2,9 2,9 '2,9' '2,9'", "2.9"},
        {-2.9, UTL::vdtDouble, "1 -2 -2 -2,9 -2,9 '-2,9' '-2,9'", "-2.9"},
        {2147483648.0, UTL::vdtDouble,
         "1 2147483647 2147483648 2147483648 2147483648 '2147483648' '2147483648'", "2147483648"},
        {-infinity, UTL::vdtDouble, "1 -2147483648 -9223372036854775808 -INF -INF '-INF' '-INF'", "-INF"},
        {9.3e18, UTL::vdtDouble, "1 2147483647 9223372036854775807 9,3E18 9,3E18 '9,3E18' '9,3E18'",
         "9.3E18"},
        {std::numeric_limits<double>::quiet_NaN(), UTL::vdtDouble, "1 0 0 NAN NAN 'NAN' 'NAN'", "NAN"},
        {TDateTime(1.5), UTL::vdtDateTime, "1 1 1 1,5 1,5 '1899-12-31 12:00:00' '1899-12-31 12:00:00'",
         "1899-12-31 12:00:00"},
        {" 12abc", UTL::vdtAString, "- 12 12 - ! ' 12abc' ' 12abc'", "\" 12abc\""},
        {u"-2,5", UTL::vdtWString, "- -2 -2 -2,5 -2,5 '-2,5' '-2,5'", "\"-2,5\""},
        {u"2.5", UTL::vdtWString, "- 2 2 2,5 2,5 '2.5' '2.5'", "\"2.5\""},
        {AnsiString("1"), UTL::vdtAString, "1 1 1 1 1 '1' '1'", "\"1\""},
        {UTL::CSimpleString("2"), UTL::vdtAString, "- 2 2 2 2 '2' '2'", "\"2\""},
        {u"true", UTL::vdtWString, "- - - - ! 'true' 'true'", "\"true\""},
        {UnicodeString(u"1900-01-01"), UTL::vdtWString, "- 1900 1900 - 2 '1900-01-01' '1900-01-01'",
         "\"1900-01-01\""},
        {"99999999999999999999", UTL::vdtAString,
         "- 2147483647 9223372036854775807 1E20 1E20 '99999999999999999999' '99999999999999999999'",
         "\"99999999999999999999\""},
        {"", UTL::vdtAString, "- - - - ! '' ''", "\"\""},
        {UnicodeString(), UTL::vdtWString, "- - - - ! '' ''", "\"\""},
        {u"\u20ac\u4e00", UTL::vdtWString, "- - - - ! '\x80?' '\x80?'", "\"\x80?\""},
        {ArrayOf(CVariants()), UTL::vdtArray, "- - - - - '-' '-'", "[[]]"},
        {ArrayOf(CVariants() << 7), UTL::vdtArray, "1 7 7 7 - '7' '7'", "[[7]]"},
        {ArrayOf(CVariants() << ArrayOf(CVariants() << "1")), UTL::vdtArray, "1 1 1 1 - '1' '1'",
         "[[[[\"1\"]]]]"},
        {ArrayOf(CVariants() << 1 << u"2"), UTL::vdtArray, "- - - - - '-' '-'", "[[1,\"2\"]]"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.written);
        EXPECT_EQ(test.value.Type(), test.type);
        EXPECT_EQ(Conversions(test.value), test.conversions);
        EXPECT_EQ(Written(test.value), test.written);
        EXPECT_EQ(Conversions(CVariant(test.value)), test.conversions) << "of a copy";
        UTL::CSimpleString narrow;
        const bool hasText = test.value.getImp().ToSStr(test.value.getData(), narrow);
        EXPECT_EQ(hasText, !test.value.ToStringDef(u"#").AsView().starts_with(u'#'));
        EXPECT_EQ(AnsiString(narrow), test.value.ToStringDefA(""));
    }
}

TEST_F(CVariantTest, TellsWhichConversionFailed)
{
    const CVariant text("yes");
    const CVariant array = ArrayOf(CVariants() << 1 << 2);
    EXPECT_EQ(Raised([&] { text.ToBool(); }), "Bool conversion error");
    EXPECT_EQ(Raised([&] { text.ToInt(); }), "Int conversion error");
    EXPECT_EQ(Raised([&] { text.ToInt64(); }), "Int64 conversion error");
    EXPECT_EQ(Raised([&] { text.ToDouble(); }), "Double conversion error");
    EXPECT_EQ(Raised([] { CVariant(true).ToDateTime(); }), "TDateTime conversion error");
    EXPECT_EQ(Raised([&] { array.ToAString(); }), "AStringT conversion error");
    EXPECT_EQ(Raised([&] { array.ToWString(); }), "WStringT conversion error");
    EXPECT_EQ(Raised([&] { array.ToString(); }), "String conversion error");
}

TEST_F(CVariantTest, GivesDefaultsOnlyForFailures)
{
    const CVariant text("yes");
    const CVariant array = ArrayOf(CVariants());
    EXPECT_TRUE(text.ToBoolDef(true));
    EXPECT_EQ(text.ToIntDef(5), 5);
    EXPECT_EQ(text.ToInt64Def(5), 5);
    EXPECT_EQ(text.ToDoubleDef(5), 5);
    EXPECT_EQ(array.ToDateTimeDef(5).Val, 5);
    EXPECT_EQ(array.ToStringDef(u"x"), u"x");
    EXPECT_EQ(array.ToStringDefA("x"), "x");
    EXPECT_EQ(CVariant().ToIntDef(5), 0);
    EXPECT_EQ(CVariant(3).ToStringDefA("x"), "3");
    EXPECT_THROW(text.ToDateTimeDef(5), Sysutils::EConvertError);
}

TEST_F(CVariantTest, KeepsTextWithItsLength)
{
    CVariant value;
    value.AssignString("a\0b\0c", 4);
    EXPECT_EQ(value.ToAString(), AnsiString("a\0b", 4));
    EXPECT_EQ(value.ToWString().Length(), 4);
    EXPECT_EQ(value.getData().AString.Text[4], '\0');
    // A piece of the own text.
    value.AssignString(value.getData().AString.Text + 2, 1);
    EXPECT_EQ(value.ToAString(), "b");
    for (const int length : {0, -1, INT_MIN}) {
        value.AssignString("abc", length);
        EXPECT_EQ(value.Type(), UTL::vdtAString);
        EXPECT_EQ(value.getData().AString.Text, nullptr);
        value.AssignString(u"abc", length);
        EXPECT_EQ(value.Type(), UTL::vdtWString);
        EXPECT_EQ(value.ToWString(), u"");
    }
    value.AssignString(static_cast<const WideChar*>(nullptr), 3);
    EXPECT_EQ(value.Type(), UTL::vdtNull);
    EXPECT_EQ(value.getData().Words[0], 0U);
    EXPECT_EQ(value.getData().Words[1], 0U);
}

TEST_F(CVariantTest, ChangesTypeOrStays)
{
    CVariant value(5);
    value.ChangeType(UTL::vdtArray);
    EXPECT_EQ(Written(value), "[[5]]");
    value.ChangeType(UTL::vdtArray);
    EXPECT_EQ(Written(value), "[[5]]");
    for (const auto type : {UTL::vdtWString, UTL::vdtInt64, UTL::vdtDouble, UTL::vdtDateTime, UTL::vdtInt,
                            UTL::vdtAString, UTL::vdtDouble, UTL::vdtBool}) {
        value.ChangeType(type);
        EXPECT_EQ(value.Type(), type);
    }
    EXPECT_TRUE(value.ToBool());
    EXPECT_THROW(value.ChangeType(UTL::vdtDateTime), Sysutils::EVariantError);
    EXPECT_EQ(value.Type(), UTL::vdtBool);

    value = "x";
    EXPECT_EQ(Raised([&] { value.ChangeType(UTL::vdtInt); }), "Int conversion error");
    EXPECT_EQ(Written(value), "\"x\"");
    EXPECT_THROW(value.ChangeType(static_cast<UTL::EVariantDataType>(9)), Sysutils::EVariantError);
    EXPECT_EQ(Written(value), "\"x\"");
    value.ChangeType(UTL::vdtNull);
    EXPECT_EQ(value.Type(), UTL::vdtNull);
    value.ChangeType(UTL::vdtAString);
    EXPECT_EQ(Written(value), "\"\"");
    EXPECT_EQ(CVariant::GetImp(static_cast<UTL::EVariantDataType>(-1))->Type(), UTL::vdtNull);
}

TEST_F(CVariantTest, KnowsFloats)
{
    for (const CVariant& value : {CVariant(), CVariant(true), CVariant(1), CVariant(Int64{1}), CVariant(1.5),
                                  CVariant(TDateTime(1)), CVariant(" 1,5e3 "), CVariant(u"1.5")}) {
        EXPECT_TRUE(value.IsDouble()) << Written(value);
    }
    const std::string longNumber(40, '0');
    EXPECT_EQ(CVariant((longNumber + "1.5").c_str()).ToDouble(), 1.5);
    EXPECT_EQ(CVariant((longNumber + "1.5x").c_str()).ToDoubleDef(7), 7);
    for (const CVariant& value : {CVariant("1x"), CVariant("\xb2"), CVariant("1.5.5"), CVariant(u""),
                                  CVariant(u"abc"), ArrayOf(CVariants() << 1)}) {
        EXPECT_FALSE(value.IsDouble()) << Written(value);
    }
}

TEST_F(CVariantTest, HoldsArraysByValue)
{
    CVariant array = 3;
    array.AddItem(1);
    EXPECT_EQ(Written(array), "[[1]]") << "the number is dropped";
    array.AddItem("x");
    CVariant copy = array;
    copy.SetItem(0, 9);
    EXPECT_EQ(Written(array), "[[1,\"x\"]]");
    EXPECT_EQ(Written(copy), "[[9,\"x\"]]");
    EXPECT_EQ(copy.GetCount(), 2);

    // A piece of the value itself.
    copy.AddItem(copy);
    EXPECT_EQ(Written(copy), "[[9,\"x\",[[9,\"x\"]]]]");
    copy.SetItem(0, copy);
    EXPECT_EQ(copy.GetItem(0).GetCount(), 3);
    copy = copy.GetItem(2);
    EXPECT_EQ(Written(copy), "[[9,\"x\"]]");
    const CVariant& self = copy;
    copy = self;
    EXPECT_EQ(Written(copy), "[[9,\"x\"]]");
    copy = std::move(const_cast<CVariant&>(self));
    EXPECT_EQ(Written(copy), "[[9,\"x\"]]");
    CVariant text("abc");
    text.AddItem(text);
    EXPECT_EQ(Written(text), "[[\"abc\"]]");

    const int integers[] = {1, 2, 3};
    const double floats[] = {0.5, 2};
    array.SetItems(integers, 2);
    EXPECT_EQ(Written(array), "[[1,2]]");
    array.SetItems(floats, 2);
    EXPECT_EQ(Written(array), "[[0.5,2]]");
    array.SetItems(Variant(4));
    EXPECT_EQ(Written(array), "[[4]]");
    array.SetItems(integers, -1);
    EXPECT_EQ(Written(array), "[[]]");
    array.SetItems(static_cast<const double*>(nullptr), 3);
    EXPECT_EQ(Written(array), "[[]]");
}

TEST_F(CVariantTest, NestsToALimit)
{
    Variant platform = Variants::VarArrayOf({7});
    for (int depth = 1; depth < CVariants::MaxDepth; ++depth) {
        platform = Variants::VarArrayOf({platform});
    }
    const CVariant deep = platform;
    EXPECT_EQ(deep.ToInt(), 7);
    EXPECT_EQ(Written(deep).size(), 4U * CVariants::MaxDepth + 1);
    EXPECT_EQ(deep.ToVariant(), platform);

    CVariant kept = ArrayOf(CVariants() << 1);
    CVariant number = 3;
    CVariants list;
    list << 2;
    EXPECT_THROW(kept.AddItem(deep), Sysutils::EVariantError);
    EXPECT_THROW(kept.SetItem(0, deep), Sysutils::EVariantError);
    EXPECT_THROW(number.AddItem(deep), Sysutils::EVariantError);
    EXPECT_THROW(list << deep, Sysutils::EVariantError);
    list.AddItems(platform);
    EXPECT_THROW(list.setItem(1, deep), Sysutils::EVariantError);
    EXPECT_EQ(Written(kept), "[[1]]");
    EXPECT_EQ(Written(number), "3");
    EXPECT_EQ(list.GetCount(), 2);
}

TEST_F(CVariantTest, RefusesItemsOutside)
{
    CVariant array = ArrayOf(CVariants() << 1);
    for (const int index : {-1, 1, INT_MAX, INT_MIN}) {
        Support::ScriptedBoxes boxes({IDYES, IDYES, IDNO, IDNO});
        EXPECT_THROW(array.GetItem(index), UTL::XAssert);
        EXPECT_THROW(array.SetItem(index, 2), UTL::XAssert);
        EXPECT_EQ(array.GetItem(index).Type(), UTL::vdtNull);
        array.SetItem(index, 2);
    }
    EXPECT_EQ(Written(array), "[[1]]");
    CVariant number(1);
    EXPECT_EQ(number.GetCount(), 0);
    EXPECT_EQ(Raised([&] { number.GetItem(0); }), "Invalid AVariantImp::GetItem call");
    EXPECT_EQ(Raised([&] { number.SetItem(0, 1); }), "Invalid AVariantImp::SetItem call");
}

TEST_F(CVariantTest, ExchangesWithThePlatformsVariant)
{
    const struct
    {
        Variant value;
        const char* written;
        UTL::EVariantDataType type;
        System::Word back;
    } cases[] = {
        {Variant(), "NULL", UTL::vdtNull, System::varNull},
        {Variant::Null(), "NULL", UTL::vdtNull, System::varNull},
        {Variant(short{-2}), "-2", UTL::vdtInt, System::varInteger},
        {Variant(3), "3", UTL::vdtInt, System::varInteger},
        {Variant(1.6F), "2", UTL::vdtInt, System::varInteger},
        {Variant(1.6), "1.6", UTL::vdtDouble, System::varDouble},
        {Variant(System::Currency(1.25)), "1.25", UTL::vdtDouble, System::varDouble},
        {Variant(TDateTime(2)), "1900-01-01", UTL::vdtDateTime, System::varDate},
        {Variant(AnsiString("a")), "\"a\"", UTL::vdtWString, System::varUString},
        {Variant(u"b"), "\"b\"", UTL::vdtWString, System::varUString},
        {Variant(true), "1", UTL::vdtBool, System::varBoolean},
        {Variant(Int64{5000000000}), "5000000000", UTL::vdtInt64, System::varInt64},
        {Variant(7).AsType(System::varDecimal), "7", UTL::vdtInt64, System::varInt64},
        {Variant(ULLONG_MAX).AsType(System::varDecimal), "-1", UTL::vdtInt64, System::varInt64},
        {Variants::VarArrayOf({1, u"x", Variants::VarArrayOf({2.5})}), "[[1,\"x\",[[2.5]]]]", UTL::vdtArray,
         System::varArray | System::varVariant},
        {Variant({2, 1}, System::varInteger), "[[]]", UTL::vdtArray, System::varArray | System::varVariant},
        {Variant({-1, 0}, System::varDouble), "[[0,0]]", UTL::vdtArray,
         System::varArray | System::varVariant},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.written);
        CVariant value("former");
        value.AssignVariant(test.value);
        EXPECT_EQ(value.Type(), test.type);
        EXPECT_EQ(Written(value), test.written);
        const Variant back = value;
        EXPECT_EQ(back.Type(), test.back);
        EXPECT_EQ(Written(CVariant(back)), test.written);
    }
    EXPECT_EQ(CVariant("a").ToVariant().Type(), System::varString);

    CVariant value("former");
    for (const Variant& refused : {Variant(System::Byte{1}), Variant(System::Word{1}), Variant(1U),
                                   Variant(static_cast<signed char>(1)), Variant(System::UInt64{1}),
                                   Variants::VarArrayOf({1, System::Byte{1}})}) {
        EXPECT_EQ(Raised([&] { value = refused; }), "Unsupported Variant Type.");
        EXPECT_EQ(Raised([&] { value.SetItems(refused); }), "Unsupported Variant Type.");
    }
    EXPECT_THROW(value.AssignVariant(1e30F), Sysutils::EVariantError);
    EXPECT_THROW(value.AssignVariant(Variant({0, 1, 0, 1}, System::varInteger)), Sysutils::EVariantError);
    EXPECT_EQ(Written(value), "\"former\"");
}

TEST_F(CVariantTest, ReadsAndWritesWithoutTheLayersAbove)
{
    const auto former = std::exchange(UTL::Links(), UTL::TLinks());
    EXPECT_EQ(Conversions("12"), "- 12 12 12 ! '12' '12'");
    EXPECT_EQ(Conversions(u"2,5"), "- - - 2,5 ! '2,5' '2,5'");
    EXPECT_EQ(CVariant(u"1900-01-01").ToDateTime().Val, 2);
    EXPECT_TRUE(CVariant(" 2,5").IsDouble());
    EXPECT_FALSE(CVariant(u"x").IsDouble());
    EXPECT_EQ(Written(ArrayOf(CVariants() << 1 << u"x")), "");
    UTL::Links() = former;
}

} // namespace
