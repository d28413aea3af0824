// SPDX-License-Identifier: MIT
#pragma once

#include "charts/BTL_CD_AChartSeries.h"
#include "foundation/vectors/UTL_SV_GSimpleVector.h"

namespace BTL
{

/// A chart: the titles of its axes and a list of series, which it owns. Points that are added to a series
/// don't change the extremes that the chart keeps: call `ClearMinMaxValues` of the series and of the chart
/// before you ask.
///
///     BTL::CChartData chart;
///     BTL::AChartSeries* series = chart.AddSeries();
///     series->AddXY(0.5, 12.25);
///     chart.ClearMinMaxValues();
///     const double highest = chart.GetMaxYValue();
class TRS8_BTL_API AChartData
{
public:
    AChartData();
    /// Makes no series: a class that can make them copies them in its own constructor, by `CopySeries`.
    AChartData(const AChartData& other);
    /// Has series of its own, each by `NewSeries`.
    AChartData& operator=(const AChartData& other);
    virtual ~AChartData();

    /// A new series of the chart's kind, a copy of `source` if that isn't null; it is the caller's. Null in
    /// this class, which knows no kind.
    virtual AChartSeries* NewSeries(AChartSeries* source);
    /// Does nothing in this class.
    virtual void SaveToFile(const System::UnicodeString& path) const;
    /// Does nothing in this class.
    virtual void LoadFromFile(const System::UnicodeString& path);

    /// A name of the kind of chart, for the caller.
    System::UnicodeString Class;
    System::UnicodeString Title;
    /// Free for the caller.
    int Tag = 0;
    /// Free for the caller.
    int Type = 0;

    const System::UnicodeString& getXAxisTitle() const noexcept { return mAxisTitles[0]; }
    void setXAxisTitle(const System::UnicodeString& title) { mAxisTitles[0] = title; }
    const System::UnicodeString& getYAxisTitle() const noexcept { return mAxisTitles[1]; }
    void setYAxisTitle(const System::UnicodeString& title) { mAxisTitles[1] = title; }
    const System::UnicodeString& getZAxisTitle() const noexcept { return mAxisTitles[2]; }
    void setZAxisTitle(const System::UnicodeString& title) { mAxisTitles[2] = title; }

    /// Appends an empty series; null where the class makes none.
    AChartSeries* AddSeries();
    /// Appends copies of the series; a null among them is passed over.
    void AddSeries(const UTL::GSimpleVector<AChartSeries*>& list);
    void ClearSeries();
    int getSeriesCount() const noexcept { return static_cast<int>(mSeries.size()); }
    /// An index that there isn't is an internal fault, see `UTL::ASimpleVector::RangeCheck`.
    AChartSeries* getSeries(int index) const { return mSeries[static_cast<unsigned>(index)]; }

    /// Forgets the extremes of the chart, not those of its series.
    void ClearMinMaxValues();
    // The smallest and the largest of the extremes of all series, where one without values counts as 0;
    // `AChartSeries::UnsetMin` and `UnsetMax` without series. An axis outside 0 to 2 is an internal fault,
    // and counts as a chart without series if the user lets it pass.
    double GetMinValue(int axis) const;
    double GetMaxValue(int axis) const;
    double GetMinXValue() const { return GetMinValue(0); }
    double GetMinYValue() const { return GetMinValue(1); }
    double GetMinZValue() const { return GetMinValue(2); }
    double GetMaxXValue() const { return GetMaxValue(0); }
    double GetMaxYValue() const { return GetMaxValue(1); }
    double GetMaxZValue() const { return GetMaxValue(2); }

protected:
    /// All but the series.
    void CopyTexts(const AChartData& other);
    /// Replaces the series by copies of those of the other chart.
    void CopySeries(const AChartData& other);
    /// Takes the series over in place of the former ones; the list is empty then.
    void TakeSeries(UTL::GSimpleVector<AChartSeries*>& list) noexcept;

private:
    System::UnicodeString mAxisTitles[AChartSeries::AxisCount];
    UTL::GSimpleVector<AChartSeries*> mSeries;
    mutable double mMin[AChartSeries::AxisCount];
    mutable double mMax[AChartSeries::AxisCount];
};

} // namespace BTL
