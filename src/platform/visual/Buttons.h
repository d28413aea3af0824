// SPDX-License-Identifier: MIT
#pragma once

// Buttons with a picture.

#include "platform/visual/stdctrls/buttons/Buttons_BitBtn.h"      // IWYU pragma: export
#include "platform/visual/stdctrls/buttons/Buttons_SpeedButton.h" // IWYU pragma: export
