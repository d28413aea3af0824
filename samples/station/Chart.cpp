// SPDX-License-Identifier: MIT
#include "Chart.h"

#include <TRS8_BTL/config/BTL_INI_IniFileEx.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_DateText.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_File.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_FileName.h>
#include <TRS8_BTL/text/editing/BTL_STR_Cut.h>
#include <TRS8_BTL/text/editing/BTL_STR_Join.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Limits.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <functional>
#include <map>
#include <ostream>
#include <string>

namespace Station
{

namespace
{

using System::UnicodeString;

constexpr int PlotWidth = 60;
constexpr int PlotHeight = 10;
constexpr int LabelWidth = 12;

UnicodeString ValueText(double value)
{
    return BTL::MeasureFloatToStrW(value, -1, 2);
}

/// The values of all series by their time; what a series has no value for stays empty.
void WriteTable(std::ostream& stream, const BTL::CChartData& chart)
{
    const int count = chart.getSeriesCount();
    std::map<double, std::vector<UnicodeString>> rows;
    stream << BTL::FillStringLeft(chart.getXAxisTitle(), LabelWidth, u' ');
    for (int i = 0; i < count; ++i) {
        const BTL::AChartSeries& series = *chart.getSeries(i);
        stream << "  " << BTL::FillStringLeft(series.Title, LabelWidth, u' ');
        for (unsigned point = 0; point < series.getYValues().size(); ++point) {
            auto& row = rows[series.getXValues().at(point)];
            row.resize(static_cast<std::size_t>(count));
            row[static_cast<std::size_t>(i)] = ValueText(series.getYValues().at(point));
        }
    }
    stream << '\n';
    for (const auto& [x, texts] : rows) {
        stream << BTL::FillStringLeft(ValueText(x), LabelWidth, u' ');
        for (int i = 0; i < count; ++i) {
            const int width = std::max(LabelWidth, chart.getSeries(i)->Title.Length());
            stream << "  " << BTL::FillStringLeft(texts[static_cast<std::size_t>(i)], width, u' ');
        }
        stream << '\n';
    }
}

struct TRange
{
    double min;
    double max;
};

/// A range that has a width, and the value in its middle if all are one.
TRange Widen(double min, double max)
{
    if (min < max) {
        return {min, max};
    }
    const double margin = min == 0 ? 1 : std::fabs(min) / 10;
    return {min - margin, max + margin};
}

/// The place of the value among `count` ones. Halves keep the width of the largest range finite.
std::size_t PlaceOf(double value, const TRange& range, int count)
{
    const double part = (value / 2 - range.min / 2) / (range.max / 2 - range.min / 2);
    return static_cast<std::size_t>(std::lround(std::clamp(part, 0.0, 1.0) * (count - 1)));
}

struct TPoint
{
    double x;
    double y;
};

/// The points that can be shown.
std::vector<TPoint> FinitePoints(const BTL::AChartSeries& series)
{
    std::vector<TPoint> points;
    for (unsigned i = 0; i < series.getYValues().size(); ++i) {
        const TPoint point{series.getXValues().at(i), series.getYValues().at(i)};
        if (std::isfinite(point.x) && std::isfinite(point.y)) {
            points.push_back(point);
        }
    }
    return points;
}

/// The range of one co-ordinate of the points, of which there is one at least.
TRange RangeOf(const std::vector<TPoint>& points, double TPoint::*coordinate)
{
    const auto [low, high] = std::ranges::minmax_element(points, std::ranges::less(), coordinate);
    return Widen((*low).*coordinate, (*high).*coordinate);
}

/// The rows of characters, the topmost first.
std::vector<std::string> Plot(const std::vector<TPoint>& points, const TRange& x, const TRange& y)
{
    std::vector<std::string> rows(PlotHeight, std::string(PlotWidth, ' '));
    for (const TPoint& point : points) {
        rows[PlotHeight - 1 - PlaceOf(point.y, y, PlotHeight)][PlaceOf(point.x, x, PlotWidth)] = '*';
    }
    return rows;
}

void WritePlot(std::ostream& stream, const BTL::AChartSeries& series)
{
    stream << '\n' << series.Title << '\n';
    const std::vector<TPoint> points = FinitePoints(series);
    if (points.empty()) {
        stream << "  no values\n";
        return;
    }
    const TRange x = RangeOf(points, &TPoint::x);
    const TRange y = RangeOf(points, &TPoint::y);
    const std::vector<std::string> rows = Plot(points, x, y);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const UnicodeString label = i == 0                ? ValueText(y.max)
                                    : i == PlotHeight - 1 ? ValueText(y.min)
                                                          : UnicodeString();
        stream << BTL::FillStringLeft(label, LabelWidth, u' ') << " |" << rows[i] << '\n';
    }
    stream << std::string(LabelWidth + 1, ' ') << '+' << std::string(PlotWidth, '-') << '\n'
           << std::string(LabelWidth + 2, ' ')
           << BTL::FillString(ValueText(x.min), PlotWidth - LabelWidth, u' ')
           << BTL::FillStringLeft(ValueText(x.max), LabelWidth, u' ') << '\n';
}

} // namespace

BTL::CChartData MakeChart(const std::vector<CChannel>& channels, const UnicodeString& title)
{
    BTL::CChartData chart;
    chart.Title = title;
    chart.setXAxisTitle(u"t [s]");
    for (const CChannel& channel : channels) {
        const UnicodeString& unit = channel.getUnit();
        chart.AddSeries()->Title =
            unit.IsEmpty() ? channel.getName() : channel.getName() + u" [" + unit + u"]";
    }
    return chart;
}

UnicodeString SaveChart(const BTL::CChartData& chart, const UnicodeString& folder,
                        const System::TDateTime& time)
{
    Sysutils::ForceDirectories(folder);
    const UnicodeString file =
        folder + Sysutils::FormatDateTime(u"yyyy-mm-dd hh'-'nn'-'ss'-'zzz", time) + u".chart";
    // In memory a list may be of any length, and the save is one step.
    BTL::CMemIniFile ini(file);
    chart.SaveToIni(&ini);
    ini.Save();
    return file;
}

BTL::CChartData LoadChart(const UnicodeString& file)
{
    if (!Sysutils::FileExists(file)) {
        throw XBadSettings(file + u": there is no such chart");
    }
    BTL::CChartData chart;
    try {
        BTL::CMemIniFile ini(file);
        if (!ini.SectionExists(u"Chart")) {
            throw Sysutils::Exception(u"the file is no chart");
        }
        chart.LoadFromIni(&ini);
    } catch (const std::exception& fault) {
        throw XBadSettings(file + u": " + Sysutils::MessageOf(fault));
    }
    return chart;
}

void WriteChart(std::ostream& stream, const BTL::CChartData& chart)
{
    stream << chart.Title << "\n\n";
    WriteTable(stream, chart);
    for (int i = 0; i < chart.getSeriesCount(); ++i) {
        WritePlot(stream, *chart.getSeries(i));
    }
}

} // namespace Station
