// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/profile/internal/Host_ProfileFile.h"
#include "platform/host/profile/internal/Host_ProfileText.h"
#include "platform/host/profile/internal/Host_ProfileWatch.h"

#include <memory>
#include <mutex>
#include <span>

// The profile files that this process has parsed. Each is checked against the file before it is used.
//
//     if (const auto image = FindImage(file)) {
//         image->Use([&](const ProfileText& text) { value = text.Find(section, key); });
//     }

namespace Host
{

/// One profile file; any thread may call.
class ProfileImage
{
public:
    explicit ProfileImage(std::string path) : mWatch(std::move(path)) {}

    /// Of the host, absolute.
    [[nodiscard]] const std::string& getPath() const noexcept { return mWatch.getPath(); }

    /// Calls `action(text)` with what the file and the open bundle say now.
    template <class Action>
    auto Use(Action action)
    {
        const std::scoped_lock lock(mGate);
        Refresh();
        return action(mText);
    }

    /// Into the open bundle, else to the disk. False with the last error on a failure.
    [[nodiscard]] bool Write(const ProfileChange& change);

    void BeginBundle();
    /// Writes what the last of several bundles leaves; false, and the bundle is still open, on a failure.
    [[nodiscard]] bool EndBundle();
    /// Ends a bundle whose changes can't be written, which are lost with the last one.
    void GiveUpBundle();
    [[nodiscard]] bool HasBundle();

    /// Closes the file, unless a thread is at work with it.
    void LetGo();

private:
    void Refresh();
    [[nodiscard]] bool Reload(LockedProfile& file);
    void Take(const ReadBytes& read);
    [[nodiscard]] bool Save(std::span<const ProfileChange> changes);

    ProfileWatch mWatch;
    std::mutex mGate;
    ProfileText mText;
    /// Of the content on the disk that the text was made of.
    FileState mState;
    std::size_t mHash = 0;
    bool mIsCurrent = false;
    bool mIsSettled = false;
    int mBundles = 0;
    /// What the text has and the disk hasn't.
    std::vector<ProfileChange> mPending;
};

/// The image of a file by its name in the library; null with the last error for a name that is none.
[[nodiscard]] std::shared_ptr<ProfileImage> FindImage(const System::UnicodeString& file);

/// The image with a bundle begun. While one is open, every name of the file leads to it.
[[nodiscard]] std::shared_ptr<ProfileImage> BeginBundle(const System::UnicodeString& file);
/// To be called after a bundle of the image ended.
void BundleEnded(const std::shared_ptr<ProfileImage>& image);

} // namespace Host
