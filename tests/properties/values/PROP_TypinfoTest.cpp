// SPDX-License-Identifier: MIT
#include "properties/values/PROP_Typinfo.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "platform/toolkit/MessageBox.h"
#include "properties/values/AllKinds.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"
#include "text/lists/BTL_STR_StringList.h"

#include <gtest/gtest.h>

namespace PropertyValues
{

/// An item whose first value takes its collection's owner away.
class TFuse : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TFuse, Classes::TCollectionItem)

public:
    using TCollectionItem::TCollectionItem;

    int getLevel() const { return 0; }
    void setLevel(int /*level*/) { delete dynamic_cast<Classes::TComponent*>(getCollection()->GetOwner()); }
};

class TFuseBox : public Classes::TComponent
{
public:
    Classes::TOwnedCollection Fuses{this, System::ClassOf<TFuse>()};
};

System::TMetaClass* TFuse::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TFuse>(u"TFuse").Property(u"Level", &TFuse::getLevel, &TFuse::setLevel).Build();
    return record;
}

namespace
{

using Support::ScriptedBoxes;
using System::UnicodeString;
using System::Variant;

class PropTypinfoTest : public testing::Test
{
protected:
    PropTypinfoTest()
    {
        Sysutils::FormatSettings.DecimalSeparator = u'.';
        mGauge.Inner = new TGauge;
        mGauge.Inner->Inner = new TGauge;
    }

    UnicodeString Text(const UnicodeString& name, bool showNames = false)
    {
        return PROP::GetPropValueAsString(&mGauge, name, showNames);
    }

    Support::FormatSettingsGuard mSettings;
    TGauge mGauge;
};

TEST_F(PropTypinfoTest, FindsPropertiesByNameInAnyCase)
{
    EXPECT_EQ(PROP::GetPropInfo(&mGauge, u"vALUE"), Typinfo::GetPropInfo(&mGauge, u"Value"));
    EXPECT_EQ(PROP::GetPropInfo(&mGauge, u"Val"), nullptr);
    EXPECT_TRUE(PROP::HasProp(&mGauge, u"lines"));
    EXPECT_FALSE(PROP::HasProp(&mGauge, u"L\u00CFnes"));
    EXPECT_EQ(PROP::GetPropType(&mGauge, u"Color")->Name, u"TColor");
    EXPECT_EQ(PROP::GetPropType(&mGauge, u"Colour"), nullptr);
    EXPECT_EQ(PROP::GetPropTypeKind(&mGauge, u"Shapes"), Typinfo::tkSet);
    EXPECT_EQ(PROP::GetPropTypeKind(&mGauge, u"Colour"), Typinfo::tkUnknown);
    EXPECT_EQ(PROP::GetPropObject(&mGauge, u"Inner"), mGauge.Inner);
    EXPECT_EQ(PROP::GetPropObject(&mGauge, u"Value"), nullptr);
    EXPECT_EQ(PROP::GetPropObject(&mGauge, u"Colour"), nullptr);
}

/// Each property takes the text, and gives the one expected back.
TEST_F(PropTypinfoTest, GoesThroughTexts)
{
    const struct
    {
        const char* name;
        UnicodeString text;
        UnicodeString expected;
    } cases[] = {
        {"Value", u"-12", u"-12"},
        {"Value", u"$1F", u"31"},
        {"Small", u"255", u"255"},
        {"Large", u"4294967295", u"4294967295"},
        {"Large", u"$80000000", u"2147483648"},
        {"Color", u"clblue", u"clBlue"},
        {"Color", u"$FF0000", u"clBlue"},
        {"Color", u"-16777201", u"clBtnFace"},
        {"Color", u"$FF00000F", u"clBtnFace"},
        {"Color", u"65793", u""},
        {"Cursor", u"crHourGlass", u"crHourGlass"},
        {"Cursor", u"-11", u"crHourGlass"},
        {"Cursor", u"77", u""},
        {"Mark", u"xyz", u"x"},
        {"Mark", u"\u20AC", u"\u20AC"},
        {"Mark", u"\u00FC", u"\u00FC"},
        {"Active", u"true", u"True"},
        {"Active", u"maybe", u"True"},
        {"Active", u"", u"True"},
        {"Shape", u"SHSQUARE", u"shSquare"},
        {"Shape", u"shOval", u"shSquare"},
        {"Shape", u"shBelow", u"shBelow"},
        {"Single", u"0.1", u"0.1"},
        {"Double", u"0.1234567890123456", u"0.123456789012346"},
        {"Double", u"1e100", u"1E100"},
        {"Extended", u"0.123456789012345678", u"0.123456789012345678"},
        {"Price", u"12.5", u"12.5"},
        {"Title", u"5 \u00B5m, \"x\"", u"5 \u00B5m, \"x\""},
        {"Narrow", u"5 \u03A9", u"5 ?"},
        {"Lines", u"[a,\"b c\"]", u"[a,\"b c\"]"},
        {"Lines", u"[]", u"[]"},
        {"Lines", u"[a", u"[[a]"},
        {"Lines", u"a]", u"[a]]"},
        {"Lines", u"", u"[]"},
        {"Ticks", u"5", u""},
        {"Shapes", u"[shRound]", u""},
        {"WideMark", u"b", u""},
        {"Any", u"5", u""},
        {"Inner", u"x", u""},
        {"OnChange", u"x", u""},
        {"Columns", u"[x]", u""},
        {"Colour", u"x", u""},
    };
    for (const auto& [name, text, expected] : cases) {
        PROP::SetPropValueFromString(&mGauge, name, text);
        EXPECT_EQ(Text(name), expected) << name << " = " << text;
    }
    EXPECT_EQ(mGauge.Ticks, 0) << "what has no text isn't written";
    EXPECT_EQ(mGauge.WideMark, u'a');
    EXPECT_EQ(Graphics::TColor(65793), mGauge.Color);
    PROP::SetPropValueFromString(&mGauge, u"Mark", u"");
    EXPECT_EQ(mGauge.Mark, '\0');
}

TEST_F(PropTypinfoTest, ShowsNamesOfWhatHasNoText)
{
    EXPECT_EQ(Text(u"Inner", true), u"TGauge");
    EXPECT_EQ(Text(u"Columns", true), u"TCollection");
    EXPECT_EQ(Text(u"OnChange", true), u"OnChange");
    EXPECT_EQ(Text(u"Value", true), u"0");
    EXPECT_EQ(Text(u"Shapes", true), u"");
}

TEST_F(PropTypinfoTest, RefusesTextsThatAreNoValue)
{
    const char* const noNumbers[] = {"", "x", "1.5", "clNone2"};
    for (const char* const name : {"Value", "Color", "Cursor"}) {
        for (const char* const text : noNumbers) {
            EXPECT_THROW(PROP::SetPropValueFromString(&mGauge, name, text), Sysutils::EConvertError) << text;
        }
    }
    for (const char* const text : {"", "1,5x", "INF", "NAN", "1e400"}) {
        EXPECT_THROW(PROP::SetPropValueFromString(&mGauge, u"Double", text), Sysutils::EConvertError) << text;
    }
    for (const auto& [name, text] : {
             std::pair("Small", u"256"),
             {"Large", u"4294967296"},
             {"Large", u"-1"},
             {"Cursor", u"70000"},
             {"Mark", u"\u03A9"},
             {"Single", u"1e39"},
             {"Single", u"-1e300"},
             {"Price", u"922337203685477.5808"},
         }) {
        EXPECT_THROW(PROP::SetPropValueFromString(&mGauge, name, text), Typinfo::EPropertyConvertError)
            << name;
    }
    EXPECT_EQ(mGauge.Value, 0);
    EXPECT_EQ(mGauge.Mark, 'a');
    EXPECT_EQ(mGauge.Single, 0);
}

TEST_F(PropTypinfoTest, GivesVariants)
{
    mGauge.Value = -5;
    mGauge.Mark = static_cast<char>(0xE9);
    mGauge.Double = 2.5;
    mGauge.Title = u"text";
    mGauge.Any = 7.25;
    const auto valueOf = [this](const char* name) { return PROP::GetPropValueAsVariant(&mGauge, name); };
    EXPECT_EQ(valueOf("Value"), Variant(-5));
    EXPECT_EQ(valueOf("Value").Type(), System::varInteger);
    EXPECT_EQ(valueOf("Shape").Type(), System::varInteger);
    EXPECT_EQ(valueOf("Mark").Type(), System::varShortInt);
    EXPECT_EQ(valueOf("Mark"), Variant(-23));
    EXPECT_EQ(valueOf("Double").Type(), System::varDouble);
    EXPECT_EQ(valueOf("Title"), Variant(u"text"));
    EXPECT_EQ(valueOf("Any"), Variant(7.25));
    for (const char* const name : {"Ticks", "Shapes", "Inner", "OnChange", "WideMark", "Colour"}) {
        EXPECT_TRUE(valueOf(name).IsNull()) << name;
    }
}

TEST_F(PropTypinfoTest, FollowsPaths)
{
    TGauge* const last = mGauge.Inner->Inner;
    EXPECT_EQ(PROP::GetPropPathObject(&mGauge, u"Inner"), mGauge.Inner);
    EXPECT_EQ(PROP::GetPropPathObject(&mGauge, u"inner.INNER"), last);
    EXPECT_EQ(PROP::GetPropPathObject(&mGauge, u"Inner.Inner.Inner.Inner"), nullptr);
    EXPECT_EQ(PROP::GetPropPathObject(&mGauge, u"Inner.Value"), nullptr);
    EXPECT_EQ(PROP::GetPropPathObject(nullptr, u"Inner.Inner"), nullptr);

    PROP::SetPropPathValueFromString(&mGauge, u"Inner.Inner.Title", u"deep");
    EXPECT_EQ(last->Title, u"deep");
    EXPECT_EQ(PROP::GetPropPathValueAsString(&mGauge, u"Inner.Inner.Title", false), u"deep");
    EXPECT_EQ(PROP::GetPropPathValueAsString(&mGauge, u"Inner Inner.Title", false), u"deep")
        << "a blank parts names too";
    EXPECT_EQ(PROP::GetPropPathValueAsString(&mGauge, u"Inner.Inner.Inner.Title", false), u"")
        << "the last object isn't there";
    EXPECT_EQ(PROP::GetPropPathValueAsString(&mGauge, u"Inner.Nothing", false), u"");
    EXPECT_EQ(PROP::GetPropPathValueAsString(&mGauge, u".Title", false), u"");
    EXPECT_EQ(PROP::GetPropPathValueAsString(&mGauge, u"Value", false), u"0");
    EXPECT_EQ(PROP::GetPropPathValueAsString(&mGauge, u"Inner.Inner", true), u"TGauge");
    EXPECT_NO_THROW(PROP::SetPropPathValueFromString(&mGauge, u"Inner.Inner.Inner.Title", u"x"));
    EXPECT_NO_THROW(PROP::SetPropPathValueFromString(&mGauge, u"Nothing", u"x"));
}

TEST_F(PropTypinfoTest, TakesAGapOnTheWayForAFault)
{
    const ScriptedBoxes boxes({IDYES, IDYES, IDYES, IDYES, IDYES, IDNO, IDNO});
    const auto valueOf = [](System::TObject* object, const char* path) {
        return PROP::GetPropPathValueAsString(object, path, false);
    };
    EXPECT_THROW(valueOf(&mGauge, "Inner.Inner.Inner.Inner.Title"), UTL::XAssert);
    EXPECT_THROW(valueOf(nullptr, "Title"), UTL::XAssert);
    EXPECT_THROW(PROP::SetPropPathValueFromString(nullptr, u"Title", u"x"), UTL::XAssert);
    EXPECT_THROW(static_cast<void>(PROP::HasProp(nullptr, u"Title")), UTL::XAssert);
    EXPECT_THROW(PROP::SetPropValueFromString(&mGauge, static_cast<Typinfo::TPropInfo*>(nullptr), u"x"),
                 UTL::XAssert);
    EXPECT_EQ(valueOf(nullptr, "Title"), u"") << "the user lets it pass";
    EXPECT_TRUE(PROP::GetPropValueAsVariant(&mGauge, static_cast<Typinfo::TPropInfo*>(nullptr)).IsNull());
}

TEST_F(PropTypinfoTest, ReadsAndWritesTheItemsOfACollection)
{
    Classes::TCollection& columns = mGauge.Columns;
    columns.Add();
    columns.Add();
    EXPECT_TRUE(PROP::SetItemPropValuesFromString(&columns, u"Caption", u"[Time,\"Value, kV\",more]"));
    EXPECT_EQ(columns.GetCount(), 2) << "it never grows";
    EXPECT_TRUE(PROP::SetItemPropValuesFromString(&columns, u"width", u"7"));
    UnicodeString text;
    EXPECT_TRUE(PROP::GetItemPropValuesAsString(&columns, u"caption", text));
    EXPECT_EQ(text, u"[Time,\"Value, kV\"]");
    EXPECT_TRUE(PROP::GetItemPropValuesAsString(&columns, u"Width", text));
    EXPECT_EQ(text, u"[7,0]");
    EXPECT_FALSE(PROP::GetItemPropValuesAsString(&columns, u"Height", text));
    EXPECT_EQ(text, u"[7,0]") << "stays as it was";
    EXPECT_FALSE(PROP::SetItemPropValuesFromString(&columns, u"Height", u"[1]"));
}

TEST_F(PropTypinfoTest, LeavesItemsAtThatAHandlerDestroys)
{
    auto* const box = new TFuseBox;
    box->Fuses.Add();
    box->Fuses.Add();
    EXPECT_TRUE(PROP::SetItemPropValuesFromString(&box->Fuses, u"Level", u"[1,2]"));
}

} // namespace

} // namespace PropertyValues
