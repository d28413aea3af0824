// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_StringTypeInfo.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/typinfo/Typinfo.h"

namespace BTL
{

namespace
{

constexpr UTL::CFaultPlace NoSuchProperty{"BTL_STR_StringTypeInfo", 48};

} // namespace

const Typinfo::TTypeInfo* StringTypeInfo(System::TMetaClass* classRef, const System::UnicodeString& name)
{
    const Typinfo::TPropInfo* property = classRef == nullptr ? nullptr : Typinfo::GetPropInfo(classRef, name);
    const Typinfo::TTypeInfo* type = property == nullptr ? nullptr : property->getPropType();
    if (type == nullptr) {
        UTL::THROW_XAssert(NoSuchProperty);
    }
    return type;
}

const Typinfo::TTypeInfo* StringTypeInfo(System::TMetaClass* classRef, const System::AnsiString& name)
{
    return StringTypeInfo(classRef, System::UnicodeString(name));
}

} // namespace BTL
