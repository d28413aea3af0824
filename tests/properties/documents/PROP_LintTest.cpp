// SPDX-License-Identifier: MIT
#include "properties/documents/PROP_Lint.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "properties/documents/PROP_Document.h"
#include "properties/documents/SampleForm.h"
#include "properties/objects/Gauges.h"
#include "properties/values/PROP_Filter.h"

#include <gtest/gtest.h>

#include <optional>
#include <tuple>

namespace
{

using Gauges::TGauge;
using PROP::ELintFault;
using PROP::TLintFinding;
using System::UnicodeString;

/// A gauge with two channels on a form, and nothing next to it.
struct TBench
{
    TBench()
    {
        Gauges::AddChannel(*gauge, u"a");
        Gauges::AddChannel(*gauge, u"b");
    }

    Sample::TForm sample;
    TGauge* gauge = Sample::Made<TGauge>(sample.form, u"Gauge");
};

/// What it finds in order is applied without an exception, and what is no value isn't.
TEST(LintTest, TellsWhatDoesNotFit)
{
    constexpr auto noProperty = ELintFault::NoProperty;
    constexpr auto noValue = ELintFault::NoValue;
    constexpr auto noName = ELintFault::NoName;
    constexpr auto notWritable = ELintFault::NotWritable;
    constexpr auto otherCount = ELintFault::OtherCount;
    TBench bench;
    for (const auto& [name, value, fault] : {
             std::tuple(u"Text", u"x", std::optional<ELintFault>()),
             {u"text", u"", {}},
             {u"Missing", u"x", noProperty},
             {u"", u"", noProperty},
             {u"Count", u"5", {}},
             {u"Count", u"five", noValue},
             {u"Count", u"", noValue},
             {u"Count", u"99999999999", noValue},
             {u"Value", u"1e308", {}},
             {u"Value", u"1e400", noValue},
             {u"Value", u"INF", noValue},
             {u"Color", u"clRed", {}},
             {u"Color", u"$FF", {}},
             {u"Color", u"clNoSuch", noValue},
             {u"Active", u"true", {}},
             {u"Active", u"perhaps", noName},
             {u"Active", u"", noName},
             {u"Mark", u"\u20AC", {}},
             {u"Mark", u"\u4F60", noValue},
             {u"Value", u"1e3", {}},
             {u"Value", u"x", noValue},
             {u"Value", u"", noValue},
             {u"Count", u"$FF", {}},
             {u"Count", u"$80000000", {}},
             {u"Color", u"$80000000", {}},
             {u"Mark", u"", {}},
             {u"Mark", u"ab", {}},
             {u"Narrow", u"\u4F60", {}},
             {u"Ticks", u"1", notWritable},
             {u"Limit", u"100", {}},
             {u"Notes", u"[a", {}},
             {u"Channels", u"", {}},
             {u"Channels.Number", u"[1,2]", {}},
             {u"Style", u"", {}},
             {u"Style", u"[fsBold]", notWritable},
             {u"OnChange", u"Hear", notWritable},
             {u"Serial", u"4711", notWritable},
             {u"Lines", u"[a,b]", {}},
             {u"Lines", u"a", {}},
             {u"Font", u"", {}},
             {u"Font", u"Arial", notWritable},
             {u"Font.Name", u"Arial", {}},
             {u"Font.Size.Name", u"Arial", noProperty},
             {u"Missing.Name", u"Arial", noProperty},
             {u"Font..Name", u"Arial", noProperty},
             {u"Next.Text", u"x", ELintFault::NoObject},
             {u"Next", u"", {}},
             {u"Channels.Caption", u"[x,y]", {}},
             {u"Channels.Caption", u"[x]", otherCount},
             {u"Channels.Caption", u"[x,y,z]", otherCount},
             {u"Channels.Caption", u"", {}},
             {u"Channels.Number", u"[1,y]", noValue},
             {u"Channels.Missing", u"[x,y]", noProperty},
             {u"Channels.Missing", u"", noProperty},
         }) {
        SCOPED_TRACE(UnicodeString(name) + u"=" + value);
        PROP::CFormDoc document(bench.sample.form);
        document.InsertNewObject(u"Gauge")->AddProperty(name, value);
        const std::vector<TLintFinding> findings = PROP::Lint(document, bench.sample.form);
        ASSERT_EQ(findings.size(), fault ? 1U : 0U);
        if (fault) {
            EXPECT_EQ(findings[0], (TLintFinding{u"Gauge", name, value, *fault}));
        }
        if (!fault) {
            EXPECT_NO_THROW(document.Apply());
        } else if (*fault == noValue) {
            EXPECT_THROW(document.Apply(), Sysutils::Exception);
        } else if (*fault == ELintFault::NoObject) {
            EXPECT_THROW(document.Apply(), UTL::XAssert);
        }
    }
}

TEST(LintTest, FindsComponentsAsTheDocumentDoes)
{
    TBench bench;
    PROP::CFormDoc document(bench.sample.form);
    for (const char16_t* const name :
         {u"FormMain", u"BtnStart", u"FormMain.Frame1.EdLimit", u"EdLimit", u"Gone", u"mnSave"}) {
        document.InsertNewObject(name);
    }
    const std::vector<TLintFinding> expected = {{u"EdLimit", {}, {}, ELintFault::NoComponent},
                                                {u"Gone", {}, {}, ELintFault::NoComponent}};
    EXPECT_EQ(PROP::Lint(document, bench.sample.form), expected);
    EXPECT_THROW(static_cast<void>(PROP::Lint(document, nullptr)), UTL::XAssert);
}

TEST(LintTest, FindsNothingInASnapshot)
{
    TBench bench;
    PROP::CFormDoc document(bench.sample.form);
    PROP::CFilter filter;
    filter.getProperties().setCommaText(
        u"Caption,Text,Lines,Left,Color,Cursor,Font,Name,Style,Channels,Visible");
    filter.getItemProperties().setCommaText(u"Caption,Number");
    document.SetProperties(&filter);
    EXPECT_TRUE(PROP::Lint(document, bench.sample.form).empty());
}

TEST(LintTest, LooksAtMenuItemsToo)
{
    Sample::TForm sample;
    const std::vector<TLintFinding> expected = {{u"mnGone", {}, {}, ELintFault::NoComponent},
                                                {u"mnSave", u"ShortCut", u"no key", ELintFault::NoValue},
                                                {u"mnHelp", u"Caption", u"", ELintFault::NoValue},
                                                {u"mnHelp", u"", u"", ELintFault::NoProperty}};
    const auto check = [&](PROP::CMenuDoc&& document) {
        for (const auto& [name, text] : {std::pair(u"mnFile", u"\"x\",\"-\""),
                                         {u"mnGone", u"\"x\""},
                                         {u"mnSave", u"\"x\",\"no key\""},
                                         {u"mnHelp", u"\"\",visible,word"},
                                         {u"ChangeDate......", u"26.11.2026"}}) {
            document.InsertNewObject(name)->SetProperties(text);
        }
        EXPECT_EQ(PROP::Lint(document, sample.form), expected);
    };
    check(PROP::CMenuDoc(sample.mainMenu));
    check(PROP::CMenuDoc(UnicodeString(u"Main")));
}

} // namespace
