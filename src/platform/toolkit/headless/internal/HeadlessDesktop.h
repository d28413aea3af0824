// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintRecording.h"
#include "platform/toolkit/Window.h"
#include "platform/toolkit/internal/InputQueue.h"

#include <deque>
#include <memory>
#include <unordered_set>
#include <vector>

namespace Toolkits
{

class CHeadlessWindow;

/// What would be the screen.
inline constexpr Types::TRect HeadlessScreen{.Left = 0, .Top = 0, .Right = 1920, .Bottom = 1080};

/// The windows of a program without a screen: which one is active, which has the focus, what is to be
/// painted. It lives as long as one of its windows.
class CHeadlessDesktop : public std::enable_shared_from_this<CHeadlessDesktop>
{
public:
    std::unique_ptr<Window> MakeWindow(const TWindowSettings& settings);
    /// Paints one window that asked for it, if it lies in `within`, of all for null; false if none did.
    bool PaintOne(const CHeadlessWindow* within);
    /// What is played of the user.
    GInputQueue<CHeadlessWindow>& Inputs() noexcept { return mInputs; }

    // For the windows.

    /// `isWaiting` says whether it is to be painted in its turn.
    void Forget(CHeadlessWindow* window, bool isWaiting);
    void Activate(CHeadlessWindow* window);
    void Focus(CHeadlessWindow* window);
    /// The window is no longer there for the user.
    void Leave(CHeadlessWindow* window);
    void PaintSoon(CHeadlessWindow* window) { mDirty.push_back(window); }
    void MoveForm(CHeadlessWindow* window, bool toFront);
    bool Exists(const CHeadlessWindow* window) const;

private:
    std::unordered_set<const CHeadlessWindow*> mWindows;
    /// From the back to the front.
    std::vector<CHeadlessWindow*> mForms;
    std::deque<CHeadlessWindow*> mDirty;
    GInputQueue<CHeadlessWindow> mInputs;
    CHeadlessWindow* mActive = nullptr;
    CHeadlessWindow* mFocused = nullptr;
};

/// A window of which only the state is there.
class CHeadlessWindow final : public Window
{
public:
    CHeadlessWindow(std::shared_ptr<CHeadlessDesktop> desktop, const TWindowSettings& settings);
    ~CHeadlessWindow() override;

    void SetBounds(const Types::TRect& bounds) override;
    void SetVisible(bool isVisible) override;
    void SetEnabled(bool isEnabled) override { mIsEnabled = isEnabled; }
    void SetText(const System::UnicodeString&) override {}
    void Focus() override;
    void Invalidate(const Types::TRect* part) override;
    void Update() override;
    bool ActsByItself() const override { return false; }
    void BringToFront() override;
    void SendToBack() override;
    void SetState(EWindowState state) override;
    const PaintRecording* LastPainting() const override { return &mPainting; }

    /// Paints what is to be painted, when it is the window's turn.
    void PaintInTurn();
    WindowEvents& Events() const noexcept { return *mEvents; }
    bool IsForm() const noexcept { return mIsForm; }
    bool CanBeActive() const noexcept { return mIsForm && mIsVisible && mIsEnabled; }
    /// The form that the window is in; null for one outside of any.
    CHeadlessWindow* Form() noexcept;
    /// Whether it is `outer` or lies in it; true for null.
    bool IsWithin(const CHeadlessWindow* outer) const noexcept;

private:
    void Paint();

    std::shared_ptr<CHeadlessDesktop> mDesktop;
    WindowEvents* mEvents;
    CHeadlessWindow* mParent;
    Types::TRect mBounds;
    /// Where the window goes back to.
    Types::TRect mNormalBounds;
    EWindowState mState = EWindowState::Normal;
    PaintRecording mPainting;
    bool mIsForm;
    bool mIsEnabled;
    bool mIsVisible = false;
    bool mIsDirty = false;
    /// Whether the desktop has it among those that are painted in turn.
    bool mIsWaiting = false;
};

} // namespace Toolkits
