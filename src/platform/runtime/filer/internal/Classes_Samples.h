// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace Classes::Form
{

/// Objects that show what their classes have. They are made when they are asked for.
class CSamples
{
public:
    /// A component of the class; null if it can't be made.
    TComponent* ComponentOf(const System::TMetaClass* type);
    /// An item of the collection; null if it makes none.
    TPersistent* ItemOf(TPersistent* collection);
    /// Whether the object tells a filer of this value.
    bool Defines(TPersistent& object, const System::UnicodeString& name);

private:
    using CNames = std::unordered_set<System::UnicodeString>;

    std::unordered_map<const System::TMetaClass*, std::unique_ptr<TComponent>> mComponents;
    std::unordered_map<TPersistent*, CNames> mDefined;
};

} // namespace Classes::Form
