// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"

#include <chrono>

namespace Support
{

/// Runs the message loop until it is so. False if that never comes: only a fault takes so long.
template <class Test>
bool RunUntil(Test isTrue)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    const auto waker = Toolkits::CurrentToolkit().StartTimer(20, [] {});
    while (!isTrue() && std::chrono::steady_clock::now() < deadline) {
        Forms::Application->HandleMessage();
    }
    Toolkits::CurrentToolkit().StopTimer(waker);
    return isTrue();
}

} // namespace Support
