// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <string>
#include <vector>

namespace ComponentTrees
{

/// A class to filter by.
class TMarked : public Classes::TComponent
{
    TRS8_BTL_CLASS(TMarked, Classes::TComponent)

public:
    using TComponent::TComponent;
};

inline System::TMetaClass* TMarked::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TMarked>(u"TMarked").Build();
    return record;
}

template <class T = Classes::TComponent>
T* Make(Classes::TComponent* owner, const char* name)
{
    auto* const made = new T(owner);
    made->setName(name);
    return made;
}

/// `Desk`, owned by an application, owns `Plain` (which owns `M1`, `P1`) and the marked `Marked` (which owns
/// `M2`, that owns `P2`, and `P3`, that owns `M3`).
struct TDesk
{
    TDesk()
    {
        auto* const plain = Make(desk, "Plain");
        Make<TMarked>(plain, "M1");
        Make(plain, "P1");
        auto* const marked = Make<TMarked>(desk, "Marked");
        Make(Make<TMarked>(marked, "M2"), "P2");
        Make<TMarked>(Make(marked, "P3"), "M3");
    }

    Classes::TComponent application;
    Classes::TComponent* desk = Make(&application, "Desk");
};

/// The names in `components`, in its order, blanks between.
template <class Range>
std::string Names(const Range& components)
{
    std::string names;
    for (const Classes::TComponent* const component : components) {
        names += (names.empty() ? "" : " ") +
                 (component == nullptr ? std::string("null") : System::ToUtf8(component->getName()));
    }
    return names;
}

/// As `Names`, in the order of the names.
template <class Range>
std::string SortedNames(const Range& components)
{
    std::vector<Classes::TComponent*> sorted(components.begin(), components.end());
    std::ranges::sort(sorted, {}, [](const Classes::TComponent* component) { return component->getName(); });
    return Names(sorted);
}

/// Components that own one another, more levels than a stack bears calls.
class CChain
{
public:
    explicit CChain(int depth)
    {
        for (int i = 0; i < depth; ++i) {
            mLast = new Classes::TComponent(mLast);
        }
    }
    CChain(const CChain&) = delete;
    CChain& operator=(const CChain&) = delete;
    /// From below, so that no destructor calls the next.
    ~CChain()
    {
        while (mLast != &mRoot) {
            Classes::TComponent* const owner = mLast->getOwner();
            delete mLast;
            mLast = owner;
        }
    }

    Classes::TComponent* Root() { return &mRoot; }

private:
    Classes::TComponent mRoot;
    Classes::TComponent* mLast = &mRoot;
};

} // namespace ComponentTrees
