// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ListBox.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_ListItems.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_TypeAhead.h"

#include <algorithm>
#include <utility>

// What the user does with a list box.

namespace Stdctrls
{

using Classes::TComponentWatch;
using Classes::TShiftState;
using Controls::WindowActs;
using Messages::TMessage;
using System::UnicodeString;

void TCustomListBox::ChooseByUser(int index, const TShiftState& shift)
{
    if (getMultiSelect()) {
        const bool isRange = mExtendedSelect && shift.Contains(Classes::ssShift);
        const bool isOneMore = !mExtendedSelect || shift.Contains(Classes::ssCtrl);
        if (!isOneMore) {
            ChooseNone();
        }
        if (isRange) {
            ChooseRange(std::clamp(mAnchor, 0, GetCount() - 1), index);
        } else {
            Choose(index, !isOneMore || !IsChosen(index));
            mAnchor = index;
        }
    }
    MoveCurrent(index);
    TellChoice();
}

void TCustomListBox::ChosenInWindow(int index)
{
    MoveCurrent(index);
    if (getMultiSelect() && index >= 0 && index < GetCount()) {
        ChooseNone();
        Choose(index, true);
    }
    TellChoice();
    Click();
}

void TCustomListBox::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    const TComponentWatch watch(this);
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
        MouseWentDown(message);
        break;
    case WM_LBUTTONDBLCLK:
        MouseWentDown(message);
        if (watch.IsAlive()) {
            DblClick();
        }
        break;
    case WM_MOUSEMOVE:
        MouseDragged(message);
        break;
    case WM_LBUTTONUP:
        MouseLetGo(record);
        return;
    case CM_FONTCHANGED:
    case CM_BIDIMODECHANGED:
        TCustomMultiSelectListControl::Dispatch(record);
        if (watch.IsAlive()) {
            KeepTopIndex();
            ShowTraitsInWindow();
            ShowTopInWindow();
        }
        return;
    default:
        if (DispatchList(message)) {
            return;
        }
        break;
    }
    if (watch.IsAlive()) {
        TCustomMultiSelectListControl::Dispatch(record);
    }
}

bool TCustomListBox::DispatchList(TMessage& message)
{
    static constexpr TListMessages numbers = {LB_GETCOUNT, LB_GETCURSEL, LB_SETCURSEL, LB_GETITEMDATA,
                                              LB_SETITEMDATA};
    if (message.Msg == LB_GETSEL) {
        const auto index = static_cast<int>(message.WParam);
        message.Result = !HasItem(index) ? -1 : IsChosen(index) ? 1 : 0;
        return true;
    }
    return DispatchItems(message, numbers);
}

void TCustomListBox::MouseWentDown(const TMessage& message)
{
    if (WindowActs(*this)) {
        return;
    }
    const TComponentWatch watch(this);
    if (CanFocus()) {
        SetFocus();
    }
    if (!watch.IsAlive()) {
        return;
    }
    const int index = ItemAtPos(Controls::ParamToPlace(message.LParam), true);
    mIsMouseDown = index >= 0;
    if (index >= 0) {
        ChooseByUser(index, Controls::ParamToShift(message.WParam));
    }
}

void TCustomListBox::MouseDragged(const TMessage& message)
{
    if (!mIsMouseDown || WindowActs(*this)) {
        return;
    }
    const int index = ItemAtPos(Controls::ParamToPlace(message.LParam), true);
    if (index < 0 || index == GetItemIndex() || (getMultiSelect() && !mExtendedSelect)) {
        return;
    }
    ChooseByUser(index, getMultiSelect() ? TShiftState{Classes::ssShift} : TShiftState());
}

void TCustomListBox::MouseLetGo(void* record)
{
    const TComponentWatch watch(this);
    if (std::exchange(mIsMouseDown, false)) {
        setMouseCapture(false);
        Click();
    }
    if (watch.IsAlive()) {
        TCustomMultiSelectListControl::Dispatch(record);
    }
}

bool TCustomListBox::MouseWheel(TShiftState shift, int delta, Types::TPoint place)
{
    const TComponentWatch watch(this);
    if (TCustomMultiSelectListControl::MouseWheel(shift, delta, place) || !watch.IsAlive()) {
        return true;
    }
    if (WindowActs(*this) || delta == 0) {
        return false;
    }
    constexpr int itemsOfNotch = 3;
    constexpr int notch = 120;
    const int moved = delta / notch != 0 ? delta / notch * itemsOfNotch : delta > 0 ? 1 : -1;
    const int former = mTopIndex;
    setTopIndex(mTopIndex - moved * (mColumns > 0 ? RowsInSight() : 1));
    return mTopIndex != former;
}

bool TCustomListBox::WantsKey(System::Word key, TShiftState shift) const
{
    const bool isArrow = key == VK_LEFT || key == VK_UP || key == VK_RIGHT || key == VK_DOWN;
    return isArrow || TCustomMultiSelectListControl::WantsKey(key, shift);
}

int TCustomListBox::TargetOf(System::Word key) const
{
    const int last = GetCount() - 1;
    const int current = GetItemIndex();
    const int from = std::max(current, 0);
    const int column = mColumns > 0 ? RowsInSight() : 1;
    switch (key) {
    case VK_UP:
        return std::max(from - 1, 0);
    case VK_DOWN:
        return std::min(current + 1, last);
    case VK_LEFT:
        return mColumns > 0 && from < column ? from : std::max(from - column, 0);
    case VK_RIGHT:
        return current < 0 ? 0 : mColumns > 0 && from + column > last ? from : std::min(from + column, last);
    case VK_PRIOR:
        return std::max(from - std::max(ItemsInSight() - 1, 1), 0);
    case VK_NEXT:
        return std::min(from + std::max(ItemsInSight() - 1, 1), last);
    case VK_HOME:
        return 0;
    case VK_END:
        return last;
    default:
        return -1;
    }
}

bool TCustomListBox::ActOnKey(System::Word key, TShiftState shift)
{
    if (shift.Contains(Classes::ssAlt) || GetCount() == 0) {
        return false;
    }
    if (key == VK_SPACE && getMultiSelect() && GetItemIndex() >= 0) {
        TurnCurrentOver(shift);
        return true;
    }
    const int target = TargetOf(key);
    return target >= 0 && MoveByKey(target, shift);
}

void TCustomListBox::TurnCurrentOver(const TShiftState& shift)
{
    const bool isOneMore = !mExtendedSelect || shift.Contains(Classes::ssCtrl);
    ChooseByUser(GetItemIndex(), isOneMore ? TShiftState{Classes::ssCtrl} : TShiftState());
    Click();
}

bool TCustomListBox::MoveByKey(int index, const TShiftState& shift)
{
    if (index == GetItemIndex() && !getMultiSelect()) {
        return true;
    }
    const bool movesOnly =
        getMultiSelect() &&
        (!mExtendedSelect || (shift.Contains(Classes::ssCtrl) && !shift.Contains(Classes::ssShift)));
    if (movesOnly) {
        MoveCurrent(index);
        TellChoice();
        return true;
    }
    ChooseByUser(index, getMultiSelect() ? shift : TShiftState());
    Click();
    return true;
}

int TCustomListBox::FindBegin(const UnicodeString& text, int start) const
{
    if (!IsVirtual()) {
        return mItems->FindPrefix(text, start);
    }
    if (OnDataFind) {
        const int found = DoFindData(text);
        return found < GetCount() ? found : -1;
    }
    return FindRound(GetCount(), start, [&](int index) { return BeginsWith(DoGetData(index), text); });
}

bool TCustomListBox::ActOnChar(System::WideChar character)
{
    const bool isItsOwn = character < u' ' || (character == u' ' && (getMultiSelect() || mTyped->IsEmpty()));
    if (isItsOwn || GetCount() == 0) {
        return false;
    }
    const int found =
        mTyped->Type(character, mAutoComplete ? mAutoCompleteDelay : 0, GetItemIndex(),
                     [this](const UnicodeString& text, int start) { return FindBegin(text, start); });
    if (found >= 0 && found != GetItemIndex()) {
        ChooseByUser(found, {});
        Click();
    }
    return true;
}

} // namespace Stdctrls
