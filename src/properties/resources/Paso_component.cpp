// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_component.h"

#include "languages/boxes/Btl_messagebox.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "properties/objects/PROP_Event.h"
#include "properties/resources/Paso_create.h"
#include "properties/resources/Paso_readcomponentres.h"
#include "properties/resources/Paso_setclasstype.h"
#include "properties/resources/internal/Paso_designbase.h"

#include <limits>

namespace PASO
{

using Classes::TComponent;
using Classes::TComponentWatch;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

constexpr int StopIcon = 16;

void ShowFault(const UnicodeString& message, const UnicodeString& className)
{
    try {
        BTL::MessageBox1(message + u"\nClass: " + className, StopIcon);
    } catch (...) {
        // Nothing that could be shown is left.
    }
}

void ReadDesign(TComponent& component, TMetaClass& type)
{
    SetDesigning(&component, true, true);
    // The texts that follow a name are the design's, so the name comes as one that is read.
    component.SetLoading(true);
    component.setName(type.getName().SubString(2, std::numeric_limits<int>::max()));
    component.SetLoading(false);
    ReadComponentRes(&component, &type);
}

} // namespace

void SetDesigning(TComponent* component, bool value, bool setChildren)
{
    if (component != nullptr) {
        component->SetDesigning(value, setChildren);
    }
}

TComponent* BuildComponent(TMetaClass* type, bool designing)
{
    TMetaClass* const base = DesignBaseOf(type);
    if (base == nullptr || base == type) {
        return nullptr;
    }
    TComponent* const component = CreateComponent(type, base, nullptr);
    const TComponentWatch watch(component);
    try {
        ReadDesign(*component, *type);
    } catch (...) {
        // What is read may run code of components, which may destroy the form.
        if (watch.IsAlive()) {
            delete component;
        }
        throw;
    }
    SetClassType(component, type);
    SetDesigning(component, designing, true);
    return component;
}

void DeleteComponent(TComponent* component)
{
    if (component == nullptr) {
        return;
    }
    const UnicodeString className = component->ClassName();
    TMetaClass* const shown = component->HasSetClass() ? component->ClassType() : nullptr;
    try {
        if (TMetaClass* const base = DesignBaseOf(component->ClassType()); base != nullptr) {
            SetClassType(component, base);
        }
        PROP::ClearEvents(component, true);
        SetDesigning(component, true, true);
    } catch (const std::exception& fault) {
        component->SetClassType(shown);
        return ShowFault(Sysutils::MessageOf(fault), className);
    } catch (...) {
        component->SetClassType(shown);
        return ShowFault(u"Unknown exception", className);
    }
    delete component;
}

void DeleteComponent(TComponent* first, TComponent* second)
{
    DeleteComponent(second);
    DeleteComponent(first);
}

} // namespace PASO
