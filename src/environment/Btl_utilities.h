// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_Control.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/menus/Menus_MenuItem.h"

#include <optional>

namespace BTL
{

// Scopes in which a control or a menu item is in another state; at their end it is as before.
//
//     {
//         const BTL::CDisableControl locked(startButton);         // whatever it was before
//         const BTL::CShowControl shown(progressBar);
//         Measure();
//     }

/// Remembers a state of a component, and sets it back at the end of a scope. Null is allowed and does
/// nothing, and so does a component that is gone by then. What a handler raises at the end goes to the
/// application.
template <class T, bool (T::*Get)() const noexcept, void (T::*Set)(bool)>
class GResetState
{
public:
    GResetState(const GResetState&) = delete;
    GResetState& operator=(const GResetState&) = delete;
    ~GResetState()
    {
        if (mWatch.has_value() && mWatch->IsAlive()) {
            Forms::Application->RunHandled([this] { (mComponent->*Set)(mState); });
        }
    }

protected:
    explicit GResetState(T* component) : mComponent(component)
    {
        if (component != nullptr) {
            mState = (component->*Get)();
            mWatch.emplace(component);
        }
    }
    GResetState(T* component, bool state) : GResetState(component)
    {
        if (component != nullptr) {
            (component->*Set)(state);
        }
    }

private:
    T* mComponent;
    bool mState = false;
    std::optional<Classes::TComponentWatch> mWatch;
};

/// Remembers whether a control is visible.
class AResetVisibleControl
    : public GResetState<Controls::TControl, &Controls::TControl::getVisible, &Controls::TControl::setVisible>
{
public:
    explicit AResetVisibleControl(Controls::TControl* control) : GResetState(control) {}

protected:
    AResetVisibleControl(Controls::TControl* control, bool isVisible) : GResetState(control, isVisible) {}
};

/// Shows a control for a scope.
class CShowControl : public AResetVisibleControl
{
public:
    explicit CShowControl(Controls::TControl* control) : AResetVisibleControl(control, true) {}
};

/// Hides a control for a scope.
class CHideControl : public AResetVisibleControl
{
public:
    explicit CHideControl(Controls::TControl* control) : AResetVisibleControl(control, false) {}
};

/// Remembers whether a control is enabled.
class AResetEnableControl
    : public GResetState<Controls::TControl, &Controls::TControl::getEnabled, &Controls::TControl::setEnabled>
{
public:
    explicit AResetEnableControl(Controls::TControl* control) : GResetState(control) {}

protected:
    AResetEnableControl(Controls::TControl* control, bool isEnabled) : GResetState(control, isEnabled) {}
};

/// Enables a control for a scope.
class CEnableControl : public AResetEnableControl
{
public:
    explicit CEnableControl(Controls::TControl* control) : AResetEnableControl(control, true) {}
};

/// Disables a control for a scope.
class CDisableControl : public AResetEnableControl
{
public:
    explicit CDisableControl(Controls::TControl* control) : AResetEnableControl(control, false) {}
};

/// Disables a menu item for a scope.
class CDisableMenu
    : public GResetState<Menus::TMenuItem, &Menus::TMenuItem::getEnabled, &Menus::TMenuItem::setEnabled>
{
public:
    explicit CDisableMenu(Menus::TMenuItem* item) : GResetState(item, false) {}
};

} // namespace BTL
