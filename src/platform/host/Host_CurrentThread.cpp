// SPDX-License-Identifier: MIT
#include "platform/host/Host_CurrentThread.h"

#include "platform/host/internal/Host_Descriptor.h"

#include <algorithm>
#include <string>

#include <fcntl.h>
#include <unistd.h>

unsigned long GetCurrentThreadId() noexcept
{
    // A call of the host would cost more than all else that is done for one action of a thread.
    thread_local const auto id = static_cast<unsigned long>(gettid());
    return id;
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

bool NameThread(unsigned long thread, const System::UnicodeString& name)
{
    const std::string text = CutName(System::ToUtf8(name));
    const std::string path = "/proc/self/task/" + std::to_string(thread) + "/comm";
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    return file.IsOpen() && write(file.Get(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

} // namespace Host
