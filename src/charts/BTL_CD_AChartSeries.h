// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_DoubleVector.h"

#include <limits>

namespace BTL
{

/// A series of points with one to three co-ordinates, for all points alike: the first one decides. The axes
/// are 0 for X, 1 for Y and 2 for Z.
///
/// The extremes are kept once they were asked for, and points that come later don't change them: add the
/// points, call `ClearMinMaxValues`, then ask. A value that is no number is never an extreme, an infinity is
/// one.
///
///     BTL::CChartSeries voltage;
///     voltage.Title = u"U [V]";
///     voltage.AddXY(0.5, 12.25);
///     const double highest = voltage.GetMaxYValue();
class TRS8_BTL_API AChartSeries
{
public:
    /// Which co-ordinates the points have; none before the first one.
    enum EType : int
    {
        None,
        X,
        XY,
        XYZ
    };

    static constexpr int AxisCount = 3;
    /// What an extreme is that isn't worked out: the largest number and the smallest positive one of full
    /// precision.
    static constexpr double UnsetMin = std::numeric_limits<double>::max();
    static constexpr double UnsetMax = std::numeric_limits<double>::min();

    AChartSeries();
    /// Without the extremes that the other keeps.
    AChartSeries(const AChartSeries& other);
    /// With the extremes that the other keeps.
    AChartSeries& operator=(const AChartSeries& other);
    virtual ~AChartSeries();

    System::UnicodeString Title;
    /// Free for the caller.
    int Tag = 0;
    /// That of the first point. Whoever sets it has to see to it that all axes of the type have as many
    /// values.
    EType Type = None;

    /// Whether the points have the co-ordinates of that type.
    bool Contains(EType type) const noexcept;

    /// Removes all points, with the extremes and the type; title and tag stay.
    void ClearValues();
    // Add a point. Another type than that of the points before is an internal fault, and adds nothing if the
    // user lets it pass.
    void AddX(double x);
    void AddXY(double x, double y);
    void AddXYZ(double x, double y, double z);

    const UTL::CDoubleVector& getXValues() const noexcept { return mValues[0]; }
    const UTL::CDoubleVector& getYValues() const noexcept { return mValues[1]; }
    const UTL::CDoubleVector& getZValues() const noexcept { return mValues[2]; }
    // As `UTL::CDoubleVector::getCommaText`.
    System::UnicodeString getXCommaText() const { return mValues[0].getCommaText(); }
    System::UnicodeString getYCommaText() const { return mValues[1].getCommaText(); }
    System::UnicodeString getZCommaText() const { return mValues[2].getCommaText(); }

    /// Forgets the extremes, so that they are worked out anew.
    void ClearMinMaxValues();
    // The extreme of an axis, 0 without values, `UnsetMin` and `UnsetMax` for an axis that there isn't. One
    // pass over the values finds both, and values that were seen are not read again.
    double GetMinValue(int axis) const;
    double GetMaxValue(int axis) const;
    double GetMinXValue() const { return GetMinValue(0); }
    double GetMinYValue() const { return GetMinValue(1); }
    double GetMinZValue() const { return GetMinValue(2); }
    double GetMaxXValue() const { return GetMaxValue(0); }
    double GetMaxYValue() const { return GetMaxValue(1); }
    double GetMaxZValue() const { return GetMaxValue(2); }
    // The extreme that is kept for the axis; if there is none, it becomes that of `values`.
    double GetMinValue(int axis, const UTL::CDoubleVector& values) const;
    double GetMaxValue(int axis, const UTL::CDoubleVector& values) const;

protected:
    /// Takes the values of as many axes as the type has, in place of those that were there; other axes stay,
    /// and so do the kept extremes.
    void TakeValues(EType type, UTL::CDoubleVector (&values)[AxisCount]) noexcept;
    /// How many axes the type has.
    int getAxes() const noexcept { return Type < None ? 0 : Type > XYZ ? AxisCount : int(Type); }
    /// The values of an axis, which is one of the three.
    const UTL::CDoubleVector& getValues(int axis) const noexcept { return mValues[axis]; }

private:
    /// The extremes of the first `count` values; the lower is above the upper if none of them is a number.
    struct TRange
    {
        double min;
        double max;
        unsigned count;
    };

    static constexpr double Infinity = std::numeric_limits<double>::infinity();
    static constexpr TRange Nothing{Infinity, -Infinity, 0};

    static void Extend(TRange& range, const UTL::CDoubleVector& values);
    TRange RangeOf(int axis, const UTL::CDoubleVector& values) const;
    bool Takes(EType type, int line) const;
    template <class... Values>
    void Append(EType type, Values... values);

    UTL::CDoubleVector mValues[AxisCount];
    mutable double mMin[AxisCount] = {UnsetMin, UnsetMin, UnsetMin};
    mutable double mMax[AxisCount] = {UnsetMax, UnsetMax, UnsetMax};
    /// What was seen of the own values, which no one changes but by adding more.
    mutable TRange mSeen[AxisCount] = {Nothing, Nothing, Nothing};
};

} // namespace BTL
