// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

#include <map>

namespace BTL
{

/// Components by name, in the exact order of the names' characters, so that case matters. They aren't owned.
/// The names are their bare ones or, with name paths, those of `GetNamePath`; of several with one name the
/// last one added is kept. A null component as an argument adds nothing.
///
///     const BTL::CComponentMap map(form, true);                   // the form and all below it
///     Classes::TComponent* const edit = map.Find(u"FormMain.FrameData.EditName");
class TRS8_BTL_API CComponentMap : public std::map<System::UnicodeString, Classes::TComponent*>
{
public:
    explicit CComponentMap(bool useNamePath) : mUseNamePath(useNamePath) {}
    /// As `AddComponents` of the component.
    CComponentMap(Classes::TComponent* component, bool useNamePath);

    /// Adds `component` and all below it.
    void AddComponents(Classes::TComponent* component);
    /// Adds all below `component`, of any class; `component` itself only if it is of the class `type`.
    void AddComponents(Classes::TComponent* component, System::TMetaClass* type);

    /// The component of that name; null if there is none.
    Classes::TComponent* Find(const System::UnicodeString& name) const;
    /// The component that is here under the name of `component`, which may be another one. Null if there is
    /// none, and for null.
    Classes::TComponent* Find(Classes::TComponent* component) const;
    /// The name under which `component` is added; null is an internal fault.
    System::UnicodeString GetNameOf(Classes::TComponent* component) const;

private:
    bool mUseNamePath;
};

} // namespace BTL
