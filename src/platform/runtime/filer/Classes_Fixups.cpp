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
#include <set>
#include <utility>
#include <vector>

namespace Classes
{

using System::UnicodeString;

namespace
{

/// Keys by components.
using TKeys = std::set<std::pair<const TComponent*, long>>;

/// The references that wait, in the order in which they came.
struct TPending
{
    std::mutex mutex;
    std::map<long, TReference> references;
    TKeys byComponent;
    TKeys byRoot;
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

/// The first key of the component; nothing if it has none.
std::optional<long> FirstKey(const TKeys& keys, const TComponent* component)
{
    const auto found = keys.lower_bound({component, 0});
    return found != keys.end() && found->first == component ? std::optional(found->second) : std::nullopt;
}

/// Takes the reference from those that wait.
void Erase(TPending& pending, std::map<long, TReference>::iterator entry)
{
    TComponent* const component = entry->second.component;
    pending.byComponent.erase({component, entry->first});
    pending.byRoot.erase({entry->second.root, entry->first});
    pending.references.erase(entry);
    if (!FirstKey(pending.byComponent, component)) {
        CLoading::SetState(*component, csFixups, false);
    }
}

/// Takes all references that these keys have for `component`.
void EraseAll(TPending& pending, const TKeys& keys, const TComponent* component)
{
    for (auto key = FirstKey(keys, component); key; key = FirstKey(keys, component)) {
        Erase(pending, pending.references.find(*key));
    }
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
    return reference;
}

/// The keys of the references that `isMeant`, which is given each one.
template <class Test>
std::vector<long> KeysOf(Test isMeant)
{
    std::vector<long> keys;
    const std::scoped_lock lock(Pending().mutex);
    for (const auto& [key, reference] : Pending().references) {
        if (isMeant(reference)) {
            keys.push_back(key);
        }
    }
    return keys;
}

/// Adds what `textOf` gives of each reference of `root`, or of any if that is null; nothing of empty texts.
template <class TextOf>
void AddTexts(const TComponent* root, TStrings* names, TextOf textOf)
{
    if (names == nullptr) {
        return;
    }
    std::vector<UnicodeString> texts;
    {
        const std::scoped_lock lock(Pending().mutex);
        for (const auto& [key, reference] : Pending().references) {
            if (root == nullptr || reference.root == root) {
                texts.push_back(textOf(Split(reference.name)));
            }
        }
    }
    for (const UnicodeString& text : texts) {
        if (!text.IsEmpty() && names->IndexOf(text) < 0) {
            names->Add(text);
        }
    }
}

struct TWaiting
{
    long key;
    TReference reference;
};

/// The next one that waits, behind `key`.
std::optional<TWaiting> NextReference(long key)
{
    const std::scoped_lock lock(Pending().mutex);
    const auto next = Pending().references.upper_bound(key);
    if (next == Pending().references.end()) {
        return {};
    }
    return TWaiting{next->first, next->second};
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

/// Whether `instance` is the component of the reference, or a part on the way to its property.
bool LeadsThrough(const TReference& reference, const System::TObject* instance)
{
    System::TObject* object = reference.component;
    bool isOnWay = object == instance;
    for (const TPartStep& step : reference.steps) {
        object = object == nullptr || isOnWay ? nullptr : StepInto(object, step);
        isOnWay = isOnWay || object == instance;
    }
    return isOnWay;
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
    std::ranges::reverse(functions);
    for (const TFindGlobalComponent find : functions) {
        if (TComponent* const found = find(name); found != nullptr) {
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
        TComponent* const target = FindGlobalTarget(waiting->reference.name);
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
    AddTexts(root, names, [](const TSplitName& name) { return name.root; });
}

void GetFixupInstanceNames(TComponent* root, const UnicodeString& rootName, TStrings* names)
{
    AddTexts(root, names, [&rootName](const TSplitName& name) {
        return name.root.CompareIC(rootName) == 0 ? name.rest : UnicodeString();
    });
}

void RedirectFixupReferences(TComponent* root, const UnicodeString& oldName, const UnicodeString& newName)
{
    {
        const std::scoped_lock lock(Pending().mutex);
        for (auto& [key, reference] : Pending().references) {
            const auto [name, rest] = Split(reference.name);
            if ((root == nullptr || reference.root == root) && name.CompareIC(oldName) == 0) {
                reference.name = rest.IsEmpty() ? newName : newName + u"." + rest;
            }
        }
    }
    GlobalFixupReferences();
}

void RemoveFixupReferences(TComponent* root, const UnicodeString& rootName)
{
    std::ranges::for_each(KeysOf([&](const TReference& reference) {
                              const bool isOfRoot = root == nullptr || reference.root == root;
                              return isOfRoot && (rootName.IsEmpty() ||
                                                  Split(reference.name).root.CompareIC(rootName) == 0);
                          }),
                          TakeReference);
}

void RemoveFixups(TPersistent* instance)
{
    if (instance == nullptr) {
        return;
    }
    // The way to a part goes through getters, which may do what they like: each is looked up anew.
    std::optional<TWaiting> waiting = NextReference(-1);
    for (; waiting; waiting = NextReference(waiting->key)) {
        if (LeadsThrough(waiting->reference, instance)) {
            TakeReference(waiting->key);
        }
    }
}

TComponent* FindLocalTarget(const TReference& reference)
{
    TComponent* found = FindNestedComponent(reference.lookupRoot, reference.name);
    if (found == nullptr && reference.lookupRoot != reference.root) {
        found = FindNestedComponent(reference.root, reference.name);
    }
    const auto [root, rest] = Split(reference.name);
    if (found == nullptr && reference.root != nullptr && reference.root->getName().CompareIC(root) == 0) {
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
    const long key = Pending().next++;
    Pending().byComponent.emplace(&component, key);
    Pending().byRoot.emplace(reference.root, key);
    Pending().references.emplace(key, std::move(reference));
}

void ForgetReferences(const TComponent& component) noexcept
{
    const std::scoped_lock lock(Pending().mutex);
    EraseAll(Pending(), Pending().byComponent, &component);
    EraseAll(Pending(), Pending().byRoot, &component);
}

} // namespace Classes
