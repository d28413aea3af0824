// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileImage.h"

#include "platform/host/internal/Host_PathCall.h"
#include "platform/host/internal/Host_ShellFile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>

namespace Host
{

namespace
{

using System::UnicodeString;

std::size_t HashOf(std::string_view bytes)
{
    return std::hash<std::string_view>()(bytes);
}

/// Without links as far as the path exists, so that all names of one file come out alike.
std::string CanonicalPath(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    if (real != nullptr) {
        return real.get();
    }
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos
               ? path
               : CanonicalPath(path.substr(0, slash)) + path.substr(slash);
}

/// Whether the name leads to one path wherever the current folder and the drives are.
bool IsFixed(std::u16string_view file)
{
    return (file.starts_with(u'\\') || file.starts_with(u'/')) && !file.starts_with(u"\\\\?\\");
}

class Images
{
public:
    /// Never destroyed: the destructors of a program's global objects may still write.
    static Images& Instance()
    {
        static auto* const instance = new Images;
        return *instance;
    }

    /// The image found last, which most calls are for, without the way from name to path; null for another
    /// name.
    std::shared_ptr<ProfileImage> FindLast(const UnicodeString& file)
    {
        const std::scoped_lock lock(mGate);
        return !mLastName.IsEmpty() && mLastName == file ? mLast : nullptr;
    }

    std::shared_ptr<ProfileImage> Find(const UnicodeString& file, const std::string& path)
    {
        const std::scoped_lock lock(mGate);
        std::shared_ptr<ProfileImage> image = FindOrAdd(path);
        // Only the file that is read just now is held open.
        if (mLast != nullptr && mLast != image) {
            mLast->LetGo();
        }
        mLast = image;
        // A link may lead to the file of a bundle now, and elsewhere in a moment.
        const auto entry = mEntries.find(path);
        const bool isDirect =
            entry != mEntries.end() && entry->second.image == image && (mBundled.empty() || IsBundled(image));
        mLastName = isDirect && IsFixed(file.AsView()) ? file : UnicodeString();
        return image;
    }

    std::shared_ptr<ProfileImage> Begin(const std::string& path)
    {
        const std::scoped_lock lock(mGate);
        const std::string canonical = CanonicalPath(path);
        std::shared_ptr<ProfileImage> image = FindBundled(canonical);
        if (!image) {
            const auto found = mEntries.find(canonical);
            image = found != mEntries.end() ? found->second.image : std::make_shared<ProfileImage>(canonical);
            mBundled.push_back(image);
        }
        // The name that the program uses is found at once.
        mEntries[path] = {image, ++mUses};
        mLastName = UnicodeString();
        image->BeginBundle();
        return image;
    }

    void Ended(const std::shared_ptr<ProfileImage>& image)
    {
        const std::scoped_lock lock(mGate);
        if (image->HasBundle()) {
            return;
        }
        mLastName = UnicodeString();
        std::erase(mBundled, image);
        // A name may lead elsewhere from now on.
        std::erase_if(mEntries, [&](const auto& entry) {
            return entry.second.image == image && entry.first != image->getPath();
        });
    }

private:
    struct Entry
    {
        std::shared_ptr<ProfileImage> image;
        std::uint64_t lastUse = 0;
    };

    bool IsBundled(const std::shared_ptr<ProfileImage>& image) const
    {
        return std::find(mBundled.begin(), mBundled.end(), image) != mBundled.end();
    }

    std::shared_ptr<ProfileImage> FindBundled(const std::string& canonical) const
    {
        const auto found = std::find_if(mBundled.begin(), mBundled.end(),
                                        [&](const auto& image) { return image->getPath() == canonical; });
        return found == mBundled.end() ? nullptr : *found;
    }

    std::shared_ptr<ProfileImage> FindOrAdd(const std::string& path)
    {
        const auto found = mEntries.find(path);
        if (!mBundled.empty() && (found == mEntries.end() || !IsBundled(found->second.image))) {
            if (auto image = FindBundled(CanonicalPath(path))) {
                return image;
            }
        }
        if (found == mEntries.end()) {
            return Add(path, std::make_shared<ProfileImage>(path));
        }
        found->second.lastUse = ++mUses;
        return found->second.image;
    }

    /// A program that walks through many files keeps the last ones in memory.
    std::shared_ptr<ProfileImage> Add(const std::string& path, std::shared_ptr<ProfileImage> image)
    {
        constexpr std::size_t most = 32;
        if (mEntries.size() >= most) {
            mEntries.erase(
                std::min_element(mEntries.begin(), mEntries.end(), [](const auto& a, const auto& b) {
                    return a.second.lastUse < b.second.lastUse;
                }));
        }
        mEntries[path] = {image, ++mUses};
        return image;
    }

    std::mutex mGate;
    std::unordered_map<std::string, Entry> mEntries;
    std::vector<std::shared_ptr<ProfileImage>> mBundled;
    std::uint64_t mUses = 0;
    UnicodeString mLastName;
    std::shared_ptr<ProfileImage> mLast;
};

} // namespace

void ProfileImage::Refresh()
{
    const FileState state = mWatch.Look();
    if (mIsCurrent && mIsSettled && state == mState) {
        return;
    }
    if (const auto read = ReadProfile(getPath())) {
        Take(*read);
        return;
    }
    // What can't be read just now is most likely what it was; else it is empty to readers, and writers look
    // again.
    if (!mIsCurrent || state != mState) {
        Take({});
    }
    mIsSettled = false;
}

/// As `Refresh`, but a file that can't be read is a failure.
bool ProfileImage::Reload(LockedProfile& file)
{
    if (mIsCurrent && mIsSettled && file.GetState() == mState) {
        return true;
    }
    const auto read = file.Read();
    if (read) {
        Take(*read);
    }
    return read.has_value();
}

/// Parses only what isn't the former content, which it mostly is: one's own last write.
void ProfileImage::Take(const ReadBytes& read)
{
    const std::size_t hash = HashOf(read.bytes);
    const bool isSame = mIsCurrent && hash == mHash && read.state.size == mState.size;
    mIsSettled = read.isSettled;
    mState = read.state;
    if (isSame) {
        return;
    }
    mIsCurrent = false;
    mText = ProfileText(read.bytes);
    for (const ProfileChange& change : mPending) {
        mText.Apply(change);
    }
    mHash = hash;
    mIsCurrent = true;
}

bool ProfileImage::Write(const ProfileChange& change)
{
    const std::scoped_lock lock(mGate);
    if (mBundles == 0) {
        return Save({&change, 1});
    }
    Refresh();
    if (mState.mode != 0 && (!S_ISREG(mState.mode) || (mState.mode & S_IWUSR) == 0)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    mPending.push_back(change);
    mText.Apply(change);
    return true;
}

bool ProfileImage::Save(std::span<const ProfileChange> changes)
{
    LockedProfile file;
    for (;;) {
        if (!file.Lock(getPath()) || !Reload(file)) {
            return false;
        }
        bool isChanged = !mPending.empty();
        const bool wasCurrent = std::exchange(mIsCurrent, false);
        for (const ProfileChange& change : changes) {
            isChanged |= mText.Apply(change);
        }
        if (!isChanged) {
            mIsCurrent = wasCurrent;
            return file.Sync();
        }
        const std::string bytes = mText.Compose();
        const auto replaced = file.Replace(bytes);
        if (replaced == LockedProfile::Replaced::Failed) {
            return false;
        }
        mWatch.LetGo();
        if (replaced == LockedProfile::Replaced::Done) {
            mState = file.GetState();
            mHash = HashOf(bytes);
            mIsSettled = false;
            mIsCurrent = true;
            mPending.clear();
            return true;
        }
    }
}

void ProfileImage::BeginBundle()
{
    const std::scoped_lock lock(mGate);
    ++mBundles;
}

bool ProfileImage::EndBundle()
{
    const std::scoped_lock lock(mGate);
    if (mBundles == 1 && !mPending.empty() && !Save({})) {
        return false;
    }
    --mBundles;
    return true;
}

void ProfileImage::GiveUpBundle()
{
    const std::scoped_lock lock(mGate);
    if (--mBundles == 0) {
        mPending.clear();
        mIsCurrent = false;
    }
}

bool ProfileImage::HasBundle()
{
    const std::scoped_lock lock(mGate);
    return mBundles > 0;
}

void ProfileImage::LetGo()
{
    if (const std::unique_lock lock(mGate, std::try_to_lock); lock) {
        mWatch.LetGo();
    }
}

std::shared_ptr<ProfileImage> FindImage(const UnicodeString& file)
{
    if (auto image = Images::Instance().FindLast(file)) {
        return image;
    }
    const std::string path = AbsolutePath(file, {});
    return path.empty() ? nullptr : Images::Instance().Find(file, path);
}

std::shared_ptr<ProfileImage> BeginBundle(const UnicodeString& file)
{
    const std::string path = AbsolutePath(file, {});
    return path.empty() ? nullptr : Images::Instance().Begin(path);
}

void BundleEnded(const std::shared_ptr<ProfileImage>& image)
{
    Images::Instance().Ended(image);
}

} // namespace Host
