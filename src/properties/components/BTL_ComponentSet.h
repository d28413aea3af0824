// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

#include <set>

namespace Contnrs
{
class TComponentList;
} // namespace Contnrs

namespace BTL
{

/// Components, each once, in the order of their addresses. They aren't owned. A null component or list as an
/// argument adds nothing.
///
///     BTL::CComponentSet kept(form);                              // what the form itself owns
///     kept.AddComponents(panel, System::ClassOf<Controls::TControl>());
///     if (kept.Contains(edit)) { ... }
class TRS8_BTL_API CComponentSet : public std::set<Classes::TComponent*>
{
public:
    CComponentSet() = default;
    /// Those of `other` that are of the class `type`.
    CComponentSet(const CComponentSet& other, System::TMetaClass* type) { AddComponents(other, type); }
    /// What `component` itself owns.
    explicit CComponentSet(Classes::TComponent* component) { AddComponents(component); }
    /// What `component` itself owns of the class `type`.
    CComponentSet(Classes::TComponent* component, System::TMetaClass* type)
    {
        AddComponents(component, type);
    }
    /// Those of the platform's list.
    explicit CComponentSet(const Contnrs::TComponentList* list) { AddComponents(list); }
    /// Those of the platform's list that are of the class `type`.
    CComponentSet(const Contnrs::TComponentList* list, System::TMetaClass* type)
    {
        AddComponents(list, type);
    }

    void AddComponents(const CComponentSet& other) { insert(other.begin(), other.end()); }
    /// What `component` itself owns.
    void AddComponents(Classes::TComponent* component);
    /// Those of the platform's list.
    void AddComponents(const Contnrs::TComponentList* list);
    /// Those of `other` that are of the class `type`.
    void AddComponents(const CComponentSet& other, System::TMetaClass* type);
    /// Those of the platform's list that are of the class `type`.
    void AddComponents(const Contnrs::TComponentList* list, System::TMetaClass* type);
    /// What `component` itself owns of the class `type`.
    void AddComponents(Classes::TComponent* component, System::TMetaClass* type);

    /// Whether `component` is in the set.
    bool Contains(Classes::TComponent* component) const { return contains(component); }
};

} // namespace BTL
