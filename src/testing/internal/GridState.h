// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>

namespace Controls
{
class TControl;
} // namespace Controls

namespace Testing
{

/// Writes how many cells a grid has, where it is scrolled to, the cell at hand and the selection, each with a
/// blank in front; nothing of any other control.
void WriteGridState(std::ostream& out, const Controls::TControl& control);
/// Writes the texts in sight of a grid of strings, a row of cells each line, `level` times two blanks to the
/// right.
void WriteGridCells(std::ostream& out, const Controls::TControl& control, int level);

} // namespace Testing
