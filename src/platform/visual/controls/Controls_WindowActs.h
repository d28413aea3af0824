// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_WinControl.h"

namespace Controls
{

/// Whether the control has a window that acts on keys and mouse itself, so that the control waits to be told
/// what came of it.
inline bool WindowActs(const TWinControl& control)
{
    return control.GetWindow() != nullptr && control.GetWindow()->ActsByItself();
}

} // namespace Controls
