// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintTypes.h"

#include <Qt>

namespace Toolkits
{

/// As `Toolkit::SystemColor`, by the palette of the desktop.
TPixel PaletteColor(int index);

/// The shape of the mouse pointer by its number; the arrow for one that Qt doesn't have.
Qt::CursorShape ToQtCursor(int cursor);

} // namespace Toolkits
