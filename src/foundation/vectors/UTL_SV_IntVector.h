// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVectorClass.h"
#include "platform/base/System_String.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace UTL
{

extern template class TRS8_BTL_API GSimpleVector<int>;

/// A vector of integers, with a comma text, their sum and extremes.
///
///     UTL::CIntVector set;
///     set.AddSorted(5, false);
///     set.AddSorted(1, false);
///     const bool isIn = set.Contains(5);                          // true
///     const auto text = set.getCommaText();                       // "1,5"
class TRS8_BTL_API CIntVector : public GSimpleVector<int>
{
public:
    using GSimpleVector<int>::GSimpleVector;
    CIntVector() = default;
    /// Null gives an empty vector.
    explicit CIntVector(const CIntVector* other);
    /// As `setCommaText`.
    explicit CIntVector(const System::UnicodeString& commaText);

    /// The elements in decimal with commas between.
    System::UnicodeString getCommaText() const;
    /// Reads integers up to the first empty part. `Sysutils::EConvertError` for a part that is none; the
    /// elements read until then stay.
    void setCommaText(System::UnicodeString text);

    /// The largest and the smallest element; 0 in an empty vector.
    int GetMaxValue() const;
    int GetMinValue() const;
    /// The sum of the elements, which wraps on an overflow.
    int GetSum() const;

    /// The element at `index`; `defaultValue` for one out of range.
    int AtOrDef(int index, int defaultValue) const;

    // Integers in the object slots of a string list. A null list is an internal fault, and nothing happens if
    // the user lets it pass.

    /// Takes over the object slots of all lines as integers.
    void SetObjects(Classes::TStrings* strings);
    /// Stores the elements in the object slots, as far as there are lines.
    void MoveObjectsTo(Classes::TStrings* strings) const;
};

} // namespace UTL
