// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace PASO
{

/// Marks those below `component` as inherited whose path of names, see `BTL::GetNamePath`, is also that of
/// `ancestor` or of one below it. Nothing happens if either is null.
///
///     PASO::EmendAncestorState(form, design);                     // `csAncestor` of what both have
TRS8_BTL_API void EmendAncestorState(Classes::TComponent* component, Classes::TComponent* ancestor);

} // namespace PASO
