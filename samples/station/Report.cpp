// SPDX-License-Identifier: MIT
#include "Report.h"

#include <TRS8_BTL/text/BTL_STR_Utilities.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Limits.h>

#include <algorithm>
#include <array>
#include <ostream>

namespace Station
{

namespace
{

using System::UnicodeString;

constexpr std::size_t ColumnCount = 9;
/// The columns from the last value to the standard deviation are numbers and stand at the right.
constexpr std::size_t FirstNumber = 2;
constexpr std::size_t LastNumber = 6;

using TRow = std::array<UnicodeString, ColumnCount>;

UnicodeString NumberText(long double value)
{
    return BTL::MeasureFloatToStrW(value, -1, 2);
}

TRow MakeRow(const CChannel& channel)
{
    TRow row = {channel.getName(), channel.getUnit()};
    const UTL::CDoubleVector& samples = channel.getSamples();
    if (const unsigned count = samples.size(); count > 0) {
        row = {channel.getName(),
               channel.getUnit(),
               NumberText(samples.at(count - 1)),
               NumberText(samples.GetMinValue()),
               NumberText(samples.GetMaxValue()),
               NumberText(samples.GetMean()),
               count > 1 ? NumberText(samples.GetStdDev()) : UnicodeString(u"-")};
    }
    row[LastNumber + 1] = channel.getLimitText();
    row[LastNumber + 2] = samples.empty() ? u"no value" : channel.IsWithinLimits() ? u"ok" : u"out of limits";
    return row;
}

void WriteRow(std::ostream& stream, const TRow& row, const std::array<int, ColumnCount>& widths)
{
    UnicodeString line;
    for (std::size_t i = 0; i < ColumnCount; ++i) {
        const bool isNumber = i >= FirstNumber && i <= LastNumber;
        line += isNumber ? BTL::FillStringLeft(row[i], widths[i], u' ')
                         : BTL::FillString(row[i], widths[i], u' ');
        line += u"  ";
    }
    BTL::TrimEnd(line);
    stream << line << '\n';
}

} // namespace

void WriteReport(std::ostream& stream, const std::vector<CChannel>& channels)
{
    std::vector<TRow> rows = {
        {u"channel", u"unit", u"last", u"min", u"max", u"mean", u"std dev", u"limits", u"state"}};
    std::transform(channels.begin(), channels.end(), std::back_inserter(rows), MakeRow);

    std::array<int, ColumnCount> widths = {};
    for (const TRow& row : rows) {
        std::transform(row.begin(), row.end(), widths.begin(), widths.begin(),
                       [](const UnicodeString& cell, int width) { return std::max(width, cell.Length()); });
    }
    for (const TRow& row : rows) {
        WriteRow(stream, row, widths);
    }
}

} // namespace Station
