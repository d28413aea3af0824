// SPDX-License-Identifier: MIT
#pragma once

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

} // namespace Host
