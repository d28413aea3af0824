// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_Int64Vector.h"

#include "foundation/vectors/UTL_SV_GSimpleVector.hpp"
#include "foundation/vectors/internal/UTL_SV_CommaText.h"
#include "platform/base/numbers/Sysutils_Number.h"

#include <numeric>

namespace UTL
{

template class GSimpleVector<System::Int64>;

namespace
{

using System::Int64;
using System::UInt64;
using System::UnicodeString;

} // namespace

CInt64Vector::CInt64Vector(const CInt64Vector* other)
{
    if (other != nullptr) {
        *this = *other;
    }
}

UnicodeString CInt64Vector::getCommaText() const
{
    return Detail::JoinNumbers(*this, Detail::WriteInteger);
}

void CInt64Vector::setCommaText(UnicodeString text)
{
    Detail::SplitNumbers(*this, text.AsView(), Detail::ScanInteger<Int64>,
                         [](std::u16string_view part) { return Sysutils::StrToInt64(UnicodeString(part)); });
}

Int64 CInt64Vector::GetMaxValue() const
{
    return AtOrDef(IndexOfMaxValue(), 0);
}

Int64 CInt64Vector::GetMinValue() const
{
    return AtOrDef(IndexOfMinValue(), 0);
}

Int64 CInt64Vector::GetSum() const
{
    return static_cast<Int64>(std::accumulate(
        begin(), end(), UInt64(0), [](UInt64 sum, Int64 value) { return sum + static_cast<UInt64>(value); }));
}

Int64 CInt64Vector::AtOrDef(int index, Int64 defaultValue) const
{
    return static_cast<unsigned>(index) < size() ? begin()[index] : defaultValue;
}

} // namespace UTL
