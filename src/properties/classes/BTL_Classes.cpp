// SPDX-License-Identifier: MIT
#include "properties/classes/BTL_Classes.h"

#include "platform/host/Host_Module.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/visual/forms/Classes_DataModule.h"
#include "platform/visual/forms/Forms_Form.h"
#include "properties/classes/internal/BTL_ClassParents.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

namespace BTL
{

using System::TMetaClass;
using System::UnicodeString;

namespace
{

/// Never destroyed: a module that ends late may still ask.
CClasses& ComponentClasses()
{
    static auto* const classes = new CClasses;
    return *classes;
}

} // namespace

bool EndsParents(const TMetaClass* type)
{
    return type == nullptr || type == System::ClassOf<Forms::TForm>() ||
           type == System::ClassOf<Classes::TDataModule>();
}

void CClasses::Add(TMetaClass* type, bool withParents)
{
    if (type == nullptr) {
        return;
    }
    mClasses.insert_or_assign(type->getName(), type);
    TMetaClass* const parent = type->getParent();
    if (withParents && !EndsParents(parent)) {
        Add(parent, true);
    }
}

TMetaClass* CClasses::FindClass(const UnicodeString& name) const
{
    const auto found = mClasses.find(name);
    return found == mClasses.end() ? nullptr : found->second;
}

void CClasses::GetClasses(Classes::TStrings* list) const
{
    if (list == nullptr) {
        return;
    }
    const CStringsUpdate update(list);
    list->Clear();
    AddClassesTo(list);
}

void CClasses::AddClassesTo(Classes::TStrings* list) const
{
    if (list == nullptr) {
        return;
    }
    for (const auto& [name, type] : mClasses) {
        list->AddObject(name, type);
    }
}

bool CClasses::CheckClass(TMetaClass* type) const
{
    if (type == nullptr) {
        return true;
    }
    const TMetaClass* const known = FindClass(type->getName());
    return known == nullptr || known == type;
}

void RegisterComponentClass(TMetaClass* type)
{
    if (type == nullptr) {
        return;
    }
    Host::KeepModule(type->ModuleAddress());
    ComponentClasses().Add(type, false);
}

TMetaClass* GetComponentClass(const UnicodeString& name)
{
    return ComponentClasses().FindClass(name);
}

void GetClasses(TMetaClass* type, Classes::TStrings* list)
{
    if (list == nullptr) {
        return;
    }
    const CStringsUpdate update(list);
    list->Clear();
    for (; !EndsParents(type); type = type->getParent()) {
        list->AddObject(type->getName(), type);
    }
}

bool InheritsFrom(TMetaClass* type, const UnicodeString& name)
{
    while (type != nullptr && type->getName() != name) {
        type = type->getParent();
    }
    return type != nullptr;
}

bool InheritsFrom(System::TObject* object, TMetaClass* type)
{
    return object != nullptr && object->InheritsFrom(type);
}

} // namespace BTL
