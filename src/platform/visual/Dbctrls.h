// SPDX-License-Identifier: MIT
#pragma once

// Controls that show and edit the fields of data sets, but for grids.

#include "platform/visual/data/Dbctrls_DBEdit.h"        // IWYU pragma: export
#include "platform/visual/data/Dbctrls_LookupControl.h" // IWYU pragma: export
