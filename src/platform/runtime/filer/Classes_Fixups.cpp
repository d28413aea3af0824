// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_Fixups.h"

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/filer/internal/Classes_Loading.h"
#include "platform/runtime/filer/internal/Classes_Reference.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <unordered_map>

namespace Classes
{

using System::UnicodeString;

namespace
{

/// The references that wait, in the order in which they came.
struct TPending
{
    std::mutex mutex;
    std::map<long, TReference> references;
    std::unordered_multimap<const TComponent*, long> byComponent;
    long next = 0;
};

struct TFinders
{
    std::mutex mutex;
    std::vector<TFindGlobalComponent> functions;
};

/// Never destroyed, as all that global objects of programs may still use.
TPending& Pending()
{
    static auto* const instance = new TPending;
    return *instance;
}

/// As `Pending`.
TFinders& Finders()
{
    static auto* const instance = new TFinders;
    return *instance;
}

struct TSplitName
{
    UnicodeString root;
    /// Empty for the form itself.
    UnicodeString rest;
};

TSplitName Split(const UnicodeString& name)
{
    const int point = name.Pos(u'.');
    if (point == 0) {
        return {name, {}};
    }
    return {name.SubString(1, point - 1), name.SubString(point + 1)};
}

TComponent* FindGlobalTarget(const UnicodeString& name)
{
    const auto [root, rest] = Split(name);
    TComponent* const found = FindGlobalComponent(root);
    return found == nullptr || rest.IsEmpty() ? found : FindNestedComponent(found, rest);
}

/// Takes the reference from those that wait.
void Erase(TPending& pending, std::map<long, TReference>::iterator entry)
{
    auto [first, last] = pending.byComponent.equal_range(entry->second.component);
    pending.byComponent.erase(
        std::find_if(first, last, [&](const auto& known) { return known.second == entry->first; }));
    pending.references.erase(entry);
}

/// Takes one reference, if it still waits.
std::optional<TReference> TakeReference(long key)
{
    const std::scoped_lock lock(Pending().mutex);
    const auto found = Pending().references.find(key);
    if (found == Pending().references.end()) {
        return {};
    }
    TReference reference = found->second;
    Erase(Pending(), found);
    if (!Pending().byComponent.contains(reference.component)) {
        CLoading::SetState(*reference.component, csFixups, false);
    }
    return reference;
}

struct TWaiting
{
    long key;
    UnicodeString name;
};

/// The next one that waits, behind `key`.
std::optional<TWaiting> NextReference(long key)
{
    const std::scoped_lock lock(Pending().mutex);
    const auto next = Pending().references.upper_bound(key);
    if (next == Pending().references.end()) {
        return {};
    }
    return TWaiting{next->first, next->second.name};
}

System::TObject* StepInto(System::TObject* object, const TPartStep& step)
{
    if (step.info != nullptr) {
        return Typinfo::GetObjectProp(object, step.info);
    }
    auto* const collection = dynamic_cast<TCollection*>(object);
    if (collection == nullptr) {
        return nullptr;
    }
    TCollectionItem* const likely =
        step.itemIndex < collection->GetCount() ? collection->GetItem(step.itemIndex) : nullptr;
    const bool isIt = likely != nullptr && likely->getID() == step.itemID;
    return isIt ? likely : collection->FindItemID(step.itemID);
}

} // namespace

void RegisterFindGlobalComponentProc(TFindGlobalComponent find)
{
    const std::scoped_lock lock(Finders().mutex);
    if (find != nullptr && std::ranges::count(Finders().functions, find) == 0) {
        Finders().functions.push_back(find);
    }
}

void UnregisterFindGlobalComponentProc(TFindGlobalComponent find)
{
    const std::scoped_lock lock(Finders().mutex);
    std::erase(Finders().functions, find);
}

TComponent* FindGlobalComponent(const UnicodeString& name)
{
    std::vector<TFindGlobalComponent> functions;
    {
        const std::scoped_lock lock(Finders().mutex);
        functions = Finders().functions;
    }
    for (auto find = functions.rbegin(); find != functions.rend(); ++find) {
        if (TComponent* const found = (*find)(name); found != nullptr) {
            return found;
        }
    }
    return nullptr;
}

TComponent* FindNestedComponent(TComponent* root, const UnicodeString& path)
{
    UnicodeString rest = path;
    while (root != nullptr && !rest.IsEmpty()) {
        const auto [name, behind] = Split(rest);
        TComponent* const found = root->FindComponent(name);
        root = found != nullptr || name.CompareIC(u"Owner") != 0 ? found : root;
        rest = behind;
    }
    return path.IsEmpty() ? nullptr : root;
}

void GlobalFixupReferences()
{
    std::optional<TWaiting> waiting = NextReference(-1);
    for (; waiting; waiting = NextReference(waiting->key)) {
        TComponent* const target = FindGlobalTarget(waiting->name);
        if (target == nullptr) {
            continue;
        }
        if (const std::optional<TReference> reference = TakeReference(waiting->key); reference) {
            SetReference(*reference, target);
        }
    }
}

void GetFixupReferenceNames(TComponent* root, TStrings* names)
{
    if (names == nullptr) {
        return;
    }
    std::vector<UnicodeString> waiting;
    {
        const std::scoped_lock lock(Pending().mutex);
        for (const auto& [key, reference] : Pending().references) {
            if (root == nullptr || reference.root == root) {
                waiting.push_back(Split(reference.name).root);
            }
        }
    }
    for (const UnicodeString& name : waiting) {
        if (names->IndexOf(name) < 0) {
            names->Add(name);
        }
    }
}

void RemoveFixupReferences(TComponent* root, const UnicodeString& rootName)
{
    std::vector<long> keys;
    {
        const std::scoped_lock lock(Pending().mutex);
        for (const auto& [key, reference] : Pending().references) {
            const bool isOfRoot = root == nullptr || reference.root == root;
            const bool isForName = rootName.IsEmpty() || Split(reference.name).root.CompareIC(rootName) == 0;
            if (isOfRoot && isForName) {
                keys.push_back(key);
            }
        }
    }
    std::ranges::for_each(keys, TakeReference);
}

TComponent* FindLocalTarget(const TReference& reference)
{
    TComponent* found = FindNestedComponent(reference.lookupRoot, reference.name);
    if (found == nullptr && reference.lookupRoot != reference.root) {
        found = FindNestedComponent(reference.root, reference.name);
    }
    const auto [root, rest] = Split(reference.name);
    if (found == nullptr && reference.root->getName().CompareIC(root) == 0) {
        found = rest.IsEmpty() ? reference.root : FindNestedComponent(reference.root, rest);
    }
    return found;
}

void SetReference(const TReference& reference, TComponent* target)
{
    System::TObject* object = reference.component;
    for (const TPartStep& step : reference.steps) {
        object = object == nullptr ? nullptr : StepInto(object, step);
    }
    if (object != nullptr) {
        Typinfo::SetObjectProp(object, reference.info, target);
    }
}

void KeepReference(TReference&& reference)
{
    TComponent& component = *reference.component;
    CLoading::SetState(component, csFixups, true);
    const std::scoped_lock lock(Pending().mutex);
    Pending().byComponent.emplace(&component, Pending().next);
    Pending().references.emplace(Pending().next++, std::move(reference));
}

void ForgetReferences(const TComponent& component) noexcept
{
    const std::scoped_lock lock(Pending().mutex);
    const auto [first, last] = Pending().byComponent.equal_range(&component);
    std::for_each(first, last, [](const auto& known) { Pending().references.erase(known.second); });
    Pending().byComponent.erase(first, last);
}

} // namespace Classes
