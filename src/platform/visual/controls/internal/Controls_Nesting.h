// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_WinControl.h"

namespace Controls
{

/// Work that goes from parents to children, each level inside of a call for the one above it. Trees deeper
/// than the stack bears go on when the outermost call returns: `RunNested` then only notes the work.
///
/// `work` is called for `control` once, unless the control is destroyed before its turn comes.
void RunNested(TWinControl& control, void (*work)(TWinControl& control));

} // namespace Controls
