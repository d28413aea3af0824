// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "properties/components/BTL_Components.h"
#include "properties/objects/PROP_Object.h"
#include "properties/objects/internal/PROP_Snapshot.h"
#include "properties/values/PROP_Filter.h"
#include "properties/values/PROP_Utilities.h"

#include <deque>
#include <utility>

namespace PROP
{

using BTL::CComponents;
using Classes::TComponent;
using System::TObject;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoObject{"PROP_Object", 4};
constexpr UTL::CFaultPlace NoName{"PROP_Object", 5};
constexpr UTL::CFaultPlace NameTwice{"PROP_Object", 6};
constexpr UTL::CFaultPlace NoComponentToFind{"PROP_Object", 7};

/// A component while it lives, and what is to be applied to it.
struct TTarget
{
    TTarget(TComponent* target, CObject* source) : component(target), watch(target), object(source) {}

    TComponent* component;
    Classes::TComponentWatch watch;
    UTL::GAutoPtr<CObject> object;
};

} // namespace

CObjects::~CObjects() = default;

void CObjects::clear() noexcept
{
    mMap.clear();
    mList.clear();
}

void CObjects::Assign(const CObjects& other)
{
    mMap = other.mMap;
    mList = other.mList;
}

/// Adds the object, which is likely to come right in front of `next` by its name, and gives the place behind
/// it: objects are added mostly in the order of their names.
CObjects::TMap::iterator CObjects::AddNear(TMap::iterator next, CObject* object)
{
    // Held at once: one that isn't added and that nobody holds ends here.
    const UTL::GAutoPtr<CObject> held = object;
    if (object == nullptr) {
        UTL::THROW_XAssert(NoObject);
        return next;
    }
    if (object->getName().IsEmpty()) {
        UTL::THROW_XAssert(NoName, "Object Name is empty.");
        return next;
    }
    const std::size_t count = mMap.size();
    const auto place = mMap.try_emplace(next, object->getName(), held);
    if (mMap.size() == count) {
        UTL::THROW_XAssert((u"Ambiguous Object : " + object->getName()).c_str(), NameTwice.source,
                           NameTwice.line);
        return next;
    }
    mList.push_back(held);
    return std::next(place);
}

void CObjects::AddObject(CObject* object)
{
    // Files have their objects in the order of their names.
    AddNear(mMap.end(), object);
}

void CObjects::AddObject(TObject* object, const CFilter* filter)
{
    AddObject(new CObject(object, filter));
}

void CObjects::AddObjects(TComponent* root, const CFilter* filter)
{
    if (filter == nullptr || filter->IsObjectValid(root)) {
        AddObject(root, filter);
    }
    AddObjects(CComponents(root), filter);
}

void CObjects::AddObjects(const CComponents& components, const CFilter* filter)
{
    CSnapshot snapshot(filter);
    auto next = mMap.end();
    for (TComponent* const component : components) {
        if (!component->getName().IsEmpty() && (filter == nullptr || filter->IsObjectValid(component))) {
            CProperties properties;
            snapshot.AddTo(properties, component);
            next = AddNear(next, new CObject(GetComponentName(component), std::move(properties)));
        }
    }
}

CObject* CObjects::Find(const UnicodeString& name) const
{
    const auto found = mMap.find(name);
    return found == mMap.end() ? nullptr : found->second.get();
}

CObject* CObjects::Find(TObject* component) const
{
    auto* const typed = dynamic_cast<TComponent*>(component);
    if (typed == nullptr) {
        UTL::THROW_XAssert(NoComponentToFind);
        return nullptr;
    }
    return Find(GetComponentName(typed));
}

void CObjects::ApplyProperties(const CComponents& components) const
{
    if (empty()) {
        return;
    }
    // Held, and found before the first is applied: a handler may take the objects anew, and end this with
    // them.
    std::deque<TTarget> targets;
    for (TComponent* const component : components) {
        if (CObject* const object = Find(component); object != nullptr) {
            targets.emplace_back(component, object);
        }
    }
    for (const TTarget& target : targets) {
        if (target.watch.IsAlive()) {
            target.object->ApplyProperties(target.component);
        }
    }
}

void CObjects::GetDifferenceOf(const CObjects& other, CObjects& out) const
{
    CObjects difference;
    auto next = difference.mMap.end();
    for (std::size_t i = 0; i < mList.size(); ++i) {
        const CObject& object = *mList[i].get();
        // Two snapshots of a form have their objects in one order.
        const bool isThere = i < other.mList.size() && other.mList[i]->getName() == object.getName();
        const CObject* const present = isThere ? other.mList[i].get() : other.Find(object.getName());
        CProperties changes;
        if (present != nullptr) {
            object.GetDifferenceOf(*present, changes);
        }
        if (!changes.empty()) {
            next = difference.AddNear(next, new CObject(object.getName(), std::move(changes)));
        }
    }
    out.mMap.swap(difference.mMap);
    out.mList.swap(difference.mList);
}

} // namespace PROP
