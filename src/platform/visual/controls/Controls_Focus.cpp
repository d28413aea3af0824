// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/visual/controls/Controls_FormHost.h"
#include "platform/visual/controls/Controls_WinControl.h"

#include <algorithm>
#include <iterator>

// Who has the keyboard, and where the Tab key leads to.

namespace Controls
{

int TWinControl::getTabOrder() const
{
    if (getParent() == nullptr) {
        return -1;
    }
    const auto& list = getParent()->mTabList;
    return static_cast<int>(std::distance(list.begin(), std::ranges::find(list, this)));
}

void TWinControl::setTabOrder(int order)
{
    if (IsLoading()) {
        // The others are not all there yet.
        mDesignedTabOrder = order;
        return;
    }
    if (getParent() == nullptr) {
        return;
    }
    auto& list = getParent()->mTabList;
    const auto place = std::ranges::find(list, this);
    const auto target = list.begin() + std::clamp(order, 0, static_cast<int>(list.size()) - 1);
    if (place < target) {
        std::rotate(place, std::next(place), std::next(target));
    } else {
        std::rotate(target, place, std::next(place));
    }
}

void TWinControl::FixTabOrder()
{
    // Those that the design gives a place take it among the others, which keep their order: the design of a
    // derived form tells of its own controls alone.
    const auto placed =
        std::stable_partition(mTabList.begin(), mTabList.end(),
                              [](const TWinControl* control) { return control->mDesignedTabOrder < 0; });
    std::vector<TWinControl*> designed(placed, mTabList.end());
    mTabList.erase(placed, mTabList.end());
    std::ranges::stable_sort(designed, {}, &TWinControl::mDesignedTabOrder);
    for (TWinControl* const control : designed) {
        const auto place = std::min(static_cast<std::size_t>(control->mDesignedTabOrder), mTabList.size());
        mTabList.insert(mTabList.begin() + static_cast<std::ptrdiff_t>(place), control);
        control->mDesignedTabOrder = -1;
    }
}

void TWinControl::setTabStop(bool isOn)
{
    if (isOn != mTabStop) {
        mTabStop = isOn;
        Perform(CM_TABSTOPCHANGED);
    }
}

bool TWinControl::CanFocus() const
{
    if (FindFormHost(this) == nullptr) {
        return false;
    }
    for (const TControl* outer = this; outer != nullptr; outer = outer->getParent()) {
        const auto* const window = dynamic_cast<const TWinControl*>(outer);
        const bool isForm = window != nullptr && window->IsTopLevel();
        // A form that isn't shown yet will have the focus where it is put now.
        if (!outer->getEnabled() || (!isForm && !outer->getVisible())) {
            return false;
        }
    }
    return true;
}

bool TWinControl::Focused() const
{
    return GetFocusedControl() == this;
}

void TWinControl::SetFocus()
{
    AFormHost* const form = FindFormHost(this);
    if (form == nullptr) {
        throw Classes::EInvalidOperation(u"Control '" + getName() + u"' has no parent window");
    }
    form->FocusControl(this);
}

void TWinControl::RemoveFocus(bool isRemoving)
{
    if (AFormHost* const form = FindFormHost(this)) {
        form->DefocusControl(this, isRemoving);
    }
}

void TWinControl::LeaveFocus() noexcept
{
    try {
        if (getParent() != nullptr) {
            RemoveFocus(true);
        }
    } catch (...) {
        if (ApplicationLinks().HandleException != nullptr) {
            ApplicationLinks().HandleException(nullptr);
        }
    }
}

std::vector<TWinControl*> TWinControl::GetTabOrderList() const
{
    std::vector<TWinControl*> list;
    // By a list of what is to come: a tree may be deeper than the stack bears.
    std::vector<TWinControl*> waiting(mTabList.rbegin(), mTabList.rend());
    while (!waiting.empty()) {
        TWinControl* const next = waiting.back();
        waiting.pop_back();
        list.push_back(next);
        waiting.insert(waiting.end(), next->mTabList.rbegin(), next->mTabList.rend());
    }
    return list;
}

TWinControl* TWinControl::FindNextControl(TWinControl* current, bool goForward, bool checkTabStop,
                                          bool checkParent) const
{
    std::vector<TWinControl*> list = GetTabOrderList();
    if (!goForward) {
        std::ranges::reverse(list);
    }
    // The walk begins behind the current one and comes round to it last.
    const auto place = std::ranges::find(list, current);
    if (place != list.end()) {
        std::rotate(list.begin(), std::next(place), list.end());
    }
    const auto found = std::ranges::find_if(list, [&](const TWinControl* control) {
        return control->CanFocus() && (!checkTabStop || control->getTabStop()) &&
               (!checkParent || control->getParent() == this);
    });
    return found == list.end() ? nullptr : *found;
}

void TWinControl::SelectNext(TWinControl* current, bool goForward, bool checkTabStop)
{
    TWinControl* const next = FindNextControl(current, goForward, checkTabStop, !checkTabStop);
    if (next != nullptr) {
        next->SetFocus();
    }
}

void TWinControl::SelectFirst()
{
    TWinControl* first = FindNextControl(nullptr, true, true, false);
    if (first == nullptr) {
        first = FindNextControl(nullptr, true, false, false);
    }
    if (first != nullptr) {
        first->SetFocus();
    }
}

void TWinControl::DoEnter()
{
    if (OnEnter) {
        OnEnter(this);
    }
}

void TWinControl::DoExit()
{
    if (OnExit) {
        OnExit(this);
    }
}

void TWinControl::KeyDown(System::Word& key, Classes::TShiftState shift)
{
    if (OnKeyDown) {
        OnKeyDown(this, key, shift);
    }
}

void TWinControl::KeyUp(System::Word& key, Classes::TShiftState shift)
{
    if (OnKeyUp) {
        OnKeyUp(this, key, shift);
    }
}

void TWinControl::KeyPress(System::WideChar& key)
{
    if (OnKeyPress) {
        OnKeyPress(this, key);
    }
}

bool TWinControl::WantsKey(System::Word, Classes::TShiftState) const
{
    return false;
}

} // namespace Controls
