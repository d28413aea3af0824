// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace Classes
{

/// Components in the order in which they came, for the thread that made the list. One that is destroyed
/// leaves the list by itself: setters and constructors may destroy what a reader is at.
class CLiveComponents
{
public:
    CLiveComponents() noexcept;
    CLiveComponents(const CLiveComponents&) = delete;
    CLiveComponents& operator=(const CLiveComponents&) = delete;
    ~CLiveComponents();

    void Add(TComponent& component);
    bool Contains(const TComponent* component) const { return mPlaces.contains(component); }
    /// How many of them were destroyed.
    std::size_t GoneCount() const noexcept { return mGoneCount; }
    /// How many were added.
    std::size_t Count() const noexcept { return mItems.size(); }
    /// Null for one that is gone.
    TComponent* At(std::size_t index) const { return mItems[index]; }
    /// Destroys those that are left, the last one first.
    void Destroy();

    /// Takes a component that is being destroyed from all lists of the calling thread.
    static void Forget(const TComponent& component) noexcept;

private:
    std::vector<TComponent*> mItems;
    std::unordered_map<const TComponent*, std::size_t> mPlaces;
    std::size_t mGoneCount = 0;
    CLiveComponents* mNext;
};

/// The components of a form, with all frames in it, between their begin and `Loaded`, for a scope of the
/// calling thread. Where such a scope is within another one, the outer one tells the components.
class CLoading
{
public:
    CLoading() noexcept;
    CLoading(const CLoading&) = delete;
    CLoading& operator=(const CLoading&) = delete;
    /// Components that `Loaded` wasn't called for are no longer loading.
    ~CLoading();

    /// Adds a component to the outermost scope.
    static void Add(TComponent& component);
    /// Calls `Loaded` for all components, in the order in which they came, if this is the outermost scope.
    void Finish();

    // What only friends of a component may.

    static void SetState(TComponent& component, TComponentStateFlag flag, bool value)
    {
        component.SetState(flag, value);
    }
    static void Track(TComponent& component) noexcept { component.mIsTracked = true; }
    static void SetParent(TComponent& component, TComponent* parent) { component.SetParentComponent(parent); }

private:
    bool mIsOutermost;
    std::size_t mNext = 0;
    CLiveComponents mComponents;
};

} // namespace Classes
