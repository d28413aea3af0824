// SPDX-License-Identifier: MIT
#include "platform/toolkit/Watch.h"

#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/internal/Watches.h"

#include <utility>

namespace Toolkits
{

std::map<int, std::function<void()>>& Watches()
{
    // Never destroyed: watches may end while the program's global objects do.
    static auto* const watches = new std::map<int, std::function<void()>>;
    return *watches;
}

Watch::Watch(int descriptor, std::function<void()> action) : mDescriptor(descriptor)
{
    CurrentToolkit().Watch(descriptor, action);
    Watches().insert_or_assign(descriptor, std::move(action));
}

Watch::~Watch()
{
    Watches().erase(mDescriptor);
    CurrentToolkit().Unwatch(mDescriptor);
}

} // namespace Toolkits
