// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVectorClass.h"
#include "platform/base/System_String.h"

namespace UTL
{

extern template class TRS8_BTL_API GSimpleVector<System::Int64>;

/// A vector of 64-bit integers, with a comma text, their sum and extremes.
class TRS8_BTL_API CInt64Vector : public GSimpleVector<System::Int64>
{
public:
    using GSimpleVector<System::Int64>::GSimpleVector;
    CInt64Vector() = default;
    /// Null gives an empty vector.
    explicit CInt64Vector(const CInt64Vector* other);

    /// The elements in decimal with commas between.
    System::UnicodeString getCommaText() const;
    /// Reads integers up to the first empty part. `Sysutils::EConvertError` for a part that is none; the
    /// elements read until then stay.
    void setCommaText(System::UnicodeString text);

    /// The largest and the smallest element; 0 in an empty vector.
    System::Int64 GetMaxValue() const;
    System::Int64 GetMinValue() const;
    /// The sum of the elements, which wraps on an overflow.
    System::Int64 GetSum() const;

    /// The element at `index`; `defaultValue` for one out of range.
    System::Int64 AtOrDef(int index, System::Int64 defaultValue) const;
};

} // namespace UTL
