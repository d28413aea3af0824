// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"
#include "support/ScriptedBoxes.h"

#include <string>
#include <vector>

namespace Support
{

/// A windowed control that takes keys and the focus.
class TProbe : public Controls::TCustomControl
{
public:
    explicit TProbe(Classes::TComponent* owner, const System::UnicodeString& name = {})
        : TCustomControl(owner)
    {
        setName(name);
        setTabStop(true);
    }

    std::vector<std::string> log;

protected:
    bool ActOnChar(System::WideChar character) override
    {
        setText(getText() + System::UnicodeString(character));
        return true;
    }
    void ActOnMouse(const Toolkits::TMouseInput& mouse) override
    {
        if (mouse.action == Toolkits::EMouseAction::Down && CanFocus()) {
            SetFocus();
        }
    }
};

} // namespace Support
