// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_Handle.h"

#include "platform/runtime/classes/Classes_ComponentLink.h"
#include "platform/runtime/classes/Classes_Thread.h"
#include "platform/visual/controls/Controls_Thread.h"
#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/controls/Messages.h"

#include <memory>
#include <unordered_map>

namespace Controls
{

namespace
{

using TLinks = std::unordered_map<HWND, std::unique_ptr<Classes::TComponentLink>>;

/// Never destroyed: controls may end behind all else.
TLinks& Links()
{
    static auto* const links = new TLinks;
    return *links;
}

bool SendToControl(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                   std::intptr_t& result)
{
    bool isControl = false;
    // Controls belong to the main thread.
    Classes::TThread::Synchronize(nullptr, [&] {
        TWinControl* const control = FindControl(window);
        isControl = control != nullptr;
        if (isControl) {
            result = control->Perform(message, wParam, lParam);
        }
    });
    return isControl;
}

} // namespace

HWND GetHandle(TWinControl& control)
{
    CheckMainThread();
    control.HandleNeeded();
    Host::SendToControl = &SendToControl;
    const HWND window = &control;
    auto& link = Links()[window];
    // One whose control is gone makes room for a new one at its address.
    if (link == nullptr || link->getComponent() == nullptr) {
        link = std::make_unique<Classes::TComponentLink>(&control);
    }
    return window;
}

TWinControl* FindControl(HWND window)
{
    const auto found = Links().find(window);
    if (found == Links().end()) {
        return nullptr;
    }
    return static_cast<TWinControl*>(found->second->getComponent());
}

} // namespace Controls
