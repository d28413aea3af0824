// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_Loading.h"

#include <utility>

namespace Classes
{

using System::UnicodeString;

namespace
{

/// Lists of the thread, the last one first.
thread_local constinit CLiveComponents* Lists = nullptr;
/// The outermost scope of the thread.
thread_local constinit CLoading* Outermost = nullptr;

/// The names from the outermost owner on.
UnicodeString FullPath(const TComponent& component)
{
    UnicodeString path;
    for (const TComponent* at = &component; at != nullptr; at = at->getOwner()) {
        const UnicodeString& name = at->getName().IsEmpty() ? at->ClassName() : at->getName();
        path = path.IsEmpty() ? name : name + u"." + path;
    }
    return path;
}

void CallLoaded(TComponent& component)
{
    const UnicodeString path = FullPath(component) + u" (" + component.ClassName() + u")";
    try {
        component.Loaded();
    } catch (const Sysutils::EAbort&) {
        throw;
    } catch (const std::exception& fault) {
        throw EReadError(u"Error reading " + path + u", when it was loaded: " + Sysutils::MessageOf(fault));
    }
}

} // namespace

// CLiveComponents

CLiveComponents::CLiveComponents() noexcept : mNext(std::exchange(Lists, this)) {}

CLiveComponents::~CLiveComponents()
{
    CLiveComponents** link = &Lists;
    while (*link != this) {
        link = &(*link)->mNext;
    }
    *link = mNext;
}

void CLiveComponents::Add(TComponent& component)
{
    if (mPlaces.try_emplace(&component, mItems.size()).second) {
        mItems.push_back(&component);
        CLoading::Track(component);
    }
}

void CLiveComponents::Destroy()
{
    while (!mItems.empty()) {
        // Its end takes it, and all that it owns, from here.
        delete mItems.back();
        mItems.pop_back();
    }
}

void CLiveComponents::Forget(const TComponent& component) noexcept
{
    for (CLiveComponents* list = Lists; list != nullptr; list = list->mNext) {
        const auto found = list->mPlaces.find(&component);
        if (found != list->mPlaces.end()) {
            list->mItems[found->second] = nullptr;
            list->mPlaces.erase(found);
            ++list->mGoneCount;
        }
    }
}

// CLoading

CLoading::CLoading() noexcept : mIsOutermost(Outermost == nullptr)
{
    if (mIsOutermost) {
        Outermost = this;
    }
}

CLoading::~CLoading()
{
    if (!mIsOutermost) {
        return;
    }
    Outermost = nullptr;
    for (; mNext < mComponents.Count(); ++mNext) {
        if (TComponent* component = mComponents.At(mNext); component != nullptr) {
            component->SetLoading(false);
        }
    }
}

void CLoading::Add(TComponent& component)
{
    component.SetLoading(true);
    Outermost->mComponents.Add(component);
}

void CLoading::Finish()
{
    // A component may add others, of a frame that it makes.
    while (mIsOutermost && mNext < mComponents.Count()) {
        if (TComponent* component = mComponents.At(mNext++); component != nullptr) {
            CallLoaded(*component);
        }
    }
}

} // namespace Classes
