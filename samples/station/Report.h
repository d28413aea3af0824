// SPDX-License-Identifier: MIT
#pragma once

#include "Channels.h"

#include <iosfwd>

namespace Station
{

/// Writes the statistics of all channels as a table, with the state of their limits.
void WriteReport(std::ostream& stream, const std::vector<CChannel>& channels);

} // namespace Station
