// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/profile/internal/Host_ProfileFile.h"

#include <cstdint>
#include <string>

namespace Host
{

/// Asks for the state of one file again and again. The way along a path costs the host twice what the state
/// itself does, so that who asks often has the file held open, and asks that: whatever happens to the file, a
/// deletion and a move among it, changes its state. The path is followed again some times in a second.
///
///     ProfileWatch watch("/home/me/station.ini");
///     if (watch.Look() != known) { ... }
///
/// No other program and no lock is concerned: the file is opened for its state alone. It is not held where
/// the state doesn't tell all: along a link, which may be pointed elsewhere, within the tick of the clock in
/// which it changed last, and on other file systems than the common ones of local disks.
class TRS8_BTL_API ProfileWatch
{
public:
    explicit ProfileWatch(std::string path) : mPath(std::move(path)) {}
    ProfileWatch(const ProfileWatch&) = delete;
    ProfileWatch& operator=(const ProfileWatch&) = delete;
    ~ProfileWatch() { LetGo(); }

    [[nodiscard]] const std::string& getPath() const noexcept { return mPath; }

    /// As `QueryState` of the path, but a folder along it that was moved or unmounted shows only 20 ms later.
    [[nodiscard]] FileState Look();
    /// Doesn't hold the file any more, until it is often asked for again.
    void LetGo() noexcept;
    [[nodiscard]] bool IsHolding() const noexcept { return mFile.IsOpen(); }

private:
    void Hold();

    const std::string mPath;
    Descriptor mFile;
    /// Of the path when it was followed last.
    FileState mState;
    std::int64_t mBegin = 0;
    int mLooks = 0;
};

} // namespace Host
