// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

#include <functional>

namespace Toolkits
{

/// Lets the message loop of the main thread look after a descriptor of the host: `action` runs from the loop,
/// over and over, while there is something to read. It belongs to the main thread, goes on when another
/// toolkit takes over, and ends with the object.
///
///     const Toolkits::Watch watch(socket, [socket] { ReadFrom(socket); });
///     Forms::Application->Run();
class TRS8_BTL_API Watch
{
public:
    /// The descriptor stays the caller's; it may have one watch, and must stay open as long as that lives.
    Watch(int descriptor, std::function<void()> action);
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    /// Also from within the action.
    ~Watch();

private:
    int mDescriptor;
};

} // namespace Toolkits
