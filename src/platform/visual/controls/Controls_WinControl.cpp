// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_WinControl.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/Controls_FormHost.h"
#include "platform/visual/controls/Controls_Thread.h"
#include "platform/visual/controls/Forms_Accelerator.h"
#include "platform/visual/controls/internal/Controls_Nesting.h"
#include "platform/visual/graphics/Graphics_Brush.h"
#include "platform/visual/graphics/Graphics_Font.h"

#include <algorithm>

namespace Controls
{

using Classes::TComponentWatch;
using Messages::TMessage;
using Types::TPoint;
using Types::TRect;

System::TMetaClass* TWinControl::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TWinControl>(u"TWinControl").Build();
    return record;
}

TWinControl::TWinControl(Classes::TComponent* owner) : TControl(owner) {}

TWinControl::~TWinControl()
{
    Destroying();
    LeaveFocus();
    DestroyChildren();
    mWindow.reset();
    if (getParent() != nullptr) {
        getParent()->TakeOut(*this);
    }
}

TControl* TWinControl::GetControl(int index) const
{
    const auto place = static_cast<std::size_t>(index);
    if (index < 0 || index >= GetControlCount()) {
        throw Classes::EListError(u"There is no control " + System::UnicodeString(index));
    }
    return place < mGraphics.size() ? mGraphics[place] : mWindows[place - mGraphics.size()];
}

void TWinControl::InsertControl(TControl* control)
{
    if (control == nullptr || control->mParent == this) {
        return;
    }
    if (control->mParent != nullptr) {
        control->SetParent(this);
        return;
    }
    const TComponentWatch ownWatch(this);
    const TComponentWatch watch(control);
    TellOfControl(CM_CONTROLLISTCHANGE, control, true);
    if (!watch.IsAlive() || !ownWatch.IsAlive() || control->mParent != nullptr) {
        return;
    }
    TakeIn(*control);
    const auto tell = [&](unsigned message) {
        if (watch.IsAlive()) {
            control->Perform(message);
        }
    };
    if (!control->IsLoading()) {
        tell(CM_PARENTCOLORCHANGED);
        tell(CM_PARENTFONTCHANGED);
        tell(CM_PARENTSHOWHINTCHANGED);
        tell(CM_PARENTBIDIMODECHANGED);
        tell(CM_PARENTCTL3DCHANGED);
    }
    if (!watch.IsAlive() || control->mParent != this) {
        return;
    }
    control->KeepAnchorBase();
    if (auto* const window = dynamic_cast<TWinControl*>(control)) {
        window->UpdateShowing();
    } else {
        control->Invalidate();
    }
    if (watch.IsAlive()) {
        AlignControl(control);
    }
    if (watch.IsAlive() && control->mParent == this) {
        TellOfControl(CM_CONTROLCHANGE, control, true);
    }
}

void TWinControl::TellOfControl(unsigned message, const TControl* control, bool isComing)
{
    Perform(message, reinterpret_cast<std::uintptr_t>(control), isComing ? 1 : 0);
}

void TWinControl::RemoveControl(TControl* control)
{
    if (control == nullptr || control->mParent != this) {
        return;
    }
    const TComponentWatch watch(control);
    const TComponentWatch ownWatch(this);
    TellOfControl(CM_CONTROLCHANGE, control, false);
    if (!watch.IsAlive() || !ownWatch.IsAlive() || control->mParent != this) {
        return;
    }
    auto* const window = dynamic_cast<TWinControl*>(control);
    if (window != nullptr) {
        window->RemoveFocus(true);
    } else {
        control->Invalidate();
    }
    if (watch.IsAlive() && control->mParent == this) {
        TakeOut(*control);
        if (window != nullptr) {
            window->UpdateShowing();
        }
    }
    if (ownWatch.IsAlive()) {
        Realign();
    }
}

void TWinControl::TakeIn(TControl& control)
{
    if (auto* const window = dynamic_cast<TWinControl*>(&control)) {
        mWindows.push_back(window);
        mTabList.push_back(window);
    } else {
        mGraphics.push_back(&control);
    }
    control.mParent = this;
    mPlacedCount += static_cast<int>(control.IsPlaced());
}

void TWinControl::TakeOut(TControl& control)
{
    // The one to leave is most often the last: the search begins there.
    const auto remove = [&control](auto& list) {
        const auto found = std::find(list.rbegin(), list.rend(), &control);
        if (found != list.rend()) {
            list.erase(std::next(found).base());
        }
    };
    // In its destructor a windowed one is still known for it, and after that has no parent.
    if (dynamic_cast<TWinControl*>(&control) != nullptr) {
        remove(mWindows);
        remove(mTabList);
    } else {
        remove(mGraphics);
    }
    if (mAlignedFor == &control) {
        mAlignedFor = nullptr;
    }
    mPlacedCount -= static_cast<int>(control.IsPlaced());
    control.mParent = nullptr;
    TellOfControl(CM_CONTROLLISTCHANGE, &control, false);
}

namespace
{

/// The last child of a control; null if it has none.
TControl* LastChildOf(TControl* control)
{
    auto* const window = dynamic_cast<TWinControl*>(control);
    return window == nullptr || window->GetControlCount() == 0
               ? nullptr
               : window->GetControl(window->GetControlCount() - 1);
}

/// Destroys a tree with the innermost first.
void DestroyFromInside(TControl* root)
{
    const TControl* const outside = root->getParent();
    for (TControl* control = root; control != outside;) {
        while (TControl* const inner = LastChildOf(control)) {
            control = inner;
        }
        TControl* const parent = control->getParent();
        delete control;
        control = parent;
    }
}

} // namespace

void TWinControl::DestroyChildren() noexcept
{
    // A child destroys its own children from within, as long as the stack bears that.
    constexpr int mostLevels = 200;
    static int level = 0;
    ++level;
    while (TControl* const child = LastChildOf(this)) {
        if (level > mostLevels) {
            DestroyFromInside(child);
        } else {
            delete child;
        }
    }
    --level;
}

void TWinControl::MoveChild(TControl& control, bool inFront)
{
    const auto move = [&](auto& list) {
        const auto found = std::find(list.begin(), list.end(), &control);
        if (found == list.end()) {
            return;
        }
        if (inFront) {
            std::rotate(found, std::next(found), list.end());
        } else {
            std::rotate(list.begin(), found, std::next(found));
        }
    };
    move(mGraphics);
    move(mWindows);
    auto* const window = dynamic_cast<TWinControl*>(&control);
    if (window != nullptr && window->mWindow != nullptr) {
        if (inFront) {
            window->mWindow->BringToFront();
        } else {
            window->mWindow->SendToBack();
        }
    }
    control.Invalidate();
}

bool TWinControl::ContainsControl(const TControl* control) const noexcept
{
    while (control != nullptr && control != this) {
        control = control->getParent();
    }
    return control != nullptr;
}

TControl* TWinControl::ControlAtPos(TPoint place, bool allowDisabled, bool allowWinControls) const
{
    const auto isHit = [&](const TControl* control) {
        const TRect bounds = control->getBoundsRect();
        return control->getVisible() && (allowDisabled || control->getEnabled()) && place.X >= bounds.Left &&
               place.X < bounds.Right && place.Y >= bounds.Top && place.Y < bounds.Bottom;
    };
    if (allowWinControls) {
        const auto window = std::find_if(mWindows.rbegin(), mWindows.rend(), isHit);
        if (window != mWindows.rend()) {
            return *window;
        }
    }
    const auto graphic = std::find_if(mGraphics.rbegin(), mGraphics.rend(), isHit);
    return graphic == mGraphics.rend() ? nullptr : *graphic;
}

void TWinControl::ShowControl(TControl*)
{
    if (getParent() != nullptr) {
        getParent()->ShowControl(this);
    }
}

void TWinControl::NotifyControls(unsigned message)
{
    // By a copy, of which those are told that are still in here: a handler may change all of it.
    std::vector<TControl*> controls(mGraphics);
    controls.insert(controls.end(), mWindows.begin(), mWindows.end());
    const TComponentWatch watch(this);
    for (TControl* control : controls) {
        if (watch.IsAlive() && HasChild(control)) {
            control->Perform(message);
        }
    }
}

std::intptr_t TWinControl::Broadcast(unsigned message, std::uintptr_t wParam, std::intptr_t lParam)
{
    std::vector<TControl*> controls(mGraphics);
    controls.insert(controls.end(), mWindows.begin(), mWindows.end());
    const TComponentWatch watch(this);
    for (TControl* control : controls) {
        const std::intptr_t result =
            watch.IsAlive() && HasChild(control) ? control->Perform(message, wParam, lParam) : 0;
        if (result != 0) {
            return result;
        }
    }
    return 0;
}

bool TWinControl::HasChild(const TControl* control) const noexcept
{
    return std::ranges::find(mGraphics, control) != mGraphics.end() ||
           std::ranges::find(mWindows, control) != mWindows.end();
}

void TWinControl::GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent*)
{
    for (int i = 0; i < GetControlCount(); ++i) {
        proc(GetControl(i));
    }
}

void TWinControl::SetChildOrder(Classes::TComponent* child, int order)
{
    const auto move = [&](auto& list, int place) {
        const auto found = std::find(list.begin(), list.end(), child);
        if (found == list.end()) {
            return;
        }
        auto* const item = *found;
        list.erase(found);
        place = std::clamp(place, 0, static_cast<int>(list.size()));
        list.insert(list.begin() + place, item);
    };
    move(mGraphics, order);
    move(mWindows, order - static_cast<int>(mGraphics.size()));
}

void TWinControl::HandleNeeded()
{
    if (mWindow != nullptr) {
        return;
    }
    if (getParent() != nullptr) {
        getParent()->HandleNeeded();
    } else if (!IsTopLevel()) {
        throw Classes::EInvalidOperation(u"Control '" + getName() + u"' has no parent window");
    }
    CreateWnd();
}

void TWinControl::CreateParams(TCreateParams& params)
{
    params.Caption = GetText();
    params.X = getLeft();
    params.Y = getTop();
    params.Width = getWidth();
    params.Height = getHeight();
}

void TWinControl::CreateWnd()
{
    TCreateParams params;
    CreateParams(params);
    Toolkits::TWindowSettings settings;
    settings.kind = params.Kind;
    settings.frame = params.Frame;
    settings.hasCloseButton = params.HasCloseButton;
    settings.host = params.Host;
    settings.parent = getParent() == nullptr ? nullptr : getParent()->mWindow.get();
    settings.events = this;
    settings.text = params.Caption;
    settings.contents = this;
    settings.name = GetOwnedPath();
    settings.bounds = {params.X, params.Y, params.X + params.Width, params.Y + params.Height};
    settings.isEnabled = getEnabled();
    settings.style = params.Style;
    settings.exStyle = params.ExStyle;
    mWindow = Toolkits::CurrentToolkit().MakeWindow(settings);
    ShowLook();
    if (!mSpokenLabel.IsEmpty()) {
        mWindow->SetLabel(mSpokenLabel);
    }
}

void TWinControl::setSpokenLabel(const System::UnicodeString& label)
{
    mSpokenLabel = label;
    if (mWindow != nullptr) {
        mWindow->SetLabel(label);
    }
}

System::UnicodeString TWinControl::GetWindowName() const
{
    return mSpokenLabel.IsEmpty() ? Forms::WithoutAccel(GetText()) : mSpokenLabel;
}

int TWinControl::GetWindowPartCount() const
{
    return static_cast<int>(std::ranges::count_if(mGraphics, &TControl::getVisible));
}

std::optional<Toolkits::TWindowPart> TWinControl::GetWindowPart(int index) const
{
    for (const TControl* const control : mGraphics) {
        if (control->getVisible() && index-- == 0) {
            return control->AsWindowPart();
        }
    }
    return std::nullopt;
}

void TWinControl::ShowLook()
{
    if (mWindow == nullptr) {
        return;
    }
    const Graphics::TFont& font = GetShownFont();
    mWindow->SetLook({.font = font.getData(),
                      .textColor = Graphics::ColorToPixel(font.getColor()),
                      .ground = Graphics::ColorToPixel(getColor()),
                      .isMirrored = UseRightToLeftAlignment()});
}

void TWinControl::DestroyWnd()
{
    for (TWinControl* child : mWindows) {
        if (child->mWindow != nullptr) {
            child->DestroyWnd();
        }
    }
    mWindow.reset();
}

void TWinControl::RecreateWnd()
{
    if (mWindow == nullptr) {
        return;
    }
    DestroyWnd();
    if (!mShowing) {
        return;
    }
    RestoreWnd();
    const TWinControl* const focused = GetFocusedControl();
    if (focused != nullptr && ContainsControl(focused) && focused->mWindow != nullptr) {
        focused->mWindow->Focus();
    }
}

void TWinControl::RestoreWnd()
{
    HandleNeeded();
    for (TWinControl* child : std::vector<TWinControl*>(mWindows)) {
        if (HasChild(child) && child->mShowing) {
            RunNested(*child, [](TWinControl& control) { control.RestoreWnd(); });
        }
    }
    mWindow->SetVisible(true);
}

void TWinControl::UpdateShowing()
{
    RunNested(*this, [](TWinControl& control) { control.UpdateOwnShowing(); });
}

void TWinControl::UpdateOwnShowing()
{
    const bool isPlaced = IsTopLevel() || (getParent() != nullptr && getParent()->mShowing);
    const bool isShowing = isPlaced && getVisible() && !IsDestroying();
    if (isShowing) {
        HandleNeeded();
    } else if (getParent() == nullptr && !IsTopLevel() && mWindow != nullptr) {
        DestroyWnd();
    }
    if (isShowing == mShowing) {
        return;
    }
    mShowing = isShowing;
    const TComponentWatch watch(this);
    // What is in a window is there before the window is seen, and goes after it.
    if (isShowing) {
        UpdateShowingOfChildren();
    }
    if (watch.IsAlive()) {
        Perform(CM_SHOWINGCHANGED);
    }
    if (watch.IsAlive() && !mShowing) {
        UpdateShowingOfChildren();
    }
}

void TWinControl::UpdateShowingOfChildren()
{
    const std::vector<TWinControl*> children(mWindows);
    const TComponentWatch watch(this);
    for (TWinControl* child : children) {
        if (watch.IsAlive() && HasChild(child)) {
            child->UpdateShowing();
        }
    }
}

void TWinControl::SetVisible(bool isVisible)
{
    const TComponentWatch watch(this);
    // A form that is hidden keeps its place for when it is shown again.
    if (!isVisible && getVisible() && getParent() != nullptr) {
        RemoveFocus(false);
    }
    if (watch.IsAlive()) {
        TControl::SetVisible(isVisible);
    }
}

void TWinControl::Placed(bool isSized)
{
    if (mWindow != nullptr) {
        mWindow->SetBounds(getBoundsRect());
    }
    TControl::Placed(isSized);
    if (isSized) {
        Realign();
    }
}

Graphics::TBrush* TWinControl::getBrush() const
{
    if (mBrush == nullptr) {
        mBrush = std::make_unique<Graphics::TBrush>();
        mBrush->setColor(getColor());
    }
    return mBrush.get();
}

void TWinControl::setCtl3D(bool isOn)
{
    mParentCtl3D = false;
    if (isOn != mCtl3D) {
        mCtl3D = isOn;
        Perform(CM_CTL3DCHANGED);
    }
}

void TWinControl::setParentCtl3D(bool isOn)
{
    if (isOn != mParentCtl3D) {
        mParentCtl3D = isOn;
        TakeParentCtl3D();
    }
}

void TWinControl::TakeParentCtl3D()
{
    if (mParentCtl3D && getParent() != nullptr && getParent()->mCtl3D != mCtl3D) {
        mCtl3D = getParent()->mCtl3D;
        Perform(CM_CTL3DCHANGED);
    }
}

void TWinControl::setBorderWidth(int width)
{
    width = std::max(width, 0);
    if (width != mBorderWidth) {
        mBorderWidth = width;
        Invalidate();
        Realign();
    }
}

void TWinControl::Invalidate()
{
    CheckMainThread();
    if (mWindow != nullptr && mShowing) {
        mWindow->Invalidate(nullptr);
    }
}

void TWinControl::InvalidateArea(const TRect& area)
{
    if (mWindow != nullptr && mShowing) {
        mWindow->Invalidate(&area);
    }
}

void TWinControl::Update()
{
    if (mWindow != nullptr) {
        mWindow->Update();
    }
}

void TWinControl::Loaded()
{
    FixTabOrder();
    TControl::Loaded();
    TakeParentCtl3D();
    Realign();
    UpdateShowing();
}

} // namespace Controls
