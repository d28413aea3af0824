// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Object.h"

namespace BTL
{

/// The type record of the published property `name` of a class. A property that doesn't exist, or whose type
/// is unknown, is an internal fault, and null if the user lets it pass.
///
///     const Typinfo::TTypeInfo* const type = BTL::StringTypeInfo(System::ClassOf<TGauge>(), u"Caption");
///     const bool isText = type != nullptr && type->Kind == Typinfo::tkUString;
TRS8_BTL_API const Typinfo::TTypeInfo* StringTypeInfo(System::TMetaClass* classRef,
                                                      const System::UnicodeString& name);
TRS8_BTL_API const Typinfo::TTypeInfo* StringTypeInfo(System::TMetaClass* classRef,
                                                      const System::AnsiString& name);

} // namespace BTL
