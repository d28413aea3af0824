// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/grids/Grids_CustomGrid.h"

namespace Grids
{

/// What of a grid's area is left for the cells, and which bars take the rest.
struct TCustomGrid::TLayout
{
    int width = 0;
    int height = 0;
    bool hasHorizontal = false;
    bool hasVertical = false;

    friend bool operator==(const TLayout&, const TLayout&) = default;
};

} // namespace Grids
