// SPDX-License-Identifier: MIT
#include "properties/values/PROP_Filter.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/forms/Forms_Form.h"

namespace PROP
{

using System::TMetaClass;
using System::TObject;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoClass{"PROP_Filter", 1};
constexpr UTL::CFaultPlace NoObject{"PROP_Filter", 2};

bool IsForm(const TMetaClass* type)
{
    return type != nullptr && type->Inherits(System::ClassOf<Forms::TCustomForm>());
}

} // namespace

CFilter::~CFilter() = default;

void CFilter::Clear()
{
    for (BTL::CStringSet* const set :
         {&mProperties, &mNotOnForms, &mClasses, &mNotClasses, &mItemProperties}) {
        set->clear();
    }
}

bool CFilter::IsObjectValid(const UnicodeString& className) const
{
    return (mClasses.empty() || mClasses.Contains(className)) && !mNotClasses.Contains(className);
}

bool CFilter::IsObjectValid(TMetaClass* type) const
{
    if (type == nullptr) {
        UTL::THROW_XAssert(NoClass);
        return false;
    }
    return IsObjectValid(type->getName());
}

bool CFilter::IsObjectValid(TObject* object) const
{
    if (object == nullptr) {
        UTL::THROW_XAssert(NoObject);
        return false;
    }
    return IsObjectValid(object->ClassName());
}

bool CFilter::IsPropertyValid(const UnicodeString& name) const
{
    return mProperties.Contains(name);
}

bool CFilter::IsPropertyValid(TObject* object, const UnicodeString& name) const
{
    return IsPropertyValid(object == nullptr ? nullptr : object->ClassType(), name);
}

bool CFilter::IsPropertyValid(TMetaClass* type, const UnicodeString& name) const
{
    return IsPropertyValid(name) && !(mNotOnForms.Contains(name) && IsForm(type));
}

bool CFilter::IsPropertyValid(TMetaClass* type, const Typinfo::TPropInfo* info) const
{
    return info != nullptr && IsPropertyValid(type, info->getName());
}

} // namespace PROP
