// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_AChartData.h"

#include "charts/internal/BTL_CD_SeriesList.h"
#include "foundation/UTL_ASRT_Assert.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace BTL
{

namespace
{

using UTL::GSimpleVector;

constexpr UTL::CFaultPlace NoAxisForMin{"BTL_CD_AChartData", 112};
constexpr UTL::CFaultPlace NoAxisForMax{"BTL_CD_AChartData", 129};

bool IsAxis(int axis, const UTL::CFaultPlace& place)
{
    const bool isAxis = axis >= 0 && axis < AChartSeries::AxisCount;
    if (!isAxis) {
        UTL::THROW_XAssert(place);
    }
    return isAxis;
}

/// The first of the values of all series by an order.
template <class Value, class Order>
double FirstOf(const GSimpleVector<AChartSeries*>& series, Value value, Order order)
{
    double first = value(series[0]);
    for (const AChartSeries* const one : series) {
        first = std::min(first, value(one), order);
    }
    return first;
}

} // namespace

AChartData::AChartData()
{
    AChartData::ClearMinMaxValues();
}

AChartData::AChartData(const AChartData& other) : AChartData()
{
    CopyTexts(other);
}

AChartData& AChartData::operator=(const AChartData& other)
{
    if (this != &other) {
        CopySeries(other);
        CopyTexts(other);
    }
    return *this;
}

AChartData::~AChartData()
{
    ClearSeries();
}

AChartSeries* AChartData::NewSeries(AChartSeries* /*source*/)
{
    return nullptr;
}

void AChartData::SaveToFile(const System::UnicodeString& /*path*/) const {}

void AChartData::LoadFromFile(const System::UnicodeString& /*path*/) {}

void AChartData::CopyTexts(const AChartData& other)
{
    Class = other.Class;
    Title = other.Title;
    Tag = other.Tag;
    Type = other.Type;
    std::ranges::copy(other.mAxisTitles, mAxisTitles);
}

void AChartData::CopySeries(const AChartData& other)
{
    Detail::CSeriesList copies;
    for (AChartSeries* const one : other.mSeries) {
        copies.Add(NewSeries(one));
    }
    TakeSeries(copies.series);
}

void AChartData::TakeSeries(GSimpleVector<AChartSeries*>& list) noexcept
{
    ClearSeries();
    mSeries = std::exchange(list, GSimpleVector<AChartSeries*>());
}

AChartSeries* AChartData::AddSeries()
{
    Detail::CSeriesList added;
    added.Add(NewSeries(nullptr));
    ClearMinMaxValues();
    if (added.series.empty()) {
        return nullptr;
    }
    AChartSeries* const series = added.series[0];
    mSeries.push_back(series);
    added.series.pop_back();
    return series;
}

void AChartData::AddSeries(const GSimpleVector<AChartSeries*>& list)
{
    Detail::CSeriesList copies;
    for (AChartSeries* const one : list) {
        if (one != nullptr) {
            copies.Add(NewSeries(one));
        }
    }
    mSeries.append(copies.series);
    copies.series.resize(0);
    ClearMinMaxValues();
}

void AChartData::ClearSeries()
{
    for (const AChartSeries* const one : mSeries) {
        delete one;
    }
    mSeries.resize(0);
    ClearMinMaxValues();
}

void AChartData::ClearMinMaxValues()
{
    std::ranges::fill(mMin, AChartSeries::UnsetMin);
    std::ranges::fill(mMax, AChartSeries::UnsetMax);
}

double AChartData::GetMinValue(int axis) const
{
    if (!IsAxis(axis, NoAxisForMin)) {
        return AChartSeries::UnsetMin;
    }
    if (mMin[axis] == AChartSeries::UnsetMin && !mSeries.empty()) {
        mMin[axis] = FirstOf(
            mSeries, [&](const AChartSeries* one) { return one->GetMinValue(axis); }, std::less());
    }
    return mMin[axis];
}

double AChartData::GetMaxValue(int axis) const
{
    if (!IsAxis(axis, NoAxisForMax)) {
        return AChartSeries::UnsetMax;
    }
    if (mMax[axis] == AChartSeries::UnsetMax && !mSeries.empty()) {
        mMax[axis] = FirstOf(
            mSeries, [&](const AChartSeries* one) { return one->GetMaxValue(axis); }, std::greater());
    }
    return mMax[axis];
}

} // namespace BTL
