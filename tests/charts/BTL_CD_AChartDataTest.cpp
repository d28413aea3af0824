// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_AChartData.h"

#include "foundation/UTL_ASRT_Assert.h"

#include <gtest/gtest.h>

namespace
{

using BTL::AChartData;
using BTL::AChartSeries;

/// A series that counts how many of its kind there are.
class CountedSeries : public AChartSeries
{
public:
    CountedSeries() { ++Count; }
    explicit CountedSeries(const AChartSeries& other) : AChartSeries(other) { ++Count; }
    CountedSeries(const CountedSeries&) = delete;
    CountedSeries& operator=(const CountedSeries&) = delete;
    ~CountedSeries() override { --Count; }

    static int Count;
};

int CountedSeries::Count = 0;

class CountedChart : public AChartData
{
public:
    CountedChart() = default;
    CountedChart(const CountedChart& other) : AChartData(other) { CopySeries(other); }
    CountedChart& operator=(const CountedChart&) = default;
    ~CountedChart() override = default;

    AChartSeries* NewSeries(AChartSeries* source) override
    {
        return source == nullptr ? new CountedSeries : new CountedSeries(*source);
    }
};

void Fill(AChartData& chart)
{
    chart.Class = u"line";
    chart.Title = u"Run";
    chart.Tag = 3;
    chart.Type = 4;
    chart.setXAxisTitle(u"t");
    chart.setYAxisTitle(u"U");
    chart.setZAxisTitle(u"I");
    chart.AddSeries()->AddXY(1, -3);
    chart.AddSeries()->AddXY(2, -1);
}

TEST(ChartDataTest, OwnsItsSeries)
{
    {
        CountedChart chart;
        Fill(chart);
        EXPECT_EQ(chart.getSeriesCount(), 2);
        EXPECT_EQ(CountedSeries::Count, 2);
        chart.ClearSeries();
        EXPECT_EQ(CountedSeries::Count, 0);
        Fill(chart);
    }
    EXPECT_EQ(CountedSeries::Count, 0);
}

TEST(ChartDataTest, CopiesHaveSeriesOfTheirOwn)
{
    CountedChart chart;
    Fill(chart);
    const CountedChart copy(chart);
    CountedChart assigned;
    assigned.AddSeries();
    assigned = chart;
    CountedChart& same = assigned;
    assigned = same;
    EXPECT_EQ(CountedSeries::Count, 6);
    chart.getSeries(0)->AddXY(5, 5);
    for (const CountedChart* const other : {&copy, static_cast<const CountedChart*>(&assigned)}) {
        EXPECT_EQ(other->getSeriesCount(), 2);
        EXPECT_EQ(other->getSeries(0)->getXCommaText(), u"1");
        EXPECT_EQ(other->Class, u"line");
        EXPECT_EQ(other->Title, u"Run");
        EXPECT_EQ(other->Tag, 3);
        EXPECT_EQ(other->Type, 4);
        EXPECT_EQ(other->getXAxisTitle() + other->getYAxisTitle() + other->getZAxisTitle(), u"tUI");
    }
}

TEST(ChartDataTest, AddsCopiesOfAList)
{
    CountedChart chart;
    Fill(chart);
    EXPECT_EQ(chart.GetMaxYValue(), -1);
    CountedSeries series;
    series.AddXY(7, 8);
    chart.AddSeries(UTL::GSimpleVector<AChartSeries*>{&series, nullptr, chart.getSeries(0)});
    EXPECT_EQ(chart.getSeriesCount(), 4);
    EXPECT_EQ(chart.GetMaxYValue(), 8);
    EXPECT_NE(chart.getSeries(2), &series);
    EXPECT_EQ(chart.getSeries(2)->getYCommaText(), u"8");
    EXPECT_THROW((void)chart.getSeries(4), UTL::XAssert);
}

TEST(ChartDataTest, FindsTheExtremesOfAllSeries)
{
    CountedChart chart;
    EXPECT_EQ(chart.GetMinXValue(), AChartSeries::UnsetMin);
    EXPECT_EQ(chart.GetMaxXValue(), AChartSeries::UnsetMax);
    AChartSeries* const first = chart.AddSeries();
    first->AddXY(2, -3);
    first->AddXY(1, -1);
    EXPECT_EQ(chart.GetMaxValue(1), -1);
    EXPECT_EQ(chart.GetMinXValue(), 1);
    EXPECT_EQ(chart.GetMaxZValue(), 0);
    AChartSeries* const second = chart.AddSeries();
    second->AddX(9);
    EXPECT_EQ(chart.GetMaxXValue(), 9);
    EXPECT_EQ(chart.GetMinXValue(), 1);
    EXPECT_EQ(chart.GetMaxYValue(), 0) << "the series without values counts as 0";
    EXPECT_EQ(chart.GetMinYValue(), -3);
    second->AddX(20);
    second->ClearMinMaxValues();
    EXPECT_EQ(chart.GetMaxXValue(), 9);
    chart.ClearMinMaxValues();
    EXPECT_EQ(chart.GetMaxXValue(), 20);
    EXPECT_THROW(chart.GetMinValue(3), UTL::XAssert);
    EXPECT_THROW(chart.GetMaxValue(-1), UTL::XAssert);
}

TEST(ChartDataTest, TheBaseMakesNoSeries)
{
    AChartData chart;
    EXPECT_EQ(chart.NewSeries(nullptr), nullptr);
    EXPECT_EQ(chart.AddSeries(), nullptr);
    EXPECT_EQ(chart.getSeriesCount(), 0);
    CountedChart other;
    Fill(other);
    chart = other;
    EXPECT_EQ(chart.Title, u"Run");
    EXPECT_EQ(chart.getSeriesCount(), 0);
    chart.SaveToFile(u"\\no\\such\\folder");
    chart.LoadFromFile(u"\\no\\such\\folder");
}

} // namespace
