// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <thread>

namespace Support
{

/// Waits until another thread has made `isTrue` so. False if that never comes: only a fault takes so long.
template <class Test>
[[nodiscard]] bool WaitUntil(Test isTrue)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!isTrue()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace Support
