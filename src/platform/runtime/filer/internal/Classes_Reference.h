// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/typinfo/Typinfo.h"

#include <vector>

namespace Classes
{

/// A step from an object to one that is part of it: by a property, or to an item of a collection.
struct TPartStep
{
    const Typinfo::TPropInfo* info = nullptr;
    int itemIndex = 0;
    int itemID = 0;
};

/// A property that is to point to a component which is told by its name.
struct TReference
{
    /// The component that has the property, or a part with it.
    TComponent* component = nullptr;
    std::vector<TPartStep> steps = {};
    const Typinfo::TPropInfo* info = nullptr;
    /// The form that is read, and the frame in it that names are of first.
    TComponent* root = nullptr;
    TComponent* lookupRoot = nullptr;
    System::UnicodeString name = {};
    /// For messages.
    System::UnicodeString place = {};
};

/// The component that the reference means within the form that it was read in; null if there is none.
TComponent* FindLocalTarget(const TReference& reference);
/// Lets the property point to `target`. Nothing happens if the part isn't there any more.
void SetReference(const TReference& reference, TComponent* target);
/// Keeps a reference to another form until that is there.
void KeepReference(TReference&& reference);
/// Forgets what `component`, which is being destroyed, has to refer to, and what was read within it.
void ForgetReferences(const TComponent& component) noexcept;

} // namespace Classes
