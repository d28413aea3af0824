// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_ButtonControl.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/controls/Forms_Accelerator.h"

#include <utility>

namespace Stdctrls
{

using Classes::TComponentWatch;
using Controls::WindowActs;
using Messages::TMessage;

System::TMetaClass* TButtonControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TButtonControl>(u"TButtonControl").Build();
    return record;
}

TButtonControl::TButtonControl(Classes::TComponent* owner) : TCustomControl(owner)
{
    setControlStyle({Controls::csCaptureMouse, Controls::csSetCaption, Controls::csDoubleClicks});
    setTabStop(true);
}

TButtonControl::~TButtonControl() = default;

void TButtonControl::setWordWrap(bool isOn)
{
    if (isOn != mWordWrap) {
        mWordWrap = isOn;
        RecreateWnd();
        Invalidate();
    }
}

void TButtonControl::SetChecked(bool) {}

void TButtonControl::CreateWnd()
{
    TCustomControl::CreateWnd();
    TellWindow(*GetWindow());
}

void TButtonControl::Press()
{
    Click();
}

void TButtonControl::PressMark()
{
    Press();
}

void TButtonControl::ChosenInWindow(int)
{
    Press();
}

bool TButtonControl::ActOnKey(System::Word key, Classes::TShiftState shift)
{
    if (key != VK_SPACE || shift.Contains(Classes::ssAlt)) {
        return false;
    }
    mIsSpaceDown = true;
    Invalidate();
    return true;
}

void TButtonControl::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
        if (WindowActs(*this) ? FocusByMouse(message) : DispatchMouse(record)) {
            return;
        }
        break;
    case WM_KEYUP:
        SpaceLetGo(record);
        return;
    case WM_KILLFOCUS:
        mIsSpaceDown = false;
        break;
    case CM_DIALOGCHAR:
        CharacterMarked(message);
        if (message.Result != 0) {
            return;
        }
        break;
    case BM_CLICK:
        Press();
        return;
    default:
        break;
    }
    TCustomControl::Dispatch(record);
}

bool TButtonControl::FocusByMouse(const TMessage& message)
{
    const TComponentWatch watch(this);
    const bool isPress = message.Msg == WM_LBUTTONDOWN || message.Msg == WM_LBUTTONDBLCLK;
    if (isPress && CanFocus()) {
        SetFocus();
    }
    return !watch.IsAlive();
}

bool TButtonControl::DispatchMouse(void* record)
{
    const auto& message = *static_cast<TMessage*>(record);
    if (message.Msg == WM_LBUTTONUP) {
        MouseLetGo(record);
        return true;
    }
    if (message.Msg == WM_MOUSEMOVE) {
        FollowMouse(message);
        return false;
    }
    const TComponentWatch watch(this);
    // Whoever refuses to be left by an exception keeps it from being pressed, too.
    if (CanFocus()) {
        SetFocus();
    }
    if (!watch.IsAlive()) {
        return true;
    }
    mIsMouseDown = true;
    mIsMouseInside = true;
    Invalidate();
    return false;
}

void TButtonControl::FollowMouse(const TMessage& message)
{
    const bool isInside = mIsMouseDown && GetClientRect().Contains(Controls::ParamToPlace(message.LParam));
    if (isInside != mIsMouseInside) {
        mIsMouseInside = isInside;
        Invalidate();
    }
}

void TButtonControl::MouseLetGo(void* record)
{
    const auto& message = *static_cast<TMessage*>(record);
    const bool wasDown = std::exchange(mIsMouseDown, false);
    mIsMouseInside = false;
    const TComponentWatch watch(this);
    if (wasDown) {
        Invalidate();
        setMouseCapture(false);
    }
    if (wasDown && GetClientRect().Contains(Controls::ParamToPlace(message.LParam))) {
        Press();
    }
    if (watch.IsAlive()) {
        TCustomControl::Dispatch(record);
    }
}

void TButtonControl::SpaceLetGo(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    const TComponentWatch watch(this);
    TCustomControl::Dispatch(record);
    if (!watch.IsAlive() || message.WParam != VK_SPACE) {
        return;
    }
    if (std::exchange(mIsSpaceDown, false)) {
        Invalidate();
        Press();
    }
}

void TButtonControl::CharacterMarked(TMessage& message)
{
    if (Forms::IsAccel(static_cast<System::Word>(message.WParam), getCaption()) && CanFocus()) {
        message.Result = 1;
        PressMark();
    }
}

} // namespace Stdctrls
