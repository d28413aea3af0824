// SPDX-License-Identifier: MIT
#pragma once

#include "Channels.h"

#include <TRS8_BTL/charts/BTL_CD_CChartData.h>
#include <TRS8_BTL/platform/base/dates/System_DateTime.h>

#include <iosfwd>

namespace Station
{

/// A chart with a series without points for each channel.
BTL::CChartData MakeChart(const std::vector<CChannel>& channels, const System::UnicodeString& title);

/// Saves the chart as a new file, named by the time, in `folder`, which is made if it is missing. Gives the
/// file. `Sysutils::Exception` if it can't be written.
System::UnicodeString SaveChart(const BTL::CChartData& chart, const System::UnicodeString& folder,
                                const System::TDateTime& time);

/// `XBadSettings` if the file is missing, damaged or no chart.
BTL::CChartData LoadChart(const System::UnicodeString& file);

/// Writes the values as a table, a column for each series, and then each series as a plot.
void WriteChart(std::ostream& stream, const BTL::CChartData& chart);

} // namespace Station
