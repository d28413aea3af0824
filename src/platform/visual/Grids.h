// SPDX-License-Identifier: MIT
#pragma once

// Grids of cells in columns and rows.

#include "platform/visual/grids/Grids_DrawGrid.h"    // IWYU pragma: export
#include "platform/visual/grids/Grids_InplaceEdit.h" // IWYU pragma: export
#include "platform/visual/grids/Grids_StringGrid.h"  // IWYU pragma: export
