// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtDesktop.h"

#include "platform/toolkit/qt/QtWindow.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace Toolkits
{

CQtDesktop::CQtDesktop(std::function<void(std::exception_ptr)> raise) : mRaise(std::move(raise)) {}

CQtDesktop::~CQtDesktop()
{
    for (const TGrave& grave : mGraves) {
        delete grave.widget;
    }
}

void CQtDesktop::Raise(std::exception_ptr fault)
{
    if (mRaise) {
        mRaise(std::move(fault));
    }
}

void CQtDesktop::Add(CQtWindow* window)
{
    mWindows.insert(window);
    if (mPalette == 0) {
        mPalette = QGuiApplication::palette().cacheKey();
    }
    if (window->IsForm()) {
        mForms.insert(mForms.begin(), window);
    }
}

void CQtDesktop::Forget(CQtWindow* window)
{
    mWindows.erase(window);
    std::erase(mForms, window);
    std::erase(mUnpainted, window);
    mInputs.Forget(window);
    for (CQtWindow** place : {&mFocused, &mAwaited}) {
        if (*place == window) {
            *place = nullptr;
        }
    }
    if (mActive == window) {
        mActive = nullptr;
        ActivateNext();
    }
}

void CQtDesktop::EachIn(const CQtWindow& window, void (*work)(CQtWindow& inner)) const
{
    for (CQtWindow* const inner : mWindows) {
        if (inner->Parent() == &window) {
            work(*inner);
        }
    }
}

const CQtWindow* CQtDesktop::ExchangeOnly(const CQtWindow* window)
{
    for (CQtWindow* const unpainted : std::exchange(mUnpainted, {})) {
        unpainted->Invalidate(nullptr);
    }
    return std::exchange(mOnly, window);
}

void CQtDesktop::ActivateNext()
{
    const auto next =
        std::find_if(mForms.rbegin(), mForms.rend(), [](const auto* form) { return form->CanBeActive(); });
    if (next != mForms.rend()) {
        Activate(*next);
    } else {
        MoveActivation(nullptr);
    }
}

void CQtDesktop::Activate(CQtWindow* form)
{
    if (!form->Widget().isActiveWindow()) {
        mAwaited = form;
        form->Widget().activateWindow();
    }
    MoveActivation(form);
}

void CQtDesktop::MoveActivation(CQtWindow* form)
{
    if (form == mActive) {
        return;
    }
    CQtWindow* const former = std::exchange(mActive, form);
    if (former != nullptr && Exists(former)) {
        MoveFocus(nullptr);
        former->Tell([](WindowEvents& events) { events.ActivationChanged(false); });
    }
    // Whoever was left may have changed all of it.
    if (form != nullptr && mActive == form) {
        MoveForm(form, true);
        form->Tell([](WindowEvents& events) { events.ActivationChanged(true); });
    }
}

void CQtDesktop::MoveFocus(CQtWindow* window)
{
    if (window == mFocused) {
        return;
    }
    CQtWindow* const former = std::exchange(mFocused, window);
    if (former != nullptr && Exists(former)) {
        former->Tell([](WindowEvents& events) { events.FocusChanged(false); });
    }
    if (window != nullptr && mFocused == window) {
        window->Tell([](WindowEvents& events) { events.FocusChanged(true); });
    }
}

void CQtDesktop::Focus(CQtWindow* window)
{
    CQtWindow* const form = window->Form();
    if (form == nullptr || !form->CanBeActive()) {
        return;
    }
    if (window == form) {
        Activate(form);
        return;
    }
    MoveFocus(window);
    if (mFocused == window) {
        window->Widget().setFocus(Qt::OtherFocusReason);
    }
}

void CQtDesktop::Leave(CQtWindow* window)
{
    if (mFocused == window) {
        MoveFocus(nullptr);
    }
    if (mAwaited == window) {
        mAwaited = nullptr;
    }
    if (mActive == window) {
        // It isn't told twice if a handler is slow to leave.
        ActivateNext();
    }
}

void CQtDesktop::MoveForm(CQtWindow* form, bool toFront)
{
    if (std::erase(mForms, form) > 0) {
        mForms.insert(toFront ? mForms.end() : mForms.begin(), form);
    }
}

void CQtDesktop::ActivationTold(CQtWindow* form, bool isActive)
{
    if (mAwaited != nullptr && mAwaited != form) {
        // An answer to what was asked for earlier.
        return;
    }
    if (!isActive) {
        // One that is being hidden leaves by itself, to the next one.
        if (form == mActive && form != mAwaited && !form->Widget().window()->isHidden()) {
            MoveActivation(nullptr);
        }
        return;
    }
    mAwaited = nullptr;
    if (form->CanBeActive()) {
        MoveActivation(form);
    } else if (mActive != nullptr) {
        // The user is kept from this one, by a modal form.
        Activate(mActive);
    }
}

void CQtDesktop::FocusTold(CQtWindow* window, bool isFocused)
{
    if (isFocused) {
        MoveFocus(window);
    } else if (window == mFocused) {
        MoveFocus(nullptr);
    }
}

void CQtDesktop::LookAtColors()
{
    const qint64 palette = QGuiApplication::palette().cacheKey();
    if (std::exchange(mPalette, palette) == palette) {
        return;
    }
    // Who hears of it may make and destroy windows.
    const std::vector<CQtWindow*> windows(mWindows.begin(), mWindows.end());
    for (CQtWindow* const window : windows) {
        if (Exists(window)) {
            window->Tell([](WindowEvents& events) { events.ColorsChanged(); });
        }
    }
}

void CQtDesktop::UserActed(CQtWindow* form)
{
    mAwaited = nullptr;
    if (form != nullptr && form != mActive && form->CanBeActive()) {
        Activate(form);
    }
}

void CQtDesktop::Bury(QWidget* widget, int level)
{
    // It stays in its parent, by way of which what was painted of it may still go to the screen. So neither
    // of two that lie in each other ends before the other may.
    for (TGrave& grave : mGraves) {
        if (grave.widget != nullptr && widget->isAncestorOf(grave.widget)) {
            level = std::min(level, grave.level);
        }
    }
    for (TGrave& grave : mGraves) {
        if (grave.widget != nullptr && grave.widget->isAncestorOf(widget)) {
            grave.level = std::min(grave.level, level);
        }
    }
    mGraves.push_back({widget, level});
}

void CQtDesktop::EmptyGraves()
{
    std::vector<TGrave> ended;
    const auto rest = std::stable_partition(
        mGraves.begin(), mGraves.end(), [this](const TGrave& grave) { return grave.level <= mTellLevel; });
    std::move(rest, mGraves.end(), std::back_inserter(ended));
    mGraves.erase(rest, mGraves.end());
    for (const TGrave& grave : ended) {
        delete grave.widget;
    }
}

} // namespace Toolkits
