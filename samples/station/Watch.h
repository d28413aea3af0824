// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/platform/base/System_String.h>

#include <iosfwd>

namespace Station
{

/// Shows the run that a station with this process number publishes, until it ends: on a terminal in one line
/// that changes, else in a line for each change. Then it tells how the run ended; true if it ended well,
/// false if it failed, or its process died, or there is none that publishes.
bool WatchRun(unsigned long process, std::ostream& stream);

} // namespace Station
