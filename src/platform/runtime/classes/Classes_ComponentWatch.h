// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace Classes
{

/// Tells whether a component outlived a call that may have destroyed it, as an event's handler may. For the
/// stack of the thread that the component belongs to.
///
///     const TComponentWatch watch(this);
///     OnClick(this);
///     if (!watch.IsAlive()) { return; }                           // nothing of `this` may be used any more
class TRS8_BTL_API TComponentWatch
{
public:
    /// `component` isn't null.
    explicit TComponentWatch(const TComponent* component) noexcept
        : mComponent(component), mNext(component->mWatches)
    {
        component->mWatches = this;
    }
    TComponentWatch(const TComponentWatch&) = delete;
    TComponentWatch& operator=(const TComponentWatch&) = delete;
    ~TComponentWatch();

    /// Whether the component is still there.
    bool IsAlive() const noexcept { return mComponent != nullptr; }

private:
    friend class TComponent;

    const TComponent* mComponent;
    TComponentWatch* mNext;
};

} // namespace Classes
