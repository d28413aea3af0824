// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Math.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Math
{

namespace
{

template <class T>
T LargestOf(std::span<const T> values)
{
    return values.empty() ? T() : *std::max_element(values.begin(), values.end());
}

template <class T>
T SmallestOf(std::span<const T> values)
{
    return values.empty() ? T() : *std::min_element(values.begin(), values.end());
}

long double Divided(long double total, std::size_t count)
{
    return count == 0 ? 0 : total / static_cast<long double>(count);
}

/// What a sample of that size is divided by.
std::size_t Freedom(std::span<const double> values)
{
    return values.empty() ? 0 : values.size() - 1;
}

} // namespace

double MaxValue(std::span<const double> values)
{
    return LargestOf(values);
}

double MinValue(std::span<const double> values)
{
    return SmallestOf(values);
}

int MaxIntValue(std::span<const int> values)
{
    return LargestOf(values);
}

int MinIntValue(std::span<const int> values)
{
    return SmallestOf(values);
}

long double Sum(std::span<const double> values)
{
    return std::accumulate(values.begin(), values.end(), 0.0L);
}

int SumInt(std::span<const int> values)
{
    return static_cast<int>(std::accumulate(values.begin(), values.end(), 0U, [](unsigned sum, int value) {
        return sum + static_cast<unsigned>(value);
    }));
}

long double SumOfSquares(std::span<const double> values)
{
    return std::accumulate(values.begin(), values.end(), 0.0L, [](long double sum, double value) {
        return sum + static_cast<long double>(value) * static_cast<long double>(value);
    });
}

long double Mean(std::span<const double> values)
{
    return Divided(Sum(values), values.size());
}

long double TotalVariance(std::span<const double> values)
{
    const long double mean = Mean(values);
    return std::accumulate(values.begin(), values.end(), 0.0L, [mean](long double sum, double value) {
        const long double deviation = static_cast<long double>(value) - mean;
        return sum + deviation * deviation;
    });
}

long double Variance(std::span<const double> values)
{
    return Divided(TotalVariance(values), Freedom(values));
}

long double PopnVariance(std::span<const double> values)
{
    return Divided(TotalVariance(values), values.size());
}

long double StdDev(std::span<const double> values)
{
    return std::sqrt(Variance(values));
}

long double PopnStdDev(std::span<const double> values)
{
    return std::sqrt(PopnVariance(values));
}

void MeanAndStdDev(std::span<const double> values, long double& mean, long double& stdDev)
{
    mean = Mean(values);
    stdDev = StdDev(values);
}

long double Norm(std::span<const double> values)
{
    return std::sqrt(SumOfSquares(values));
}

} // namespace Math
