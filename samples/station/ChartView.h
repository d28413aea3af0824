// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/charts/BTL_CD_CChartData.h>
#include <TRS8_BTL/platform/visual/controls/Controls_CustomControl.h>

#include <vector>

namespace Station
{

/// A chart over the time, as a picture. Each series fills the height by its own range, which stands in the
/// legend: so channels of different units stand side by side. A design can hold it, as any other control.
class TChartView : public Controls::TGraphicControl
{
    TRS8_BTL_CLASS(TChartView, Controls::TGraphicControl)

public:
    explicit TChartView(Classes::TComponent* owner = nullptr);

    /// Not owned, null at first; must outlive its use here. `Invalidate` shows what was added to it.
    void setChart(const BTL::CChartData* chart);
    /// The seconds that the width stands for at least; 10 at first.
    double getSeconds() const noexcept { return mSeconds; }
    void setSeconds(double seconds);

protected:
    void Paint() override;

private:
    Types::TRect GetPlot() const;
    void PaintAxes(const Types::TRect& plot);
    void PaintSeries(int index, const Types::TRect& plot);
    void PaintLegend(int index, const Types::TRect& plot);

    const BTL::CChartData* mChart = nullptr;
    double mSeconds = 10;
};

} // namespace Station
