// SPDX-License-Identifier: MIT
#include "platform/base/numbers/System_Currency.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Int128.h"
#include "platform/base/numbers/Sysutils_Currency.h"

#include <cmath>
#include <limits>

namespace System
{

namespace
{

using Detail::Int128;

/// Beyond this a `double` has no digit behind the fourth decimal.
constexpr double LastRounded = 1e11;
constexpr Extended Limit = 0x1p63L;

} // namespace

Currency::Currency(double value)
    : Currency(std::abs(value) < LastRounded
                   // The product in the same width drops the noise of the binary form, so that 2.00005, which
                   // is a little less, is rounded as it is written.
                   ? OfUnits(static_cast<Int64>(std::round(value * static_cast<double>(Scale))))
                   : Currency(static_cast<long double>(value)))
{
}

Currency::Currency(long double value)
{
    const long double units = std::round(value * Scale);
    // Written so that a value that is no number doesn't pass.
    if (!(units >= -Limit && units < Limit)) {
        ThrowOverflow();
    }
    Val = static_cast<Int64>(units);
}

Currency::Currency(const UnicodeString& text) : Currency(Sysutils::StrToCurr(text)) {}

Currency::operator UnicodeString() const
{
    return Sysutils::CurrToStr(*this);
}

void Currency::ThrowOverflow()
{
    throw Sysutils::EIntOverflow(UnicodeString(u"Currency overflow"));
}

void Currency::ThrowDivByZero()
{
    throw Sysutils::EDivByZero(UnicodeString(u"Division by zero"));
}

Currency Currency::MulDiv(Int64 a, Int64 b, Int64 divisor)
{
    if (divisor == 0) {
        ThrowDivByZero();
    }
    const Int128 product = Int128(a) * b;
    Int128 result = product / divisor;
    const Int128 rest = product % divisor;
    const auto size = [](Int128 value) { return value < 0 ? -value : value; };
    if (2 * size(rest) >= size(divisor)) {
        result += (product < 0) == (divisor < 0) ? 1 : -1;
    }
    if (result < std::numeric_limits<Int64>::min() || result > std::numeric_limits<Int64>::max()) {
        ThrowOverflow();
    }
    return OfUnits(static_cast<Int64>(result));
}

} // namespace System
