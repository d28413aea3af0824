// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <optional>

namespace Station
{

/// Plays an instrument on a pseudo-terminal, which other programs of the user find as port `port` meanwhile.
/// Ends behind `seconds`, or by a signal that asks it to; one that is `faulty` also when its plug is pulled.
/// Tells on `stream` which device it is. `Sysutils::Exception` if the port is another device's.
void PlayInstrument(int port, bool isFaulty, std::optional<double> seconds, std::ostream& stream);

} // namespace Station
