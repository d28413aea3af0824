// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVectorClass.h"
#include "platform/base/System_String.h"

namespace UTL
{

extern template class TRS8_BTL_API GSimpleVector<bool>;

/// A vector of truth values, a byte each, with a comma text. `UTL::CFlags` has eight to the byte.
class TRS8_BTL_API CBoolVector : public GSimpleVector<bool>
{
public:
    using GSimpleVector<bool>::GSimpleVector;
    CBoolVector() = default;
    /// Null gives an empty vector.
    explicit CBoolVector(const CBoolVector* other);

    /// The elements as 0 or 1 with commas between.
    System::UnicodeString getCommaText() const;
    /// Reads integers up to the first empty part, any but 0 as true. `Sysutils::EConvertError` for a part
    /// that is none; the elements read until then stay.
    void setCommaText(System::UnicodeString text);
};

} // namespace UTL
