// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Window.h"
#include "platform/toolkit/WindowContents.h"
#include "platform/visual/controls/Controls_Control.h"

#include <vector>

namespace Graphics
{
class TBrush;
} // namespace Graphics

namespace Controls
{

class AFormHost;

/// What a window is made with: the platform's flags of style and extended style, which `CreateParams` of a
/// derived class changes.
struct TCreateParams
{
    System::UnicodeString Caption;
    unsigned Style = 0;
    unsigned ExStyle = 0;
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    Toolkits::EWindowKind Kind = Toolkits::EWindowKind::Canvas;
    Toolkits::EFrame Frame = Toolkits::EFrame::None;
    bool HasCloseButton = true;
    /// What shows a form in place of the screen, as of `Toolkits::TWindowSettings`.
    void* Host = nullptr;
};

/// A control with a window of its own while it is shown: it can have the focus and hold other controls, which
/// it destroys with itself. Its window is made when it is first shown.
///
///     auto* const panel = new Extctrls::TPanel(form);
///     panel->setParent(form);
///     panel->setAlign(alBottom);
///     for (int i = 0; i < panel->GetControlCount(); ++i) { panel->GetControl(i)->setEnabled(false); }
class TRS8_BTL_API TWinControl : public TControl,
                                 private Toolkits::WindowEvents,
                                 private Toolkits::WindowContents
{
    TRS8_BTL_CLASS(TWinControl, TControl)

public:
    explicit TWinControl(Classes::TComponent* owner = nullptr);
    ~TWinControl() override;

    // The controls in it.

    /// How many controls have this one as their parent.
    int GetControlCount() const noexcept { return static_cast<int>(mGraphics.size() + mWindows.size()); }
    /// Those without a window first, from the back to the front. `Classes::EListError` out of range.
    TControl* GetControl(int index) const;
    /// Takes `control` in, as its `setParent` does; null changes nothing.
    void InsertControl(TControl* control);
    /// Lets `control` go; nothing happens if it isn't in here.
    void RemoveControl(TControl* control);
    /// Whether `control` is this one or lies within it.
    bool ContainsControl(const TControl* control) const noexcept;
    /// The front control at a place of the client area that can be seen, and unless `allowDisabled` can be
    /// used; null if there is none. Those with a window are passed over unless `allowWinControls`.
    TControl* ControlAtPos(Types::TPoint place, bool allowDisabled = false,
                           bool allowWinControls = false) const;
    /// Brings `control`, which lies in here, to sight, as a page of a notebook has to be turned for it.
    virtual void ShowControl(TControl* control);
    /// Sends `message` to each control in here, those in their children not.
    void NotifyControls(unsigned message);
    /// As `NotifyControls`, but ends when one gives a result, and gives that.
    std::intptr_t Broadcast(unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0);

    /// Between the two, nothing is aligned; the last `EnableAlign` does it at once. They may be nested.
    void DisableAlign() noexcept { ++mAlignLevel; }
    void EnableAlign();
    /// Places the aligned and the anchored controls.
    void Realign() { AlignControl(nullptr); }
    /// Whether controls are being placed by `Align` and `Anchors` just now.
    bool IsAligning() const noexcept { return mIsAligning; }

    // Focus.

    /// The place among the windowed controls of the parent in the order of the Tab key; -1 without a parent.
    int getTabOrder() const;
    /// The number is held within their count.
    void setTabOrder(int order);
    /// Whether the Tab key stops here.
    bool getTabStop() const noexcept { return mTabStop; }
    void setTabStop(bool isOn);
    /// Whether the control and all of its parents can be seen and used, and it stands on a form.
    virtual bool CanFocus() const;
    /// Whether the keyboard belongs to this control now.
    virtual bool Focused() const;
    /// Lets it have the keyboard. `Classes::EInvalidOperation` if it stands on no form, or on a visible one
    /// but can't be seen or used.
    virtual void SetFocus();
    /// The control that the Tab key leads to from `current`, or from the end for null; null if there is none.
    /// `checkTabStop` passes over those without `TabStop`, `checkParent` those that are not directly in here.
    TWinControl* FindNextControl(TWinControl* current, bool goForward, bool checkTabStop,
                                 bool checkParent) const;
    /// Focuses the control that `FindNextControl` gives, the parent counting unless the tab stop does.
    void SelectNext(TWinControl* current, bool goForward, bool checkTabStop);
    /// Focuses the first control in here that the Tab key would stop at.
    void SelectFirst();
    /// All windowed controls in here and in their children, in the order of the Tab key.
    std::vector<TWinControl*> GetTabOrderList() const;

    // The window.

    /// Whether the control can be seen: itself and all of its parents.
    bool getShowing() const noexcept { return mShowing; }
    bool HandleAllocated() const noexcept { return mWindow != nullptr; }
    /// Makes the window if there is none. `Classes::EInvalidOperation` for a control that has no parent and
    /// needs one.
    void HandleNeeded();
    /// Makes the window anew, with other parameters: at once if it is shown, otherwise when it is needed.
    void RecreateWnd();
    /// The window on the screen; null as long as there is none.
    Toolkits::Window* GetWindow() const noexcept { return mWindow.get(); }
    /// How the toolkit tells the control what happens to its window.
    Toolkits::WindowEvents& GetWindowEvents() noexcept { return *this; }

    /// What is in the window, as the toolkit asks for it.
    Toolkits::WindowContents& GetContents() noexcept { return *this; }
    /// What a label in front of the control says, for those who can't see it. A label sets it of the control
    /// that it leads to; empty at first.
    const System::UnicodeString& getSpokenLabel() const noexcept { return mSpokenLabel; }
    void setSpokenLabel(const System::UnicodeString& label);

    /// What the client area is filled with: the control's colour.
    Graphics::TBrush* getBrush() const;
    /// Whether edges are drawn raised or lowered; on at first.
    bool getCtl3D() const noexcept { return mCtl3D; }
    void setCtl3D(bool isOn);
    bool getParentCtl3D() const noexcept { return mParentCtl3D; }
    void setParentCtl3D(bool isOn);
    /// Whether it is painted in memory first.
    bool getDoubleBuffered() const noexcept { return mDoubleBuffered; }
    void setDoubleBuffered(bool isOn) noexcept { mDoubleBuffered = isOn; }
    /// The empty border inside of the frame.
    int getBorderWidth() const noexcept { return mBorderWidth; }
    void setBorderWidth(int width);

    void Invalidate() override;
    void Update() override;
    /// Paints the control and all that is in it onto a device, from the place on.
    void PaintTo(Toolkits::PaintDevice* device, int x, int y);

    void Dispatch(void* message) override;
    void Loaded() override;
    /// The form that this control is; null for any other control.
    virtual AFormHost* AsFormHost() noexcept { return nullptr; }

    Classes::TNotifyEvent OnEnter;
    Classes::TNotifyEvent OnExit;
    TKeyEvent OnKeyDown;
    TKeyPressEvent OnKeyPress;
    TKeyEvent OnKeyUp;

protected:
    friend class TControl;

    /// The parameters of the window; a derived class calls its parent's and changes what it knows better.
    virtual void CreateParams(TCreateParams& params);
    /// Makes the window by `CreateParams`.
    virtual void CreateWnd();
    virtual void DestroyWnd();
    /// Where controls are aligned: the client area without the border.
    virtual void AdjustClientRect(Types::TRect& rect);
    /// Places the controls for the sake of `control`, or of all for null, within `rect`.
    virtual void AlignControls(TControl* control, Types::TRect& rect);
    /// The focus comes to the control or one in it, or leaves them all.
    virtual void DoEnter();
    virtual void DoExit();
    /// 0 in `key` keeps it from whoever comes next.
    virtual void KeyDown(System::Word& key, Classes::TShiftState shift);
    virtual void KeyUp(System::Word& key, Classes::TShiftState shift);
    virtual void KeyPress(System::WideChar& key);
    /// Whether the control needs a key for itself that otherwise moves the focus or presses a form's button.
    virtual bool WantsKey(System::Word key, Classes::TShiftState shift) const;
    /// Whether a typed character is the control's. Otherwise it may be the marked one of another's caption,
    /// as it always is with Alt held.
    virtual bool WantsChars() const { return true; }
    /// Acts on a key, or a character, in place of a window that doesn't; true if it did.
    virtual bool ActOnKey(System::Word key, Classes::TShiftState shift);
    virtual bool ActOnChar(System::WideChar character);
    /// Acts on the mouse in place of a window that doesn't.
    virtual void ActOnMouse(const Toolkits::TMouseInput& mouse);
    /// The user edited the text of the window, or moved its selection, or chose in it.
    virtual void TextEditedInWindow(const System::UnicodeString& text);
    virtual void SelectionMovedInWindow(int start, int length);
    virtual void ChosenInWindow(int index);
    /// The user clicked on the check box of an item in the window, or opened or closed its list.
    virtual void ItemCheckedInWindow(int index);
    virtual void DropChangedInWindow(bool isOpen);
    /// The user moved what is seen in the window.
    virtual void ScrolledInWindow(int first);
    /// The user opens an entry of the window's menu bar, or chose one.
    virtual void MenuOpeningOnScreen(int id);
    virtual void MenuChosenOnScreen(int id);
    /// What is in that bar.
    virtual std::vector<Toolkits::TMenuEntry> GetMenuEntries();
    virtual void BoundsChangedOnScreen(const Types::TRect& bounds);
    virtual void CloseAskedOnScreen();
    virtual void ActivationChangedOnScreen(bool isActive);
    virtual void StateChangedOnScreen(Toolkits::EWindowState state);
    /// Paints the control itself, without those in it.
    virtual void PaintWindow(Toolkits::PaintDevice& device);
    /// Destroys all that is in here, as a class does that its children still need at their end.
    void DestroyChildren() noexcept;
    /// Whether the control is shown though it has no parent, as a form is.
    virtual bool IsTopLevel() const { return false; }
    /// Makes, shows or hides the windows of this control and of those in it.
    void UpdateShowing();

    void SetVisible(bool isVisible) override;
    void Placed(bool isSized) override;
    void GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root) override;
    void SetChildOrder(Classes::TComponent* child, int order) override;

private:
    class CAligner;

    bool KeyPressed(System::Word& key, Classes::TShiftState shift) override;
    bool KeyReleased(System::Word key, Classes::TShiftState shift) override;
    bool CharacterTyped(System::WideChar& character) override;
    bool MouseUsed(const Toolkits::TMouseInput& mouse) override;
    void FocusChanged(bool isFocused) override;
    void TextEdited(const System::UnicodeString& text) override;
    void SelectionMoved(int start, int length) override;
    void Chosen(int index) override;
    void ItemChecked(int index) override;
    void DropChanged(bool isOpen) override;
    void Scrolled(int first) override;
    void MenuOpening(int id) override;
    void MenuChosen(int id) override;
    std::vector<Toolkits::TMenuEntry> MenuAsked() override;
    System::UnicodeString HintAt(Types::TPoint place) override;
    bool PaintAsked(Toolkits::PaintDevice& device, const Types::TRect& part) override;
    void BoundsChanged(const Types::TRect& bounds) override;
    void FilesDropped(const std::vector<System::UnicodeString>& files, Types::TPoint place) override;
    void CloseAsked() override;
    void ActivationChanged(bool isActive) override;
    void StateChanged(Toolkits::EWindowState state) override;
    System::UnicodeString GetWindowName() const override;
    int GetWindowPartCount() const override;
    std::optional<Toolkits::TWindowPart> GetWindowPart(int index) const override;
    void ColorsChanged() override;

    /// Sends a message about a control that comes or goes.
    void TellOfControl(unsigned message, const TControl* control, bool isComing);
    void TakeIn(TControl& control);
    void TakeOut(TControl& control);
    void MoveChild(TControl& control, bool inFront);
    void AlignControl(TControl* control);
    void AlignNow();
    bool HasChild(const TControl* control) const noexcept;
    TWinControl* GetTopParent() noexcept;
    void TellChildren(unsigned message);
    void InvalidateArea(const Types::TRect& area);
    void FixTabOrder();
    void UpdateOwnShowing();
    /// Tells the window its font and colours.
    void ShowLook();
    void FocusedOnScreen();
    /// Makes and shows the windows again that were there.
    void RestoreWnd();
    void UpdateShowingOfChildren();
    void TakeParentCtl3D();
    bool DispatchFocus(const Messages::TMessage& message);
    bool DispatchKey(Messages::TMessage& message);
    bool DispatchWindowChange(Messages::TMessage& message);
    bool TakeKey(System::Word& key, Classes::TShiftState shift);
    bool TakeChar(System::WideChar& character);
    bool PressMarked(System::Word key, Classes::TShiftState shift);
    void PressOrRelease(Messages::TMessage& message);
    void TypeCharacter(Messages::TMessage& message);
    bool TakeMouse(const Toolkits::TMouseInput& mouse);
    void PaintChildren(Toolkits::PaintDevice& device);
    void RemoveFocus(bool isRemoving);
    /// As `RemoveFocus(true)`, for the destructor, which lets no exception out.
    void LeaveFocus() noexcept;

    /// From the back to the front.
    std::vector<TControl*> mGraphics;
    std::vector<TWinControl*> mWindows;
    /// In the order of the Tab key.
    std::vector<TWinControl*> mTabList;
    std::unique_ptr<Toolkits::Window> mWindow;
    mutable std::unique_ptr<Graphics::TBrush> mBrush;
    System::UnicodeString mSpokenLabel;
    /// Whom the next alignment is for.
    TControl* mAlignedFor = nullptr;
    int mAlignLevel = 0;
    int mBorderWidth = 0;
    /// How many controls in here this one places.
    int mPlacedCount = 0;
    /// The order that a design gave; -1 for none.
    int mDesignedTabOrder = -1;
    bool mIsAligning = false;
    bool mTabStop = false;
    bool mShowing = false;
    bool mCtl3D = true;
    bool mParentCtl3D = true;
    bool mDoubleBuffered = false;
};

/// The control at a place on the screen that the mouse is over; null for none.
TRS8_BTL_API TControl* GetMouseControl() noexcept;
/// The windowed control that the keyboard belongs to; null if that is none of this program.
TRS8_BTL_API TWinControl* GetFocusedControl() noexcept;

} // namespace Controls
