// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_Object.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

namespace Sysutils
{

EInvalidCast::~EInvalidCast() = default;

} // namespace Sysutils

namespace System
{

namespace Detail
{

void ThrowInvalidCast()
{
    throw Sysutils::EInvalidCast(u"Invalid class typecast");
}

} // namespace Detail

TObject::~TObject() = default;

TMetaClass* TObject::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TObject>(u"TObject").Build();
    return record;
}

TMetaClass* TObject::OwnClass() const
{
    return ClassRecord();
}

const UnicodeString& TObject::ClassName() const
{
    return ClassType()->getName();
}

TMetaClass* TObject::ClassParent() const
{
    return ClassType()->getParent();
}

const Typinfo::TTypeInfo* TObject::ClassInfo() const
{
    return ClassType()->TypeInfo();
}

bool TObject::InheritsFrom(const TMetaClass* type) const
{
    return ClassType()->Inherits(type);
}

TMethodAddress TObject::MethodAddress(const UnicodeString& name) const
{
    return ClassType()->FindMethod(name);
}

UnicodeString TObject::MethodName(const TMethodAddress& method) const
{
    return ClassType()->FindMethodName(method);
}

} // namespace System
