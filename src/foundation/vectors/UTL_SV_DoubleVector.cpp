// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_DoubleVector.h"

#include "foundation/vectors/UTL_SV_GSimpleVector.hpp"
#include "foundation/vectors/internal/UTL_SV_CommaText.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/sysutils/Math.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace UTL
{

template class GSimpleVector<double>;

namespace
{

using System::UnicodeString;

static_assert(Sysutils::FloatBufferSize <= Detail::NumberRoom);

const System::WideChar* ScanDouble(const System::WideChar* first, const System::WideChar* last, double& value)
{
    return Sysutils::ScanShortFloat(first, last, u'.', value);
}

char* WriteDouble(double value, char* out)
{
    return out + Sysutils::FloatToBuffer(value, '.', out);
}

/// The value whose text, as the vector writes it, is `part` and isn't read as a number: those that are none,
/// and the largest, which rounding takes beyond its range.
std::optional<double> FindUnreadable(std::u16string_view part)
{
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::quiet_NaN(), Limits::infinity(), Limits::max()}) {
        for (const double signedValue : {value, -value}) {
            char text[Detail::NumberRoom];
            if (std::equal(part.begin(), part.end(), text, WriteDouble(signedValue, text))) {
                return signedValue;
            }
        }
    }
    return std::nullopt;
}

double ReadDouble(std::u16string_view part)
{
    double value = 0;
    if (Sysutils::BufferToFloat(part, u'.', value)) {
        return value;
    }
    if (const auto unreadable = FindUnreadable(part)) {
        return *unreadable;
    }
    Sysutils::ThrowNoFloat(part);
}

} // namespace

CDoubleVector::CDoubleVector(const CDoubleVector* other)
{
    if (other != nullptr) {
        *this = *other;
    }
}

CDoubleVector::CDoubleVector(const UnicodeString& commaText)
{
    setCommaText(commaText);
}

UnicodeString CDoubleVector::getCommaText() const
{
    return Detail::JoinNumbers(*this, WriteDouble);
}

void CDoubleVector::setCommaText(UnicodeString text)
{
    Detail::SplitNumbers(*this, text.AsView(), ScanDouble, ReadDouble);
}

double CDoubleVector::GetMaxValue() const
{
    return Math::MaxValue({begin(), end()});
}

double CDoubleVector::GetMinValue() const
{
    return Math::MinValue({begin(), end()});
}

long double CDoubleVector::GetMean() const
{
    return Math::Mean({begin(), end()});
}

long double CDoubleVector::GetStdDev() const
{
    return Math::StdDev({begin(), end()});
}

long double CDoubleVector::GetNorm() const
{
    return Math::Norm({begin(), end()});
}

long double CDoubleVector::GetSum() const
{
    return Math::Sum({begin(), end()});
}

long double CDoubleVector::GetSumOfSquares() const
{
    return Math::SumOfSquares({begin(), end()});
}

long double CDoubleVector::GetVariance() const
{
    return Math::Variance({begin(), end()});
}

long double CDoubleVector::GetTotalVariance() const
{
    return Math::TotalVariance({begin(), end()});
}

void CDoubleVector::GetMeanAndStdDev(long double& mean, long double& stdDev) const
{
    Math::MeanAndStdDev({begin(), end()}, mean, stdDev);
}

} // namespace UTL
