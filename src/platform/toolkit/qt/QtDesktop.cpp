// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtDesktop.h"

#include "platform/toolkit/qt/QtWindow.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Toolkits
{

CQtDesktop::CQtDesktop(std::function<void(std::exception_ptr)> raise) : mRaise(std::move(raise)) {}

CQtDesktop::~CQtDesktop()
{
    for (const QPointer<QWidget>& widget : mGraves) {
        delete widget;
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
        former->KeyboardMoved(false);
        former->Tell([](WindowEvents& events) { events.FocusChanged(false); });
    }
    if (window != nullptr && mFocused == window) {
        window->KeyboardMoved(true);
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
        if (Exists(window) && window->Tell([](WindowEvents& events) { events.ColorsChanged(); })) {
            window->FollowDesktop();
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
    // It stays in its parent, by way of which what was painted of it may still go to the screen. So what is
    // around it mustn't end earlier, and whatever is around that is no earlier than that.
    const auto lower = [this](const QWidget* place, int most) {
        const auto [known, isNew] = mLevels.try_emplace(place, most);
        const bool isLowered = isNew || known->second > most;
        known->second = std::min(known->second, most);
        return isLowered;
    };
    lower(widget, level);
    level = mLevels[widget];
    const QWidget* place = widget->parentWidget();
    while (place != nullptr && lower(place, level)) {
        place = place->parentWidget();
    }
    mGraves.emplace_back(widget);
}

void CQtDesktop::EmptyGraves()
{
    std::vector<QPointer<QWidget>> ended;
    const auto rest = std::stable_partition(mGraves.begin(), mGraves.end(), [this](const auto& widget) {
        return widget != nullptr && mLevels[widget] <= mTellLevel;
    });
    std::move(rest, mGraves.end(), std::back_inserter(ended));
    mGraves.erase(rest, mGraves.end());
    if (mGraves.empty()) {
        mLevels.clear();
    }
    for (const QPointer<QWidget>& widget : ended) {
        delete widget;
    }
}

} // namespace Toolkits
