// SPDX-License-Identifier: MIT
#pragma once

// Forms, the application and the screen.

#include "platform/visual/forms/Forms_Application.h" // IWYU pragma: export
#include "platform/visual/forms/Forms_Form.h"        // IWYU pragma: export
#include "platform/visual/forms/Forms_Screen.h"      // IWYU pragma: export
