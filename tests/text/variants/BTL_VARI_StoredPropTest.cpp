// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_StoredProp.h"

#include "platform/base/dates/Sysutils_IsoDate.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace
{

using namespace System;
using Typinfo::EPropertyConvertError;
using Typinfo::EPropertyError;

class Record : public TObject
{
    TRS8_BTL_CLASS(Record, TObject)

public:
    double number = 0;
    float single = 0;
    Extended extended = 0;
    Currency money;
    TDateTime date;
    UnicodeString text;
    char letter = 'a';
    int count = 0;
    bool flag = false;
    Variant any;
    Record* next = nullptr;
};

TMetaClass* Record::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Record>(u"Record")
                                          .Property(u"Number", &Record::number)
                                          .Property(u"Single", &Record::single)
                                          .Property(u"Extended", &Record::extended)
                                          .Property(u"Money", &Record::money)
                                          .Property(u"Date", &Record::date)
                                          .Property(u"Text", &Record::text)
                                          .Property(u"Letter", &Record::letter)
                                          .Property(u"Count", &Record::count)
                                          .Property(u"Flag", &Record::flag)
                                          .Property(u"Any", &Record::any)
                                          .Property(u"Next", &Record::next)
                                          .Build();
    return record;
}

/// Settings that no file should follow.
class StoredPropTest : public testing::Test
{
protected:
    StoredPropTest()
    {
        Sysutils::FormatSettings.DecimalSeparator = u',';
        Sysutils::FormatSettings.ShortDateFormat = u"d.M.yy";
        Sysutils::FormatSettings.DateSeparator = u'.';
    }

private:
    Support::FormatSettingsGuard mGuard;
};

TEST_F(StoredPropTest, WritesAndReadsEveryKind)
{
    const struct
    {
        const char16_t* name;
        const char16_t* text;
    } cases[] = {
        {u"Number", u"0.30000000000000004"},
        {u"Number", u"-1e+300"},
        {u"Number", u"inf"},
        {u"Number", u"nan"},
        {u"Single", u"0.1"},
        {u"Money", u"922337203685477.5807"},
        {u"Date", u"2022-02-28T12:30:00.250"},
        {u"Date", u"1899-12-30T00:00:00"},
        {u"Date", u"1e+09"},
        {u"Text", uR"(C:\\new\nline\x00 )"},
        {u"Text", u""},
        {u"Letter", uR"(\n)"},
        {u"Letter", u"€"},
        {u"Count", u"-5"},
        {u"Flag", u"True"},
        {u"Any", u"0:"},
        {u"Any", u"1:"},
        {u"Any", u"3:5"},
        {u"Any", u"4:0.1"},
        {u"Any", u"5:0.30000000000000004"},
        {u"Any", u"6:-0.25"},
        {u"Any", u"7:2022-02-28T12:30:00"},
        {u"Any", u"11:True"},
        {u"Any", u"21:18446744073709551615"},
        {u"Any", uR"(258:a:\\\n→)"},
    };
    for (const auto& [name, text] : cases) {
        SCOPED_TRACE(UnicodeString(name) + u"=" + text);
        Record record;
        BTL::SetStoredProp(&record, name, text);
        EXPECT_EQ(BTL::GetStoredProp(&record, name), text);
    }
}

TEST_F(StoredPropTest, BringsEveryFloatBack)
{
    std::mt19937_64 random(20220228);
    Record made;
    Record read;
    for (int i = 0; i < 2000; ++i) {
        made.number = std::bit_cast<double>(random());
        made.single = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        made.extended = static_cast<Extended>(random()) / 3;
        made.money = Currency(static_cast<int>(random())) / Currency(7);
        for (const auto* name : {u"Number", u"Single", u"Extended", u"Money"}) {
            BTL::SetStoredProp(&read, name, BTL::GetStoredProp(&made, name));
        }
        ASSERT_TRUE(read.number == made.number || (std::isnan(read.number) && std::isnan(made.number))) << i;
        ASSERT_TRUE(read.single == made.single || (std::isnan(read.single) && std::isnan(made.single))) << i;
        ASSERT_EQ(read.extended, made.extended) << i;
        ASSERT_EQ(read.money, made.money) << i;
    }
    made.number = std::numeric_limits<double>::denorm_min();
    BTL::SetStoredProp(&read, u"Number", BTL::GetStoredProp(&made, u"Number"));
    EXPECT_EQ(read.number, made.number);
}

TEST_F(StoredPropTest, NamesWhatItCannotRead)
{
    const struct
    {
        const char16_t* name;
        const char16_t* text;
    } cases[] = {
        {u"Number", u"0,5"},      {u"Number", u""},
        {u"Number", u" 1"},       {u"Number", u"1e999"},
        {u"Single", u"1e39"},     {u"Date", u"28.2.2022"},
        {u"Date", u"2022-02-30"}, {u"Date", u"2022-02-28T12:00:00Z"},
        {u"Money", u"1e30 "},     {u"Any", u"5"},
        {u"Any", u"5:x"},         {u"Any", u"3:x"},
        {u"Any", u"-1:5"},        {u"Any", u"9999:5"},
        {u"Any", u"8195:5"},      {u"Count", u"1.5"},
        {u"Letter", uR"(\\n)"},
    };
    Record record;
    for (const auto& [name, text] : cases) {
        SCOPED_TRACE(UnicodeString(name) + u"=" + text);
        try {
            BTL::SetStoredProp(&record, name, text);
            ADD_FAILURE() << "it was taken";
        } catch (const EPropertyConvertError& error) {
            const UnicodeString& message = error.getMessage();
            EXPECT_NE(message.Pos(name), 0);
            EXPECT_EQ(message.Pos(u": a number with '.'") != 0, name == UnicodeString(u"Number") ||
                                                                    name == UnicodeString(u"Single") ||
                                                                    name == UnicodeString(u"Money"))
                << message;
            EXPECT_EQ(message.Pos(u": a date such as 2022-02-28T12:30:00") != 0,
                      name == UnicodeString(u"Date"))
                << message;
        }
    }
    record.any = Variant::ArrayOf({});
    EXPECT_THROW(static_cast<void>(BTL::GetStoredProp(&record, u"Any")), EPropertyConvertError);
    EXPECT_THROW(static_cast<void>(BTL::GetStoredProp(&record, u"Next")), EPropertyError);
    EXPECT_THROW(BTL::SetStoredProp(&record, u"Next", u""), EPropertyError);
    EXPECT_THROW(BTL::SetStoredProp(&record, u"Missing", u""), EPropertyError);
    EXPECT_THROW(static_cast<void>(BTL::GetStoredProp(nullptr, u"Number")), EPropertyError);
    EXPECT_THROW(BTL::SetStoredProp(&record, static_cast<const Typinfo::TPropInfo*>(nullptr), u""),
                 EPropertyError);
}

} // namespace
