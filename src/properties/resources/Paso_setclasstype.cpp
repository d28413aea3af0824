// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_setclasstype.h"

#include "foundation/UTL_ASRT_Assert.h"

namespace PASO
{

namespace
{

constexpr UTL::CFaultPlace NoObject{"PASO_SetClassType", 1};
constexpr UTL::CFaultPlace NoClass{"PASO_SetClassType", 2};
constexpr UTL::CFaultPlace OtherClass{"PASO_SetClassType", 3};

} // namespace

void SetClassType(System::TObject* object, System::TMetaClass* type)
{
    if (object == nullptr || type == nullptr) {
        return UTL::THROW_XAssert(object == nullptr ? NoObject : NoClass);
    }
    object->SetClassType(type);
    if (object->ClassType() != type) {
        UTL::THROW_XAssert(OtherClass);
    }
}

} // namespace PASO
