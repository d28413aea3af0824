// SPDX-License-Identifier: MIT
#include "platform/host/Host_CurrentThread.h"

#include "platform/host/internal/Host_Descriptor.h"

#include <algorithm>
#include <string>

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

namespace
{

/// 0 as long as nobody asked. A call of the host for each question would cost more than all else that is done
/// for one action of a thread.
constinit thread_local unsigned long currentId = 0;

/// The thread that goes on in a fork has another number than the one that it is a copy of.
[[maybe_unused]] const bool isForkHeard = [] {
    Host::AfterFork([] { currentId = 0; });
    return true;
}();

} // namespace

unsigned long GetCurrentThreadId() noexcept
{
    if (currentId == 0) {
        currentId = static_cast<unsigned long>(gettid());
    }
    return currentId;
}

namespace Host
{

namespace
{

constexpr std::size_t LongestName = 15;

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string CutName(std::string name)
{
    if (name.size() <= LongestName) {
        return name;
    }
    auto end = LongestName;
    while (end > 0 && IsContinuation(name[end])) {
        --end;
    }
    name.resize(end);
    return name;
}

} // namespace

unsigned long FirstThreadId() noexcept
{
    return static_cast<unsigned long>(getpid());
}

void AfterFork(void (*action)()) noexcept
{
    // Without memory for it nothing can be done.
    static_cast<void>(pthread_atfork(nullptr, nullptr, action));
}

bool NameThread(unsigned long thread, const System::UnicodeString& name)
{
    const std::string text = CutName(System::ToUtf8(name));
    const std::string path = "/proc/self/task/" + std::to_string(thread) + "/comm";
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    return file.IsOpen() && write(file.Get(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

} // namespace Host
