// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace Typinfo::Detail
{

/// `EPropertyError` if there is no such property.
const TPropInfo* NeedProp(const System::TObject* object, const System::UnicodeString& name);

} // namespace Typinfo::Detail
