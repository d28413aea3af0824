// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/internal/Host_OpenAt.h"

#include <map>
#include <utility>

#include <ctime>
#include <sys/types.h>

namespace Host
{

/// The files and links that a move has copied, so that it deletes nothing that came or changed meanwhile.
class MovedEntries
{
public:
    /// To be called before the entry is copied.
    void Add(const FilePlace& entry);
    /// Whether the entry was added, and is what it was then.
    [[nodiscard]] bool Has(const FilePlace& entry) const;

private:
    struct Version
    {
        off_t size;
        timespec modified;
    };

    std::map<std::pair<dev_t, ino_t>, Version> mVersions;
};

} // namespace Host
