// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/LateToolkit.h"

#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/internal/ToolkitPlugin.h"

#include <algorithm>
#include <exception>
#include <iostream>

namespace Toolkits
{

CLateToolkit::~CLateToolkit() = default;

std::unique_ptr<Toolkit> CLateToolkit::Load() const
{
    std::string reason;
    try {
        if (auto toolkit = LoadToolkit(mName, reason)) {
            return toolkit;
        }
    } catch (const std::exception& fault) {
        reason = fault.what();
    }
    std::cerr << "TRS8_BTL: the toolkit '" + mName + "' is not available, running headless: " + reason + '\n';
    return std::make_unique<HeadlessToolkit>();
}

Toolkit& CLateToolkit::Screen() const
{
    if (Toolkit* const loaded = Loaded()) {
        return *loaded;
    }
    if (mScreen == nullptr) {
        mScreen = Load();
        MoveTo(*mScreen);
    }
    return *mScreen;
}

void CLateToolkit::MoveTo(Toolkit& screen) const
{
    if (mCursor != 0) {
        screen.SetCursor(mCursor);
    }
    if (!mActivationToken.IsEmpty()) {
        screen.SetActivationToken(mActivationToken);
    }
    for (auto& [descriptor, action] : mLoop.TakeWatches()) {
        screen.Watch(descriptor, action);
    }
    for (const CTimerQueue::TTimer& timer : mLoop.TakeTimers()) {
        MoveTimer(screen, timer);
    }
    // What is posted meanwhile waits here and follows behind.
    const std::lock_guard lock(mPostMutex);
    for (auto& action : mLoop.TakePosted()) {
        screen.Post(std::move(action));
    }
    mLoaded.store(&screen, std::memory_order_release);
}

void CLateToolkit::MoveTimer(Toolkit& screen, const CTimerQueue::TTimer& timer) const
{
    const System::Int64 rest = timer.due - mLoop.Now();
    // The next tick comes when it would have come; from there on the timer goes at its own pace.
    const auto firstTick = [this, &screen, timer] {
        const CTimerQueue::TTimer moved = timer;
        TTimerId& running = mMovedTimers[moved.id];
        screen.StopTimer(running);
        running = screen.StartTimer(moved.interval, [tick = moved.tick] { (*tick)(); });
        (*moved.tick)();
    };
    mMovedTimers[timer.id] = screen.StartTimer(
        static_cast<unsigned>(std::clamp<System::Int64>(rest, 1, timer.interval)), firstTick);
}

Pixels CLateToolkit::GetClipboardPixels()
{
    return Screen().GetClipboardPixels();
}

TFrameMargins CLateToolkit::FrameMargins(EFrame frame) const
{
    const Toolkit* const screen = Loaded();
    return screen != nullptr ? screen->FrameMargins(frame) : UsualFrameMargins(frame);
}

TTimerId CLateToolkit::StartTimer(unsigned milliseconds, std::function<void()> tick)
{
    Toolkit* const screen = Loaded();
    return screen != nullptr ? screen->StartTimer(milliseconds, std::move(tick))
                             : mLoop.StartTimer(milliseconds, std::move(tick));
}

void CLateToolkit::StopTimer(TTimerId timer)
{
    Toolkit* const screen = Loaded();
    if (screen == nullptr) {
        mLoop.StopTimer(timer);
    } else if (const auto moved = mMovedTimers.extract(timer)) {
        screen->StopTimer(moved.mapped());
    } else {
        screen->StopTimer(timer);
    }
}

std::unique_ptr<PaintDevice> CLateToolkit::NewPixelDevice(Pixels& pixels)
{
    return Screen().NewPixelDevice(pixels);
}

void CLateToolkit::SetCursor(int cursor)
{
    mCursor = cursor;
    if (Toolkit* const screen = Loaded()) {
        screen->SetCursor(cursor);
    }
}

void CLateToolkit::Post(std::function<void()> action)
{
    Toolkit* screen = Loaded();
    if (screen == nullptr) {
        const std::lock_guard lock(mPostMutex);
        screen = Loaded();
        if (screen == nullptr) {
            return mLoop.Post(std::move(action));
        }
    }
    screen->Post(std::move(action));
}

void CLateToolkit::Watch(int descriptor, std::function<void()> action)
{
    Toolkit* const screen = Loaded();
    screen != nullptr ? screen->Watch(descriptor, std::move(action))
                      : mLoop.Watch(descriptor, std::move(action));
}

void CLateToolkit::Unwatch(int descriptor)
{
    Toolkit* const screen = Loaded();
    screen != nullptr ? screen->Unwatch(descriptor) : mLoop.Unwatch(descriptor);
}

void CLateToolkit::SetActivationToken(const System::UnicodeString& token)
{
    mActivationToken = token;
    if (Toolkit* const screen = Loaded()) {
        screen->SetActivationToken(token);
    }
}

bool CLateToolkit::ProcessMessage()
{
    Toolkit* const screen = Loaded();
    return screen != nullptr ? screen->ProcessMessage() : mLoop.RunPostedOrWatched() || mLoop.RunTimer();
}

void CLateToolkit::PostInput(Window& window, std::function<void()> input)
{
    Screen().PostInput(window, std::move(input));
}

void CLateToolkit::WaitMessage()
{
    Toolkit* const screen = Loaded();
    screen != nullptr ? screen->WaitMessage() : mLoop.Wait();
}

} // namespace Toolkits
