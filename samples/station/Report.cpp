// SPDX-License-Identifier: MIT
#include "Report.h"

#include <TRS8_BTL/text/editing/BTL_STR_Cut.h>
#include <TRS8_BTL/text/editing/BTL_STR_Join.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Limits.h>

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <ostream>

namespace Station
{

namespace
{

using System::UnicodeString;
using UTL::CDoubleVector;

constexpr int DefaultPrecision = -1;
constexpr int MaxDecimals = 2;

/// A statistic of the samples; empty where there are none.
template <auto Statistic>
UnicodeString StatisticText(const CChannel& channel)
{
    const CDoubleVector& samples = channel.getSamples();
    if (samples.empty()) {
        return UnicodeString();
    }
    return BTL::MeasureFloatToStrW(std::invoke(Statistic, samples), DefaultPrecision, MaxDecimals);
}

double Last(const CDoubleVector& samples)
{
    return samples.at(samples.size() - 1);
}

/// One sample has no deviation.
UnicodeString StdDevText(const CChannel& channel)
{
    return channel.getSamples().size() == 1 ? UnicodeString(u"-")
                                            : StatisticText<&CDoubleVector::GetStdDev>(channel);
}

UnicodeString StateText(const CChannel& channel)
{
    if (channel.getSamples().empty()) {
        return u"no value";
    }
    const UnicodeString state = channel.IsWithinLimits() ? u"ok" : u"out of limits";
    const int missing = channel.getMissCount();
    return missing == 0 ? state : state + u", " + UnicodeString(missing) + u" missing";
}

/// At which side of its column a text stands.
enum class EAlign
{
    Left,
    Right
};

struct TColumn
{
    const System::WideChar* title;
    EAlign align;
    /// What stands in the row of a channel.
    UnicodeString (*text)(const CChannel& channel);
};

constexpr std::array Columns = {
    TColumn{u"channel", EAlign::Left, [](const CChannel& channel) { return channel.getName(); }},
    TColumn{u"unit", EAlign::Left, [](const CChannel& channel) { return channel.getUnit(); }},
    TColumn{u"last", EAlign::Right, StatisticText<Last>},
    TColumn{u"min", EAlign::Right, StatisticText<&CDoubleVector::GetMinValue>},
    TColumn{u"max", EAlign::Right, StatisticText<&CDoubleVector::GetMaxValue>},
    TColumn{u"mean", EAlign::Right, StatisticText<&CDoubleVector::GetMean>},
    TColumn{u"std dev", EAlign::Right, StdDevText},
    TColumn{u"limits", EAlign::Left, [](const CChannel& channel) { return channel.getLimitText(); }},
    TColumn{u"state", EAlign::Left, StateText},
};

/// The texts of a line of the table.
using TRow = std::array<UnicodeString, Columns.size()>;

TRow MakeTitles()
{
    TRow row;
    std::transform(Columns.begin(), Columns.end(), row.begin(),
                   [](const TColumn& column) { return UnicodeString(column.title); });
    return row;
}

TRow MakeRow(const CChannel& channel)
{
    TRow row;
    std::transform(Columns.begin(), Columns.end(), row.begin(),
                   [&](const TColumn& column) { return column.text(channel); });
    return row;
}

using TWidths = std::array<int, Columns.size()>;

TWidths WidthsOf(const std::vector<TRow>& rows)
{
    TWidths widths = {};
    for (const TRow& row : rows) {
        std::transform(row.begin(), row.end(), widths.begin(), widths.begin(),
                       [](const UnicodeString& text, int width) { return std::max(width, text.Length()); });
    }
    return widths;
}

void WriteRow(std::ostream& stream, const TRow& row, const TWidths& widths)
{
    UnicodeString line;
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        line += Columns[i].align == EAlign::Right ? BTL::FillStringLeft(row[i], widths[i], u' ')
                                                  : BTL::FillString(row[i], widths[i], u' ');
        line += u"  ";
    }
    BTL::TrimEnd(line);
    stream << line << '\n';
}

} // namespace

void WriteReport(std::ostream& stream, const std::vector<CChannel>& channels)
{
    std::vector<TRow> rows = {MakeTitles()};
    std::transform(channels.begin(), channels.end(), std::back_inserter(rows), MakeRow);

    const TWidths widths = WidthsOf(rows);
    for (const TRow& row : rows) {
        WriteRow(stream, row, widths);
    }
}

} // namespace Station
