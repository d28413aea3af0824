// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"

#include "platform/runtime/classes/internal/Classes_ThreadState.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <mutex>
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
        std::cerr << "TRS8_BTL: the toolkit '" << wish << "' is not available, running headless\n";
    }
    return std::make_unique<HeadlessToolkit>();
}

/// The message by which the loop serves what threads hand over to the main thread. One is on its way at a time,
/// however much waits.
class WakeUp
{
public:
    static void Post()
    {
        if (!onItsWay.exchange(true)) {
            CurrentToolkit().Post([wakeUp = std::make_shared<WakeUp>()] { wakeUp->Handle(); });
        }
    }

    WakeUp() = default;
    WakeUp(const WakeUp&) = delete;
    WakeUp& operator=(const WakeUp&) = delete;
    ~WakeUp()
    {
        if (mIsHandled) {
            return;
        }
        // Its toolkit went first; the next one takes over.
        onItsWay = false;
        if (Classes::CThreads::Instance().IsAnyCallWaiting()) {
            Post();
        }
    }

private:
    void Handle()
    {
        mIsHandled = true;
        onItsWay = false;
        Classes::CheckSynchronize();
    }

    static inline std::atomic<bool> onItsWay = false;
    bool mIsHandled = false;
};

/// Lets the threads of the run time reach the message loop.
struct LinkToThreads
{
    LinkToThreads() { Classes::WakeMainThread = &WakeUp::Post; }
};

const LinkToThreads linkToThreads;

} // namespace

Toolkit::~Toolkit() = default;

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
    const std::lock_guard lock(current.mutex);
    return std::exchange(current.toolkit, std::move(toolkit));
}

} // namespace Toolkits
