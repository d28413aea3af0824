// SPDX-License-Identifier: MIT
#include "properties/classes/BTL_ClassModules.h"

#include "environment/files/Btl_sys_utilities.h"
#include "platform/host/Host_Module.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/forms/Classes_DataModule.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Frame.h"
#include "properties/classes/internal/BTL_ClassParents.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

namespace BTL
{

using System::TMetaClass;
using System::UnicodeString;

namespace
{

/// Never destroyed: a module that ends late may still ask.
CClassModules& ClassModules()
{
    static auto* const modules = new CClassModules;
    return *modules;
}

void RegisterKindOf(const TMetaClass* kind, TMetaClass* type)
{
    if (type != nullptr && type != kind && type->Inherits(kind)) {
        ClassModules().AddClass(type, true);
    }
}

} // namespace

CClassModule::~CClassModule() noexcept = default;

TMetaClass* CClassModule::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<CClassModule>(u"CClassModule").Build();
    return record;
}

bool CClassModuleLess::operator()(const UnicodeString& a, const UnicodeString& b) const
{
    if (a.IsEmpty() || b.IsEmpty()) {
        return a.IsEmpty() && !b.IsEmpty();
    }
    return Sysutils::AnsiCompareText(a, b) < 0;
}

CClassModule& CClassModules::ModuleOf(const TMetaClass& type)
{
    const UnicodeString path = GetModuleFileNameW(Host::ModuleOf(type.ModuleAddress()));
    const UnicodeString name = Sysutils::ExtractFileName(path);
    UTL::GAutoPtr<CClassModule>& module = mModules[name];
    if (module.get() == nullptr) {
        module = new CClassModule(name, path);
    }
    return *module.get();
}

void CClassModules::AddClass(TMetaClass* type, bool withParents)
{
    if (type == nullptr) {
        return;
    }
    Host::KeepModule(type->ModuleAddress());
    ModuleOf(*type).getClasses().Add(type, false);
    TMetaClass* const parent = type->getParent();
    if (withParents && !EndsParents(parent)) {
        AddClass(parent, true);
    }
}

CClassModule* CClassModules::FindClassModule(const UnicodeString& name) const
{
    const auto found = mModules.find(name);
    return found == mModules.end() ? nullptr : found->second.get();
}

void CClassModules::GetClassModules(Classes::TStrings* list) const
{
    if (list == nullptr) {
        return;
    }
    const CStringsUpdate update(list);
    list->Clear();
    for (const auto& [name, module] : mModules) {
        list->AddObject(name, module.get());
    }
}

void CClassModules::GetClasses(Classes::TStrings* list) const
{
    if (list == nullptr) {
        return;
    }
    const CStringsUpdate update(list);
    list->Clear();
    for (const auto& [name, module] : mModules) {
        module->getClasses().AddClassesTo(list);
    }
}

void RegisterFormClass(TMetaClass* type)
{
    RegisterKindOf(System::ClassOf<Forms::TForm>(), type);
}

void RegisterFrameClass(TMetaClass* type)
{
    RegisterKindOf(System::ClassOf<Forms::TFrame>(), type);
}

void RegisterDataModuleClass(TMetaClass* type)
{
    RegisterKindOf(System::ClassOf<Classes::TDataModule>(), type);
}

TMetaClass* FindClass(const UnicodeString& moduleName, const UnicodeString& className)
{
    const CClassModule* const module = ClassModules().FindClassModule(moduleName);
    return module == nullptr ? nullptr : module->FindClass(className);
}

void GetClassModules(Classes::TStrings* list)
{
    ClassModules().GetClassModules(list);
}

void GetClasses(const UnicodeString& moduleName, Classes::TStrings* list)
{
    const CClassModule* const module = ClassModules().FindClassModule(moduleName);
    if (module != nullptr) {
        module->getClasses().GetClasses(list);
    } else if (list != nullptr) {
        list->Clear();
    }
}

void GetClasses(Classes::TStrings* list)
{
    ClassModules().GetClasses(list);
}

} // namespace BTL
