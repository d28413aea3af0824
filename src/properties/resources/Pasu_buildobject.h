// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace Pasu_buildobject
{

/// A new component of the class `type`, made as a program makes its own: its constructors run, and those of
/// forms and data modules are followed by `AfterConstruction`. It belongs to `owner` or, if that is null, to
/// the caller. Null for null, an abstract class and one that is none of components.
///
///     Classes::TComponent* const frame = Pasu_buildobject::BuildObject(System::ClassOf<TLimitsFrame>(),
///     form);
[[nodiscard]] TRS8_BTL_API Classes::TComponent* BuildObject(System::TMetaClass* type,
                                                            Classes::TComponent* owner);

} // namespace Pasu_buildobject
