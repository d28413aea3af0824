// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"

#include "platform/runtime/classes/internal/Classes_ThreadState.h"
#include "platform/toolkit/InputPlayer.h"
#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/internal/ToolkitPlugin.h"
#include "platform/toolkit/internal/Watches.h"

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <string>
#include <string_view>
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

std::unique_ptr<Toolkit> ChooseToolkit()
{
    const char* wish = std::getenv("TRS8_BTL_TOOLKIT");
    if (wish != nullptr && *wish != '\0' && std::string_view(wish) != "headless") {
        std::string reason;
        if (auto toolkit = LoadToolkit(wish, reason)) {
            return toolkit;
        }
        std::cerr << "TRS8_BTL: the toolkit '" << wish << "' is not available, running headless: " << reason
                  << '\n';
    }
    return std::make_unique<HeadlessToolkit>();
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
