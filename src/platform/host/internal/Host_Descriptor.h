// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/Host_Error.h"
#include "platform/host/internal/Host_WriteSignals.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <utility>

#include <unistd.h>

namespace Host
{

/// Owns a descriptor of the host.
class Descriptor
{
public:
    explicit Descriptor(int descriptor = -1) noexcept : mDescriptor(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : mDescriptor(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(mDescriptor, other.mDescriptor);
        return *this;
    }
    ~Descriptor()
    {
        if (mDescriptor >= 0) {
            ::close(mDescriptor);
        }
    }

    int Get() const noexcept { return mDescriptor; }
    bool IsOpen() const noexcept { return mDescriptor >= 0; }
    int Release() noexcept { return std::exchange(mDescriptor, -1); }

private:
    int mDescriptor;
};

/// The descriptor behind a handle; -1, and the last error set, for what can't be one.
[[nodiscard]] inline int DescriptorOf(System::NativeInt handle)
{
    if (handle <= 0 || handle > INT_MAX) {
        SetLastError(ERROR_INVALID_HANDLE);
        return -1;
    }
    return static_cast<int>(handle);
}

/// Repeats a call of the host that a signal broke off.
template <class Call>
auto Uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// Reads up to `count` bytes by calls of `read(offset, piece)`: the count done, -1 on a failure at once.
template <class Call>
[[nodiscard]] System::Int64 ReadPieces(System::Int64 count, Call read)
{
    // The host reads at most this much at once.
    constexpr System::Int64 MaxPiece = 1 << 30;
    System::Int64 done = 0;
    for (;;) {
        const System::Int64 piece = std::min(count - done, MaxPiece);
        const ssize_t result = Uninterrupted([&] { return read(done, static_cast<std::size_t>(piece)); });
        if (result < 0) {
            FailErrno();
            return done == 0 ? -1 : done;
        }
        done += result;
        if (result < piece || done == count) {
            return done;
        }
    }
}

/// Writes `count` bytes by calls of `write(offset, piece)`: the count done, -1 on a failure at once. No
/// signal ends the program.
template <class Call>
[[nodiscard]] System::Int64 WritePieces(System::Int64 count, Call write)
{
    const WriteSignals errorsAlone;
    System::Int64 done = 0;
    do {
        const ssize_t result =
            Uninterrupted([&] { return write(done, static_cast<std::size_t>(count - done)); });
        if (result < 0) {
            FailErrno();
            return done == 0 ? -1 : done;
        }
        if (result == 0) {
            break;
        }
        done += result;
    } while (done < count);
    return done;
}

/// Cuts or lengthens an open file. No signal ends the program.
[[nodiscard]] inline bool SetSize(int descriptor, System::Int64 size)
{
    const WriteSignals errorsAlone;
    return Uninterrupted([&] { return ftruncate(descriptor, size); }) == 0 || FailErrno();
}

} // namespace Host
