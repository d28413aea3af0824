// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/HeadlessDesktop.h"

#include <algorithm>
#include <utility>

namespace Toolkits
{

std::unique_ptr<Window> CHeadlessDesktop::MakeWindow(const TWindowSettings& settings)
{
    auto window = std::make_unique<CHeadlessWindow>(shared_from_this(), settings);
    mWindows.insert(window.get());
    if (window->IsForm()) {
        mForms.push_back(window.get());
    }
    return window;
}

bool CHeadlessDesktop::Exists(const CHeadlessWindow* window) const
{
    return mWindows.contains(window);
}

void CHeadlessDesktop::Forget(CHeadlessWindow* window, bool isWaiting)
{
    mWindows.erase(window);
    std::erase(mForms, window);
    mInputs.Forget(window);
    if (isWaiting) {
        std::erase(mDirty, window);
    }
    if (mFocused == window) {
        mFocused = nullptr;
    }
    if (mActive == window) {
        mActive = nullptr;
        Activate(nullptr);
    }
}

void CHeadlessDesktop::Activate(CHeadlessWindow* window)
{
    if (window == nullptr) {
        // The one in front of those that are left.
        const auto next = std::find_if(mForms.rbegin(), mForms.rend(),
                                       [](const auto* form) { return form->CanBeActive(); });
        window = next == mForms.rend() ? nullptr : *next;
    }
    if (window == mActive) {
        return;
    }
    CHeadlessWindow* const former = std::exchange(mActive, window);
    if (former != nullptr && Exists(former)) {
        Focus(nullptr);
        former->Events().ActivationChanged(false);
    }
    // Whoever was left may have changed all of it.
    if (window != nullptr && mActive == window) {
        MoveForm(window, true);
        window->Events().ActivationChanged(true);
    }
}

void CHeadlessDesktop::Focus(CHeadlessWindow* window)
{
    if (window == mFocused) {
        return;
    }
    CHeadlessWindow* const former = std::exchange(mFocused, window);
    if (former != nullptr && Exists(former)) {
        former->Events().FocusChanged(false);
    }
    if (window != nullptr && mFocused == window) {
        window->Events().FocusChanged(true);
    }
}

void CHeadlessDesktop::Leave(CHeadlessWindow* window)
{
    if (mFocused == window) {
        Focus(nullptr);
    }
    if (mActive == window) {
        Activate(nullptr);
    }
}

void CHeadlessDesktop::MoveForm(CHeadlessWindow* window, bool toFront)
{
    if (std::erase(mForms, window) > 0) {
        mForms.insert(toFront ? mForms.end() : mForms.begin(), window);
    }
}

bool CHeadlessDesktop::PaintOne(const CHeadlessWindow* within)
{
    const auto found =
        std::ranges::find_if(mDirty, [within](const auto* window) { return window->IsWithin(within); });
    if (found == mDirty.end()) {
        return false;
    }
    CHeadlessWindow* const window = *found;
    mDirty.erase(found);
    window->PaintInTurn();
    return true;
}

CHeadlessWindow::CHeadlessWindow(std::shared_ptr<CHeadlessDesktop> desktop, const TWindowSettings& settings)
    : mDesktop(std::move(desktop)),
      mEvents(settings.events),
      mParent(dynamic_cast<CHeadlessWindow*>(settings.parent)),
      mBounds(settings.bounds),
      mIsForm(settings.kind == EWindowKind::Form),
      mIsEnabled(settings.isEnabled)
{
}

CHeadlessWindow::~CHeadlessWindow()
{
    mDesktop->Forget(this, mIsWaiting);
}

CHeadlessWindow* CHeadlessWindow::Form() noexcept
{
    CHeadlessWindow* outer = this;
    while (outer != nullptr && !outer->mIsForm) {
        outer = outer->mParent;
    }
    return outer;
}

bool CHeadlessWindow::IsWithin(const CHeadlessWindow* outer) const noexcept
{
    const CHeadlessWindow* window = this;
    while (window != nullptr && window != outer) {
        window = window->mParent;
    }
    return outer == nullptr || window != nullptr;
}

void CHeadlessWindow::SetBounds(const Types::TRect& bounds)
{
    mBounds = bounds;
    Invalidate(nullptr);
}

void CHeadlessWindow::SetVisible(bool isVisible)
{
    mIsVisible = isVisible;
    if (isVisible) {
        Invalidate(nullptr);
    } else {
        mDesktop->Leave(this);
    }
}

void CHeadlessWindow::Focus()
{
    CHeadlessWindow* const form = Form();
    if (form == nullptr || !form->CanBeActive()) {
        return;
    }
    if (this == form) {
        mDesktop->Activate(this);
    } else {
        mDesktop->Focus(this);
    }
}

void CHeadlessWindow::Invalidate(const Types::TRect*)
{
    if (!mIsVisible) {
        return;
    }
    mIsDirty = true;
    // One that was painted out of turn still waits for it.
    if (!std::exchange(mIsWaiting, true)) {
        mDesktop->PaintSoon(this);
    }
}

void CHeadlessWindow::Update()
{
    if (mIsVisible && mIsDirty) {
        Paint();
    }
}

void CHeadlessWindow::PaintInTurn()
{
    mIsWaiting = false;
    Paint();
}

void CHeadlessWindow::Paint()
{
    if (!std::exchange(mIsDirty, false)) {
        return;
    }
    const Types::TRect area{0, 0, mBounds.Width(), mBounds.Height()};
    PaintRecording painting(area);
    // The window may be gone when the call returns.
    const std::shared_ptr<CHeadlessDesktop> desktop = mDesktop;
    const CHeadlessWindow* const self = this;
    mEvents->PaintAsked(painting, area);
    if (desktop->Exists(self)) {
        mPainting.Clear();
        mPainting.Append(painting);
    }
}

void CHeadlessWindow::BringToFront()
{
    mDesktop->MoveForm(this, true);
}

void CHeadlessWindow::SendToBack()
{
    mDesktop->MoveForm(this, false);
}

void CHeadlessWindow::SetState(EWindowState state)
{
    if (!mIsForm || state == mState) {
        return;
    }
    if (mState == EWindowState::Normal) {
        mNormalBounds = mBounds;
    }
    mState = state;
    mEvents->BoundsChanged(state == EWindowState::Maximized ? HeadlessScreen : mNormalBounds);
}

} // namespace Toolkits
