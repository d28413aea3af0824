// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Persistent.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Classes
{

using System::GClassBuilder;
using System::TMetaClass;
using System::UnicodeString;

TMetaClass* TPersistent::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TPersistent>(u"TPersistent").Build();
    return record;
}

TPersistent::~TPersistent() = default;

void TPersistent::Assign(TPersistent* source)
{
    if (source == nullptr) {
        AssignError(nullptr);
    }
    source->AssignTo(this);
}

void TPersistent::AssignTo(TPersistent* target) const
{
    if (target == nullptr) {
        throw Sysutils::EConvertError(u"Cannot assign a " + ClassName() + u" to nil");
    }
    target->AssignError(this);
}

void TPersistent::AssignError(const TPersistent* source) const
{
    const UnicodeString sourceName = source == nullptr ? UnicodeString(u"nil") : source->ClassName();
    throw Sysutils::EConvertError(u"Cannot assign a " + sourceName + u" to a " + ClassName());
}

UnicodeString TPersistent::GetNamePath() const
{
    const TPersistent* owner = GetOwner();
    const UnicodeString path = owner == nullptr ? UnicodeString() : owner->GetNamePath();
    return path.IsEmpty() ? ClassName() : path + u"." + ClassName();
}

TPersistent* TPersistent::GetOwner() const
{
    return nullptr;
}

void TPersistent::DefineProperties(TFiler&) {}

} // namespace Classes
