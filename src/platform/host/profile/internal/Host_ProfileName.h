// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <cstddef>
#include <string_view>

namespace Host
{

// Names of sections and keys that differ in case alone are one; the rule is that of Unicode, character by
// character.

/// Depends on secret numbers of the process, so that nobody can write a file whose names fall together.
struct TRS8_BTL_API NameHash
{
    std::size_t operator()(std::u16string_view name) const noexcept;
};
struct TRS8_BTL_API NameEqual
{
    bool operator()(std::u16string_view a, std::u16string_view b) const noexcept;
};

} // namespace Host
