// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_AChartSeries.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

using BTL::AChartSeries;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(ChartSeriesTest, TakesItsTypeFromTheFirstPoint)
{
    AChartSeries series;
    EXPECT_EQ(series.Type, 0);
    series.Title = u"U";
    series.Tag = 7;
    series.AddXY(1, 2);
    EXPECT_EQ(series.Type, AChartSeries::XY);
    EXPECT_THROW(series.AddX(1), UTL::XAssert);
    EXPECT_THROW(series.AddXYZ(1, 2, 3), UTL::XAssert);
    EXPECT_EQ(series.getXValues().size(), 1U);
    series.ClearValues();
    EXPECT_EQ(series.Type, AChartSeries::None);
    EXPECT_EQ(series.Title, u"U");
    EXPECT_EQ(series.Tag, 7);
    series.AddXYZ(1, 2, 3);
    EXPECT_EQ(series.getXCommaText(), u"1");
    EXPECT_EQ(series.getYCommaText(), u"2");
    EXPECT_EQ(series.getZCommaText(), u"3");
    EXPECT_THROW(series.AddXY(1, 2), UTL::XAssert);
}

TEST(ChartSeriesTest, NamesTheFaultOfMixedPoints)
{
    AChartSeries series;
    series.AddXY(1, 2);
    Support::ScriptedBoxes boxes{IDNO, IDNO};
    series.AddX(1);
    series.AddXYZ(1, 2, 3);
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_GT(shown[0].box.text.Pos(u"BTL_CD_AChartSeries"), 0);
    EXPECT_GT(shown[0].box.text.Pos(u"74"), 0);
    EXPECT_GT(shown[1].box.text.Pos(u"91"), 0);
    EXPECT_EQ(series.getXValues().size(), 1U);
    EXPECT_EQ(series.getZValues().size(), 0U);
}

TEST(ChartSeriesTest, ContainsTheCoordinatesOfLowerTypes)
{
    AChartSeries series[4];
    series[1].AddX(1);
    series[2].AddXY(1, 2);
    series[3].AddXYZ(1, 2, 3);
    for (int type = 0; type <= 3; ++type) {
        for (int asked = 1; asked <= 3; ++asked) {
            EXPECT_EQ(series[type].Contains(static_cast<AChartSeries::EType>(asked)), type >= asked);
        }
        EXPECT_EQ(series[type].Contains(AChartSeries::None), type == 0);
        EXPECT_FALSE(series[type].Contains(static_cast<AChartSeries::EType>(4)));
    }
}

TEST(ChartSeriesTest, FindsTheExtremes)
{
    const struct
    {
        std::vector<double> values;
        double min, max;
    } cases[] = {{{}, 0, 0},
                 {{-3, -1}, -3, -1},
                 {{2}, 2, 2},
                 {{NaN, 5, NaN, 3, NaN}, 3, 5},
                 {{NaN, NaN}, 0, 0},
                 {{1, Infinity, NaN}, 1, Infinity},
                 {{-Infinity, 1}, -Infinity, 1},
                 {{Infinity}, Infinity, Infinity},
                 {{NaN, -Infinity}, -Infinity, -Infinity}};
    for (const auto& test : cases) {
        AChartSeries series;
        for (const double value : test.values) {
            series.AddXYZ(0, value, value);
        }
        SCOPED_TRACE(series.getYCommaText());
        EXPECT_EQ(series.GetMinYValue(), test.min);
        EXPECT_EQ(series.GetMaxYValue(), test.max);
        EXPECT_EQ(series.GetMaxValue(2), test.max) << "the upper one is asked for first";
        EXPECT_EQ(series.GetMinValue(2), test.min);
        EXPECT_EQ(series.GetMinXValue(), 0);
    }
    const AChartSeries series;
    for (const int axis : {-1, 3}) {
        EXPECT_EQ(series.GetMinValue(axis), AChartSeries::UnsetMin);
        EXPECT_EQ(series.GetMaxValue(axis), AChartSeries::UnsetMax);
    }
}

TEST(ChartSeriesTest, KeepsExtremesUntilTheyAreCleared)
{
    AChartSeries series;
    series.AddX(5);
    EXPECT_EQ(series.GetMinValue(0), 5);
    series.AddX(1);
    EXPECT_EQ(series.GetMinValue(0), 5);
    EXPECT_EQ(series.GetMaxValue(0), 5) << "never asked for before";
    series.AddX(9);
    EXPECT_EQ(series.GetMaxValue(0), 5);

    AChartSeries assigned;
    assigned = series;
    EXPECT_EQ(assigned.GetMinValue(0), 5);
    EXPECT_EQ(AChartSeries(series).GetMinValue(0), 1);
    series.ClearMinMaxValues();
    EXPECT_EQ(series.GetMinValue(0), 1);
    EXPECT_EQ(series.GetMaxValue(0), 9);
    series.ClearValues();
    series.AddX(3);
    EXPECT_EQ(series.GetMaxValue(0), 3);
    EXPECT_EQ(series.GetMinValue(0), 3);
}

TEST(ChartSeriesTest, TakesTheExtremesOfOtherValues)
{
    AChartSeries series;
    series.AddX(5);
    UTL::CDoubleVector values{7, 8};
    EXPECT_EQ(series.GetMaxValue(0, values), 8);
    EXPECT_EQ(series.GetMaxXValue(), 8) << "it is kept";
    EXPECT_EQ(series.GetMinXValue(), 5);
    values[0] = 1;
    EXPECT_EQ(series.GetMinValue(1, values), 1);
    values[0] = 0.5;
    series.ClearMinMaxValues();
    EXPECT_EQ(series.GetMinValue(1, values), 0.5);
    EXPECT_EQ(series.GetMinValue(3, values), AChartSeries::UnsetMin);
    EXPECT_EQ(series.GetMaxValue(-1, values), AChartSeries::UnsetMax);
}

} // namespace
