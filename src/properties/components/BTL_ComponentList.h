// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVector.h"
#include "platform/runtime/classes/Classes_Component.h"

namespace Contnrs
{
class TComponentList;
} // namespace Contnrs

namespace BTL
{

/// Components in the order of adding, as they come or all of one class. They aren't owned. A null component
/// or list as an argument adds nothing.
///
///     BTL::CComponentList owned(form);                            // what the form itself owns
///     BTL::CComponentList edits(form, System::ClassOf<Stdctrls::TEdit>()); // on all levels below the form
///     owned.AddComponents(edits);
class TRS8_BTL_API CComponentList : public UTL::GSimpleVector<Classes::TComponent*>
{
public:
    CComponentList() = default;
    /// Those of `list` that are of the class `type`, and those of the class on all levels below each of it.
    CComponentList(const CComponentList& list, System::TMetaClass* type) { AddComponents(list, type); }
    /// What `component` itself owns.
    explicit CComponentList(Classes::TComponent* component) { AddComponents(component); }
    /// Those of the platform's list.
    explicit CComponentList(const Contnrs::TComponentList* list) { AddComponents(list); }
    /// Those of the class `type` on all levels below `component`.
    CComponentList(Classes::TComponent* component, System::TMetaClass* type)
    {
        AddComponents(component, type);
    }
    /// As of another list and a class.
    CComponentList(const Contnrs::TComponentList* list, System::TMetaClass* type)
    {
        AddComponents(list, type);
    }

    /// What `component` itself owns.
    void AddComponents(Classes::TComponent* component);
    /// Those of `list`, which may be this one.
    void AddComponents(const CComponentList& list) { append(list); }
    /// Those of the platform's list.
    void AddComponents(const Contnrs::TComponentList* list);
    /// Those of the class `type` on all levels below `component`, each before what it owns.
    void AddComponents(Classes::TComponent* component, System::TMetaClass* type);
    /// Those of `list` that are of the class `type`, each followed by those of the class on all levels below
    /// it.
    void AddComponents(const CComponentList& list, System::TMetaClass* type);
    void AddComponents(const Contnrs::TComponentList* list, System::TMetaClass* type);
    /// Destroys all that are in the list and empties it. One that goes with another, which owns it, or that
    /// is in the list twice, is destroyed once.
    void DeleteComponents();

    /// An index out of range is an internal fault, see `RangeCheck`.
    Classes::TComponent* getComponent(int index) const { return at(static_cast<unsigned>(index)); }
    int getComponentCount() const noexcept { return static_cast<int>(size()); }

private:
    void AddWithBelow(Classes::TComponent* component, System::TMetaClass* type);
};

} // namespace BTL
