// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Window.h"
#include "platform/toolkit/qt/QtDesktop.h"

#include <QObject>
#include <QWidget>

#include <memory>
#include <unordered_set>
#include <vector>

class QFocusEvent;
class QHelpEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QPaintEvent;
class QWheelEvent;

namespace Toolkits
{

/// Whether a menu, a menu bar or the list of a combo box has the keyboard for a while, or gives it back.
bool IsLent(const QFocusEvent& event);

/// A widget that stands for a control. What happens to the widget comes by here first: the control hears of
/// it, and the widget acts on it only where the control leaves it to that.
class CQtWindow : public Window
{
public:
    /// Takes the widget; for a parent, its own is within that one's.
    CQtWindow(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings, QWidget* widget);
    ~CQtWindow() override;

    void SetBounds(const Types::TRect& bounds) override;
    void SetVisible(bool isVisible) override;
    void SetEnabled(bool isEnabled) override;
    void SetText(const System::UnicodeString&) override {}
    void SetLook(const TWindowLook& look) override;
    void SetLabel(const System::UnicodeString& label) override;
    void Focus() override { mDesktop->Focus(this); }
    void Invalidate(const Types::TRect* part) override;
    void Scroll(const Types::TRect& part, const Types::TSize& by) override;
    void Update() override;
    bool ActsByItself() const override { return false; }
    void BringToFront() override { mWidget->raise(); }
    void SendToBack() override { mWidget->lower(); }
    void* NativeObject() const noexcept override { return mWidget; }
    bool Grab(Pixels& pixels) override;

    QWidget& Widget() const noexcept { return *mWidget; }
    /// The widget that keys, the mouse and the paint come to, which is within `Widget` where that scrolls.
    virtual QWidget& Surface() const noexcept { return *mWidget; }
    bool IsForm() const noexcept { return mIsForm; }
    /// What the control has in the window, for those who can't see it; null if nobody tells.
    WindowContents* Contents() const noexcept { return mContents; }
    const CQtWindow* Parent() const noexcept { return mParent; }
    /// The form that the window is in; null for one outside of any.
    CQtWindow* Form() noexcept;
    /// Whether it is `outer` or lies in it; true for null.
    bool IsWithin(const CQtWindow* outer) const noexcept;
    virtual bool CanBeActive() const { return false; }
    /// Whether the user may do something in it.
    bool CanBeUsed() { return mWidget->isEnabled() && !IsBlocked(); }

    /// The control has the keyboard from now on, or has it no longer. The widget may get it later: a window
    /// that isn't active on the screen yet has none to give.
    virtual void KeyboardMoved(bool) {}
    /// Tells the control something. Nothing that it raises comes out. False if the window is gone by then:
    /// its widget is still there, but must be left alone.
    template <class Action>
    bool Tell(Action action)
    {
        // The window, and all it refers to, may be gone when the call returns.
        const std::shared_ptr<CQtDesktop> desktop = mDesktop;
        const std::shared_ptr<TState> state = mState;
        desktop->BeginTell();
        ++state->tellCount;
        try {
            action(*mEvents);
        } catch (...) {
            desktop->Raise(std::current_exception());
        }
        --state->tellCount;
        desktop->EndTell();
        return state->isAlive;
    }

    /// The colours of the desktop are others now, and the control has heard of it.
    void FollowDesktop();

protected:
    /// Brings the colours of the look to the widget.
    virtual void ShowColors();
    /// What the widget hears. True if the widget mustn't act on it.
    virtual bool HandleEvent(QEvent& event);
    /// What the signals of the widget are connected by, so that they end with the window.
    QObject* Context() const noexcept;
    /// Whether the user is kept from the form of the window, or from all windows but another one.
    bool IsBlocked();
    /// Watches a part of the widget too.
    void WatchPart(QWidget* part);
    /// Whether a key, or what else is told of around it, is on its way through the widget.
    bool IsPassing() const noexcept { return mIsPassing; }
    /// Lets the widget, and nobody else, act on an event now; false if the window is gone then.
    bool Pass(QEvent& event);
    CQtDesktop& Desktop() const noexcept { return *mDesktop; }
    /// Whether it lies in a widget that isn't the library's, which may have any colours.
    bool IsHosted() const noexcept { return mIsHosted; }
    const Types::TRect& Bounds() const noexcept { return mBounds; }
    void KeepBounds(const Types::TRect& bounds) noexcept { mBounds = bounds; }

private:
    class CFilter;

    struct TState
    {
        bool isAlive = true;
        /// The events that the control is told of at present.
        int tellCount = 0;
    };

    /// Whether there is a window around it whose look the widget takes where it has none of its own.
    bool IsWithinLook() const noexcept { return !mIsForm && mParent != nullptr && mParent->mHasLook; }
    /// Whether the desktop shows such a widget in these colours anyway.
    bool IsDesktopsOwn(const TWindowLook& look) const;
    /// Brings the font and direction to the widget; what is the same in the window that it is in, if `isOwn`.
    void ShowFont(bool isOwn);
    void SetColors();
    /// Gives those in it that have no colours of their own the ones that they show now.
    void KeepInnerColors();
    /// The user is at work in the window, so its form is the active one. False if the window is gone then.
    bool UserActs();
    /// Has the keyboard if a click brings it. False if the window is gone then.
    bool TakeKeyboard();
    bool HandleKey(const QKeyEvent& event);
    bool HandleRelease(const QKeyEvent& event);
    bool HandleInputMethod(const QInputMethodEvent& event);
    bool HandleMouse(const QMouseEvent& event);
    /// The menu that the widget itself has, where the control had none to show.
    void ShowOwnMenu(const QMouseEvent& event);
    bool HandleWheel(const QWheelEvent& event);
    bool ShowHint(const QHelpEvent& event);
    bool HandleFocus(const QEvent& event);
    bool HandleDrop(QEvent& event);
    bool Paint(const QPaintEvent& event);
    /// Lets the widget act on a key that may be another one by now; always true.
    bool PassKey(const QKeyEvent& event, System::Word key, const QString& text);

    std::shared_ptr<CQtDesktop> mDesktop;
    std::shared_ptr<TState> mState;
    WindowEvents* mEvents;
    WindowContents* mContents;
    CQtWindow* mParent;
    /// Those that lie in it itself.
    std::unordered_set<CQtWindow*> mInner;
    QWidget* mWidget;
    std::unique_ptr<CFilter> mFilter;
    Types::TRect mBounds;
    TWindowLook mLook{.ground = OpaquePixel(240, 240, 240)};
    bool mHasLook = false;
    /// Whether its colours were set, rather than taken from the window that it is in or the desktop.
    bool mHasColors = false;
    /// Whether its widget has another palette than the desktop, set or taken.
    bool mIsColored = false;
    bool mIsForm;
    bool mIsHosted;
    bool mIsPassing = false;
};

/// An area that the library paints.
class CQtCanvas final : public CQtWindow
{
public:
    CQtCanvas(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtCanvas() override;

    void AnnounceCell() override;

protected:
    bool HandleEvent(QEvent& event) override;
};

} // namespace Toolkits
