// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_FormHost.h"

#include "platform/visual/controls/Controls_WinControl.h"

namespace Controls
{

AFormHost::~AFormHost() = default;

AFormHost* FindFormHost(const TControl* control) noexcept
{
    for (const TControl* outer = control; outer != nullptr; outer = outer->getParent()) {
        // What is found is asked as the form that it is; the walk itself changes nothing.
        auto* const window = dynamic_cast<TWinControl*>(const_cast<TControl*>(outer));
        AFormHost* const form = window == nullptr ? nullptr : window->AsFormHost();
        if (form != nullptr) {
            return form;
        }
    }
    return nullptr;
}

TApplicationLinks& ApplicationLinks() noexcept
{
    static constinit TApplicationLinks links;
    return links;
}

} // namespace Controls
