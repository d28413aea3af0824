// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

#include <span>

/// Statistics over rows of values. They are summed in extended precision and around the mean, so that a large
/// common part of the values costs no digits. An empty row gives 0, as does the spread of a single value.
///
///     const std::array values = {1.5, 2.5, 5.0};
///     const double mean = static_cast<double>(Math::Mean(values));        // 3
///     const double spread = static_cast<double>(Math::StdDev(values));
namespace Math
{

/// The largest and the smallest value; 0 for an empty row.
[[nodiscard]] TRS8_BTL_API double MaxValue(std::span<const double> values);
[[nodiscard]] TRS8_BTL_API double MinValue(std::span<const double> values);
[[nodiscard]] TRS8_BTL_API int MaxIntValue(std::span<const int> values);
[[nodiscard]] TRS8_BTL_API int MinIntValue(std::span<const int> values);

/// The sum of the values; 0 for an empty row.
[[nodiscard]] TRS8_BTL_API long double Sum(std::span<const double> values);
/// The sum wraps on an overflow.
[[nodiscard]] TRS8_BTL_API int SumInt(std::span<const int> values);
[[nodiscard]] TRS8_BTL_API long double SumOfSquares(std::span<const double> values);
[[nodiscard]] TRS8_BTL_API long double Mean(std::span<const double> values);

/// The sum of the squared deviations from the mean.
[[nodiscard]] TRS8_BTL_API long double TotalVariance(std::span<const double> values);
/// Of a sample: divided by the count less 1.
[[nodiscard]] TRS8_BTL_API long double Variance(std::span<const double> values);
/// Of a whole population: divided by the count.
[[nodiscard]] TRS8_BTL_API long double PopnVariance(std::span<const double> values);
/// The root of `Variance`.
[[nodiscard]] TRS8_BTL_API long double StdDev(std::span<const double> values);
/// The root of `PopnVariance`.
[[nodiscard]] TRS8_BTL_API long double PopnStdDev(std::span<const double> values);
TRS8_BTL_API void MeanAndStdDev(std::span<const double> values, long double& mean, long double& stdDev);

/// The Euclidean length.
[[nodiscard]] TRS8_BTL_API long double Norm(std::span<const double> values);

} // namespace Math
