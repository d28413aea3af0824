// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVector.h"
#include "platform/runtime/classes/Classes_Component.h"

namespace BTL
{

/// The components below one, as a list: whole trees, depth first, each component before what it owns. They
/// aren't owned. A null component as an argument counts as one that owns nothing.
///
///     const BTL::CComponents all(form);                           // all that the form owns, level by level
///     const BTL::CComponents controls(all, System::ClassOf<Controls::TControl>());
///     for (Classes::TComponent* const control : controls) { ... }
class TRS8_BTL_API CComponents : public UTL::GSimpleVector<Classes::TComponent*>
{
    using Base = UTL::GSimpleVector<Classes::TComponent*>;

public:
    CComponents() = default;
    /// All below `component`, which becomes the owner.
    explicit CComponents(Classes::TComponent* component) : CComponents(component, false) {}
    /// As with the component alone; `withRoot` puts the component itself in front.
    CComponents(Classes::TComponent* component, bool withRoot);
    /// All that `component`, which becomes the owner, owns, and further down only what components of the
    /// class `type` own. So the class tells which branches are followed, not what is kept.
    CComponents(Classes::TComponent* component, System::TMetaClass* type);
    /// Those of `other` that are of the class `type`, with its owner.
    CComponents(const CComponents& other, System::TMetaClass* type);

    /// The component that the list was made of; null if there was none.
    Classes::TComponent* getOwner() const noexcept { return mOwner; }
    /// Empties the list and adds all that is below the owner now, which must still be there.
    void SynchronizeWithOwner();

    /// Adds all below `component`.
    void AddComponents(Classes::TComponent* component);
    /// If `component` is of the class `type`: adds all that it owns, and further down only what components of
    /// the class own. Otherwise nothing.
    void AddComponents(Classes::TComponent* component, System::TMetaClass* type);
    /// Adds to `out` those that are of the class `type`; `out` may be this list.
    void AddComponentsTo(CComponents& out, System::TMetaClass* type) const;
    /// As `AddComponentsTo`, but empties `out` first.
    void GetComponents(CComponents& out, System::TMetaClass* type) const;

    /// An index out of range is an internal fault, see `RangeCheck`.
    Classes::TComponent* getComponent(int index) const { return at(static_cast<unsigned>(index)); }
    int getComponentCount() const noexcept { return static_cast<int>(size()); }

private:
    void ReserveFor(const Classes::TComponent& component);
    void AddBranches(const Classes::TComponent* component, System::TMetaClass* type);

    Classes::TComponent* mOwner = nullptr;
};

} // namespace BTL
