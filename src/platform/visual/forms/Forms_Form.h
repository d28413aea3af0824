// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/toolkit/ModalWindow.h"
#include "platform/visual/controls/Controls_CustomControl.h"
#include "platform/visual/controls/Controls_FormHost.h"
#include "platform/visual/forms/Forms_Types.h"

namespace Menus
{
class TMainMenu;
} // namespace Menus

namespace Forms
{

/// A key is pressed; `handled` keeps it from all controls.
using TShortCutEvent = System::TClosure<void(System::TObject* sender, System::Word key,
                                             Classes::TShiftState shift, bool& handled)>;

/// Base of forms: a window of its own on the screen, with the controls that stand on it. A form isn't seen
/// until `Show` or `ShowModal`; most belong to `Forms::Application`.
///
///     TSettingsForm::TSettingsForm(Classes::TComponent* owner) : TForm(owner)
///     {
///         ReadDesign();                                           // what SettingsForm.form says
///     }
///     if (settingsForm->ShowModal() == mrOk) { ... }
class TRS8_BTL_API TCustomForm : public Controls::TCustomControl,
                                 public Controls::AFormHost,
                                 public Toolkits::ModalWindow
{
    TRS8_BTL_CLASS(TCustomForm, Controls::TCustomControl)

public:
    explicit TCustomForm(Classes::TComponent* owner = nullptr);
    ~TCustomForm() override;

    // Coming and going.

    /// Makes the form seen, in front of the others.
    void Show();
    void Hide() { setVisible(false); }
    /// Closes the form as its frame does: asks `CloseQuery`, then `OnClose` what becomes of it. Closing the
    /// main form ends the program. A modal form gets the result `mrCancel`, which asks them at its turn.
    void Close();
    /// Whether the form may be closed: asks `OnCloseQuery`.
    virtual bool CloseQuery();
    /// Shows the form, with all others out of use, until `ModalResult` isn't 0; gives that.
    /// `Classes::EInvalidOperation` if it is shown already or disabled. `mrCancel` if the program ends or the
    /// form is destroyed meanwhile.
    virtual int ShowModal();
    /// Destroys the form soon, when none of its code runs any more.
    void Release();
    /// The end of a modal form: anything but 0. Setting it does nothing else.
    int getModalResult() const override { return mModalResult; }
    void setModalResult(int result) override { mModalResult = result; }
    /// To be called when the form has been made completely; `ShowModal`, `Show` and those who make forms call
    /// it, and only the first call counts. Calls `OnCreate`.
    void AfterConstruction();

    // What it looks like.

    TFormBorderStyle getBorderStyle() const noexcept { return mBorderStyle; }
    void setBorderStyle(TFormBorderStyle style);
    /// The toolkit's own object that shows the form inside of it, without a frame, in place of the screen: a
    /// `QWidget` of the toolkit "qt". Null at first, for the screen; one that ends before the form must be
    /// taken from it before. Whoever has it keeps the form's bounds, which stand where it lies on the screen.
    void* getHost() const noexcept { return mHost; }
    void setHost(void* host);
    /// What the frame offers; at first all but help. Without `biSystemMenu` the user can't close the form by
    /// its frame, nor by another way of the desktop.
    const TBorderIcons& getBorderIcons() const noexcept { return mBorderIcons; }
    void setBorderIcons(const TBorderIcons& icons);
    TFormStyle getFormStyle() const noexcept { return mFormStyle; }
    void setFormStyle(TFormStyle style) noexcept { mFormStyle = style; }
    TPosition getPosition() const noexcept { return mPosition; }
    /// Counts when the form is shown in its own size.
    void setPosition(TPosition position) noexcept { mPosition = position; }
    /// Whether the form is as large as it was set, is out of sight, or takes all of the screen. It counts
    /// while the form is shown, and follows what the user does; its bounds are those that it has on the
    /// screen then.
    TWindowState getWindowState() const noexcept { return mWindowState; }
    void setWindowState(TWindowState state);
    /// Moves the form as little as is needed to have all of it on the screen; a form that is too large stands
    /// at the upper left. The argument, a screen, isn't looked at.
    void MakeFullyVisible(const void* monitor = nullptr);
    /// The resolution that the design counts in; 96.
    int getPixelsPerInch() const noexcept { return mPixelsPerInch; }
    void setPixelsPerInch(int pixelsPerInch) noexcept { mPixelsPerInch = pixelsPerInch; }

    /// The menu along the upper edge; not owned, null at first.
    Menus::TMainMenu* getMenu() const noexcept { return mMenu; }
    void setMenu(Menus::TMainMenu* menu);

    // Keyboard.

    /// The control that has the keyboard while the form has it; null for none.
    Controls::TWinControl* getActiveControl() const override { return mActiveControl; }
    /// `Classes::EInvalidOperation` for one that isn't on the form, or can't be seen or used.
    void setActiveControl(Controls::TWinControl* control);
    void FocusControl(Controls::TWinControl* control) override;
    void DefocusControl(Controls::TWinControl* control, bool isRemoving) override;
    void SetFocus() override;
    /// Whether the form sees keys before its controls do; off at first.
    bool getKeyPreview() const noexcept { return mKeyPreview; }
    void setKeyPreview(bool isOn) noexcept { mKeyPreview = isOn; }
    /// Whether it is the form that the user works in.
    bool getActive() const noexcept { return mIsActive; }
    const TFormState& getFormState() const noexcept { return mFormState; }

    Types::TRect GetClientRect() const override;
    void Dispatch(void* message) override;
    void Loaded() override;
    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;
    Controls::AFormHost* AsFormHost() noexcept override { return this; }

    Classes::TNotifyEvent OnCreate;
    Classes::TNotifyEvent OnDestroy;
    Classes::TNotifyEvent OnShow;
    Classes::TNotifyEvent OnHide;
    Classes::TNotifyEvent OnActivate;
    Classes::TNotifyEvent OnDeactivate;
    Classes::TNotifyEvent OnPaint;
    TCloseEvent OnClose;
    TCloseQueryEvent OnCloseQuery;
    TShortCutEvent OnShortCut;

protected:
    /// To be called last in the constructor of each class that has a `NAME.form`: makes what stands there.
    /// False without one. Raises as `Classes::TReader::ReadRootComponent`.
    bool ReadDesign() { return Classes::ReadOwnDesign(*this); }

    /// Called when the form is made, at its end, and each time that it is shown or hidden or gets or loses
    /// the user's attention; each calls its event.
    virtual void DoCreate();
    virtual void DoDestroy();
    virtual void DoShow();
    virtual void DoHide();
    virtual void DoClose(TCloseAction& action);
    virtual void Activate();
    virtual void Deactivate();

    void Paint() override;
    void CreateParams(Controls::TCreateParams& params) override;
    void CreateWnd() override;
    void SetVisible(bool isVisible) override;
    void SetZOrder(bool inFront) override;
    bool IsTopLevel() const override { return getParent() == nullptr; }
    Types::TPoint GetClientOffset() const override;
    bool PreviewKeyDown(System::Word& key, Classes::TShiftState shift) override;
    bool PreviewKeyUp(System::Word& key, Classes::TShiftState shift) override;
    bool PreviewKeyPress(System::WideChar& key) override;
    bool IsShortCut(System::Word key, Classes::TShiftState shift) override;
    void CloseAskedOnScreen() override;
    void ActivationChangedOnScreen(bool isActive) override;
    void StateChangedOnScreen(Toolkits::EWindowState state) override;
    void MenuOpeningOnScreen(int id) override;
    void MenuChosenOnScreen(int id) override;
    std::vector<Toolkits::TMenuEntry> GetMenuEntries() override;
    void GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root) override;

private:
    friend class TApplication;

    System::UnicodeString ModalCaption() const override { return GetText(); }
    void CloseUnattended() override;

    Toolkits::EFrame Frame() const noexcept;
    /// Opens the item of the menu whose caption marks the character; false if none does.
    bool OpenMarkedMenu(const Messages::TMessage& message);
    /// Opens the first item of a menu that the window shows; false for any other.
    bool OpenFirstMenu();
    /// The window has to show the menu as it is now.
    void ShowMenu();
    void ShowingChanged();
    void PlaceForShow();
    /// Has a window that is shown take the state.
    void ShowState();
    void Center(const Types::TRect& area);
    /// Ends what the focus leaves and begins what it enters, from the innermost to the outermost and back.
    /// False if a handler moved it elsewhere.
    bool SetFocusedControl(Controls::TWinControl* control);
    void FocusWindow();
    void FocusFirst();
    bool DialogKey(System::Word key, const Classes::TShiftState& shift);
    int RunModal();
    void CloseModal();

    Menus::TMainMenu* mMenu = nullptr;
    Controls::TWinControl* mActiveControl = nullptr;
    /// Where the chain of those that were entered ends; the form itself at first.
    Controls::TWinControl* mFocusedControl;
    void* mHost = nullptr;
    int mModalResult = 0;
    int mPixelsPerInch = 96;
    unsigned mFocusTicket = 0;
    TFormBorderStyle mBorderStyle = bsSizeable;
    TBorderIcons mBorderIcons{biSystemMenu, biMinimize, biMaximize};
    TFormStyle mFormStyle = fsNormal;
    TPosition mPosition = poDefaultPosOnly;
    TWindowState mWindowState = wsNormal;
    TFormState mFormState{fsCreating};
    bool mKeyPreview = false;
    bool mIsActive = false;
};

/// A form of a program.
class TRS8_BTL_API TForm : public TCustomForm
{
    TRS8_BTL_CLASS(TForm, TCustomForm)

public:
    explicit TForm(Classes::TComponent* owner = nullptr) : TCustomForm(owner) {}
    ~TForm() override;
};

/// The form that `control` stands on, or is; null for none.
TRS8_BTL_API TCustomForm* GetParentForm(Controls::TControl* control);

} // namespace Forms
