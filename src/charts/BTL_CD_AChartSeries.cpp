// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_AChartSeries.h"

#include "foundation/UTL_ASRT_Assert.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace BTL
{

namespace
{

using UTL::CDoubleVector;

// Where points of different types meet; the numbers are known to users.
constexpr int OtherThanX = 74;
constexpr int OtherThanXY = 82;
constexpr int OtherThanXYZ = 91;

bool IsAxis(int axis)
{
    return axis >= 0 && axis < AChartSeries::AxisCount;
}

} // namespace

AChartSeries::AChartSeries() = default;

AChartSeries::AChartSeries(const AChartSeries& other)
    : Title(other.Title),
      Tag(other.Tag),
      Type(other.Type),
      mValues{other.mValues[0], other.mValues[1], other.mValues[2]}
{
    std::ranges::copy(other.mSeen, mSeen);
}

// NOLINTNEXTLINE(bugprone-reserved-identifier): of the loops over arrays that the compiler makes.
AChartSeries& AChartSeries::operator=(const AChartSeries& other) = default;

AChartSeries::~AChartSeries() = default;

bool AChartSeries::Contains(EType type) const noexcept
{
    const bool isSet = type >= X && type <= XYZ;
    return isSet ? Type >= type : Type == type;
}

void AChartSeries::ClearValues()
{
    Type = None;
    std::ranges::for_each(mValues, [](CDoubleVector& values) { values.resize(0); });
    std::ranges::fill(mSeen, Nothing);
    ClearMinMaxValues();
}

bool AChartSeries::Takes(EType type, int line) const
{
    const bool takes = Type == None || Type == type;
    if (!takes) {
        UTL::THROW_XAssert({"BTL_CD_AChartSeries", line});
    }
    return takes;
}

template <class... Values>
void AChartSeries::Append(EType type, Values... values)
{
    CDoubleVector* axis = mValues;
    try {
        ((axis->push_back(values), ++axis), ...);
    } catch (...) {
        // Half a point would shift all that come later.
        std::for_each(mValues, axis, [](CDoubleVector& begun) { begun.pop_back(); });
        throw;
    }
    Type = type;
}

void AChartSeries::AddX(double x)
{
    if (Takes(X, OtherThanX)) {
        Append(X, x);
    }
}

void AChartSeries::AddXY(double x, double y)
{
    if (Takes(XY, OtherThanXY)) {
        Append(XY, x, y);
    }
}

void AChartSeries::AddXYZ(double x, double y, double z)
{
    if (Takes(XYZ, OtherThanXYZ)) {
        Append(XYZ, x, y, z);
    }
}

void AChartSeries::ClearMinMaxValues()
{
    std::ranges::fill(mMin, UnsetMin);
    std::ranges::fill(mMax, UnsetMax);
}

void AChartSeries::Extend(TRange& range, const CDoubleVector& values)
{
    double min = range.min;
    double max = range.max;
    // No comparison with what is no number is true.
    std::for_each(values.begin() + range.count, values.end(), [&](double value) {
        min = value < min ? value : min;
        max = value > max ? value : max;
    });
    range = {min, max, values.size()};
}

AChartSeries::TRange AChartSeries::RangeOf(int axis, const CDoubleVector& values) const
{
    TRange foreign = Nothing;
    TRange& range = &values == &mValues[axis] ? mSeen[axis] : foreign;
    Extend(range, values);
    return range.min <= range.max ? range : TRange{0, 0, range.count};
}

double AChartSeries::GetMinValue(int axis, const CDoubleVector& values) const
{
    if (!IsAxis(axis)) {
        return UnsetMin;
    }
    if (mMin[axis] == UnsetMin) {
        mMin[axis] = RangeOf(axis, values).min;
    }
    return mMin[axis];
}

double AChartSeries::GetMaxValue(int axis, const CDoubleVector& values) const
{
    if (!IsAxis(axis)) {
        return UnsetMax;
    }
    if (mMax[axis] == UnsetMax) {
        mMax[axis] = RangeOf(axis, values).max;
    }
    return mMax[axis];
}

double AChartSeries::GetMinValue(int axis) const
{
    return IsAxis(axis) ? GetMinValue(axis, mValues[axis]) : UnsetMin;
}

double AChartSeries::GetMaxValue(int axis) const
{
    return IsAxis(axis) ? GetMaxValue(axis, mValues[axis]) : UnsetMax;
}

void AChartSeries::TakeValues(EType type, CDoubleVector (&values)[AxisCount]) noexcept
{
    for (int axis = 0; axis < type; ++axis) {
        mValues[axis] = std::move(values[axis]);
        mSeen[axis] = Nothing;
    }
    Type = type;
}

} // namespace BTL
