// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/internal/Host_OpenAt.h"

#include <optional>
#include <string>
#include <vector>

struct stat;

namespace Host
{

/// What stands under a name.
enum class EntryKind
{
    Folder,
    /// A link that leads to a folder.
    FolderLink,
    /// A link that leads to something else, or nowhere.
    Link,
    File,
    /// A device, a pipe, a socket.
    Special,
};

/// A name in a folder, in the host's bytes.
struct FolderEntry
{
    std::string name;
    EntryKind kind;
};

/// A folder that stays the one it was, whatever becomes of its name: what is done below it can't be led
/// elsewhere by a link that somebody puts in the place of a folder meanwhile.
class OpenFolder
{
public:
    /// Closed, with the last error set, if it can't be opened. A link that is refused fails with 1921 or 267.
    OpenFolder(const FilePlace& folder, Links links);

    bool IsOpen() const noexcept { return mFolder.IsOpen(); }
    int Get() const noexcept { return mFolder.Get(); }
    FilePlace At(const std::string& name) const noexcept { return {mFolder.Get(), name.c_str()}; }

    /// Without "." and "..", in the order of their bytes; `nullopt`, with the last error set, on a failure.
    [[nodiscard]] std::optional<std::vector<FolderEntry>> Entries() const;

    [[nodiscard]] bool Query(struct stat& status) const;
    [[nodiscard]] bool IsSameAs(const struct stat& other) const;

private:
    Descriptor mFolder;
};

} // namespace Host
