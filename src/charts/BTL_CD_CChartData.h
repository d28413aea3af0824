// SPDX-License-Identifier: MIT
#pragma once

#include "charts/BTL_CD_AChartData.h"
#include "charts/BTL_CD_CChartSeries.h"

namespace BTL
{

/// A chart that can be stored. What it is stored in decides what comes back:
/// - `SaveToFile` keeps values to 15 significant digits, in lists of up to 65,534 characters; see `FitsFile`.
/// - `SaveToIni` does so in any store of settings; those on streams and in memory hold lists of any length.
/// - `SaveToStream` keeps each bit of the values, at any length.
///
/// Whatever is loaded replaces the chart as a whole. If it can't be, the chart stays as it was.
///
///     BTL::CChartData chart;
///     chart.Title = u"Run 12";
///     chart.AddSeries()->AddXY(0.5, 12.25);
///     if (chart.FitsFile()) {
///         chart.SaveToFile(u"run12.chart");
///     }
class TRS8_BTL_API CChartData : public AChartData
{
public:
    CChartData();
    CChartData(const CChartData& other);
    CChartData& operator=(const CChartData& other);
    ~CChartData() override;

    /// A `CChartSeries`.
    AChartSeries* NewSeries(AChartSeries* source) override;

    /// Writes the section "Chart", and one named "Series_" and its number for each series. Other sections
    /// stay.
    void SaveToIni(AIni* ini) const;
    /// Reads what `SaveToIni` wrote; a missing key is an empty text or 0, so a store without a chart gives an
    /// empty one. `Sysutils::Exception` for more series than the store has sections, `Sysutils::Exception`
    /// and its kin as of `CChartSeries::LoadFromIni`.
    void LoadFromIni(AIni* ini);

    /// Whether all that `SaveToFile` would write can be read back: no list is too long, no text has a line
    /// end or a zero character.
    [[nodiscard]] bool FitsFile() const;
    /// `SaveToIni` to a profile file, on the disk in one step. `Sysutils::Exception`, and the file stays as
    /// it was, if the chart doesn't fit or the file can't be written.
    void SaveToFile(const System::UnicodeString& path) const override;
    /// `LoadFromIni` of a profile file; a missing one gives an empty chart.
    void LoadFromFile(const System::UnicodeString& path) override;

    /// Writes the chart with each bit of its values.
    void SaveToStream(Classes::TStream* stream) const;
    /// Reads what `SaveToStream` wrote, and leaves the stream behind it. `Classes::EReadError` for a stream
    /// that ends within, `Sysutils::Exception` for what isn't a chart. A damaged count takes no more memory
    /// than there are bytes.
    void LoadFromStream(Classes::TStream* stream);

private:
    /// All but the series.
    struct TTexts;

    void Take(const TTexts& texts, UTL::GSimpleVector<AChartSeries*>& series);
    CChartSeries* NewStoredSeries();
    const CChartSeries* StoredSeries(int index) const;
};

} // namespace BTL
