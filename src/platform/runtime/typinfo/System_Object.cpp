// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_Object.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/internal/System_ShownClass.h"

#include <utility>

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

TObject::~TObject()
{
    delete mShown;
}

TMetaClass* TObject::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TObject>(u"TObject").Build();
    return record;
}

TMetaClass* TObject::OwnClass() const
{
    return ClassRecord();
}

TMetaClass* TObject::ShownClass() const noexcept
{
    return mShown->type;
}

void TObject::SetClassType(TMetaClass* type)
{
    if (type == nullptr) {
        delete std::exchange(mShown, nullptr);
    } else if (mShown == nullptr) {
        mShown = new Detail::TShownClass{type, {}};
    } else {
        mShown->type = type;
    }
}

bool TObject::IsMadeOf(const TMetaClass* type) const
{
    return OwnClass()->Inherits(type);
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
