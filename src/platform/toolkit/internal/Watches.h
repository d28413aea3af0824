// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>

namespace Toolkits
{

/// What the message loop looks after, by descriptor, so that a toolkit that takes over does so too. Of the
/// main thread.
[[nodiscard]] std::map<int, std::function<void()>>& Watches();

} // namespace Toolkits
