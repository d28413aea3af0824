// SPDX-License-Identifier: MIT
#include "properties/objects/PROP_Property.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/toolkit/MessageBox.h"
#include "properties/objects/Gauges.h"
#include "properties/values/PROP_Filter.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using Gauges::Lines;
using Gauges::TGauge;
using PROP::CFilter;
using PROP::CProperties;
using PROP::CProperty;
using System::UnicodeString;

TEST(PropertyTest, IsParsedByTheFirstRuleThatFits)
{
    for (const auto& [text, name, value] : {
             std::tuple(u"Enabled(false)", u"Enabled", u"false"),
             {u"a=b=c", u"a", u"b=c"},
             {u"a(b=c)", u"a", u"b=c"},
             {u"a=b(c)", u"a=b", u"c"},
             {u"a(b)(c)", u"a", u"b)(c"},
             {u"a(bc", u"a", u"b"},
             {u"a(", u"a", u""},
             {u"a()", u"a", u""},
             {u"(b)", u"", u"b"},
             {u"=", u"", u""},
             {u"visible", u"Visible", u"true"},
             {u"invisible", u"Visible", u"false"},
             {u"readonly", u"ReadOnly", u"true"},
             {u"required", u"Required", u"true"},
             {u"active", u"Active", u"true"},
             {u"inactive", u"Active", u"false"},
             {u"Visible", u"", u""},
             {u"word", u"", u""},
             {u"", u"", u""},
         }) {
        SCOPED_TRACE(UnicodeString(text));
        EXPECT_EQ(CProperty(UnicodeString(text)), CProperty(UnicodeString(name), UnicodeString(value)));
    }
}

TEST(PropertyTest, StaysAsItIsIfNoRuleFits)
{
    CProperty property(u"Hint", UnicodeString(u"x"));
    property.SetProperty(u"Visible");
    property.SetProperty(u"");
    EXPECT_EQ(property.ToString(), u"Hint=x");
}

TEST(PropertyTest, IsToldInItsShortForm)
{
    for (const auto& [name, value, text] : {
             std::tuple(u"Visible", u"true", u"visible"),
             {u"Visible", u"True", u"invisible"},
             {u"Visible", u"false", u"invisible"},
             {u"ReadOnly", u"false", u"readonly"},
             {u"Required", u"", u"required"},
             {u"Active", u"true", u"active"},
             {u"Active", u"no", u"inactive"},
             {u"visible", u"true", u"visible(true)"},
             {u"Hint", u"a)b", u"Hint(a)b)"},
             {u"", u"", u"()"},
         }) {
        SCOPED_TRACE(UnicodeString(name) + u"=" + value);
        EXPECT_EQ(CProperty(UnicodeString(name), UnicodeString(value)).GetPropString(), text);
    }
}

TEST(PropertyTest, IsTakenOfAnObjectByName)
{
    TGauge gauge;
    gauge.Count = 7;
    EXPECT_EQ(CProperty(u"Count", &gauge).ToString(), u"Count=7");
    EXPECT_EQ(CProperty(u"Missing", &gauge).ToString(), u"Missing=");
    CProperty named(u"Name", UnicodeString(u"Count"));
    named.SetProperty(named.getValue(), &gauge);
    EXPECT_EQ(named.ToString(), u"Count=7");
    EXPECT_THROW(CProperty(u"Count", static_cast<System::TObject*>(nullptr)), UTL::XAssert);
}

void Apply(TGauge& gauge, const UnicodeString& name, const UnicodeString& value)
{
    CProperty(name, value).ApplyProperty(&gauge);
}

TEST(PropertyTest, IsAppliedAlongItsPath)
{
    TGauge gauge;
    TGauge next;
    gauge.Next = &next;
    Gauges::AddChannel(gauge, u"a");
    Gauges::AddChannel(gauge, u"b");

    Apply(gauge, u"Count", u"5");
    Apply(gauge, u"next.next", u"no effect");
    Apply(gauge, u"Next.Text", u"far");
    Apply(gauge, u"Next.Missing", u"x");
    Apply(gauge, u"Next.Font.Name", u"Arial");
    Apply(gauge, u"Lines", u"[x,y]");
    Apply(gauge, u"Channels.Caption", u"[one,\"two, or more\",three]");
    EXPECT_EQ(gauge.Count, 5);
    EXPECT_EQ(next.Text, u"far");
    EXPECT_EQ(next.getFont()->getName(), u"Arial");
    EXPECT_EQ(gauge.getLines()->getCommaText(), u"x,y");
    CFilter filter;
    filter.getProperties() << u"Channels";
    filter.getItemProperties() << u"Caption";
    CProperties channels;
    channels.SetProperties(&gauge, &filter);
    EXPECT_EQ(Lines(channels), "Channels.Caption=[one,\"two, or more\"]\n");
}

TEST(PropertyTest, OfNoObjectIsAFault)
{
    TGauge gauge;
    const CProperty count(u"Count", UnicodeString(u"5"));
    EXPECT_THROW(count.ApplyProperty(nullptr), UTL::XAssert);
    EXPECT_THROW(Apply(gauge, u"Next.Count", u"5"), UTL::XAssert);
    EXPECT_THROW(Apply(gauge, u"Next.Next.Count", u"5"), UTL::XAssert);
    // Let pass, nothing is written.
    Support::ScriptedBoxes boxes({IDNO, IDNO, IDNO, IDNO, IDNO, IDNO, IDNO, IDNO});
    count.ApplyProperty(nullptr);
    Apply(gauge, u"Next.Next.Count", u"5");
    EXPECT_EQ(gauge.Count, 0);
}

TEST(PropertyTest, LeavesAnEnumerationAtAWrongName)
{
    TGauge gauge;
    gauge.Active = true;
    Apply(gauge, u"Active", u"perhaps");
    Apply(gauge, u"Active", u"");
    EXPECT_TRUE(gauge.Active);
    Apply(gauge, u"Active", u"FALSE");
    EXPECT_FALSE(gauge.Active);
}

TEST(PropertiesTest, KeepTheOrderAndFindTheFirst)
{
    CProperties properties;
    properties.AddProperty(u"a", u"1");
    properties.AddProperty(CProperty(u"b(2)"));
    properties.AddProperty(u"a", u"3");
    EXPECT_EQ(properties.FindProperty(u"a")->getValue(), u"1");
    EXPECT_EQ(properties.FindProperty(u"A"), nullptr);
    properties.SetProperty(u"a", u"4");
    properties.SetProperty(u"c", u"5");
    EXPECT_EQ(Lines(properties), "a=4\nb=2\na=3\nc=5\n");
    properties.DeleteProperty(u"a");
    properties.DeleteProperty(u"x");
    EXPECT_EQ(Lines(properties), "b=2\na=3\nc=5\n");

    Classes::TStringList lines;
    lines.Add(u"former");
    properties.GetProperties(&lines);
    EXPECT_EQ(lines.getCommaText(), u"b=2,a=3,c=5");
    CProperties again;
    again.AddProperties(&lines);
    EXPECT_EQ(Lines(again), Lines(properties));
    again.AddProperties(nullptr);
    again.clear();
    EXPECT_TRUE(again.empty());
}

TEST(PropertiesTest, TellWhatDiffers)
{
    CProperties former;
    CProperties present;
    for (const char16_t* const name : {u"same", u"other", u"formerAlone"}) {
        former.AddProperty(name, u"1");
    }
    present.AddProperty(u"presentAlone", u"2");
    present.AddProperty(u"other", u"2");
    present.AddProperty(u"other", u"1");
    present.AddProperty(u"same", u"1");
    CProperties difference;
    difference.AddProperty(u"left", u"over");
    former.GetDifferenceOf(present, difference);
    EXPECT_EQ(Lines(difference), "other=2\n");
    present.GetDifferenceOf(former, present);
    EXPECT_EQ(Lines(present), "other=1\n");
}

/// So many that a search through all of them for each name would take far longer.
TEST(PropertiesTest, CompareListsOfAnyLength)
{
    constexpr int count = 30'000;
    CProperties former;
    CProperties present;
    for (int i = 0; i < count; ++i) {
        former.AddProperty(u"P" + UnicodeString(i), u"1");
        present.AddProperty(u"P" + UnicodeString(count - 1 - i), i % 1000 == 0 ? u"2" : u"1");
        present.AddProperty(u"P" + UnicodeString(count - 1 - i), u"3");
    }
    CProperties difference;
    former.GetDifferenceOf(present, difference);
    EXPECT_EQ(difference.size(), count / 1000);
}

TEST(PropertiesTest, TakeWhatTheFilterTakes)
{
    TGauge gauge;
    gauge.Text = u"5 µm";
    gauge.getLines()->setCommaText(u"x,\"y z\"");
    CFilter filter;
    filter.getProperties().setCommaText(u"Text,Lines,Notes,Size,Count");
    CProperties properties;
    properties.AddProperty(u"kept", u"");
    properties.AddProperties(&gauge, &filter);
    EXPECT_EQ(Lines(properties), "kept=\nText=5 µm\nCount=0\nLines=[x,\"y z\"]\nNotes=[x,\"y z\"]\n");

    // A name along the path must be taken too, and the class of each object.
    filter.getProperties() << u"Font";
    filter.getProperties() >> u"Lines" >> u"Notes" >> u"Text" >> u"Count";
    properties.SetProperties(&gauge, &filter);
    EXPECT_EQ(Lines(properties), "Font.Size=8\n");
    filter.getNotClasses() << u"TFont";
    properties.SetProperties(&gauge, &filter);
    EXPECT_TRUE(properties.empty());
    properties.SetProperties(nullptr, nullptr);
    EXPECT_TRUE(properties.empty());
}

TEST(PropertiesTest, TakeItemsByTheFilterAlone)
{
    TGauge gauge;
    Gauges::AddChannel(gauge, u"a b");
    Gauges::AddChannel(gauge, u"");
    CFilter filter;
    filter.getProperties() << u"Channels";
    CProperties properties;
    properties.SetProperties(&gauge, &filter);
    EXPECT_TRUE(properties.empty());
    filter.getItemProperties().setCommaText(u"Number,Caption,Missing");
    properties.SetProperties(&gauge, &filter);
    EXPECT_EQ(Lines(properties), "Channels.Caption=[\"a b\",]\nChannels.Number=[0,0]\n");
    properties.SetProperties(&gauge, nullptr);
    EXPECT_EQ(properties.FindProperty(u"Channels.Caption"), nullptr);
}

TEST(PropertiesTest, NeverEnterAnObjectAgainThatTheyAreIn)
{
    TGauge a;
    TGauge b;
    a.Next = &b;
    b.Next = &a;
    CProperties properties;
    properties.SetProperties(&a, nullptr);
    EXPECT_NE(properties.FindProperty(u"Next.Count"), nullptr);
    EXPECT_EQ(properties.FindProperty(u"Next.Next.Count"), nullptr);
    // Beside it, it is taken again.
    EXPECT_NE(properties.FindProperty(u"Next.Font.Name"), nullptr);
}

/// An object with two others, which may be one.
class TFork : public System::TObject
{
    TRS8_BTL_CLASS(TFork, System::TObject)

public:
    int Number = 0;
    TFork* Left = nullptr;
    TFork* Right = nullptr;
};

System::TMetaClass* TFork::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TFork>(u"TFork")
                                                  .Property(u"Number", &TFork::Number)
                                                  .Property(u"Left", &TFork::Left)
                                                  .Property(u"Right", &TFork::Right)
                                                  .Build();
    return record;
}

TEST(PropertiesTest, TakeAnObjectOnEachOfItsPathsWhileTheseAreFew)
{
    std::array<TFork, 3> few;
    few[0].Left = few[0].Right = &few[1];
    few[1].Left = few[1].Right = &few[2];
    CProperties properties;
    properties.SetProperties(few.data(), nullptr);
    EXPECT_EQ(properties.size(), 1 + 2 + 4);

    // There are as many paths as a number of 50 bits counts.
    std::array<TFork, 50> many;
    for (std::size_t i = 0; i + 1 < many.size(); ++i) {
        many[i].Number = static_cast<int>(i);
        many[i].Left = many[i].Right = &many[i + 1];
    }
    properties.SetProperties(many.data(), nullptr);
    EXPECT_LT(properties.size(), 1000);
    UnicodeString path;
    for (std::size_t i = 0; i + 1 < many.size(); ++i) {
        ASSERT_NE(properties.FindProperty(path + u"Number"), nullptr) << i;
        EXPECT_EQ(properties.FindProperty(path + u"Number")->getValue(), UnicodeString(int(i)));
        path += u"Left.";
    }
}

TEST(PropertiesTest, DoNotGoDeeperThanAnyDesign)
{
    std::vector<std::unique_ptr<TGauge>> chain;
    TGauge* next = nullptr;
    for (int i = 0; i < 10'000; ++i) {
        chain.push_back(std::make_unique<TGauge>());
        chain.back()->Next = std::exchange(next, chain.back().get());
    }
    CFilter filter;
    filter.getProperties().setCommaText(u"Count,Next");
    CProperties properties;
    properties.SetProperties(next, &filter);
    EXPECT_EQ(properties.size(), 64);
}

/// All but what has no text, and the ones that can't be written.
CFilter ReturningKinds()
{
    CFilter filter;
    filter.getProperties().setCommaText(
        u"Text,Narrow,Count,Mark,Active,Value,Color,Limit,Lines,Channels,Font,Name,Size,Charset,Pitch");
    filter.getItemProperties().setCommaText(u"Caption,Number");
    return filter;
}

TEST(PropertiesTest, ComeBackWhenTheyAreApplied)
{
    TGauge gauge;
    gauge.Text = u" \"5\tµm\" = [x], \u4F60\r\nsecond line ";
    gauge.Narrow = "\xA7 5";
    gauge.Count = -2147483647 - 1;
    gauge.Mark = '\xE9';
    gauge.Active = true;
    gauge.Value = -1.25e-300;
    gauge.Color = Graphics::clYellow;
    gauge.setLimit(99);
    gauge.getLines()->setText(u"a,b\r\n\r\n\"c\"\r\n");
    gauge.getFont()->setSize(17);
    gauge.getFont()->setName(u"Courier New");
    Gauges::AddChannel(gauge, u"[a, \"b\"]");
    const CFilter filter = ReturningKinds();
    CProperties taken;
    taken.SetProperties(&gauge, &filter);

    TGauge other;
    Gauges::AddChannel(other, u"other");
    taken.ApplyProperties(&other);
    EXPECT_EQ(other.Text, gauge.Text);
    EXPECT_EQ(other.Value, gauge.Value);
    EXPECT_EQ(other.getLines()->getText(), gauge.getLines()->getText());
    CProperties again;
    again.SetProperties(&other, &filter);
    EXPECT_EQ(Lines(again), Lines(taken));
    EXPECT_GT(taken.size(), 10);
}

TEST(PropertiesTest, OfAColourWithoutANameRaise)
{
    TGauge gauge;
    gauge.Color = static_cast<Graphics::TColor>(0x123456);
    CFilter filter;
    filter.getProperties() << u"Color";
    CProperties taken;
    taken.SetProperties(&gauge, &filter);
    EXPECT_EQ(Lines(taken), "Color=\n");
    EXPECT_THROW(taken.ApplyProperties(&gauge), Sysutils::EConvertError);
    EXPECT_EQ(gauge.Color, static_cast<Graphics::TColor>(0x123456));
}

TEST(PropertiesTest, KeepWhatWasAppliedBeforeAnException)
{
    TGauge gauge;
    CProperties properties;
    properties.AddProperty(u"Count", u"1");
    properties.AddProperty(u"Limit", u"101");
    properties.AddProperty(u"Text", u"behind");
    EXPECT_THROW(properties.ApplyProperties(&gauge), Sysutils::Exception);
    EXPECT_EQ(gauge.Count, 1);
    EXPECT_EQ(gauge.Text, u"");
    properties.DeleteProperty(u"Limit");
    properties.ApplyProperties(&gauge);
    EXPECT_EQ(gauge.Text, u"behind");
}

/// Ends with the first change of its text.
class TShortLived : public TGauge
{
    TRS8_BTL_CLASS(TShortLived, TGauge)

public:
    using TGauge::TGauge;

    System::UnicodeString getEnd() const { return {}; }
    void setEnd(const System::UnicodeString& /*text*/) { delete this; }
};

System::TMetaClass* TShortLived::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TShortLived>(u"TShortLived")
            .Property(u"End", &TShortLived::getEnd, &TShortLived::setEnd)
            .Build();
    return record;
}

TEST(PropertiesTest, EndWithTheComponentThatIsDestroyed)
{
    Classes::TComponent owner;
    auto* const component = new TShortLived(&owner);
    CProperties properties;
    properties.AddProperty(u"End", u"now");
    properties.AddProperty(u"Text", u"behind");
    properties.ApplyProperties(component);
    EXPECT_EQ(owner.GetComponentCount(), 0);
}

} // namespace
