// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Object.h"

namespace PASO
{

/// The library's class that a class with a design derives from, or is: `Forms::TForm`, `Forms::TFrame` or
/// `Classes::TDataModule`; null for any other class, and for null.
[[nodiscard]] System::TMetaClass* DesignBaseOf(const System::TMetaClass* type);

} // namespace PASO
