// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Object.h"

namespace PASO
{

/// Lets `object` appear as one of the class `type`, see `System::TObject::SetClassType`; what it was made of,
/// it stays. Null arguments are internal faults and change nothing.
TRS8_BTL_API void SetClassType(System::TObject* object, System::TMetaClass* type);

} // namespace PASO
