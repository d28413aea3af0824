// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/visual/controls/Controls_Constraints.h"
#include "platform/visual/controls/Controls_Types.h"
#include "platform/visual/controls/Messages.h"
#include "platform/visual/graphics/Controls_Cursor.h"
#include "platform/visual/graphics/Graphics_Color.h"

#include <memory>

namespace Graphics
{
class TFont;
} // namespace Graphics

namespace Menus
{
class TPopupMenu;
} // namespace Menus

namespace Toolkits
{
struct TWindowPart;
} // namespace Toolkits

namespace Controls
{

class TWinControl;

/// Anything that is seen on a form. Its object is the truth: what the screen shows follows it, and all of it
/// works without a screen. Of the main thread; a control that another one touches is an internal fault.
///
///     auto* const label = new Stdctrls::TLabel(form);             // the form destroys it
///     label->setParent(form);                                     // and shows it
///     label->SetBounds(8, 8, 120, 16);
///     label->setCaption(u"Voltage");
class TRS8_BTL_API TControl : public Classes::TComponent
{
    TRS8_BTL_CLASS(TControl, Classes::TComponent)

public:
    /// `owner` may be null. A control without a parent isn't shown.
    explicit TControl(Classes::TComponent* owner = nullptr);
    ~TControl() override;

    // Place and size, in pixels of the parent's client area.

    int getLeft() const noexcept { return mLeft; }
    int getTop() const noexcept { return mTop; }
    int getWidth() const noexcept { return mWidth; }
    int getHeight() const noexcept { return mHeight; }
    void setLeft(int left) { SetBounds(left, mTop, mWidth, mHeight); }
    void setTop(int top) { SetBounds(mLeft, top, mWidth, mHeight); }
    void setWidth(int width) { SetBounds(mLeft, mTop, width, mHeight); }
    void setHeight(int height) { SetBounds(mLeft, mTop, mWidth, height); }
    /// Moves and sizes the control, within its constraints; a negative size counts as 0. Where it is aligned,
    /// its parent then puts it where it belongs.
    virtual void SetBounds(int left, int top, int width, int height);
    Types::TRect getBoundsRect() const noexcept;
    void setBoundsRect(const Types::TRect& bounds);

    /// What of the control is inside its border, as a rectangle from 0, 0.
    virtual Types::TRect GetClientRect() const;
    Types::TRect getClientRect() const { return GetClientRect(); }
    int getClientWidth() const { return GetClientRect().Width(); }
    int getClientHeight() const { return GetClientRect().Height(); }
    /// Sizes the control so that its client area is as wide, or as high.
    void setClientWidth(int width);
    void setClientHeight(int height);

    /// From a place in the client area to one on the screen, and back.
    Types::TPoint ClientToScreen(Types::TPoint place) const;
    Types::TPoint ScreenToClient(Types::TPoint place) const;
    /// The place of the client area's corner on the screen.
    Types::TPoint GetClientOrigin() const;

    // The parent, and the place that it gives.

    TWinControl* getParent() const noexcept { return mParent; }
    /// Moves the control to another parent, or out of any for null. `Sysutils::EInvalidOperation` for a
    /// parent that is the control itself or lies within it.
    void setParent(TWinControl* parent) { SetParent(parent); }
    virtual void SetParent(TWinControl* parent);
    bool HasParent() const override { return mParent != nullptr; }
    Classes::TComponent* GetParentComponent() const override;

    /// The edge of the parent that the control fills; none at first.
    TAlign getAlign() const noexcept { return mAlign; }
    void setAlign(TAlign align);
    /// The edges of the parent that the control keeps to when the parent is sized; left and top at first.
    const TAnchors& getAnchors() const noexcept { return mAnchors; }
    void setAnchors(const TAnchors& anchors);
    /// The limits of the size; none at first.
    TSizeConstraints* getConstraints() const;
    void setConstraints(TSizeConstraints* constraints);
    /// Whether the control takes the size of what it shows; off at first.
    bool getAutoSize() const noexcept { return mAutoSize; }
    void setAutoSize(bool isOn) { SetAutoSize(isOn); }
    /// In front of, or behind, all of its siblings of its kind: those with a window stand in front of others.
    void BringToFront() { SetZOrder(true); }
    void SendToBack() { SetZOrder(false); }

    // What it shows.

    /// The text: what an edit holds, what a label or a form's caption shows. The two are one.
    System::UnicodeString getText() const { return GetText(); }
    void setText(const System::UnicodeString& text) { SetText(text); }
    System::UnicodeString getCaption() const { return GetText(); }
    void setCaption(const System::UnicodeString& text) { SetText(text); }
    /// Whether the control has a text to show.
    int GetTextLen() const { return GetText().Length(); }
    virtual System::UnicodeString GetText() const { return mText; }
    virtual void SetText(const System::UnicodeString& text);

    /// Whether the control is to be seen, if its parents are; on at first.
    bool getVisible() const noexcept { return mVisible; }
    void setVisible(bool isVisible) { SetVisible(isVisible); }
    void Show();
    void Hide() { setVisible(false); }
    /// Whether the user can work with it, if its parents are enabled; on at first.
    bool getEnabled() const noexcept { return GetEnabled(); }
    virtual bool GetEnabled() const noexcept { return mEnabled; }
    void setEnabled(bool isEnabled) { SetEnabled(isEnabled); }

    /// The control's own font; changing it ends `ParentFont`.
    Graphics::TFont* getFont() const;
    void setFont(Graphics::TFont* font);
    /// The font that it is shown in, which is the parent's as long as it has none of its own.
    const Graphics::TFont& GetShownFont() const;
    /// Whether the font is the parent's; on at first.
    bool getParentFont() const noexcept { return mParentFont; }
    void setParentFont(bool isOn);
    Graphics::TColor getColor() const noexcept { return mColor; }
    /// Ends `ParentColor`.
    void setColor(Graphics::TColor color);
    /// Whether the colour is the parent's; on at first.
    bool getParentColor() const noexcept { return mParentColor; }
    void setParentColor(bool isOn);
    /// The cursor of the mouse over it; `crDefault` leaves it to the parent.
    TCursor getCursor() const noexcept { return mCursor; }
    void setCursor(TCursor cursor);

    /// What is shown while the mouse rests on it. A `|` parts a short text from a long one.
    const System::UnicodeString& getHint() const noexcept { return mHint; }
    void setHint(const System::UnicodeString& hint) { mHint = hint; }
    bool getShowHint() const noexcept { return mShowHint; }
    /// Ends `ParentShowHint` if it changes something.
    void setShowHint(bool isOn);
    bool getParentShowHint() const noexcept { return mParentShowHint; }
    void setParentShowHint(bool isOn);
    /// The topic of the help file; 0 leaves it to the parent.
    int getHelpContext() const noexcept { return mHelpContext; }
    void setHelpContext(int context) noexcept { mHelpContext = context; }

    /// The menu of the right mouse button; not owned, null, which leaves it to the parent, at first.
    Menus::TPopupMenu* getPopupMenu() const noexcept { return mPopupMenu; }
    void setPopupMenu(Menus::TPopupMenu* menu);

    Classes::TBiDiMode getBiDiMode() const noexcept { return mBiDiMode; }
    /// Ends `ParentBiDiMode`.
    void setBiDiMode(Classes::TBiDiMode mode);
    bool getParentBiDiMode() const noexcept { return mParentBiDiMode; }
    void setParentBiDiMode(bool isOn);
    /// Whether text runs from the right, and whether what is aligned changes its side for that.
    bool IsRightToLeft() const noexcept { return mBiDiMode != Classes::bdLeftToRight; }
    bool UseRightToLeftAlignment() const noexcept { return mBiDiMode == Classes::bdRightToLeft; }
    bool UseRightToLeftReading() const noexcept { return IsRightToLeft(); }
    /// The `DT_...` flags of a text for `Graphics::DrawText`, changed for the direction: left and right
    /// change places where alignment does.
    unsigned DrawTextBiDiModeFlags(unsigned flags) const noexcept;

    const TControlStyle& getControlStyle() const noexcept { return mControlStyle; }
    void setControlStyle(const TControlStyle& style) { mControlStyle = style; }
    const TControlState& getControlState() const noexcept { return mControlState; }

    // Painting. Neither call does anything for a control that can't be seen.

    /// Has the control painted soon.
    virtual void Invalidate();
    /// Paints at once what is to be painted.
    virtual void Update(); // NOLINT(bugprone-virtual-near-miss): no form of TComponent::Updated
    virtual void Repaint();
    void Refresh() { Repaint(); }

    // Messages.

    /// Sends a message to the control and gives its result.
    std::intptr_t Perform(unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0);
    /// What comes first of all that is sent to the control.
    virtual void WndProc(Messages::TMessage& message);
    /// Handles a `Messages::TMessage`; a class that knows the number acts on it, and passes the rest on to
    /// its base.
    virtual void Dispatch(void* message);
    /// What happens to a message that no class handled: nothing here.
    virtual void DefaultHandler(void* message);

    /// Whether all of the mouse comes to the control, wherever it is.
    bool getMouseCapture() const noexcept;
    void setMouseCapture(bool isOn);

    /// As a click of the mouse does it.
    virtual void Click();
    /// The names of the control and its owners up to the first one without: "Settings.fFrame.fEdit".
    System::UnicodeString GetOwnedPath() const;
    /// How those who can't see the control hear of it: a picture that its hint tells about, unless the class
    /// knows better.
    virtual Toolkits::TWindowPart AsWindowPart() const;

    void Loaded() override;
    void SetName(const System::UnicodeString& name) override;
    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;

    Classes::TNotifyEvent OnClick;
    Classes::TNotifyEvent OnDblClick;
    TMouseEvent OnMouseDown;
    TMouseMoveEvent OnMouseMove;
    TMouseEvent OnMouseUp;
    TMouseWheelEvent OnMouseWheel;
    Classes::TNotifyEvent OnMouseEnter;
    Classes::TNotifyEvent OnMouseLeave;
    TContextPopupEvent OnContextPopup;
    Classes::TNotifyEvent OnResize;
    TCanResizeEvent OnCanResize;
    TConstrainedResizeEvent OnConstrainedResize;

protected:
    friend class TWinControl;

    // What the properties of these names do; a class that adds to it calls its parent's.

    virtual void SetAutoSize(bool isOn);
    virtual void SetVisible(bool isVisible);
    virtual void SetEnabled(bool isEnabled);
    virtual void SetZOrder(bool inFront);
    /// Sizes the control by what it shows, if it is to.
    virtual void AdjustSize();
    /// Gives the size that the contents ask for; false if it is to stay.
    virtual bool CanAutoSize(int& width, int& height);
    /// Whether the size may be taken, which may be changed; asks `OnCanResize`.
    virtual bool CanResize(int& width, int& height);
    /// Narrows or widens the limits of the size; asks `OnConstrainedResize`.
    virtual void ConstrainedResize(int& minWidth, int& minHeight, int& maxWidth, int& maxHeight);
    /// Called when the size changed.
    virtual void Resize();
    /// Has the parent place its aligned children anew.
    void RequestAlign();
    /// Where the client area begins within the control's bounds.
    virtual Types::TPoint GetClientOffset() const { return {}; }
    /// Called when the bounds are new, before anybody is told: lets the screen follow.
    virtual void Placed(bool isSized);
    /// Puts the control into a parent that is a windowed control; nothing happens with any other.
    void SetParentComponent(Classes::TComponent* parent) override;
    /// Shows the menu of the right mouse button for a place in the control, or asks the parent for its own.
    /// False if nobody had anything to show.
    bool AskContextMenu(Types::TPoint place);

    /// Called for the mouse, each calls its event.
    virtual void DblClick();
    virtual void MouseDown(TMouseButton button, Classes::TShiftState shift, int x, int y);
    virtual void MouseMove(Classes::TShiftState shift, int x, int y);
    virtual void MouseUp(TMouseButton button, Classes::TShiftState shift, int x, int y);
    /// True if the wheel is dealt with; otherwise the parent is asked.
    virtual bool MouseWheel(Classes::TShiftState shift, int delta, Types::TPoint place);
    /// True if the menu is dealt with.
    virtual bool ContextPopup(Types::TPoint place);

    /// The colour, without an end of `ParentColor`.
    void ChangeColor(Graphics::TColor color);
    void setControlState(TControlStateFlag flag, bool value);
    bool IsLoading() const noexcept { return getComponentState().Contains(Classes::csLoading); }
    bool IsDestroying() const noexcept { return getComponentState().Contains(Classes::csDestroying); }
    bool IsDesigning() const noexcept { return getComponentState().Contains(Classes::csDesigning); }

private:
    void FontChanged(System::TObject* sender);
    void TakeParentFont();
    void TakeParentColor();
    void TakeParentShowHint();
    void TakeParentBiDiMode();
    /// Remembers from which bounds and which size of the parent the anchors count.
    void KeepAnchorBase();
    /// Whether the parent places the control, by its alignment or its anchors.
    bool IsPlaced() const;
    /// Makes a change of what `IsPlaced` looks at, which the parent keeps a count of.
    template <class Change>
    void ChangePlacing(Change change);
    /// Where the anchors put the control in a parent of that size.
    Types::TRect GetAnchored(int parentWidth, int parentHeight) const;
    /// Holds the size within its limits; false if it can't be taken.
    bool LimitSize(int& width, int& height);
    bool DispatchMouse(Messages::TMessage& message);
    bool DispatchHover(Messages::TMessage& message);
    bool DispatchChange(const Messages::TMessage& message);
    void ButtonDown(const Messages::TMessage& message, TMouseButton button,
                    const Classes::TShiftState& extra);
    void ButtonUp(Messages::TMessage& message, TMouseButton button);
    void DoubleClicked(const Messages::TMessage& message);
    bool WheelTurned(const Messages::TMessage& message);

    TWinControl* mParent = nullptr;
    int mLeft = 0;
    int mTop = 0;
    int mWidth = 0;
    int mHeight = 0;
    System::UnicodeString mText;
    System::UnicodeString mHint;
    mutable std::unique_ptr<TSizeConstraints> mConstraints;
    /// Null as long as nobody asked for it and the parent's serves.
    mutable std::unique_ptr<Graphics::TFont> mFont;
    Menus::TPopupMenu* mPopupMenu = nullptr;
    Graphics::TColor mColor;
    int mHelpContext = 0;
    TCursor mCursor = crDefault;
    TAlign mAlign = alNone;
    TAnchors mAnchors{akLeft, akTop};
    TControlStyle mControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents, csDoubleClicks,
                                csSetCaption};
    TControlState mControlState;
    Classes::TBiDiMode mBiDiMode = Classes::bdLeftToRight;
    /// The bounds, and the parent's client size, when the place was last given by hand.
    Types::TRect mAnchoredBounds;
    Types::TPoint mAnchoredParent;
    bool mVisible = true;
    bool mEnabled = true;
    bool mAutoSize = false;
    bool mParentFont = true;
    bool mParentColor = true;
    bool mShowHint = false;
    bool mParentShowHint = true;
    bool mParentBiDiMode = true;
    bool mIsTakingParentFont = false;
};

/// The control that has the mouse for itself; null if none has.
TRS8_BTL_API TControl* GetCaptureControl() noexcept;
/// Gives all of the mouse to `control`, or back to all for null.
TRS8_BTL_API void SetCaptureControl(TControl* control);

/// What `CM_MOUSEWHEEL` has in its `LParam`.
struct TWheelTurn
{
    /// 120 for a notch away from the user.
    int delta = 0;
    /// In the client area of the control that gets the message.
    Types::TPoint place;
};

/// A place as a message holds it in its `LParam`.
constexpr std::intptr_t PlaceToParam(Types::TPoint place) noexcept
{
    const auto x = static_cast<std::uint64_t>(static_cast<std::uint32_t>(place.X));
    const auto y = static_cast<std::uint64_t>(static_cast<std::uint32_t>(place.Y));
    return static_cast<std::intptr_t>(y << 32 | x);
}
/// The place that `PlaceToParam` put into a message.
constexpr Types::TPoint ParamToPlace(std::intptr_t param) noexcept
{
    const auto bits = static_cast<std::uint64_t>(param);
    return {static_cast<int>(static_cast<std::uint32_t>(bits)),
            static_cast<int>(static_cast<std::uint32_t>(bits >> 32))};
}

/// A shift state as a message holds it in its `WParam`, and back.
TRS8_BTL_API std::uintptr_t ShiftToParam(const Classes::TShiftState& shift);
TRS8_BTL_API Classes::TShiftState ParamToShift(std::uintptr_t param);

} // namespace Controls
