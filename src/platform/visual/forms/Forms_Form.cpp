// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Form.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/MenuEntry.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/controls/Forms_Accelerator.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/forms/Forms_Screen.h"
#include "platform/visual/forms/internal/Forms_Orphans.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/menus/Menus.h"

#include <algorithm>

namespace Forms
{

using Classes::TComponentWatch;
using Controls::TWinControl;
using Messages::TMessage;
using System::GClassBuilder;
using System::TMetaClass;
using Types::TPoint;
using Types::TRect;

namespace
{

Toolkits::EFrame FrameOf(TFormBorderStyle style)
{
    switch (style) {
    case bsNone:
        return Toolkits::EFrame::None;
    case bsSingle:
        return Toolkits::EFrame::Single;
    case bsDialog:
        return Toolkits::EFrame::Dialog;
    case bsToolWindow:
        return Toolkits::EFrame::ToolWindow;
    case bsSizeToolWin:
        return Toolkits::EFrame::SizeableToolWindow;
    default:
        return Toolkits::EFrame::Sizeable;
    }
}

/// Where an extent begins so that it lies within an area, at its begin if it is too long.
int Within(int begin, int length, int areaBegin, int areaEnd)
{
    return std::max(std::min(begin, areaEnd - length), areaBegin);
}

} // namespace

TMetaClass* TCustomForm::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TCustomForm>(u"TCustomForm").Build();
    return record;
}

TCustomForm::TCustomForm(Classes::TComponent* owner) : TCustomControl(owner), mFocusedControl(this)
{
    setControlStyle({Controls::csAcceptsControls, Controls::csCaptureMouse, Controls::csClickEvents,
                     Controls::csDoubleClicks, Controls::csSetCaption});
    setParentColor(false);
    setParentFont(false);
    ChangeColor(Graphics::clBtnFace);
    TCustomControl::SetVisible(false);
    SetBounds(0, 0, 320, 240);
    Screen->AddForm(this);
}

TCustomForm::~TCustomForm()
{
    Destroying();
    if (!mFormState.Contains(fsCreating)) {
        DoDestroy(); // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall): the event is all that is meant
    }
    mActiveControl = nullptr;
    mFocusedControl = this;
    if (mMenu != nullptr) {
        mMenu->setViewer({});
    }
    if (GetWindow() != nullptr) {
        // What comes to its end with the form may have the user; he mustn't be led back to this one.
        GetWindow()->SetVisible(false);
    }
    Screen->RemoveForm(this);
    Application->FormDestroyed(this);
    // They go while this is still a form that they can ask.
    DestroyComponents();
    DestroyChildren();
}

void TCustomForm::AfterConstruction()
{
    if (!mFormState.Contains(fsCreating)) {
        return;
    }
    mFormState >> fsCreating;
    const TComponentWatch watch(this);
    DoCreate();
    if (watch.IsAlive() && mFormState.Contains(fsVisible)) {
        Show();
    }
}

void TCustomForm::Show()
{
    const TComponentWatch watch(this);
    AfterConstruction();
    if (watch.IsAlive()) {
        setVisible(true);
    }
    if (watch.IsAlive() && HandleAllocated()) {
        GetWindow()->BringToFront();
        GetWindow()->Focus();
    }
}

void TCustomForm::SetVisible(bool isVisible)
{
    if (mFormState.Contains(fsCreating)) {
        // A design's form that is visible is shown when it is whole.
        isVisible ? mFormState << fsVisible : mFormState >> fsVisible;
        return;
    }
    TCustomControl::SetVisible(isVisible);
}

void TCustomForm::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    switch (message.Msg) {
    case CM_SHOWINGCHANGED:
        ShowingChanged();
        return;
    case CM_DIALOGKEY:
        if (DialogKey(static_cast<System::Word>(message.WParam),
                      Controls::ParamToShift(static_cast<std::uintptr_t>(message.LParam)))) {
            message.Result = 1;
            return;
        }
        break;
    case CM_DIALOGCHAR:
        TCustomControl::Dispatch(record);
        if (message.Result == 0 && OpenMarkedMenu(message)) {
            message.Result = 1;
        }
        return;
    default:
        break;
    }
    TCustomControl::Dispatch(record);
}

bool TCustomForm::OpenMarkedMenu(const TMessage& message)
{
    if (mMenu == nullptr ||
        !Controls::ParamToShift(static_cast<std::uintptr_t>(message.LParam)).Contains(Classes::ssAlt)) {
        return false;
    }
    const Menus::TMenuItem& items = *mMenu->getItems();
    for (int i = 0; i < items.GetCount(); ++i) {
        Menus::TMenuItem* const item = items.GetItem(i);
        if (item->getVisible() && IsAccel(static_cast<System::Word>(message.WParam), item->getCaption())) {
            if (GetWindow() != nullptr && GetWindow()->OpenMenu(item->getCommand())) {
                return true;
            }
            const TPoint place = GetClientOrigin();
            mMenu->OpenItem(item, place.X, place.Y);
            return true;
        }
    }
    return false;
}

void TCustomForm::ShowingChanged()
{
    const TComponentWatch watch(this);
    if (!getShowing()) {
        if (GetWindow() != nullptr) {
            GetWindow()->SetVisible(false);
        }
        mFormState >> fsVisible;
        DoHide();
        return;
    }
    mFormState << fsVisible;
    DoShow();
    if (!watch.IsAlive() || !getShowing() || GetWindow() == nullptr) {
        return;
    }
    PlaceForShow();
    ShowState();
    if (!watch.IsAlive() || !getShowing() || GetWindow() == nullptr) {
        return;
    }
    GetWindow()->SetVisible(true);
    if (watch.IsAlive() && GetWindow() != nullptr) {
        GetWindow()->Focus();
    }
}

void TCustomForm::PlaceForShow()
{
    if (!IsTopLevel() || mWindowState != wsNormal || mHost != nullptr) {
        return;
    }
    switch (mPosition) {
    case poScreenCenter:
        return Center(Toolkits::CurrentToolkit().FirstScreenRect());
    case poDesktopCenter:
        return Center(Screen->getDesktopRect());
    case poMainFormCenter:
        if (Application->getMainForm() != nullptr) {
            return Center(Application->getMainForm()->getBoundsRect());
        }
        return Center(Screen->getDesktopRect());
    case poOwnerFormCenter:
        if (const auto* const owner = dynamic_cast<TCustomForm*>(getOwner())) {
            return Center(owner->getBoundsRect());
        }
        return Center(Screen->getDesktopRect());
    default:
        return;
    }
}

void TCustomForm::Center(const TRect& area)
{
    const TRect desktop = Screen->getDesktopRect();
    const int left = area.Left + (area.Width() - getWidth()) / 2;
    const int top = area.Top + (area.Height() - getHeight()) / 2;
    SetBounds(Within(left, getWidth(), desktop.Left, desktop.Right),
              Within(top, getHeight(), desktop.Top, desktop.Bottom), getWidth(), getHeight());
}

void TCustomForm::MakeFullyVisible(const void*)
{
    const TRect desktop = Screen->getDesktopRect();
    SetBounds(Within(getLeft(), getWidth(), desktop.Left, desktop.Right),
              Within(getTop(), getHeight(), desktop.Top, desktop.Bottom), getWidth(), getHeight());
}

void TCustomForm::Close()
{
    if (mFormState.Contains(fsModal)) {
        mModalResult = mrCancel;
        return;
    }
    const TComponentWatch watch(this);
    if (!CloseQuery() || !watch.IsAlive()) {
        return;
    }
    TCloseAction action = caHide;
    DoClose(action);
    if (action == caNone) {
        return;
    }
    if (watch.IsAlive() && Application->getMainForm() == this) {
        Application->Terminate();
    } else if (watch.IsAlive() && action == caFree) {
        Release();
    } else if (watch.IsAlive() && action == caMinimize) {
        setWindowState(wsMinimized);
    } else if (watch.IsAlive()) {
        Hide();
    }
}

bool TCustomForm::CloseQuery()
{
    bool canClose = true;
    if (OnCloseQuery) {
        OnCloseQuery(this, canClose);
    }
    return canClose;
}

void TCustomForm::Release()
{
    Screen->DestroyLater(this);
}

void TCustomForm::setBorderStyle(TFormBorderStyle style)
{
    if (style != mBorderStyle) {
        const int width = getClientWidth();
        const int height = getClientHeight();
        mBorderStyle = style;
        RecreateWnd();
        if (!IsLoading()) {
            setClientWidth(width);
            setClientHeight(height);
        }
    }
}

Toolkits::EFrame TCustomForm::Frame() const noexcept
{
    return mHost == nullptr ? FrameOf(mBorderStyle) : Toolkits::EFrame::None;
}

void TCustomForm::setHost(void* host)
{
    if (host != mHost) {
        const int width = getClientWidth();
        const int height = getClientHeight();
        mHost = host;
        RecreateWnd();
        setClientWidth(width);
        setClientHeight(height);
    }
}

void TCustomForm::setBorderIcons(const TBorderIcons& icons)
{
    if (icons != mBorderIcons) {
        mBorderIcons = icons;
        RecreateWnd();
    }
}

void TCustomForm::setMenu(Menus::TMainMenu* menu)
{
    if (menu == mMenu) {
        return;
    }
    if (mMenu != nullptr) {
        mMenu->setViewer({});
    }
    mMenu = menu;
    if (menu != nullptr) {
        menu->FreeNotification(this);
        menu->setViewer({this, &TCustomForm::ShowMenu});
    }
    ShowMenu();
}

void TCustomForm::ShowMenu()
{
    if (IsTopLevel() && GetWindow() != nullptr) {
        GetWindow()->ShowMenuBar(mMenu != nullptr);
    }
}

std::vector<Toolkits::TMenuEntry> TCustomForm::GetMenuEntries()
{
    return mMenu == nullptr ? std::vector<Toolkits::TMenuEntry>() : mMenu->getItems()->GetEntries();
}

void TCustomForm::MenuOpeningOnScreen(int id)
{
    // A click on the item may prepare what is in it.
    MenuChosenOnScreen(id);
}

void TCustomForm::MenuChosenOnScreen(int id)
{
    Menus::TMenuItem* const item = mMenu == nullptr ? nullptr : mMenu->getItems()->FindCommand(id);
    if (item != nullptr) {
        item->Click();
    }
}

bool TCustomForm::OpenFirstMenu()
{
    const std::vector<Toolkits::TMenuEntry> entries = GetMenuEntries();
    const auto first = std::ranges::find(entries, true, &Toolkits::TMenuEntry::isEnabled);
    return first != entries.end() && GetWindow() != nullptr && GetWindow()->OpenMenu(first->id);
}

void TCustomForm::setWindowState(TWindowState state)
{
    if (state != mWindowState) {
        mWindowState = state;
        ShowState();
    }
}

void TCustomForm::ShowState()
{
    if (IsTopLevel() && getShowing() && GetWindow() != nullptr) {
        GetWindow()->SetState(static_cast<Toolkits::EWindowState>(mWindowState));
    }
}

void TCustomForm::StateChangedOnScreen(Toolkits::EWindowState state)
{
    mWindowState = static_cast<TWindowState>(state);
}

void TCustomForm::CreateWnd()
{
    TCustomControl::CreateWnd();
    ShowMenu();
    ShowState();
}

void TCustomForm::SetZOrder(bool inFront)
{
    if (!IsTopLevel()) {
        TCustomControl::SetZOrder(inFront);
    } else if (GetWindow() != nullptr) {
        inFront ? GetWindow()->BringToFront() : GetWindow()->SendToBack();
    }
}

TRect TCustomForm::GetClientRect() const
{
    const Toolkits::TFrameMargins margins =
        IsTopLevel() ? Toolkits::CurrentToolkit().FrameMargins(Frame()) : Toolkits::TFrameMargins();
    return {0, 0, std::max(getWidth() - margins.left - margins.right, 0),
            std::max(getHeight() - margins.top - margins.bottom, 0)};
}

TPoint TCustomForm::GetClientOffset() const
{
    if (!IsTopLevel()) {
        return {};
    }
    const Toolkits::TFrameMargins margins = Toolkits::CurrentToolkit().FrameMargins(Frame());
    return {margins.left, margins.top};
}

void TCustomForm::CreateParams(Controls::TCreateParams& params)
{
    TCustomControl::CreateParams(params);
    if (IsTopLevel()) {
        params.Kind = Toolkits::EWindowKind::Form;
        params.Frame = Frame();
        params.Host = mHost;
        params.HasCloseButton = mBorderIcons.Contains(biSystemMenu);
    }
}

void TCustomForm::CloseAskedOnScreen()
{
    // Desktops have other ways to ask than the button in the frame.
    if (mBorderIcons.Contains(biSystemMenu)) {
        Close();
    }
}

void TCustomForm::Paint()
{
    if (OnPaint) {
        OnPaint(this);
    }
}

void TCustomForm::GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root)
{
    TCustomControl::GetChildren(proc, root);
    if (root == this) {
        ForEachOrphan(*this, proc);
    }
}

void TCustomForm::Loaded()
{
    Controls::TWinControl* const active = std::exchange(mActiveControl, nullptr);
    TCustomControl::Loaded();
    if (active != nullptr && active->CanFocus()) {
        setActiveControl(active);
    }
}

void TCustomForm::Notification(Classes::TComponent* component, Classes::TOperation operation)
{
    TCustomControl::Notification(component, operation);
    if (operation != Classes::opRemove) {
        return;
    }
    if (component == mActiveControl) {
        mActiveControl = nullptr;
    }
    if (component == mMenu) {
        mMenu = nullptr;
        ShowMenu();
    }
}

void TCustomForm::DoCreate()
{
    if (OnCreate) {
        OnCreate(this);
    }
}

void TCustomForm::DoDestroy()
{
    if (!OnDestroy) {
        return;
    }
    // A destructor can't let it pass.
    try {
        OnDestroy(this);
    } catch (...) {
        Application->HandleException(this);
    }
}

void TCustomForm::DoShow()
{
    if (OnShow) {
        OnShow(this);
    }
}

void TCustomForm::DoHide()
{
    if (OnHide) {
        OnHide(this);
    }
}

void TCustomForm::DoClose(TCloseAction& action)
{
    if (OnClose) {
        OnClose(this, action);
    }
}

void TCustomForm::Activate()
{
    if (OnActivate) {
        OnActivate(this);
    }
}

void TCustomForm::Deactivate()
{
    if (OnDeactivate) {
        OnDeactivate(this);
    }
}

TMetaClass* TForm::ClassRecord()
{
    static TMetaClass* const record =
        Controls::PublishControl(GClassBuilder<TForm>(u"TForm"))
            .Property(u"BorderIcons", &TForm::getBorderIcons, &TForm::setBorderIcons, {.defaultValue = 7})
            .Property(u"BorderStyle", &TForm::getBorderStyle, &TForm::setBorderStyle,
                      {.defaultValue = bsSizeable})
            .Property(u"Caption", &TForm::getCaption, &TForm::setCaption)
            .Property(u"ClientHeight", &TForm::getClientHeight, &TForm::setClientHeight)
            .Property(u"ClientWidth", &TForm::getClientWidth, &TForm::setClientWidth)
            .Property(u"FormStyle", &TForm::getFormStyle, &TForm::setFormStyle, {.defaultValue = fsNormal})
            .Property(u"KeyPreview", &TForm::getKeyPreview, &TForm::setKeyPreview, {.defaultValue = 0})
            .Property(u"Menu", &TForm::getMenu, &TForm::setMenu)
            .Property(u"ParentColor", &TForm::getParentColor, &TForm::setParentColor, {.defaultValue = 0})
            .Property(u"ParentFont", &TForm::getParentFont, &TForm::setParentFont, {.defaultValue = 0})
            .Property(u"PixelsPerInch", &TForm::getPixelsPerInch, &TForm::setPixelsPerInch)
            // A form that is being made tells what it is to be.
            .Property(u"Visible",
                      [](const TForm& form) {
                          const TFormState& state = form.getFormState();
                          return state.Contains(fsCreating) ? state.Contains(fsVisible) : form.getVisible();
                      },
                      &TForm::setVisible, {.defaultValue = 0})
            .Property(u"Position", &TForm::getPosition, &TForm::setPosition,
                      {.defaultValue = poDefaultPosOnly})
            .Property(u"WindowState", &TForm::getWindowState, &TForm::setWindowState,
                      {.defaultValue = wsNormal})
            .Property(u"ActiveControl", &TForm::getActiveControl, &TForm::setActiveControl)
            .Property(u"OnActivate", &TForm::OnActivate)
            .Property(u"OnClose", &TForm::OnClose)
            .Property(u"OnCloseQuery", &TForm::OnCloseQuery)
            .Property(u"OnCreate", &TForm::OnCreate)
            .Property(u"OnDeactivate", &TForm::OnDeactivate)
            .Property(u"OnDestroy", &TForm::OnDestroy)
            .Property(u"OnHide", &TForm::OnHide)
            .Property(u"OnKeyDown", &TForm::OnKeyDown)
            .Property(u"OnKeyPress", &TForm::OnKeyPress)
            .Property(u"OnKeyUp", &TForm::OnKeyUp)
            .Property(u"OnPaint", &TForm::OnPaint)
            .Property(u"OnShortCut", &TForm::OnShortCut)
            .Property(u"OnShow", &TForm::OnShow)
            .Build();
    return record;
}

TForm::~TForm() = default;

TCustomForm* GetParentForm(Controls::TControl* control)
{
    return dynamic_cast<TCustomForm*>(Controls::FindFormHost(control));
}

} // namespace Forms
