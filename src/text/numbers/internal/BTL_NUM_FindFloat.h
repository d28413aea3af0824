// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace BTL::Detail
{

/// The piece of `text` that `BTL::Find1stFloat` finds; empty if there is none.
std::u16string_view FindFloat(std::u16string_view text);

} // namespace BTL::Detail
