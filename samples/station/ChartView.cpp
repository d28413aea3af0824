// SPDX-License-Identifier: MIT
#include "ChartView.h"

#include <TRS8_BTL/platform/runtime/classes/Classes_ClassRegister.h>
#include <TRS8_BTL/platform/visual/controls/Controls_Publish.h>
#include <TRS8_BTL/platform/visual/graphics/Graphics.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Limits.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace Station
{

namespace
{

using Graphics::TColor;
using System::UnicodeString;
using Types::TPoint;
using Types::TRect;

constexpr int Margin = 10;
constexpr int LegendWidth = 250;
constexpr int Divisions = 5;
constexpr TColor LineColor = RGB(222, 226, 230);
constexpr TColor FrameColor = RGB(134, 142, 150);

/// Told apart by those too who don't see red and green.
constexpr std::array<TColor, 8> SeriesColors = {RGB(0, 114, 178),   RGB(213, 94, 0),  RGB(0, 158, 115),
                                                RGB(204, 121, 167), RGB(230, 159, 0), RGB(86, 180, 233),
                                                RGB(90, 70, 160),   RGB(90, 90, 90)};

TColor ColorOf(int index)
{
    return SeriesColors[static_cast<std::size_t>(index) % SeriesColors.size()];
}

UnicodeString ValueText(double value)
{
    return BTL::MeasureFloatToStrW(value, -1, 2);
}

/// The pixel between `from` and `to` that stands for a part from 0 to 1.
int Place(double part, int from, int to)
{
    return from + static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * (to - from)));
}

/// The part of the value in a range; the middle if that has no width.
double PartOf(double value, double min, double max)
{
    return min < max ? (value - min) / (max - min) : 0.5;
}

struct TExtremes
{
    double min;
    double max;
};

/// Of values that there are. The series has them too, but keeps those of its former points.
TExtremes ExtremesOf(const UTL::CDoubleVector& values)
{
    return {values.GetMinValue(), values.GetMaxValue()};
}

// The design finds the class by its name.
const struct TRegistration
{
    TRegistration() { Classes::RegisterClass(System::ClassOf<TChartView>()); }
} registration;

} // namespace

System::TMetaClass* TChartView::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishControl(System::GClassBuilder<TChartView>(u"TChartView"))
            .Property(u"Seconds", &TChartView::getSeconds, &TChartView::setSeconds)
            .Build();
    return record;
}

TChartView::TChartView(Classes::TComponent* owner) : TGraphicControl(owner)
{
    SetBounds(0, 0, 400, 200);
}

void TChartView::setChart(const BTL::CChartData* chart)
{
    mChart = chart;
    Invalidate();
}

void TChartView::setSeconds(double seconds)
{
    mSeconds = seconds;
    Invalidate();
}

TRect TChartView::GetPlot() const
{
    const TRect area = GetClientRect();
    const int lineHeight = getCanvas()->TextHeight(u"0");
    return {.Left = area.Left + Margin,
            .Top = area.Top + Margin,
            .Right = std::max(area.Right - LegendWidth, area.Left + Margin + 1),
            .Bottom = std::max(area.Bottom - Margin - lineHeight, area.Top + Margin + 1)};
}

void TChartView::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.FillRect(GetClientRect());
    const TRect plot = GetPlot();
    PaintAxes(plot);
    const int count = mChart == nullptr ? 0 : mChart->getSeriesCount();
    for (int i = 0; i < count; ++i) {
        PaintSeries(i, plot);
        PaintLegend(i, plot);
    }
}

void TChartView::PaintAxes(const TRect& plot)
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getPen()->setWidth(1);
    for (int i = 0; i <= Divisions; ++i) {
        const double part = static_cast<double>(i) / Divisions;
        const int x = Place(part, plot.Left, plot.Right - 1);
        const int y = Place(part, plot.Top, plot.Bottom - 1);
        canvas.getPen()->setColor(i == 0 ? FrameColor : LineColor);
        canvas.MoveTo(x, plot.Top);
        canvas.LineTo(x, plot.Bottom);
        canvas.getPen()->setColor(i == Divisions ? FrameColor : LineColor);
        canvas.MoveTo(plot.Left, y);
        canvas.LineTo(plot.Right, y);
        const UnicodeString text = ValueText(part * mSeconds) + (i == Divisions ? u" s" : u"");
        const int width = canvas.TextWidth(text);
        canvas.TextOut(std::clamp(x - width / 2, plot.Left, std::max(plot.Left, plot.Right - width)),
                       plot.Bottom + 3, text);
    }
}

void TChartView::PaintSeries(int index, const TRect& plot)
{
    const BTL::AChartSeries& series = *mChart->getSeries(index);
    const UTL::CDoubleVector& values = series.getYValues();
    if (values.empty()) {
        return;
    }
    const TExtremes range = ExtremesOf(values);
    std::vector<TPoint> points;
    for (unsigned i = 0; i < values.size(); ++i) {
        points.push_back(
            {.X = Place(PartOf(series.getXValues().at(i), 0, mSeconds), plot.Left, plot.Right - 1),
             .Y = Place(PartOf(values.at(i), range.min, range.max), plot.Bottom - 4, plot.Top + 3)});
    }
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getPen()->setColor(ColorOf(index));
    canvas.getPen()->setWidth(2);
    canvas.Polyline(points);
}

void TChartView::PaintLegend(int index, const TRect& plot)
{
    constexpr int swatch = 10;
    constexpr int gap = 6;
    Graphics::TCanvas& canvas = *getCanvas();
    const BTL::AChartSeries& series = *mChart->getSeries(index);
    const int height = canvas.TextHeight(series.Title);
    const int left = plot.Right + 2 * gap;
    const int top = plot.Top + index * (2 * height + gap);
    const TColor ground = canvas.getBrush()->getColor();
    canvas.getBrush()->setColor(ColorOf(index));
    canvas.FillRect({.Left = left, .Top = top + 2, .Right = left + swatch, .Bottom = top + 2 + swatch});
    canvas.getBrush()->setColor(ground);
    canvas.TextOut(left + swatch + gap, top, series.Title);
    if (!series.getYValues().empty()) {
        const TExtremes range = ExtremesOf(series.getYValues());
        canvas.TextOut(left + swatch + gap, top + height,
                       ValueText(range.min) + u" ... " + ValueText(range.max));
    }
}

} // namespace Station
