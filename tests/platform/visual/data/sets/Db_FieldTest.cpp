// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"
#include "platform/visual/data/sets/Db_MemoryDataSet.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using namespace Db;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;

class FieldTest : public testing::Test
{
protected:
    FieldTest()
    {
        const TFieldType types[] = {ftWideString, ftInteger, ftLargeint, ftFloat, ftBoolean,
                                    ftDate,       ftTime,    ftDateTime, ftBlob,  ftWideMemo};
        for (const TFieldType type : types) {
            mSet.getFieldDefs()->Add(NameOf(type), type, type == ftWideString ? 5 : 0);
        }
        mSet.Open();
        mSet.Append();
    }

    static UnicodeString NameOf(TFieldType type) { return u"f" + UnicodeString(static_cast<int>(type)); }
    TField& Of(TFieldType type) { return *mSet.FieldByName(NameOf(type)); }

    Support::FormatSettingsGuard mSettings;
    TMemoryDataSet mSet;
};

TEST_F(FieldTest, TakesTextsThatAreValues)
{
    struct TCase
    {
        TFieldType type;
        const char16_t* text;
        const char16_t* result;
    };
    for (const auto& [type, text, result] : {TCase{ftWideString, u"abcde", u"abcde"},
                                             {ftWideString, u"", u""},
                                             {ftInteger, u"-12", u"-12"},
                                             {ftInteger, u" ", u""},
                                             {ftLargeint, u"9223372036854775807", u"9223372036854775807"},
                                             {ftFloat, u"12.50", u"12.5"},
                                             {ftBoolean, u"t", u"True"},
                                             {ftBoolean, u"FALSE", u"False"},
                                             {ftBoolean, u"1", u"True"},
                                             {ftWideMemo, u"long text", u"long text"},
                                             {ftBlob, u"\u00e4", u"\u00e4"}}) {
        SCOPED_TRACE(UnicodeString(text));
        Of(type).setText(text);
        EXPECT_EQ(Of(type).getText(), result);
    }
}

TEST_F(FieldTest, RefusesWhatItCantHoldAndKeepsWhatItHas)
{
    const std::pair<TFieldType, Variant> cases[] = {{ftWideString, u"abcdef"},
                                                    {ftWideString, Variant({0, 1}, System::varInteger)},
                                                    {ftInteger, u"x"},
                                                    {ftInteger, 1e10},
                                                    {ftLargeint, 1e30},
                                                    {ftFloat, u"1.2.3"},
                                                    {ftFloat, std::numeric_limits<double>::quiet_NaN()},
                                                    {ftBoolean, u"maybe"},
                                                    {ftDate, u"31.31.2022"},
                                                    {ftDateTime, std::numeric_limits<double>::infinity()},
                                                    {ftBlob, Variant({0, 1}, System::varInteger)}};
    for (const auto& [type, value] : cases) {
        SCOPED_TRACE(NameOf(type));
        Of(type).Clear();
        EXPECT_THROW(Of(type).setValue(value), EDatabaseError);
        EXPECT_TRUE(Of(type).getIsNull());
    }
    try {
        Of(ftInteger).setAsString(u"x");
    } catch (const EDatabaseError& error) {
        EXPECT_EQ(error.getMessage(), u"\"x\" is no integer for field \"f3\".");
    }
}

TEST_F(FieldTest, GivesItsValueAsOtherTypes)
{
    EXPECT_EQ(Of(ftInteger).getAsInteger(), 0);
    EXPECT_EQ(Of(ftInteger).getAsString(), u"");
    Of(ftInteger).setAsFloat(2.5);
    EXPECT_EQ(Of(ftInteger).getAsInteger(), 2);
    Of(ftWideString).setAsString(u"7");
    EXPECT_EQ(Of(ftWideString).getAsLargeInt(), 7);
    EXPECT_EQ(Of(ftWideString).getAsFloat(), 7.0);
    Of(ftWideString).setAsString(u"x");
    EXPECT_THROW(Of(ftWideString).getAsInteger(), EDatabaseError);
    EXPECT_THROW(Of(ftWideString).getAsDateTime(), EDatabaseError);
    const TDateTime noon = TDateTime(2022, 2, 28) + 0.5;
    for (const TFieldType type : {ftDate, ftTime, ftDateTime}) {
        Of(type).setAsDateTime(noon);
    }
    EXPECT_EQ(Of(ftDate).getAsDateTime(), TDateTime(2022, 2, 28));
    EXPECT_EQ(Of(ftTime).getAsFloat(), 0.5);
    EXPECT_EQ(Of(ftDateTime).getAsDateTime(), noon);
    dynamic_cast<TDateTimeField&>(Of(ftDateTime)).setDisplayFormat(u"yyyy_mm");
    EXPECT_EQ(Of(ftDateTime).getDisplayText(), u"2022_02");
    Of(ftBoolean).setAsBoolean(true);
    EXPECT_EQ(Of(ftBoolean).getValue(), Variant(true));
    dynamic_cast<TBooleanField&>(Of(ftBoolean)).setDisplayValues(u"on;off");
    EXPECT_EQ(Of(ftBoolean).getDisplayText(), u"on");
    Of(ftBoolean).setText(u"of");
    EXPECT_FALSE(Of(ftBoolean).getAsBoolean());
}

TEST_F(FieldTest, ShowsNumbersByTheirFormats)
{
    auto& number = dynamic_cast<TFloatField&>(Of(ftFloat));
    number.setAsFloat(1.0 / 3);
    number.setPrecision(3);
    EXPECT_EQ(number.getDisplayText(), u"0.333");
    number.setDisplayFormat(u"0.0");
    EXPECT_EQ(number.getDisplayText(), u"0.3");
    EXPECT_EQ(number.getText(), u"0.333");
    number.setMaxValue(10);
    EXPECT_THROW(number.setAsFloat(11), EDatabaseError);
    EXPECT_TRUE(number.IsValidChar(u'.'));
    EXPECT_FALSE(number.IsValidChar(u'x'));
    auto& whole = dynamic_cast<TIntegerField&>(Of(ftInteger));
    whole.setMinValue(-5);
    EXPECT_THROW(whole.setAsInteger(1), EDatabaseError);
    EXPECT_FALSE(whole.IsValidChar(u'.'));
}

TEST_F(FieldTest, TellsOfChangesAndAsksBefore)
{
    TField& field = Of(ftInteger);
    UnicodeString log;
    field.OnValidate = [&](TField* sender) {
        log += u"v" + sender->getAsString() + u" ";
        if (sender->getAsInteger() < 0) {
            throw Sysutils::Exception(u"negative");
        }
    };
    field.OnChange = [&](TField* sender) { log += u"c" + sender->getAsString() + u" "; };
    field.setAsInteger(4);
    EXPECT_THROW(field.setAsInteger(-4), Sysutils::Exception);
    EXPECT_EQ(field.getAsInteger(), 4);
    EXPECT_EQ(log, u"v4 c4 v-4 ");
    field.OnGetText = [](TField*, UnicodeString& text, bool display) {
        text = (display ? u"<" : u"") + text;
    };
    field.OnSetText = [](TField* sender, const UnicodeString& text) { sender->setAsInteger(text.Length()); };
    field.setText(u"abc");
    EXPECT_EQ(field.getDisplayText(), u"<3");
    EXPECT_EQ(field.getText(), u"3");
    field.setReadOnly(true);
    EXPECT_THROW(field.setAsInteger(1), EDatabaseError);
    EXPECT_FALSE(field.getCanModify());
}

TEST_F(FieldTest, OutlivesHandlersThatCloseTheSet)
{
    Of(ftInteger).OnValidate = [&](TField*) { mSet.Close(); };
    Of(ftInteger).setAsInteger(1);
    EXPECT_FALSE(mSet.getActive());
    mSet.Open();
    mSet.Append();
    Of(ftInteger).OnChange = [&](TField*) { mSet.Close(); };
    Of(ftInteger).setAsInteger(1);
    EXPECT_FALSE(mSet.getActive());
}

/// Who reads or writes is told, and the field is in use all the same.
TEST_F(FieldTest, MayRaiseInEachEvent)
{
    TField& field = Of(ftInteger);
    const auto raise = [] { throw Sysutils::Exception(u"no"); };
    const auto isTold = [](const auto& act) { EXPECT_THROW(act(), Sysutils::Exception); };
    field.setAsInteger(1);
    field.OnGetText = [&](TField*, UnicodeString&, bool) { raise(); };
    isTold([&] { return field.getText(); });
    isTold([&] { return field.getDisplayText(); });
    field.OnGetText = nullptr;
    field.OnSetText = [&](TField*, const UnicodeString&) { raise(); };
    isTold([&] { field.setText(u"2"); });
    field.OnSetText = nullptr;
    field.OnValidate = [&](TField*) { raise(); };
    isTold([&] { field.setAsInteger(3); });
    field.OnValidate = nullptr;
    EXPECT_EQ(field.getText(), u"1");
    field.OnChange = [&](TField*) { raise(); };
    isTold([&] { field.setAsInteger(4); });
    field.OnChange = nullptr;
    EXPECT_EQ(field.getText(), u"4") << "the change was done when it was told of";
    mSet.Post();
    EXPECT_EQ(mSet.getState(), dsBrowse);
    EXPECT_EQ(field.getAsInteger(), 4);
}

TEST_F(FieldTest, KeepsBytesAsTheyAre)
{
    auto& blob = dynamic_cast<TBlobField&>(Of(ftBlob));
    Classes::TMemoryStream bytes;
    bytes.WriteBuffer("a\0\xFF", 3);
    bytes.setPosition(0);
    blob.LoadFromStream(&bytes);
    EXPECT_EQ(blob.getBlobSize(), 3);
    Classes::TMemoryStream copy;
    blob.SaveToStream(&copy);
    EXPECT_EQ(copy.AsView(), std::string_view("a\0\xFF", 3));
    EXPECT_EQ(blob.getDisplayText(), u"(Blob)");
}

TEST_F(FieldTest, RequiresAValueOnPost)
{
    mSet.Cancel();
    Of(ftInteger).setRequired(true);
    Of(ftInteger).setDisplayLabel(u"Number");
    mSet.Append();
    Of(ftFloat).setAsFloat(1);
    try {
        mSet.Post();
        ADD_FAILURE();
    } catch (const EDatabaseError& error) {
        EXPECT_EQ(error.getMessage(), u"Field \"Number\" must have a value.");
    }
    EXPECT_EQ(mSet.getState(), dsInsert);
    Of(ftInteger).setAsInteger(0);
    mSet.Post();
    EXPECT_EQ(mSet.getRecordCount(), 1);
}

TEST_F(FieldTest, PublishesWhatADesignHas)
{
    Classes::TComponent form;
    auto* const field = new TFloatField(&form);
    Typinfo::SetStrProp(field, u"FieldName", u"f5");
    Typinfo::SetOrdProp(field, u"Precision", 4);
    EXPECT_EQ(field->getFieldName(), u"f5");
    EXPECT_EQ(field->getPrecision(), 4);
    EXPECT_EQ(field->getAlignment(), Classes::taRightJustify);
    EXPECT_THROW(field->setDataSet(&mSet), EDatabaseError);
}

} // namespace
