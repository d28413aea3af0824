// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_ProcessSnapshot.h"

#include "platform/base/System_String.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/objects/internal/Host_Object.h"
#include "platform/host/processes/Host_ProcessPriority.h"
#include "platform/host/processes/internal/Host_ProcessFiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <dirent.h>
#include <fcntl.h>

namespace Host
{

namespace
{

struct TProcess
{
    pid_t id;
    pid_t parent;
    unsigned threads;
    int nice;
    std::string name;
};

std::string_view FileNameOf(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

/// The name of the program's file; empty if the host doesn't tell it.
std::string ProgramNameOf(int folder, pid_t process)
{
    const std::string link = std::to_string(process) + "/exe";
    std::array<char, PATH_MAX + 16> buffer;
    const ssize_t length = readlinkat(folder, link.c_str(), buffer.data(), buffer.size());
    std::string_view path(buffer.data(), length < 0 ? 0 : static_cast<std::size_t>(length));
    // The host marks a file that was replaced while it runs; one may also be called so.
    constexpr std::string_view deleted = " (deleted)";
    if (path.ends_with(deleted) && access(std::string(path).c_str(), F_OK) != 0) {
        path.remove_suffix(deleted.size());
    }
    return std::string(FileNameOf(path));
}

/// The name that the process was called by; empty if the host doesn't tell it.
std::string CalledNameOf(int folder, pid_t process)
{
    const std::string line = ReadProcessFile(folder, process, "cmdline").value_or(std::string());
    return std::string(FileNameOf(std::string_view(line).substr(0, line.find('\0'))));
}

std::optional<TProcess> ReadProcess(int folder, pid_t id)
{
    const auto text = ReadProcessFile(folder, id, "stat");
    auto stat = text ? ParseProcessStat(*text) : std::nullopt;
    // It may have ended meanwhile.
    if (!stat || !IsAlive(*stat)) {
        return std::nullopt;
    }
    std::string name = ProgramNameOf(folder, id);
    if (name.empty()) {
        name = CalledNameOf(folder, id);
    }
    if (name.empty()) {
        name = std::move(stat->name);
    }
    return TProcess{id, stat->parent, stat->threads, stat->nice, std::move(name)};
}

struct TCloseFolder
{
    void operator()(DIR* folder) const { closedir(folder); }
};

std::optional<pid_t> NumberOf(std::string_view name)
{
    pid_t id = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), id);
    const bool isNumber = error == std::errc() && end == name.data() + name.size() && id > 0;
    return isNumber ? std::optional(id) : std::nullopt;
}

long BasePriorityOf(int nice)
{
    switch (PriorityClassOf(nice)) {
    case IDLE_PRIORITY_CLASS:
        return 4;
    case BELOW_NORMAL_PRIORITY_CLASS:
        return 6;
    case ABOVE_NORMAL_PRIORITY_CLASS:
        return 10;
    case HIGH_PRIORITY_CLASS:
        return 13;
    case REALTIME_PRIORITY_CLASS:
        return 24;
    default:
        return 8;
    }
}

/// A name as the library writes a path's last part.
System::UnicodeString ToText(const std::string& name)
{
    const bool isPlain =
        std::ranges::all_of(name, [](char byte) { return byte >= 0 && byte != '\\' && byte != ':'; });
    return isPlain ? System::FromUtf8(name) : Sysutils::FromHostPath(name);
}

class CSnapshot : public AObject
{
public:
    explicit CSnapshot(std::vector<TProcess> processes) : mProcesses(std::move(processes)) {}

    bool First(tagPROCESSENTRY32W& entry)
    {
        const std::lock_guard lock(mGate);
        mNext = 0;
        return Give(entry);
    }

    bool Next(tagPROCESSENTRY32W& entry)
    {
        const std::lock_guard lock(mGate);
        return Give(entry);
    }

private:
    bool Give(tagPROCESSENTRY32W& entry)
    {
        constexpr unsigned long sizeOfEntry = 556;
        if (entry.dwSize < sizeOfEntry) {
            return Fail(ERROR_INSUFFICIENT_BUFFER);
        }
        if (mNext >= mProcesses.size()) {
            return Fail(ERROR_NO_MORE_FILES);
        }
        const TProcess& process = mProcesses[mNext++];
        entry.cntUsage = 0;
        entry.th32ProcessID = static_cast<unsigned long>(process.id);
        entry.th32DefaultHeapID = 0;
        entry.th32ModuleID = 0;
        entry.cntThreads = process.threads;
        entry.th32ParentProcessID = static_cast<unsigned long>(process.parent);
        entry.pcPriClassBase = BasePriorityOf(process.nice);
        entry.dwFlags = 0;
        const System::UnicodeString name = ToText(process.name);
        const auto length = std::min<std::size_t>(name.AsView().size(), std::size(entry.szExeFile) - 1);
        std::copy_n(name.AsView().begin(), length, entry.szExeFile);
        entry.szExeFile[length] = 0;
        return true;
    }

    std::mutex mGate;
    std::vector<TProcess> mProcesses;
    std::size_t mNext = 0;
};

} // namespace

} // namespace Host

HANDLE CreateToolhelp32Snapshot(unsigned long flags, unsigned long /*id*/)
{
    if (flags != TH32CS_SNAPPROCESS) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    const std::unique_ptr<DIR, Host::TCloseFolder> folder(opendir("/proc"));
    if (folder == nullptr) {
        Host::FailErrno();
        return INVALID_HANDLE_VALUE;
    }
    std::vector<Host::TProcess> processes;
    while (const dirent* entry = readdir(folder.get())) {
        const auto id = Host::NumberOf(entry->d_name);
        if (auto process = id ? Host::ReadProcess(dirfd(folder.get()), *id) : std::nullopt) {
            processes.push_back(std::move(*process));
        }
    }
    return Host::OpenHandle(std::make_shared<Host::CSnapshot>(std::move(processes)));
}

bool Process32FirstW(HANDLE handle, tagPROCESSENTRY32W* entry)
{
    const auto snapshot = Host::ObjectOf<Host::CSnapshot>(handle);
    return snapshot != nullptr && snapshot->First(*entry);
}

bool Process32NextW(HANDLE handle, tagPROCESSENTRY32W* entry)
{
    const auto snapshot = Host::ObjectOf<Host::CSnapshot>(handle);
    return snapshot != nullptr && snapshot->Next(*entry);
}
