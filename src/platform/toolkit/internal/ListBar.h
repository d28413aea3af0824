// SPDX-License-Identifier: MIT
#pragma once

namespace Toolkits
{

/// What a bar below the items of a list takes of its height, in pixels.
inline constexpr int ListBarHeight = 17;

} // namespace Toolkits
