// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <utility>

namespace Toolkits
{

/// What is played of the user, window by window; `Window::IsWithin` tells whether one lies in another.
template <class Window>
class GInputQueue
{
public:
    void Post(Window& window, std::function<void()> run) { mInputs.push_back({&window, std::move(run)}); }
    bool IsEmpty() const noexcept { return mInputs.empty(); }
    void Forget(const Window* window)
    {
        std::erase_if(mInputs, [window](const TInput& input) { return input.window == window; });
    }

    /// Runs the first one that waits for a window in `within`, of all for null; false if none does.
    bool RunOne(const Window* within)
    {
        const auto found = std::ranges::find_if(
            mInputs, [within](const TInput& input) { return input.window->IsWithin(within); });
        if (found == mInputs.end()) {
            return false;
        }
        const std::function<void()> run = std::move(found->run);
        mInputs.erase(found);
        run();
        return true;
    }

private:
    struct TInput
    {
        Window* window;
        std::function<void()> run;
    };

    std::deque<TInput> mInputs;
};

} // namespace Toolkits
