// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentLink.h"

#include <utility>

namespace Classes
{

TComponentLink::TComponentLink(TComponent* component, System::TClosure<void()> onGone)
    : mOnGone(std::move(onGone))
{
    setComponent(component);
}

TComponentLink::~TComponentLink() = default;

void TComponentLink::setComponent(TComponent* component)
{
    if (component == mComponent) {
        return;
    }
    if (mComponent != nullptr) {
        mComponent->RemoveFreeNotification(this);
    }
    mComponent = component;
    if (component != nullptr) {
        component->FreeNotification(this);
    }
}

void TComponentLink::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation != opRemove || component != mComponent || component == nullptr) {
        return;
    }
    mComponent = nullptr;
    if (mOnGone) {
        mOnGone();
    }
}

} // namespace Classes
