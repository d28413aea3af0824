// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVectorClass.h"
#include "platform/base/System_String.h"

namespace UTL
{

extern template class TRS8_BTL_API GSimpleVector<double>;

/// A vector of floats, with their statistics.
///
///     UTL::CDoubleVector values;
///     values.setCommaText(u"1.5,2.5,5");
///     const double mean = static_cast<double>(values.GetMean());  // 3
class TRS8_BTL_API CDoubleVector : public GSimpleVector<double>
{
public:
    using GSimpleVector<double>::GSimpleVector;
    CDoubleVector() = default;
    /// Null gives an empty vector.
    explicit CDoubleVector(const CDoubleVector* other);
    /// As `setCommaText`.
    explicit CDoubleVector(const System::UnicodeString& commaText);

    /// The elements with 15 significant digits, a `.` in every locale, and commas between; "NAN", "INF" and
    /// "-INF" for what is no number.
    System::UnicodeString getCommaText() const;
    /// Reads floats, as `getCommaText` writes them and with a `.` in every locale, up to the first empty
    /// part. `Sysutils::EConvertError` for a part that is none; the elements read until then stay.
    void setCommaText(System::UnicodeString text);

    // All of these are 0 in an empty vector.

    double GetMaxValue() const;
    double GetMinValue() const;
    long double GetMean() const;
    /// Of a sample: divided by the count less 1.
    long double GetStdDev() const;
    /// The root of the sum of the squares.
    long double GetNorm() const;
    long double GetSum() const;
    long double GetSumOfSquares() const;
    /// Of a sample: divided by the count less 1.
    long double GetVariance() const;
    /// The sum of the squared deviations from the mean.
    long double GetTotalVariance() const;
    void GetMeanAndStdDev(long double& mean, long double& stdDev) const;
};

} // namespace UTL
