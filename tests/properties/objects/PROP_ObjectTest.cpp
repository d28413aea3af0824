// SPDX-License-Identifier: MIT
#include "properties/objects/PROP_Object.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "properties/objects/Gauges.h"
#include "properties/values/PROP_Filter.h"

#include <gtest/gtest.h>

namespace
{

using Gauges::Lines;
using Gauges::TGauge;
using PROP::CFilter;
using PROP::CObject;
using PROP::CProperties;
using System::UnicodeString;
using TObjectPtr = UTL::GAutoPtr<CObject>;

TEST(ObjectTest, TakesNameAndPropertiesOfAComponent)
{
    Classes::TComponent application;
    auto* const form = new Classes::TComponent(&application);
    form->setName(u"FormMain");
    auto* const frame = new TGauge(form);
    frame->setName(u"Frame");
    auto* const gauge = new TGauge(frame);
    gauge->setName(u"Gauge");
    gauge->Count = 3;
    CFilter filter;
    filter.getProperties().setCommaText(u"Count,Serial");

    CObject object(gauge, &filter);
    EXPECT_EQ(object.getName(), u"FormMain.Frame.Gauge");
    EXPECT_EQ(Lines(object.getProperties()), "Count=3\nSerial=4711\n");
    object.SetProperties(frame, &filter);
    EXPECT_EQ(object.getName(), u"Frame");
    object.SetProperties(form, &filter);
    EXPECT_EQ(object.getName(), u"FormMain");
    EXPECT_TRUE(object.getProperties().empty());
}

TEST(ObjectTest, IsOfAComponentAlone)
{
    TGauge gauge;
    EXPECT_THROW(CObject(gauge.getFont(), nullptr), UTL::XAssert);
    EXPECT_THROW(CObject(static_cast<System::TObject*>(nullptr), nullptr), UTL::XAssert);
}

TEST(ObjectTest, IsReadFromItsShortForm)
{
    for (const auto& [text, lines] : {
             std::pair(u"", "=\n"),
             {u"visible", "Visible=true\n"},
             {u"x,y", "=\n"},
             {u"Hint(a,b)", "Hint=a,b\n"},
             {u"visible,\"Hint(a,b)\",word", "Visible=true\nHint=a,b\n=\n"},
             {u"\"visible\"", "Visible=true\n"},
         }) {
        SCOPED_TRACE(UnicodeString(text));
        EXPECT_EQ(Lines(CObject(u"Edit1", UnicodeString(text)).getProperties()), lines);
    }
}

TEST(ObjectTest, IsReadFromTheTextOfItsOwnProperty)
{
    CObject object(u"Edit1", UnicodeString(u"Hint(active=1)"));
    object.SetProperties(object.getProperties().begin()->getValue());
    EXPECT_EQ(Lines(object.getProperties()), "active=1\n");
}

TEST(ObjectTest, HandsItsPropertiesOn)
{
    CObject object(u"Gauge", UnicodeString(u"\"Count(1)\",inactive"));
    object.SetProperty(u"Count", u"2");
    object.SetProperty(u"Text", u"x");
    object.DeleteProperty(u"Missing");
    EXPECT_EQ(object.GetPropString(), u"Count(2),inactive,Text(x)");
    UnicodeString value = u"former";
    EXPECT_FALSE(object.GetValue(u"count", value));
    EXPECT_EQ(value, u"former");
    EXPECT_TRUE(object.GetValue(u"Count", value));
    EXPECT_EQ(value, u"2");
    object.DeleteProperty(u"Text");
    object.AddProperty(u"Count", u"3");

    TGauge gauge;
    gauge.Active = true;
    object.ApplyProperties(&gauge);
    EXPECT_EQ(gauge.Count, 3);
    EXPECT_FALSE(gauge.Active);
    CProperties all;
    all.AddProperty(u"left", u"over");
    object.GetProperties(all);
    EXPECT_EQ(Lines(all), Lines(object.getProperties()));
}

TEST(ObjectTest, GivesTheOthersValuesAsTheDifference)
{
    const CObject former(u"a", UnicodeString(u"\"Count(1)\",\"Text(x)\""));
    const CObject present(u"b", UnicodeString(u"\"Text(y)\",\"Count(1)\""));
    CProperties difference;
    former.GetDifferenceOf(present, difference);
    EXPECT_EQ(Lines(difference), "Text=y\n");
}

} // namespace
