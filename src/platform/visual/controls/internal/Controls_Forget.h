// SPDX-License-Identifier: MIT
#pragma once

namespace Controls
{

class TControl;

/// The control is at its end: nothing process-wide points to it any more.
void ForgetControl(TControl* control) noexcept;

} // namespace Controls
