// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/Host_Handle.h"

#include <cstddef>
#include <memory>

namespace Host
{

/// The bytes in front of those that a mapping shows. Who has the mapping shares them too, and they are zero
/// at first. They are for what its users have to agree on beside its content.
class CMappingPage
{
public:
    static constexpr std::size_t Size = 3072;

    enum class EAccess
    {
        Read,
        Write,
    };

    /// No bytes, and the last error set, on a failure.
    CMappingPage(HANDLE mapping, EAccess access);

    /// The first of `Size` bytes, at a multiple of 1024; null if there are none.
    void* getBytes() const noexcept;

private:
    struct TUnmap
    {
        void operator()(void* block) const;
    };

    std::unique_ptr<void, TUnmap> mBlock;
};

} // namespace Host
