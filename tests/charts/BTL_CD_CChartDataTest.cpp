// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_CChartData.h"

#include "config/BTL_INI_IniFileEx.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>

namespace
{

using BTL::AChartSeries;
using BTL::CChartData;
using Classes::TMemoryStream;
using System::UnicodeString;

CChartData Sample()
{
    CChartData chart;
    chart.Class = u"line";
    chart.Title = u" \"Run 1\" – Ω=]#; ";
    chart.Tag = -3;
    chart.Type = 4;
    chart.setXAxisTitle(u"t [s]");
    chart.setYAxisTitle(u"U");
    chart.setZAxisTitle(u"I");
    AChartSeries* const first = chart.AddSeries();
    first->Title = u"eins";
    first->AddXY(0.25, 12);
    first->AddXY(std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity());
    AChartSeries* const second = chart.AddSeries();
    second->Tag = 9;
    second->AddXYZ(1, 2, 3);
    chart.AddSeries()->AddX(-1);
    chart.AddSeries();
    return chart;
}

/// All that a chart tells, a line each.
UnicodeString Told(const CChartData& chart)
{
    UnicodeString text = chart.Class + u'\n' + chart.Title + u'\n' + UnicodeString(chart.Tag) + u' ' +
                         UnicodeString(chart.Type) + u'\n' + chart.getXAxisTitle() + u'\n' +
                         chart.getYAxisTitle() + u'\n' + chart.getZAxisTitle();
    for (int i = 0; i < chart.getSeriesCount(); ++i) {
        const AChartSeries& series = *chart.getSeries(i);
        text += u'\n' + series.Title + u' ' + UnicodeString(series.Tag) + u' ' +
                UnicodeString(static_cast<int>(series.Type)) + u' ' + series.getXCommaText() + u' ' +
                series.getYCommaText() + u' ' + series.getZCommaText();
    }
    return text;
}

std::vector<std::uint64_t> BitsOf(const UTL::CDoubleVector& values)
{
    std::vector<std::uint64_t> bits;
    for (const double value : values) {
        bits.push_back(std::bit_cast<std::uint64_t>(value));
    }
    return bits;
}

class ChartFileTest : public testing::Test
{
protected:
    Support::TempFolder mFolder;
    std::filesystem::path mFile = mFolder.Path() / "run.chart";
    UnicodeString mPath = mFile;
};

TEST_F(ChartFileTest, ComesBackFromAFile)
{
    const CChartData chart = Sample();
    ASSERT_TRUE(chart.FitsFile());
    chart.SaveToFile(mPath);
    CChartData loaded;
    loaded.AddSeries();
    loaded.LoadFromFile(mPath);
    EXPECT_EQ(Told(loaded), Told(chart));
    EXPECT_EQ(loaded.GetMaxYValue(), 12);
    EXPECT_EQ(loaded.GetMinXValue(), -1);
    CChartData empty;
    loaded.LoadFromFile(mFolder.Path() / "none");
    EXPECT_EQ(Told(loaded), Told(empty));
}

TEST_F(ChartFileTest, LeavesOtherSectionsOfTheFile)
{
    std::ofstream(mFile) << "; note\n[Other]\nKey=1\n";
    Sample().SaveToFile(mPath);
    std::ifstream stream(mFile);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_NE(text.find("; note\n[Other]\nKey=1\n"), std::string::npos) << text;
}

TEST_F(ChartFileTest, RefusesWhatWouldNotComeBack)
{
    std::ofstream(mFile) << "stays";
    const auto refuses = [&](const CChartData& chart) {
        EXPECT_FALSE(chart.FitsFile());
        EXPECT_THROW(chart.SaveToFile(mPath), Sysutils::Exception);
        std::ifstream stream(mFile);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "stays");
    };
    CChartData lines = Sample();
    lines.setYAxisTitle(u"two\nlines");
    refuses(lines);
    CChartData inSeries = Sample();
    inSeries.getSeries(2)->Title = u"two\rlines";
    refuses(inSeries);
    CChartData longTitle = Sample();
    longTitle.Class = UnicodeString::StringOfChar(u'x', 65535);
    refuses(longTitle);
    CChartData otherType;
    AChartSeries* const flat = otherType.AddSeries();
    flat->AddXY(1, 2);
    flat->Type = AChartSeries::XYZ;
    refuses(otherType);
}

TEST_F(ChartFileTest, TellsHowLongAListMayBe)
{
    // 32,766 values take 65,531 characters, and two brackets.
    CChartData chart;
    AChartSeries* const series = chart.AddSeries();
    for (int i = 0; i < 32'766; ++i) {
        series->AddX(7);
    }
    ASSERT_TRUE(chart.FitsFile());
    chart.SaveToFile(mPath);
    CChartData loaded;
    loaded.LoadFromFile(mPath);
    EXPECT_EQ(loaded.getSeries(0)->getXValues(), series->getXValues());
    series->AddX(7);
    EXPECT_FALSE(chart.FitsFile());

    CChartData digits;
    AChartSeries* const fine = digits.AddSeries();
    for (int i = 0; i < 4'000; ++i) {
        fine->AddXY(1, 1. / 3);
    }
    EXPECT_FALSE(digits.FitsFile());
    BTL::CMemIniFile ini(u"\\no\\such\\file.ini");
    digits.SaveToIni(&ini);
    loaded.LoadFromIni(&ini);
    EXPECT_EQ(Told(loaded), Told(digits)) << "other stores hold lists of any length";
}

TEST_F(ChartFileTest, RaisesForAFileThatCannotBeWritten)
{
    EXPECT_THROW(Sample().SaveToFile(mFolder.Path() / "no" / "folder" / "x"), Sysutils::Exception);
}

TEST_F(ChartFileTest, LeavesTheChartWhenTheFileIsDamaged)
{
    const std::string series = "[Series_0]\nType=2\nX=[1,2]\nY=[3,4]\n";
    const std::string cases[] = {"[Chart]\nSeriesCount=2000000000\n" + series,
                                 "[Chart]\nSeriesCount=2\n" + series,
                                 "[Chart]\nSeriesCount=1\n",
                                 "[Chart]\nSeriesCount=1\n[Series_0]\nType=4\n",
                                 "[Chart]\nSeriesCount=1\n[Series_0]\nType=-1\n",
                                 "[Chart]\nSeriesCount=1\n[Series_0]\nType=2\nX=[1,2]\nY=[3]\n",
                                 "[Chart]\nSeriesCount=1\n[Series_0]\nType=1\nX=[1,2\n"};
    for (const std::string& text : cases) {
        SCOPED_TRACE(text);
        std::ofstream(mFile) << text;
        CChartData chart = Sample();
        AChartSeries* const first = chart.getSeries(0);
        EXPECT_THROW(chart.LoadFromFile(mPath), Sysutils::Exception);
        EXPECT_EQ(Told(chart), Told(Sample()));
        EXPECT_EQ(chart.getSeries(0), first);
    }
    std::ofstream(mFile) << "[Chart]\nSeriesCount=-5\nTitle=x\n";
    CChartData chart = Sample();
    chart.LoadFromFile(mPath);
    EXPECT_EQ(chart.Title, u"x");
    EXPECT_EQ(chart.getSeriesCount(), 0);
}

TEST(ChartStreamTest, KeepsEachBit)
{
    CChartData chart = Sample();
    chart.Title = u"two\nlines";
    AChartSeries* const series = chart.AddSeries();
    const std::uint64_t bits[] = {0x7FF8000000000001, 0xFFF0000000000000, 0x8000000000000000, 1,
                                  std::bit_cast<std::uint64_t>(1. / 3)};
    for (int i = 0; i < 20'000; ++i) {
        series->AddXY(std::bit_cast<double>(bits[i % 5]), i / 3.);
    }
    TMemoryStream stream;
    stream.WriteBuffer("in front", 8);
    chart.SaveToStream(&stream);
    const auto end = stream.getPosition();
    stream.WriteBuffer("behind", 6);
    stream.setPosition(8);
    CChartData loaded;
    loaded.LoadFromStream(&stream);
    EXPECT_EQ(stream.getPosition(), end);
    EXPECT_EQ(Told(loaded), Told(chart));
    EXPECT_EQ(BitsOf(loaded.getSeries(4)->getXValues()), BitsOf(series->getXValues()));
    EXPECT_EQ(BitsOf(loaded.getSeries(4)->getYValues()), BitsOf(series->getYValues()));
}

TEST(ChartStreamTest, LeavesTheChartWhenTheStreamEnds)
{
    TMemoryStream whole;
    Sample().SaveToStream(&whole);
    const auto* const bytes = static_cast<const char*>(whole.getMemory());
    for (System::Int64 length = 0; length < whole.getSize(); ++length) {
        TMemoryStream part;
        part.WriteBuffer(bytes, length);
        part.setPosition(0);
        CChartData chart;
        chart.Title = u"stays";
        EXPECT_THROW(chart.LoadFromStream(&part), Classes::EReadError) << length;
        EXPECT_EQ(chart.Title, u"stays");
        EXPECT_EQ(chart.getSeriesCount(), 0);
    }
}

TEST(ChartStreamTest, RefusesDamage)
{
    TMemoryStream stream;
    CChartData().SaveToStream(&stream);
    const auto with = [&](System::Int64 offset, std::int32_t value) {
        TMemoryStream damaged;
        damaged.WriteBuffer(stream.getMemory(), stream.getSize());
        damaged.setPosition(offset);
        damaged.WriteBuffer(&value, sizeof value);
        damaged.setPosition(0);
        CChartData chart;
        chart.LoadFromStream(&damaged);
    };
    const System::Int64 seriesCount = stream.getSize() - 4;
    EXPECT_NO_THROW(with(seriesCount, 0));
    EXPECT_THROW(with(0, 0), Sysutils::Exception) << "the mark";
    EXPECT_THROW(with(8, -1), Sysutils::Exception) << "the length of a text";
    EXPECT_THROW(with(8, 0x7FFFFFFF), Classes::EReadError);
    EXPECT_THROW(with(seriesCount, -1), Sysutils::Exception);
    EXPECT_THROW(with(seriesCount, 0x7FFFFFFF), Classes::EReadError);
}

TEST(ChartKindTest, MakesStoredSeries)
{
    CChartData chart;
    AChartSeries source;
    source.AddX(3);
    for (AChartSeries* const from : {static_cast<AChartSeries*>(nullptr), &source}) {
        const AChartSeries* const made = chart.NewSeries(from);
        EXPECT_NE(dynamic_cast<const BTL::CChartSeries*>(made), nullptr);
        EXPECT_EQ(made->getXValues().size(), from == nullptr ? 0U : 1U);
        delete made;
    }
    const CChartData copy = Sample();
    CChartData assigned;
    assigned.AddSeries();
    assigned = copy;
    copy.getSeries(0)->AddXY(1, 1);
    EXPECT_EQ(Told(assigned), Told(Sample()));
}

} // namespace
