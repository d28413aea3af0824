// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"

#include "platform/runtime/classes/internal/Classes_ThreadState.h"
#include "platform/toolkit/InputPlayer.h"
#include "platform/toolkit/LoopFaults.h"
#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/internal/LateToolkit.h"
#include "platform/toolkit/internal/Watches.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <mutex>
#include <string>
#include <utility>

namespace Toolkits
{

namespace
{

struct TCurrent
{
    std::mutex mutex;
    std::unique_ptr<Toolkit> toolkit;
};

/// Never destroyed: a fault may have to be shown while the program's global objects end.
TCurrent& Current()
{
    static TCurrent& current = *new TCurrent;
    return current;
}

/// Whether the session that the program runs in has a screen.
bool HasDisplay()
{
    return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY"}, [](const char* name) {
        const char* const display = std::getenv(name);
        return display != nullptr && *display != '\0';
    });
}

std::unique_ptr<Toolkit> ChooseToolkit()
{
    const char* const variable = std::getenv("TRS8_BTL_TOOLKIT");
    std::string wish = variable == nullptr ? "" : variable;
    if (wish.empty()) {
        wish = HasDisplay() ? "qt" : "headless";
    }
    if (wish == "headless") {
        return std::make_unique<HeadlessToolkit>();
    }
    return std::make_unique<CLateToolkit>(std::move(wish));
}

/// Whether the message is on its way by which the loop serves what threads hand over to the main thread. One
/// is enough, however much waits.
std::atomic<bool> isWakeUpOnItsWay = false;

void PostWakeUp()
{
    if (!isWakeUpOnItsWay.exchange(true)) {
        CurrentToolkit().Post([] {
            isWakeUpOnItsWay = false;
            Classes::CheckSynchronize();
        });
    }
}

/// What the former toolkit was to be woken for is up to the current one.
void MoveWakeUp()
{
    isWakeUpOnItsWay = false;
    if (Classes::CThreads::Instance().IsAnyCallWaiting()) {
        PostWakeUp();
    }
}

/// What the former toolkit looked after is up to the current one.
void MoveWatches(Toolkit* former)
{
    for (const auto& [descriptor, action] : Watches()) {
        if (former != nullptr) {
            former->Unwatch(descriptor);
        }
        CurrentToolkit().Watch(descriptor, action);
    }
}

/// Lets the threads of the run time reach the message loop.
struct LinkToThreads
{
    LinkToThreads() { Classes::WakeMainThread = &PostWakeUp; }
};

const LinkToThreads linkToThreads;

} // namespace

void (*HandleLoopException)() = nullptr;
void (*HandleScreenLoss)() = nullptr;

void TellScreenLoss() noexcept
{
    try {
        std::cerr << "TRS8_BTL: the connection to the display is lost, the program ends\n" << std::flush;
        static_cast<void>(ExchangeToolkit(std::make_unique<HeadlessToolkit>()).release());
        if (HandleScreenLoss != nullptr) {
            HandleScreenLoss();
        }
    } catch (const std::exception& fault) {
        std::cerr << "TRS8_BTL: " << fault.what() << '\n' << std::flush;
    } catch (...) {
        std::cerr << "TRS8_BTL: an exception of an unknown kind\n" << std::flush;
    }
}

Toolkit::~Toolkit() = default;

Types::TRect Toolkit::FirstScreenRect() const
{
    return DesktopRect();
}

InputPlayer::~InputPlayer() = default;

bool Toolkit::SetClipboardPixels(const Pixels&)
{
    return false;
}

Pixels Toolkit::GetClipboardPixels()
{
    return {};
}

Toolkit& CurrentToolkit()
{
    TCurrent& current = Current();
    const std::lock_guard lock(current.mutex);
    if (current.toolkit == nullptr) {
        current.toolkit = ChooseToolkit();
    }
    return *current.toolkit;
}

std::unique_ptr<Toolkit> ExchangeToolkit(std::unique_ptr<Toolkit> toolkit)
{
    TCurrent& current = Current();
    std::unique_ptr<Toolkit> former;
    {
        const std::lock_guard lock(current.mutex);
        former = std::exchange(current.toolkit, std::move(toolkit));
    }
    MoveWakeUp();
    MoveWatches(former.get());
    return former;
}

} // namespace Toolkits
