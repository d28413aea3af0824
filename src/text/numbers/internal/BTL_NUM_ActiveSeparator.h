// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"

#include <type_traits>

namespace BTL::Detail
{

/// `Sysutils::DecimalSeparator` in the width of the string type `S`.
template <class S>
typename S::CharType ActiveSeparator()
{
    if constexpr (std::is_same_v<typename S::CharType, System::WideChar>) {
        return Sysutils::DecimalSeparator;
    } else {
        return S(System::UnicodeString(Sysutils::DecimalSeparator)).c_str()[0];
    }
}

} // namespace BTL::Detail
