// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/internal/InputQueue.h"

#include <QPointer>
#include <QWidget>

#include <exception>
#include <functional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Toolkits
{

class CQtWindow;

/// The windows of the program: which one is active and which has the keyboard. The controls hear of both at
/// once where they ask for it, as on every toolkit; the screen follows when it comes to it, and what it tells
/// then of its own accord is the user's doing. It lives as long as one of its windows.
class CQtDesktop
{
public:
    /// `raise` gets what a control lets out of an event, which mustn't pass through Qt.
    explicit CQtDesktop(std::function<void(std::exception_ptr)> raise);
    CQtDesktop(const CQtDesktop&) = delete;
    CQtDesktop& operator=(const CQtDesktop&) = delete;
    ~CQtDesktop();

    void Add(CQtWindow* window);
    void Forget(CQtWindow* window);
    bool Exists(CQtWindow* window) const { return mWindows.contains(window); }
    /// The form in which the user works; null for none.
    CQtWindow* Active() const noexcept { return mActive; }

    /// What is played of the user.
    GInputQueue<CQtWindow>& Inputs() noexcept { return mInputs; }
    /// Lets the user work with `window` and what is in it alone; null for all. Gives the former one.
    const CQtWindow* ExchangeOnly(const CQtWindow* window);
    const CQtWindow* Only() const noexcept { return mOnly; }
    /// The window is to be painted once it may be used again.
    void PaintLater(CQtWindow* window) { mUnpainted.push_back(window); }

    // What a control asks for.

    void Focus(CQtWindow* window);
    /// The window is no longer there for the user.
    void Leave(CQtWindow* window);
    /// The form moves before or behind all others.
    void MoveForm(CQtWindow* form, bool toFront);

    // What the screen tells.

    void ActivationTold(CQtWindow* form, bool isActive);
    void FocusTold(CQtWindow* window, bool isFocused);
    /// The colours of the desktop may be others now.
    void LookAtColors();
    /// The user pressed a key or button in the form.
    void UserActed(CQtWindow* form);

    /// For null, faults are lost.
    void setRaise(std::function<void(std::exception_ptr)> raise) { mRaise = std::move(raise); }
    void Raise(std::exception_ptr fault);

    // Widgets that end while Qt is at work on them.

    /// Counts the events that controls are told of at present.
    int getTellLevel() const noexcept { return mTellLevel; }
    void BeginTell() noexcept { ++mTellLevel; }
    void EndTell() noexcept { --mTellLevel; }
    /// Destroys the widget as soon as fewer than `level` events are told of.
    void Bury(QWidget* widget, int level);
    /// Called where no event is under way but those that are told of.
    void EmptyGraves();

private:
    void Activate(CQtWindow* form);
    void ActivateNext();
    void MoveActivation(CQtWindow* form);
    void MoveFocus(CQtWindow* window);

    std::function<void(std::exception_ptr)> mRaise;
    std::unordered_set<CQtWindow*> mWindows;
    /// From the back to the front.
    std::vector<CQtWindow*> mForms;
    std::vector<QPointer<QWidget>> mGraves;
    /// Of those in the graves and all around them: the event that must be over before they may end.
    std::unordered_map<const QWidget*, int> mLevels;
    GInputQueue<CQtWindow> mInputs;
    std::vector<CQtWindow*> mUnpainted;
    const CQtWindow* mOnly = nullptr;
    CQtWindow* mActive = nullptr;
    CQtWindow* mFocused = nullptr;
    /// The form that the screen was asked to activate and hasn't yet.
    CQtWindow* mAwaited = nullptr;
    int mTellLevel = 0;
    /// Which of its palettes the desktop had last.
    qint64 mPalette = 0;
};

} // namespace Toolkits
