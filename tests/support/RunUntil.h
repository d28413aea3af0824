// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Toolkit.h"

#include <chrono>

namespace Support
{

/// Runs the message loop of the toolkit until it is so. False if that never comes: only a fault takes so
/// long. What is raised comes out of it.
template <class Test>
bool RunUntil(Test isTrue)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
    const auto waker = toolkit.StartTimer(20, [] {});
    while (!isTrue() && std::chrono::steady_clock::now() < deadline) {
        if (!toolkit.ProcessMessage()) {
            toolkit.WaitMessage();
        }
    }
    toolkit.StopTimer(waker);
    return isTrue();
}

} // namespace Support
