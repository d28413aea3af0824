// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Object.h"

#include <vector>

namespace Pasu_classtable
{

/// The classes of the fields that the class `type` itself publishes, each once, in the order of the fields.
/// None for null.
///
///     for (System::TMetaClass* const type : Pasu_classtable::GetFieldClassTable(form->ClassType())) { ... }
[[nodiscard]] TRS8_BTL_API std::vector<System::TMetaClass*>
GetFieldClassTable(const System::TMetaClass* type);

/// The class of that name, case aside, among those of the fields that `type` and its parents below
/// `Classes::TPersistent` publish, the nearest first; else what `Classes::GetClass` knows. Null if there is
/// none.
[[nodiscard]] TRS8_BTL_API System::TMetaClass* GetFieldClass(const System::TMetaClass* type,
                                                             const System::UnicodeString& name);

} // namespace Pasu_classtable
