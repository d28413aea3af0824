// SPDX-License-Identifier: MIT
#include "forms/BTL_AFC_AAuto_FormCreatorStd.h"

#include "properties/classes/BTL_ClassModules.h"

namespace BTL
{

AAuto_FormCreatorStd::AAuto_FormCreatorStd(Classes::TComponent*& form, System::TMetaClass* type,
                                           bool showSplash, bool owned)
    : AAuto_FormCreatorStd(CVariable(form), type, showSplash, owned)
{
}

AAuto_FormCreatorStd::AAuto_FormCreatorStd(const CVariable& form, System::TMetaClass* type, bool showSplash,
                                           bool owned)
    : AAuto_FormCreator(form, showSplash, owned)
{
    RegisterFormClass(type);
}

AAuto_FormCreatorStd::~AAuto_FormCreatorStd() = default;

} // namespace BTL
