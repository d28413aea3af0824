// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace Classes
{

/// Knows another component as long as that is there, for those who keep it longer than a call lasts. Of the
/// thread that the component belongs to.
///
///     Classes::TComponentLink mForm{form};
///     if (mForm.getComponent() != nullptr) { ... }
class TRS8_BTL_API TComponentLink : public TComponent
{
public:
    TComponentLink() = default;
    /// `component` may be null. `onGone` is called in its destructor, when only its address is of use.
    explicit TComponentLink(TComponent* component, System::TClosure<void()> onGone = {});
    ~TComponentLink() override;

    /// Null if there was none, or it is gone.
    TComponent* getComponent() const noexcept { return mComponent; }
    /// Knows another component, or none for null, in place of the former.
    void setComponent(TComponent* component);

    void Notification(TComponent* component, TOperation operation) override;

private:
    TComponent* mComponent = nullptr;
    System::TClosure<void()> mOnGone;
};

} // namespace Classes
