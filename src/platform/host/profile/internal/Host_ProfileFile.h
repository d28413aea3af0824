// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/internal/Host_Descriptor.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>

// A profile file on the disk: read without a lock, replaced under one. Paths are the host's own.
//
// All calls answer a failure with their invalid value and set the last error.
//
//     LockedProfile file;
//     if (file.Lock(path)) {
//         const auto bytes = file.Read();
//         return file.Replace(Changed(bytes)) == LockedProfile::Replaced::Done;
//     }

namespace Host
{

/// What tells one content of a file from another without reading it.
struct TRS8_BTL_API FileState
{
    dev_t device = 0;
    ino_t file = 0;
    off_t size = 0;
    timespec modified{};
    timespec changed{};
    mode_t mode = 0;
    /// Of a file that was deleted or replaced while it is open, one less than before.
    nlink_t names = 0;

    [[nodiscard]] bool operator==(const FileState& other) const noexcept;
    /// Whether a change that comes from now on can't leave the state as it is: the times of files move in
    /// ticks.
    [[nodiscard]] bool IsSettled() const noexcept;
};

/// The state of the file that the path leads to; all 0 for one that isn't there or can't be asked. What
/// streams of this process gathered for the file is written first.
[[nodiscard]] TRS8_BTL_API FileState QueryState(const std::string& path);
[[nodiscard]] TRS8_BTL_API FileState QueryState(int descriptor);

/// All bytes of the file and the state that they belong to. A file that isn't there, and what is no plain
/// file, is empty; none with the last error if it can't be read.
struct ReadBytes
{
    std::string bytes;
    FileState state;
    /// Whether the file has these bytes for as long as it has this state.
    bool isSettled = true;
};
[[nodiscard]] std::optional<ReadBytes> ReadProfile(const std::string& path);

/// Keeps other writers out, for its life. One that needs the file for more than 5 seconds fails the call
/// with 33.
class LockedProfile
{
public:
    LockedProfile() = default;
    LockedProfile(const LockedProfile&) = delete;
    LockedProfile& operator=(const LockedProfile&) = delete;
    ~LockedProfile();

    /// Locks the file that the path leads to along links, which needn't exist: the lock of a file to be made
    /// is on the one that will take its name. To be called again after `Replaced::Raced`.
    [[nodiscard]] bool Lock(const std::string& path);

    [[nodiscard]] bool Exists() const noexcept { return mFile.IsOpen(); }
    [[nodiscard]] FileState GetState() const;
    /// As `ReadProfile`; a file that the user has no right to read gets a second name and counts as empty.
    [[nodiscard]] std::optional<ReadBytes> Read();
    /// Gives the file, which exists, a second name that it keeps when it is replaced: with ".unreadable1", or
    /// another free number, behind it.
    [[nodiscard]] bool KeepAside();

    enum class Replaced
    {
        Done,
        /// Another program made the file meanwhile.
        Raced,
        Failed,
    };
    /// Gives the file this content, whole and on the disk. After `Failed` it has the old one, unless the host
    /// failed to tell that the new one is on the disk.
    [[nodiscard]] Replaced Replace(std::string_view bytes);
    /// Brings what is there to the disk.
    [[nodiscard]] bool Sync();

private:
    [[nodiscard]] bool OpenTarget();
    [[nodiscard]] bool OpenFolder();
    [[nodiscard]] bool MayReplace() const;
    [[nodiscard]] bool MakeSuccessor();
    [[nodiscard]] bool FillSuccessor(std::string_view bytes);

    std::string mTarget;
    Descriptor mFile;
    Descriptor mFolder;
    /// Locked as well: a file to be made has nothing else that could be.
    Descriptor mSuccessor;
    std::string mSuccessorName;
    std::uint32_t mStart = 0;
    bool mIsWaiting = false;
};

} // namespace Host
