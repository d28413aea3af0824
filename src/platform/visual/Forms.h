// SPDX-License-Identifier: MIT
#pragma once

// Forms, frames, data modules, the application and the screen.

#include "platform/visual/forms/Classes_DataModule.h" // IWYU pragma: export
#include "platform/visual/forms/Forms_Application.h"  // IWYU pragma: export
#include "platform/visual/forms/Forms_Form.h"         // IWYU pragma: export
#include "platform/visual/forms/Forms_Frame.h"        // IWYU pragma: export
#include "platform/visual/forms/Forms_Screen.h"       // IWYU pragma: export
