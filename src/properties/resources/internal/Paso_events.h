// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace PASO
{

/// Empties all published events of `component` and of what it owns, level by level. What a setter raises
/// passes.
void ClearEvents(Classes::TComponent& component);

} // namespace PASO
