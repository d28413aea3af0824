// SPDX-License-Identifier: MIT
#include "properties/components/BTL_Components.h"

#include "properties/classes/BTL_Classes.h"
#include "properties/components/internal/BTL_OwnedWalk.h"

namespace BTL
{

using Classes::TComponent;
using System::TMetaClass;

namespace
{

int OwnedBy(const TComponent* component)
{
    return component == nullptr ? 0 : component->GetComponentCount();
}

} // namespace

CComponents::CComponents(TComponent* component, bool withRoot)
    : Base(UTL::ECapacity(0), OwnedBy(component) + (withRoot ? 1 : 0), DefaultIncrement), mOwner(component)
{
    if (withRoot && component != nullptr) {
        push_back(component);
    }
    AddComponents(component);
}

CComponents::CComponents(TComponent* component, TMetaClass* type)
    : Base(UTL::ECapacity(0), OwnedBy(component), DefaultIncrement), mOwner(component)
{
    AddBranches(component, type);
}

CComponents::CComponents(const CComponents& other, TMetaClass* type) : mOwner(other.mOwner)
{
    other.AddComponentsTo(*this, type);
}

void CComponents::SynchronizeWithOwner()
{
    resize(0);
    AddComponents(mOwner);
}

void CComponents::ReserveFor(const TComponent& component)
{
    reserve(SizeWith(static_cast<unsigned>(component.GetComponentCount())));
}

void CComponents::AddComponents(TComponent* component)
{
    if (component == nullptr) {
        return;
    }
    ReserveFor(*component);
    WalkOwned(*component, [this](TComponent* owned) {
        push_back(owned);
        return true;
    });
}

void CComponents::AddComponents(TComponent* component, TMetaClass* type)
{
    if (InheritsFrom(component, type)) {
        ReserveFor(*component);
        AddBranches(component, type);
    }
}

void CComponents::AddBranches(const TComponent* component, TMetaClass* type)
{
    if (component == nullptr) {
        return;
    }
    WalkOwned(*component, [this, type](TComponent* owned) {
        push_back(owned);
        return InheritsFrom(owned, type);
    });
}

void CComponents::AddComponentsTo(CComponents& out, TMetaClass* type) const
{
    // By index: the other list may be this one, which grows.
    const unsigned count = size();
    for (unsigned i = 0; i < count; ++i) {
        TComponent* const component = at(i);
        if (InheritsFrom(component, type)) {
            out.push_back(component);
        }
    }
}

void CComponents::GetComponents(CComponents& out, TMetaClass* type) const
{
    CComponents found(*this, type);
    out.resize(0);
    out.append(found);
}

} // namespace BTL
