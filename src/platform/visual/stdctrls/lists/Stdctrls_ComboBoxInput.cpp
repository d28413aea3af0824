// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_ListItems.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_TypeAhead.h"

#include <algorithm>
#include <utility>

// What the user does with a combo box.

namespace Stdctrls
{

using Classes::TComponentWatch;
using Classes::TShiftState;
using Controls::WindowActs;
using Messages::TMessage;
using System::UnicodeString;

void TCustomComboBox::Change()
{
    if (OnChange) {
        OnChange(this);
    }
}

void TCustomComboBox::Select()
{
    if (OnSelect) {
        OnSelect(this);
    } else {
        Change();
    }
}

void TCustomComboBox::DropDown()
{
    if (OnDropDown) {
        OnDropDown(this);
    }
}

void TCustomComboBox::CloseUp()
{
    if (OnCloseUp) {
        OnCloseUp(this);
    }
}

void TCustomComboBox::ChooseByUser(int index)
{
    const TComponentWatch watch(this);
    SetItemIndex(index);
    if (watch.IsAlive()) {
        SelectAll();
        Click();
    }
    if (watch.IsAlive()) {
        Select();
    }
}

void TCustomComboBox::setDroppedDown(bool isOpen)
{
    OpenOrClose(isOpen, false);
}

void TCustomComboBox::OpenOrClose(bool isOpen, bool isByWindow)
{
    if (isOpen == mIsDroppedDown || (isOpen && mStyle == csSimple)) {
        return;
    }
    const TComponentWatch watch(this);
    if (isOpen) {
        DropDown();
        if (!watch.IsAlive()) {
            return;
        }
        MeasureItems();
        mIndexBefore = GetItemIndex();
    }
    mIsDroppedDown = isOpen;
    if (!isByWindow && GetWindow() != nullptr) {
        GetWindow()->SetDropped(isOpen);
    }
    Invalidate();
    if (!isOpen) {
        CloseUp();
    }
}

void TCustomComboBox::DropChangedInWindow(bool isOpen)
{
    OpenOrClose(isOpen, true);
}

void TCustomComboBox::CancelDropDown()
{
    if (GetItemIndex() != mIndexBefore) {
        SetItemIndex(mIndexBefore);
    }
    setDroppedDown(false);
}

void TCustomComboBox::ChosenInWindow(int index)
{
    const TComponentWatch watch(this);
    ChooseByUser(index);
    if (watch.IsAlive()) {
        setDroppedDown(false);
    }
}

void TCustomComboBox::TextEditedInWindow(const UnicodeString& text)
{
    if (!IsEditable() || text == GetText()) {
        return;
    }
    const bool isAtEnd = getSelStart() + getSelLength() == mText.Length();
    const bool hasGrown = text.Length() > mText.Length() - getSelLength();
    const TComponentWatch watch(this);
    SetText(text);
    if (watch.IsAlive()) {
        Change();
    }
    if (watch.IsAlive() && isAtEnd && hasGrown && mAutoComplete && text == GetText()) {
        mText.Select(text.Length(), text.Length());
        Complete();
    }
}

void TCustomComboBox::SelectionMovedInWindow(int start, int length)
{
    mText.Select(start, start + std::max(length, 0));
}

void TCustomComboBox::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    const TComponentWatch watch(this);
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        MouseWentDown(message);
        break;
    case WM_KILLFOCUS:
        setDroppedDown(false);
        break;
    case WM_COPY:
        CopyToClipboard();
        return;
    case WM_CUT:
        CopyToClipboard();
        ReplaceSelection({});
        return;
    case WM_CLEAR:
        ReplaceSelection({});
        return;
    case WM_PASTE:
        ReplaceSelection(Toolkits::CurrentToolkit().GetClipboardText());
        return;
    case WM_UNDO:
        UndoEdit();
        return;
    default:
        if (DispatchList(message)) {
            return;
        }
        break;
    }
    if (watch.IsAlive()) {
        TCustomListControl::Dispatch(record);
    }
}

bool TCustomComboBox::DispatchList(TMessage& message)
{
    static constexpr TListMessages numbers = {CB_GETCOUNT, CB_GETCURSEL, CB_SETCURSEL, CB_GETITEMDATA,
                                              CB_SETITEMDATA};
    switch (message.Msg) {
    case CB_SHOWDROPDOWN:
        setDroppedDown(message.WParam != 0);
        message.Result = 1;
        return true;
    case CB_GETDROPPEDSTATE:
        message.Result = mIsDroppedDown ? 1 : 0;
        return true;
    default:
        return DispatchItems(message, numbers);
    }
}

int TCustomComboBox::CharAt(int x) const
{
    const UnicodeString text = GetText();
    int width = 2;
    for (int i = 1; i <= text.Length(); ++i) {
        const int next = getCanvas()->TextWidth(text.SubString(i, 1));
        if (x < width + next / 2) {
            return i - 1;
        }
        width += next;
    }
    return text.Length();
}

void TCustomComboBox::MouseWentDown(const TMessage& message)
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
    const Types::TPoint place = Controls::ParamToPlace(message.LParam);
    if (!IsEditable() || ButtonRect().Contains(place)) {
        setDroppedDown(!mIsDroppedDown);
    } else {
        setSelStart(CharAt(place.X));
    }
}

bool TCustomComboBox::MouseWheel(TShiftState shift, int delta, Types::TPoint place)
{
    const TComponentWatch watch(this);
    if (TCustomListControl::MouseWheel(shift, delta, place) || !watch.IsAlive()) {
        return true;
    }
    if (WindowActs(*this) || !Focused() || delta == 0) {
        return false;
    }
    const int target = std::clamp(GetItemIndex() + (delta > 0 ? -1 : 1), 0, GetCount() - 1);
    if (GetCount() > 0 && target != GetItemIndex()) {
        ChooseByUser(target);
    }
    return true;
}

bool TCustomComboBox::WantsKey(System::Word key, TShiftState shift) const
{
    switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_LEFT:
    case VK_RIGHT:
        return true;
    case VK_RETURN:
    case VK_ESCAPE:
        return mIsDroppedDown;
    default:
        return TCustomListControl::WantsKey(key, shift);
    }
}

int TCustomComboBox::TargetOf(System::Word key) const
{
    const int last = GetCount() - 1;
    const int current = GetItemIndex();
    const int page = std::max(mDropDownCount - 1, 1);
    switch (key) {
    case VK_UP:
        return std::max(current - 1, 0);
    case VK_DOWN:
        return std::min(current + 1, last);
    case VK_PRIOR:
        return std::max(current - page, 0);
    case VK_NEXT:
        return std::min(std::max(current, 0) + page, last);
    case VK_LEFT:
        return IsEditable() ? -1 : std::max(current - 1, 0);
    case VK_RIGHT:
        return IsEditable() ? -1 : std::min(current + 1, last);
    case VK_HOME:
        return IsEditable() ? -1 : 0;
    case VK_END:
        return IsEditable() ? -1 : last;
    default:
        return -1;
    }
}

bool TCustomComboBox::ActOnKey(System::Word key, TShiftState shift)
{
    const bool isToggle = shift.Contains(Classes::ssAlt) ? key == VK_UP || key == VK_DOWN : key == VK_F4;
    if (isToggle) {
        setDroppedDown(!mIsDroppedDown);
        return true;
    }
    if (shift.Contains(Classes::ssAlt)) {
        return false;
    }
    return ActOnListKey(key, shift) || (IsEditable() && ActOnEditKey(key, shift));
}

bool TCustomComboBox::ActOnListKey(System::Word key, const TShiftState& shift)
{
    if (mIsDroppedDown && key == VK_RETURN) {
        setDroppedDown(false);
        return true;
    }
    if (mIsDroppedDown && key == VK_ESCAPE) {
        CancelDropDown();
        return true;
    }
    if (shift.Contains(Classes::ssCtrl)) {
        return false;
    }
    const int target = GetCount() == 0 ? -1 : TargetOf(key);
    if (target < 0) {
        return false;
    }
    if (target != GetItemIndex()) {
        ChooseByUser(target);
    }
    return true;
}

bool TCustomComboBox::ActOnEditKey(System::Word key, const TShiftState& shift)
{
    const bool isCtrl = shift.Contains(Classes::ssCtrl);
    const int caret = mText.getCaret();
    const auto move = [&](int place) {
        PutSelection(shift.Contains(Classes::ssShift) ? mText.getAnchor() : place, place);
        return true;
    };
    switch (key) {
    case VK_LEFT:
        return move(isCtrl ? mText.FormerWord(caret) : mText.FormerPlace(caret));
    case VK_RIGHT:
        return move(isCtrl ? mText.NextWord(caret) : mText.NextPlace(caret));
    case VK_HOME:
        return move(0);
    case VK_END:
        return move(mText.Length());
    case VK_DELETE:
        EraseTo(isCtrl ? mText.NextWord(caret) : mText.NextPlace(caret));
        return true;
    default:
        return isCtrl && ActOnClipboardKey(key);
    }
}

bool TCustomComboBox::ActOnClipboardKey(System::Word key)
{
    switch (key) {
    case 'A':
        SelectAll();
        return true;
    case 'C':
        CopyToClipboard();
        return true;
    case 'X':
        CopyToClipboard();
        ReplaceSelection({});
        return true;
    case 'V':
        ReplaceSelection(Toolkits::CurrentToolkit().GetClipboardText());
        return true;
    case 'Z':
        UndoEdit();
        return true;
    default:
        return false;
    }
}

void TCustomComboBox::CopyToClipboard() const
{
    if (getSelLength() > 0) {
        Toolkits::CurrentToolkit().SetClipboardText(getSelText());
    }
}

void TCustomComboBox::Edited()
{
    ChooseByText();
    const TComponentWatch watch(this);
    Perform(CM_TEXTCHANGED);
    if (watch.IsAlive()) {
        TellSelection();
        Change();
    }
}

void TCustomComboBox::ReplaceSelection(const UnicodeString& text)
{
    const int start = getSelStart();
    const int length = getSelLength();
    const int room = mMaxLength > 0 ? std::max(mMaxLength - (mText.Length() - length), 0) : text.Length();
    const UnicodeString added = text.SubString(1, room);
    if (IsEditable() && (length > 0 || !added.IsEmpty())) {
        mText.Replace(start, length, added);
        Edited();
    }
}

void TCustomComboBox::EraseTo(int place)
{
    if (getSelLength() == 0) {
        mText.Select(mText.getCaret(), place);
    }
    ReplaceSelection({});
}

void TCustomComboBox::UndoEdit()
{
    if (IsEditable() && mText.Undo()) {
        Edited();
    }
}

bool TCustomComboBox::ActOnChar(System::WideChar character)
{
    if (!IsEditable()) {
        return TypeAhead(character);
    }
    if (character == VK_BACK) {
        EraseTo(mText.FormerPlace(mText.getCaret()));
        return true;
    }
    return character >= u' ' && TypeText(character);
}

bool TCustomComboBox::TypeText(System::WideChar character)
{
    const TComponentWatch watch(this);
    if (mAutoDropDown) {
        setDroppedDown(true);
    }
    if (watch.IsAlive()) {
        ReplaceSelection(UnicodeString(character));
    }
    if (watch.IsAlive() && mAutoComplete) {
        Complete();
    }
    if (watch.IsAlive() && mAutoCloseUp && GetItemIndex() >= 0 && getSelLength() == 0) {
        setDroppedDown(false);
    }
    return true;
}

void TCustomComboBox::Complete()
{
    const UnicodeString typed = GetText();
    const bool isAtEnd = getSelStart() == typed.Length();
    const int found = isAtEnd && GetItemIndex() < 0 ? mItems->FindPrefix(typed, 0) : -1;
    if (found < 0 || (mMaxLength > 0 && mItems->At(found).Length() > mMaxLength)) {
        return;
    }
    const TComponentWatch watch(this);
    SetItemIndex(found);
    if (!watch.IsAlive()) {
        return;
    }
    // What was added is selected, so that the next character replaces it.
    PutSelection(typed.Length(), mText.Length());
    Click();
    if (watch.IsAlive()) {
        Select();
    }
}

bool TCustomComboBox::TypeAhead(System::WideChar character)
{
    if (character < u' ' || GetCount() == 0) {
        return false;
    }
    const int found = mTyped->Type(
        character, mAutoComplete ? mAutoCompleteDelay : 0, GetItemIndex(),
        [this](const UnicodeString& text, int start) { return mItems->FindPrefix(text, start); });
    if (found >= 0 && found != GetItemIndex()) {
        ChooseByUser(found);
    }
    return true;
}

} // namespace Stdctrls
