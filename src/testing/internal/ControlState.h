// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>

namespace Controls
{
class TControl;
} // namespace Controls

namespace Testing
{

/// Writes what isn't usual of a button's, box's or list's state, each with a blank in front: marks, how many
/// items there are, and which are chosen.
void WriteControlState(std::ostream& out, const Controls::TControl& control);

} // namespace Testing
