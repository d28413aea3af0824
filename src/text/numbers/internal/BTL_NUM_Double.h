// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace BTL::Detail
{

/// As `BTL::ToDouble` with a target, but for a piece of a text.
bool ToDouble(std::u16string_view text, double& value);

} // namespace BTL::Detail
