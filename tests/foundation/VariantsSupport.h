// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_CVariants.h"
#include "streams/BTL_STRM_OutStream.h"

#include <string>

namespace Support
{

/// What a variant or a list of them writes for people.
template <class T>
std::string Written(const T& value)
{
    BTL::COutStream stream;
    value.WriteTo(stream);
    return stream.str().c_str();
}

/// The items as one variant.
inline UTL::CVariant ArrayOf(const UTL::CVariants& items)
{
    UTL::CVariant array;
    array.CreateArray();
    for (int i = 0; i < items.GetCount(); ++i) {
        array.AddItem(items.getItem(i));
    }
    return array;
}

} // namespace Support
