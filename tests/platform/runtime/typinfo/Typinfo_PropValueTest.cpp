// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/Typinfo_PropValue.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

using namespace System;
using namespace Typinfo;

namespace
{

enum EKind
{
    Round = 3,
    Square,
    Free
};

using Kinds = Set<EKind, Square, Free>;

class Gauge : public TObject
{
    TRS8_BTL_CLASS(Gauge, TObject)

public:
    Byte small = 0;
    Int64 large = 0;
    UInt64 unsignedLarge = 0;
    bool flag = false;
    char narrow = 'a';
    WideChar wide = u'a';
    EKind kind = Round;
    Kinds kinds;
    double number = 0;
    TDateTime date;
    Currency money;
    UnicodeString text;
    AnsiString narrowText;
    std::string utf8;
    Variant any;
    Gauge* next = nullptr;
    int getFixed() const { return 5; }
    int getChecked() const { return small; }
    void setChecked(int value)
    {
        if (value < 0) {
            throw Sysutils::EVariantError(u"Checked is not negative");
        }
        if (value > 99) {
            throw EPropertyConvertError(u"Checked is 0 to 99");
        }
        small = static_cast<Byte>(value);
    }
};

} // namespace

template <>
struct Typinfo::GEnumType<EKind>
{
    static TTypeInfo Make() { return EnumType(u"EKind", {u"gkRound", u"gkSquare", u"gkFree"}, Round); }
};

namespace
{

TMetaClass* Gauge::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Gauge>(u"Gauge")
                                          .Property(u"Small", &Gauge::small)
                                          .Property(u"Large", &Gauge::large)
                                          .Property(u"UnsignedLarge", &Gauge::unsignedLarge)
                                          .Property(u"Flag", &Gauge::flag)
                                          .Property(u"Narrow", &Gauge::narrow)
                                          .Property(u"Wide", &Gauge::wide)
                                          .Property(u"Kind", &Gauge::kind)
                                          .Property(u"Kinds", &Gauge::kinds)
                                          .Property(u"Number", &Gauge::number)
                                          .Property(u"Date", &Gauge::date)
                                          .Property(u"Money", &Gauge::money)
                                          .Property(u"Text", &Gauge::text)
                                          .Property(u"NarrowText", &Gauge::narrowText)
                                          .Property(u"Utf8", &Gauge::utf8)
                                          .Property(u"Any", &Gauge::any)
                                          .Property(u"Next", &Gauge::next)
                                          .Property(u"Fixed", &Gauge::getFixed)
                                          .Property(u"Checked", &Gauge::getChecked, &Gauge::setChecked)
                                          .Build();
    return record;
}

struct Undescribed
{
};
static_assert(PropertyType<std::string> && PropertyType<Kinds> && PropertyType<Gauge*>);
static_assert(!PropertyType<Undescribed> && !PropertyType<Undescribed*>);
enum class EUndescribed
{
};
static_assert(DescribedEnum<EKind> && !DescribedEnum<EUndescribed>);

TEST(PropValueTest, ReadsAndWritesEveryKindAsText)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings.DecimalSeparator = u',';
    const struct
    {
        const char16_t* name;
        const char16_t* written;
        const char16_t* read;
        Word type;
    } cases[] = {
        {u"Small", u"255", u"255", varInt64},
        {u"Large", u"-9223372036854775808", u"-9223372036854775808", varInt64},
        {u"UnsignedLarge", u"18446744073709551615", u"18446744073709551615", varUInt64},
        {u"Flag", u"true", u"True", varBoolean},
        {u"Flag", u"0", u"False", varBoolean},
        {u"Narrow", u"€", u"€", varUString},
        {u"Wide", u"→", u"→", varUString},
        {u"Kind", u"GKSQUARE", u"gkSquare", varUString},
        {u"Kind", u"5", u"gkFree", varUString},
        {u"Kinds", u"[gkFree, gkSquare]", u"[gkSquare,gkFree]", varUString},
        {u"Kinds", u"gkfree", u"[gkFree]", varUString},
        {u"Kinds", u"5,4", u"[gkSquare,gkFree]", varUString},
        {u"Kinds", u"[]", u"[]", varUString},
        {u"Number", u"-1,5", u"-1,5", varDouble},
        {u"Date", u"2022-02-28", u"2022-02-28", varDate},
        {u"Text", u"größer →", u"größer →", varUString},
        {u"NarrowText", u"größer →", u"größer ?", varUString},
        {u"Utf8", u"größer →", u"größer →", varUString},
        {u"Any", u"x", u"x", varUString},
    };
    Gauge gauge;
    for (const auto& [name, written, read, type] : cases) {
        SCOPED_TRACE(UnicodeString(name) + u" " + written);
        SetPropText(&gauge, name, written);
        EXPECT_EQ(GetPropText(&gauge, name), read);
        const Variant value = GetPropValue(&gauge, name);
        EXPECT_EQ(value.Type(), type);
        SetPropValue(&gauge, name, value);
        EXPECT_EQ(GetPropText(&gauge, name), read) << "the value comes back";
    }
    EXPECT_EQ(gauge.utf8, "größer →");
    EXPECT_EQ(gauge.narrow, '\x80');
}

TEST(PropValueTest, TakesValuesOfOtherTypes)
{
    Gauge gauge;
    SetPropValue(&gauge, u"Small", 7.4);
    SetPropValue(&gauge, u"Number", 3);
    SetPropValue(&gauge, u"Kind", int{Free});
    SetPropValue(&gauge, u"Kinds", 2);
    SetPropValue(&gauge, u"Text", 12);
    SetPropValue(&gauge, u"Money", 1.5);
    SetPropValue(&gauge, u"Any", Variant::Null());
    EXPECT_EQ(gauge.small, 7);
    EXPECT_EQ(gauge.number, 3);
    EXPECT_EQ(gauge.kind, Free);
    EXPECT_EQ(gauge.kinds, Kinds{Free});
    EXPECT_EQ(gauge.text, u"12");
    EXPECT_EQ(gauge.money, Currency(1.5));
    EXPECT_EQ(GetPropValue(&gauge, u"Money").Type(), varCurrency);
    EXPECT_EQ(GetPropText(&gauge, u"Any"), u"");
    gauge.kind = static_cast<EKind>(7);
    EXPECT_EQ(GetPropText(&gauge, u"Kind"), u"7") << "a value without a name is its number";
}

TEST(PropValueTest, NamesTheValueAndThePropertyItCannotHold)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings.DecimalSeparator = u'.';
    const auto* const small = u"a whole number from 0 to 255";
    const auto* const large = u"a whole number from -9223372036854775808 to 9223372036854775807";
    const auto* const unsignedLarge = u"a whole number from 0 to 18446744073709551615";
    const auto* const narrow = u"one character of the 8-bit code page";
    const auto* const wide = u"one character of 16 bits";
    const auto* const flags = u"False, True";
    const auto* const kinds = u"gkRound, gkSquare, gkFree";
    const auto* const setKinds = u"gkSquare, gkFree";
    const auto* const number = u"a number with '.' as decimal separator";
    const struct
    {
        const char16_t* name;
        const char16_t* value;
        const char16_t* expected;
    } cases[] = {
        {u"Small", u"256", small},
        {u"Small", u"-1", small},
        {u"Small", u"", small},
        {u"Small", u"x", small},
        {u"Small", u"7.5", small},
        {u"Large", u"1e30", large},
        {u"Large", u"-0.5", large},
        {u"UnsignedLarge", u"-1", unsignedLarge},
        {u"UnsignedLarge", u"0.5", unsignedLarge},
        {u"Flag", u"maybe", flags},
        {u"Narrow", u"→", narrow},
        {u"Narrow", u"", narrow},
        {u"Wide", u"ab", wide},
        {u"Wide", u"💡", wide},
        {u"Kind", u"gkBlue", kinds},
        {u"Kind", u"6", kinds},
        {u"Kind", u"3.5", kinds},
        {u"Kinds", u"[gkRound]", setKinds},
        {u"Kinds", u"[gkFree,]x", setKinds},
        {u"Kinds", u"99", setKinds},
        {u"Number", u"one", number},
        {u"Number", u"2,5", number},
        {u"Money", u"much", number},
        {u"Date", u"31.2.2022", u"a date such as 2022-02-28"},
    };
    Gauge gauge;
    for (const auto& [name, value, expected] : cases) {
        SCOPED_TRACE(UnicodeString(name) + u" " + value);
        const UnicodeString before = GetPropText(&gauge, name);
        try {
            SetPropText(&gauge, name, value);
            ADD_FAILURE() << "it was taken";
        } catch (const EPropertyConvertError& error) {
            EXPECT_EQ(error.getMessage(),
                      u"'" + UnicodeString(value) + u"' is no value of property " + name + u": " + expected);
        }
        EXPECT_EQ(GetPropText(&gauge, name), before);
    }
    try {
        SetOrdProp(&gauge, u"Small", 256);
        ADD_FAILURE() << "it was taken";
    } catch (const EPropertyConvertError& error) {
        EXPECT_EQ(error.getMessage(), u"256 is no value of property Small: " + UnicodeString(small));
    }
    SetPropText(&gauge, u"Small", u"7.0");
    EXPECT_EQ(gauge.small, 7);
    EXPECT_THROW(SetPropValue(&gauge, u"Small", Variant::Null()), EPropertyConvertError);
    EXPECT_THROW(SetPropValue(&gauge, u"Text", Variant::ArrayOf({})), EPropertyConvertError);
}

TEST(PropValueTest, LetsTheFaultsOfSettersPass)
{
    Gauge gauge;
    try {
        SetPropText(&gauge, u"Checked", u"100");
        ADD_FAILURE() << "it was taken";
    } catch (const EPropertyConvertError& error) {
        EXPECT_EQ(error.getMessage(), u"Checked is 0 to 99");
    }
    EXPECT_THROW(SetPropText(&gauge, u"Checked", u"-1"), Sysutils::EVariantError);
    SetPropText(&gauge, u"Checked", u"99");
    EXPECT_EQ(gauge.small, 99);
}

TEST(PropValueTest, RefusesWhatIsNoValue)
{
    Gauge gauge;
    EXPECT_THROW(GetPropValue(&gauge, u"Next"), EPropertyError);
    EXPECT_THROW(SetPropText(&gauge, u"Next", u"x"), EPropertyError);
    EXPECT_THROW(GetPropText(&gauge, u"Missing"), EPropertyError);
    EXPECT_THROW(SetPropText(&gauge, u"Fixed", u"1"), EPropertyError);
    EXPECT_EQ(GetPropText(&gauge, u"Fixed"), u"5");
    EXPECT_THROW(GetPropValue(&gauge, static_cast<TPropInfo*>(nullptr)), EPropertyError);
    EXPECT_THROW(SetPropValue(&gauge, static_cast<TPropInfo*>(nullptr), 1), EPropertyError);
    EXPECT_THROW(GetPropValue(nullptr, u"Small"), EPropertyError);
}

} // namespace
