// SPDX-License-Identifier: MIT
#include "environment/Btl_utilities.h"

#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using BTL::CDisableControl;
using BTL::CDisableMenu;
using BTL::CEnableControl;
using BTL::CHideControl;
using BTL::CShowControl;
using Controls::TControl;

/// What a scope does to a state, from either value of it.
template <class Scope, class T>
void ExpectScope(T& component, bool (T::*get)() const noexcept, void (T::*set)(bool), bool inside)
{
    for (const bool before : {true, false}) {
        (component.*set)(before);
        {
            const Scope scope(&component);
            EXPECT_EQ((component.*get)(), inside);
            (component.*set)(!inside);
        }
        EXPECT_EQ((component.*get)(), before);
    }
    const Scope none(nullptr);
}

TEST(ControlScopesTest, EndAsTheyBegan)
{
    Controls::TGraphicControl control;
    ExpectScope<CShowControl, TControl>(control, &TControl::getVisible, &TControl::setVisible, true);
    ExpectScope<CHideControl, TControl>(control, &TControl::getVisible, &TControl::setVisible, false);
    ExpectScope<CEnableControl, TControl>(control, &TControl::getEnabled, &TControl::setEnabled, true);
    ExpectScope<CDisableControl, TControl>(control, &TControl::getEnabled, &TControl::setEnabled, false);
    Menus::TMenuItem item;
    ExpectScope<CDisableMenu>(item, &Menus::TMenuItem::getEnabled, &Menus::TMenuItem::setEnabled, false);
}

/// Tells to be enabled by a rule of its own.
class TRuled : public Controls::TGraphicControl
{
public:
    bool GetEnabled() const noexcept override { return isAllowed && TGraphicControl::GetEnabled(); }

    bool isAllowed = false;
};

TEST(ControlScopesTest, AskAControlWithARuleOfItsOwn)
{
    TRuled control;
    {
        const CEnableControl scope(&control);
        control.isAllowed = true;
        EXPECT_TRUE(control.getEnabled());
    }
    EXPECT_FALSE(control.getEnabled()) << "as it told before";
}

TEST(ControlScopesTest, MayOutliveTheirControl)
{
    auto control = std::make_unique<Controls::TGraphicControl>();
    const CHideControl hidden(control.get());
    const CDisableControl disabled(control.get());
    control.reset();
}

/// A form is shown again by the scope's end, and its handler raises.
TEST(ControlScopesTest, AnExceptionAtTheEndIsShown)
{
    Support::ScriptedBoxes boxes({1});
    Forms::TForm form;
    form.Show();
    {
        const CHideControl hidden(&form);
        form.OnShow = [](System::TObject*) { throw Sysutils::Exception(u"no"); };
    }
    ASSERT_EQ(boxes.TakeShown().size(), 1u);
}

} // namespace
