// SPDX-License-Identifier: MIT
#include "platform/host/registry/internal/Host_RegistryStore.h"

#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_ReplaceFile.h"
#include "platform/host/Host_SpecialFolder.h"
#include "platform/host/Host_TickCount.h"
#include "platform/host/Host_UserFiles.h"
#include "platform/host/internal/Host_Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/types.h>

namespace Host
{

namespace
{

using System::UnicodeString;

UnicodeString FileIn(const UnicodeString& folder)
{
    return folder + u"\\TRS8_BTL\\registry";
}

/// The folders of configuration of the machine, the most important one first; never empty.
std::vector<UnicodeString> MachineFolders()
{
    const UnicodeString all = EnvironmentPath("XDG_CONFIG_DIRS");
    std::vector<UnicodeString> folders;
    for (std::u16string_view left = all.AsView(); !left.empty();) {
        const std::u16string_view folder = left.substr(0, left.find(u':'));
        if (folder.starts_with(u'\\')) {
            folders.emplace_back(folder);
        }
        left.remove_prefix(std::min(folder.size() + 1, left.size()));
    }
    if (folders.empty()) {
        folders.emplace_back(u"\\etc\\xdg");
    }
    return folders;
}

UnicodeString ConfigFolder(RegistryPart part)
{
    if (part == RegistryPart::User) {
        return SpecialFolder(UserSettingsFolder);
    }
    // A desktop may put a folder of its own in front, which installers know nothing of.
    const std::vector<UnicodeString> folders = MachineFolders();
    const auto found = std::ranges::find_if(
        folders, [](const UnicodeString& folder) { return QueryFile(FileIn(folder)).has_value(); });
    return found == folders.end() ? folders.front() : *found;
}

/// No value if the file is there and can't be read.
std::optional<std::string> ReadWhole(const UnicodeString& file)
{
    const Descriptor opened(
        Uninterrupted([&] { return open(Sysutils::HostPath(file).c_str(), O_RDONLY | O_CLOEXEC); }));
    if (!opened.IsOpen()) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return std::string();
        }
        FailErrno();
        return std::nullopt;
    }
    std::string text;
    std::array<char, 4096> piece;
    for (;;) {
        const ssize_t count = Uninterrupted([&] { return ::read(opened.Get(), piece.data(), piece.size()); });
        if (count < 0) {
            FailErrno();
            return std::nullopt;
        }
        if (count == 0) {
            return text;
        }
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
}

/// The lock on the file beside; closed if it isn't to be had.
Descriptor LockFile(const UnicodeString& file)
{
    // Whoever may read it could hold it: not those who only read the registry of the machine.
    constexpr mode_t mode = 0660;
    Descriptor opened(Uninterrupted([&] {
        return open(Sysutils::HostPath(file + u".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, mode);
    }));
    if (!opened.IsOpen()) {
        FailErrno();
        return opened;
    }
    constexpr std::uint32_t patience = 5000;
    constexpr unsigned long step = 5;
    const std::uint32_t start = GetTickCount();
    while (flock(opened.Get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            FailErrno();
            return Descriptor();
        }
        if (GetTickCount() - start > patience) {
            Fail(ERROR_LOCK_VIOLATION);
            return Descriptor();
        }
        Sleep(step);
    }
    return opened;
}

bool WriteWhole(const UnicodeString& file, const std::string& text)
{
    const UnicodeString target = FileToReplace(file);
    const UnicodeString written = target.IsEmpty() ? target : CreateBeside(target);
    if (written.IsEmpty()) {
        return false;
    }
    bool isDone = false;
    {
        const Descriptor opened(
            Uninterrupted([&] { return open(Sysutils::HostPath(written).c_str(), O_WRONLY | O_CLOEXEC); }));
        const auto size = static_cast<System::Int64>(text.size());
        isDone = opened.IsOpen() &&
                 WritePieces(size,
                             [&](System::Int64 offset, std::size_t piece) {
                                 return ::write(opened.Get(), text.data() + offset, piece);
                             }) == size &&
                 fsync(opened.Get()) == 0;
        if (!isDone) {
            FailErrno();
        }
    }
    if (isDone && MoveOnto(written, target)) {
        return true;
    }
    const unsigned long reason = GetLastError();
    DeleteFileW(written);
    return Fail(reason);
}

} // namespace

UnicodeString RegistryFile(RegistryPart part)
{
    return FileIn(ConfigFolder(part));
}

RegistryText LoadRegistry(RegistryPart part)
{
    return RegistryText::Parse(ReadWhole(RegistryFile(part)).value_or(std::string()));
}

bool ChangeRegistry(RegistryPart part, const std::function<bool(RegistryText&)>& change)
{
    const UnicodeString folder = ConfigFolder(part);
    const UnicodeString file = FileIn(folder);
    // Those that are there already fail, as do those that can't be made; the lock then tells.
    CreateDirectoryW(folder);
    CreateDirectoryW(folder + u"\\TRS8_BTL");
    const Descriptor lock = LockFile(file);
    if (!lock.IsOpen()) {
        return false;
    }
    const std::optional<std::string> former = ReadWhole(file);
    if (!former) {
        return false;
    }
    RegistryText text = RegistryText::Parse(*former);
    return !change(text) || WriteWhole(file, text.Write());
}

} // namespace Host
