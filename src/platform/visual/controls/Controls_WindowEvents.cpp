// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/MenuEntry.h"
#include "platform/toolkit/PaintDevice.h"
#include "platform/visual/controls/Controls_DropFiles.h"
#include "platform/visual/controls/Controls_FormHost.h"
#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/controls/internal/Controls_Forget.h"
#include "platform/visual/controls/internal/Controls_Hint.h"
#include "platform/visual/controls/internal/Controls_Nesting.h"
#include "platform/visual/graphics/Graphics_Brush.h"

#include <algorithm>
#include <optional>

// What happens to a control's window, and the messages that come of it.

namespace Controls
{

using Classes::TComponentWatch;
using Classes::TShiftState;
using Messages::TMessage;
using System::UnicodeString;
using System::WideChar;
using System::Word;
using Toolkits::EMouseAction;
using Toolkits::TMouseInput;
using Types::TPoint;
using Types::TRect;

namespace
{

constinit TWinControl* focusedControl = nullptr;
constinit TControl* mouseControl = nullptr;

/// Runs what comes from outside. An exception is the application's to show; `fallback` is the result then.
template <class Result, class Action>
Result Guarded(TWinControl* sender, Result fallback, Action action)
{
    const TComponentWatch watch(sender);
    try {
        return action();
    } catch (...) {
        if (ApplicationLinks().HandleException == nullptr) {
            throw;
        }
        ApplicationLinks().HandleException(watch.IsAlive() ? sender : nullptr);
        return fallback;
    }
}

template <class Action>
void Guarded(TWinControl* sender, Action action)
{
    Guarded(sender, true, [&] {
        action();
        return true;
    });
}

/// Whether a key moves the focus, presses a form's button or opens its menu, unless a control wants it for
/// itself.
bool IsDialogKey(Word key)
{
    constexpr Word keys[] = {VK_TAB, VK_RETURN, VK_ESCAPE, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN, VK_F10};
    return std::ranges::find(keys, key) != std::end(keys);
}

/// Whether a key with Alt is what a caption may have marked.
bool IsMarkKey(Word key, const TShiftState& shift)
{
    const bool isCharacter = (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
    return isCharacter && shift.Contains(Classes::ssAlt) && !shift.Contains(Classes::ssCtrl);
}

unsigned MessageOf(const TMouseInput& mouse)
{
    constexpr unsigned down[] = {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN};
    constexpr unsigned up[] = {WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP};
    constexpr unsigned twice[] = {WM_LBUTTONDBLCLK, WM_RBUTTONDBLCLK, WM_MBUTTONDBLCLK};
    switch (mouse.action) {
    case EMouseAction::Down:
        return down[mouse.button];
    case EMouseAction::Up:
        return up[mouse.button];
    case EMouseAction::DoubleClick:
        return twice[mouse.button];
    case EMouseAction::Wheel:
        return CM_MOUSEWHEEL;
    default:
        return WM_MOUSEMOVE;
    }
}

void SetMouseControl(TControl* control)
{
    if (control == mouseControl) {
        return;
    }
    TControl* const former = std::exchange(mouseControl, control);
    if (former != nullptr) {
        former->Perform(CM_MOUSELEAVE);
    }
    // Whoever was left may have destroyed the other one.
    if (control != nullptr && mouseControl == control) {
        control->Perform(CM_MOUSEENTER);
    }
    if (ApplicationLinks().MouseMoved != nullptr) {
        ApplicationLinks().MouseMoved(mouseControl);
    }
}

} // namespace

TControl* GetMouseControl() noexcept
{
    return mouseControl;
}

TWinControl* GetFocusedControl() noexcept
{
    return focusedControl;
}

void ForgetControl(TControl* control) noexcept
{
    if (mouseControl == control) {
        mouseControl = nullptr;
    }
    if (focusedControl == control) {
        focusedControl = nullptr;
    }
    if (ApplicationLinks().ControlDestroyed != nullptr) {
        ApplicationLinks().ControlDestroyed(control);
    }
}

bool TWinControl::KeyPressed(Word& key, TShiftState shift)
{
    return Guarded(this, true, [&] { return TakeKey(key, shift); });
}

bool TWinControl::TakeKey(Word& key, TShiftState shift)
{
    const TComponentWatch watch(this);
    AFormHost* const form = FindFormHost(this);
    if (form != nullptr && form->IsShortCut(key, shift)) {
        return true;
    }
    if (watch.IsAlive() && IsDialogKey(key) && !WantsKey(key, shift)) {
        TWinControl* const top = GetTopParent();
        if (top->Perform(CM_DIALOGKEY, key, static_cast<std::intptr_t>(ShiftToParam(shift))) != 0) {
            return true;
        }
    }
    if (watch.IsAlive() && IsMarkKey(key, shift) && PressMarked(key, shift)) {
        return true;
    }
    if (!watch.IsAlive()) {
        return true;
    }
    TMessage message{
        .Msg = WM_KEYDOWN, .WParam = key, .LParam = static_cast<std::intptr_t>(ShiftToParam(shift))};
    WndProc(message);
    if (message.Result != 0 || !watch.IsAlive()) {
        return true;
    }
    key = static_cast<Word>(message.WParam);
    const bool actsByItself = mWindow != nullptr && mWindow->ActsOnKeys();
    return !actsByItself && ActOnKey(key, shift);
}

bool TWinControl::KeyReleased(Word key, TShiftState shift)
{
    return Guarded(this, true, [&] {
        return Perform(WM_KEYUP, key, static_cast<std::intptr_t>(ShiftToParam(shift))) != 0;
    });
}

bool TWinControl::CharacterTyped(WideChar& character)
{
    return Guarded(this, true, [&] { return TakeChar(character); });
}

bool TWinControl::TakeChar(WideChar& character)
{
    const TComponentWatch watch(this);
    if (!WantsChars() && character > u' ' && PressMarked(character, {})) {
        return true;
    }
    if (!watch.IsAlive()) {
        return true;
    }
    TMessage message{.Msg = WM_CHAR, .WParam = character};
    WndProc(message);
    if (message.Result != 0 || !watch.IsAlive()) {
        return true;
    }
    character = static_cast<WideChar>(message.WParam);
    const bool actsByItself = mWindow != nullptr && mWindow->ActsOnKeys();
    return !actsByItself && ActOnChar(character);
}

bool TWinControl::PressMarked(Word key, TShiftState shift)
{
    const auto param = static_cast<std::intptr_t>(ShiftToParam(shift));
    return GetTopParent()->Perform(CM_DIALOGCHAR, key, param) != 0;
}

bool TWinControl::ActOnKey(Word, TShiftState)
{
    return false;
}

bool TWinControl::ActOnChar(WideChar)
{
    return false;
}

void TWinControl::ActOnMouse(const TMouseInput&) {}

bool TWinControl::MouseUsed(const TMouseInput& mouse)
{
    return Guarded(this, true, [&] { return TakeMouse(mouse); });
}

bool TWinControl::TakeMouse(const TMouseInput& mouse)
{
    if (mouse.action == EMouseAction::Leave) {
        SetMouseControl(nullptr);
        return false;
    }
    TControl* const capture = GetCaptureControl();
    TControl* target = capture;
    if (target == nullptr) {
        target = ControlAtPos(mouse.place);
        if (target == nullptr) {
            target = this;
        }
        const TComponentWatch watch(target);
        const TComponentWatch ownWatch(this);
        SetMouseControl(target);
        if (!watch.IsAlive() || !ownWatch.IsAlive()) {
            return true;
        }
    }
    const TPoint place = target == this ? mouse.place : target->ScreenToClient(ClientToScreen(mouse.place));
    const TComponentWatch watch(this);
    const TWheelTurn wheel{mouse.wheelDelta, place};
    const std::intptr_t param =
        mouse.action == EMouseAction::Wheel ? reinterpret_cast<std::intptr_t>(&wheel) : PlaceToParam(place);
    const bool isTaken = target->Perform(MessageOf(mouse), ShiftToParam(mouse.shift), param) != 0;
    if (!watch.IsAlive() || target != this) {
        return true;
    }
    if (mWindow == nullptr || !mWindow->ActsByItself()) {
        ActOnMouse(mouse);
    }
    return isTaken;
}

void TWinControl::FocusChanged(bool isFocused)
{
    Guarded(this, [&] {
        if (isFocused) {
            FocusedOnScreen();
        } else {
            Perform(WM_KILLFOCUS);
        }
    });
}

void TWinControl::FocusedOnScreen()
{
    const TComponentWatch watch(this);
    AFormHost* const form = AsFormHost() == nullptr ? FindFormHost(this) : nullptr;
    if (form != nullptr && form->getActiveControl() != this) {
        // The user came here by himself; whoever refuses to be left gets the keyboard back.
        const TComponentWatch formWatch(GetTopParent());
        try {
            form->FocusControl(this);
        } catch (...) {
            TWinControl* const active = formWatch.IsAlive() ? form->getActiveControl() : nullptr;
            if (active != nullptr && active->mWindow != nullptr) {
                active->mWindow->Focus();
            }
            throw;
        }
    }
    if (watch.IsAlive() && (form == nullptr || form->getActiveControl() == this)) {
        Perform(WM_SETFOCUS);
    }
}

void TWinControl::TextEdited(const UnicodeString& text)
{
    Guarded(this, [&] { TextEditedInWindow(text); });
}

void TWinControl::SelectionMoved(int start, int length)
{
    Guarded(this, [&] { SelectionMovedInWindow(start, length); });
}

void TWinControl::Chosen(int index)
{
    Guarded(this, [&] { ChosenInWindow(index); });
}

void TWinControl::ItemChecked(int index)
{
    Guarded(this, [&] { ItemCheckedInWindow(index); });
}

void TWinControl::DropChanged(bool isOpen)
{
    Guarded(this, [&] { DropChangedInWindow(isOpen); });
}

void TWinControl::Scrolled(int first)
{
    Guarded(this, [&] { ScrolledInWindow(first); });
}

void TWinControl::MenuOpening(int id)
{
    Guarded(this, [&] { MenuOpeningOnScreen(id); });
}

void TWinControl::MenuChosen(int id)
{
    Guarded(this, [&] { MenuChosenOnScreen(id); });
}

std::vector<Toolkits::TMenuEntry> TWinControl::MenuAsked()
{
    return Guarded(this, std::vector<Toolkits::TMenuEntry>(), [&] { return GetMenuEntries(); });
}

UnicodeString TWinControl::HintAt(TPoint place)
{
    const TControl* control = ControlAtPos(place);
    control = control == nullptr ? this : control;
    if (!control->getShowHint()) {
        return {};
    }
    // As a parent's pop-up menu, its hint holds for what has none.
    while (control->getParent() != nullptr && control->getHint().IsEmpty()) {
        control = control->getParent();
    }
    return ShortHint(control->getHint());
}

void TWinControl::BoundsChanged(const TRect& bounds)
{
    Guarded(this, [&] { BoundsChangedOnScreen(bounds); });
}

void TWinControl::FilesDropped(const std::vector<UnicodeString>& files, TPoint place)
{
    Guarded(this, [&] {
        TDroppedFiles dropped{files, place};
        Perform(WM_DROPFILES, reinterpret_cast<std::uintptr_t>(&dropped));
    });
}

void TWinControl::CloseAsked()
{
    Guarded(this, [&] { CloseAskedOnScreen(); });
}

void TWinControl::ActivationChanged(bool isActive)
{
    Guarded(this, [&] { ActivationChangedOnScreen(isActive); });
}

void TWinControl::StateChanged(Toolkits::EWindowState state)
{
    Guarded(this, [&] { StateChangedOnScreen(state); });
}

void TWinControl::ColorsChanged()
{
    // Its colour is by name what it was, but looks otherwise.
    Guarded(this, [&] { Perform(CM_COLORCHANGED); });
}

void TWinControl::TextEditedInWindow(const UnicodeString& text)
{
    SetText(text);
}

void TWinControl::SelectionMovedInWindow(int, int) {}

void TWinControl::ChosenInWindow(int)
{
    Click();
}

void TWinControl::ItemCheckedInWindow(int) {}

void TWinControl::DropChangedInWindow(bool) {}

void TWinControl::ScrolledInWindow(int) {}

void TWinControl::MenuOpeningOnScreen(int) {}

void TWinControl::MenuChosenOnScreen(int) {}

std::vector<Toolkits::TMenuEntry> TWinControl::GetMenuEntries()
{
    return {};
}

void TWinControl::BoundsChangedOnScreen(const TRect& bounds)
{
    setBoundsRect(bounds);
}

void TWinControl::CloseAskedOnScreen() {}

void TWinControl::ActivationChangedOnScreen(bool) {}

void TWinControl::StateChangedOnScreen(Toolkits::EWindowState) {}

bool TWinControl::PaintAsked(Toolkits::PaintDevice& device, const TRect&)
{
    return Guarded(this, true,
                   [&] { return Perform(WM_PAINT, reinterpret_cast<std::uintptr_t>(&device)) != 0; });
}

void TWinControl::PaintWindow(Toolkits::PaintDevice&) {}

namespace
{

/// The part of a device that a control covers, for the length of its paint.
class CCoveredPart
{
public:
    CCoveredPart(Toolkits::PaintDevice& device, TPoint place, const TControl& control) : mDevice(device)
    {
        device.PushState();
        device.MoveOrigin(place.X, place.Y);
        device.IntersectClip({0, 0, control.getWidth(), control.getHeight()});
    }
    CCoveredPart(const CCoveredPart&) = delete;
    CCoveredPart& operator=(const CCoveredPart&) = delete;
    ~CCoveredPart() { mDevice.PopState(); }

    void Paint(TControl& control) { control.Perform(WM_PAINT, reinterpret_cast<std::uintptr_t>(&mDevice)); }

private:
    Toolkits::PaintDevice& mDevice;
};

bool CanBeSeen(const TControl& control)
{
    return control.getVisible() && control.getWidth() > 0 && control.getHeight() > 0;
}

} // namespace

void TWinControl::PaintTo(Toolkits::PaintDevice* device, int x, int y)
{
    if (device == nullptr) {
        return;
    }
    CCoveredPart part(*device, {x, y}, *this);
    const TComponentWatch watch(this);
    part.Paint(*this);
    const std::vector<TWinControl*> children = watch.IsAlive() ? mWindows : std::vector<TWinControl*>();
    for (TWinControl* child : children) {
        if (watch.IsAlive() && HasChild(child) && CanBeSeen(*child)) {
            child->PaintTo(device, child->getLeft(), child->getTop());
        }
    }
}

void TWinControl::PaintChildren(Toolkits::PaintDevice& device)
{
    const TComponentWatch watch(this);
    const std::vector<TControl*> children(mGraphics);
    for (TControl* child : children) {
        if (watch.IsAlive() && HasChild(child) && CanBeSeen(*child)) {
            CCoveredPart(device, {child->getLeft(), child->getTop()}, *child).Paint(*child);
        }
    }
}

TWinControl* TWinControl::GetTopParent() noexcept
{
    TWinControl* top = this;
    while (top->getParent() != nullptr) {
        top = top->getParent();
    }
    return top;
}

void TWinControl::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    if (!DispatchKey(message) && !DispatchFocus(message) && !DispatchWindowChange(message)) {
        TControl::Dispatch(record);
    }
}

bool TWinControl::DispatchKey(TMessage& message)
{
    switch (message.Msg) {
    case WM_KEYDOWN:
    case WM_KEYUP:
        PressOrRelease(message);
        return true;
    case WM_CHAR:
        TypeCharacter(message);
        return true;
    case CM_DIALOGKEY:
    case CM_DIALOGCHAR:
        message.Result = Broadcast(message.Msg, message.WParam, message.LParam);
        return true;
    default:
        return false;
    }
}

void TWinControl::PressOrRelease(TMessage& message)
{
    auto key = static_cast<Word>(message.WParam);
    const TShiftState shift = ParamToShift(static_cast<std::uintptr_t>(message.LParam));
    const bool isDown = message.Msg == WM_KEYDOWN;
    AFormHost* const form = FindFormHost(this);
    const TComponentWatch watch(this);
    const bool isKept =
        form != nullptr && (isDown ? form->PreviewKeyDown(key, shift) : form->PreviewKeyUp(key, shift));
    if (watch.IsAlive() && !isKept && key != 0) {
        isDown ? KeyDown(key, shift) : KeyUp(key, shift);
    }
    message.WParam = key;
    message.Result = isKept || key == 0 ? 1 : 0;
}

void TWinControl::TypeCharacter(TMessage& message)
{
    auto key = static_cast<WideChar>(message.WParam);
    AFormHost* const form = FindFormHost(this);
    const TComponentWatch watch(this);
    const bool isKept = form != nullptr && form->PreviewKeyPress(key);
    if (watch.IsAlive() && !isKept && key != 0) {
        KeyPress(key);
    }
    message.WParam = key;
    message.Result = isKept || key == 0 ? 1 : 0;
}

bool TWinControl::DispatchFocus(const TMessage& message)
{
    switch (message.Msg) {
    case WM_SETFOCUS:
        focusedControl = this;
        Invalidate();
        return true;
    case WM_KILLFOCUS:
        if (focusedControl == this) {
            focusedControl = nullptr;
        }
        Invalidate();
        return true;
    case CM_ENTER:
        DoEnter();
        return true;
    case CM_EXIT:
        DoExit();
        return true;
    default:
        return false;
    }
}

bool TWinControl::DispatchWindowChange(TMessage& message)
{
    const TComponentWatch watch(this);
    switch (message.Msg) {
    case WM_PAINT: {
        auto* const device = reinterpret_cast<Toolkits::PaintDevice*>(message.WParam);
        if (device != nullptr) {
            PaintWindow(*device);
            if (watch.IsAlive()) {
                PaintChildren(*device);
            }
        }
        return true;
    }
    case CM_VISIBLECHANGED:
        UpdateShowing();
        return true;
    case CM_SHOWINGCHANGED:
        if (mWindow != nullptr) {
            mWindow->SetVisible(mShowing);
        }
        return true;
    case CM_ENABLEDCHANGED:
        if (mWindow != nullptr) {
            mWindow->SetEnabled(getEnabled());
        }
        if (!getEnabled()) {
            RemoveFocus(false);
        }
        return true;
    case CM_TEXTCHANGED:
        if (mWindow != nullptr) {
            mWindow->SetText(GetText());
        }
        return true;
    case CM_PARENTCTL3DCHANGED:
        TakeParentCtl3D();
        return true;
    default:
        TellChildren(message.Msg);
        return false;
    }
}

void TWinControl::TellChildren(unsigned message)
{
    const auto tell = [this](void (*work)(TWinControl&)) { RunNested(*this, work); };
    switch (message) {
    case CM_FOCUSCHANGED:
        return tell([](TWinControl& control) { control.NotifyControls(CM_FOCUSCHANGED); });
    case CM_FONTCHANGED:
        ShowLook();
        return tell([](TWinControl& control) { control.NotifyControls(CM_PARENTFONTCHANGED); });
    case CM_COLORCHANGED:
        if (mBrush != nullptr) {
            mBrush->setColor(getColor());
        }
        ShowLook();
        return tell([](TWinControl& control) { control.NotifyControls(CM_PARENTCOLORCHANGED); });
    case CM_SHOWHINTCHANGED:
        return tell([](TWinControl& control) { control.NotifyControls(CM_PARENTSHOWHINTCHANGED); });
    case CM_BIDIMODECHANGED:
        ShowLook();
        return tell([](TWinControl& control) { control.NotifyControls(CM_PARENTBIDIMODECHANGED); });
    case CM_CTL3DCHANGED:
        return tell([](TWinControl& control) { control.NotifyControls(CM_PARENTCTL3DCHANGED); });
    default:
        return;
    }
}

} // namespace Controls
