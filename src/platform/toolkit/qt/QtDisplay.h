// SPDX-License-Identifier: MIT
#pragma once

namespace Toolkits
{

/// Raises `std::runtime_error`, which tells why, where Qt can show no windows. It would end the program
/// itself: at a display that can't be reached, and at an application object of the program's own that has
/// none.
void RequireDisplay();

} // namespace Toolkits
