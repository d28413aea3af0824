// SPDX-License-Identifier: MIT
#include "platform/host/Host_Path.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/host/Host_Error.h"
#include "platform/host/internal/Host_PathText.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>

#include <unicode/utf16.h>
#include <unicode/utf8.h>
#include <unistd.h>

namespace Sysutils
{

namespace
{

constexpr char16_t ByteSurrogate = 0xDC00;

struct DriveTable
{
    std::mutex guard;
    std::array<std::string, 26> roots;

    DriveTable() { roots['C' - 'A'].push_back('/'); }
};

/// Never destroyed: streams and log files may open paths when the process ends.
DriveTable& Drives()
{
    static auto* const drives = new DriveTable;
    return *drives;
}

std::optional<std::size_t> DriveIndex(char16_t letter)
{
    if (!System::Detail::IsAsciiLetter(letter)) {
        return std::nullopt;
    }
    return System::Detail::AsciiUpper(letter) - u'A';
}

bool HasDrive(std::u16string_view path)
{
    return path.size() >= 2 && path[1] == u':' && DriveIndex(path[0]);
}

/// Whether U+DC00 + `byte` is a form that `FromHostPath` gives.
bool IsKeptByte(char16_t unit)
{
    return (unit >= 0xDC80 && unit <= 0xDCFF) || unit == ByteSurrogate + '\\' || unit == ByteSurrogate + ':';
}

void AppendUtf8(std::string& bytes, UChar32 character)
{
    char encoded[U8_MAX_LENGTH];
    int32_t length = 0;
    U8_APPEND_UNSAFE(encoded, length, character);
    bytes.append(encoded, static_cast<std::size_t>(length));
}

bool AppendHostBytes(std::string& bytes, std::u16string_view path)
{
    for (std::size_t i = 0; i < path.size(); ++i) {
        const char16_t unit = path[i];
        if (Detail::IsPathSeparator(unit)) {
            bytes += '/';
        } else if (U16_IS_LEAD(unit) && i + 1 < path.size() && U16_IS_TRAIL(path[i + 1])) {
            AppendUtf8(bytes, U16_GET_SUPPLEMENTARY(unit, path[i + 1]));
            ++i;
        } else if (IsKeptByte(unit)) {
            bytes += static_cast<char>(unit - ByteSurrogate);
        } else if (unit == 0 || U16_IS_SURROGATE(unit)) {
            return false;
        } else {
            AppendUtf8(bytes, unit);
        }
    }
    return true;
}

bool CurrentDirectoryIsIn(const std::string& root)
{
    const std::unique_ptr<char, decltype(&std::free)> current(::getcwd(nullptr, 0), &std::free);
    if (!current) {
        return false;
    }
    const std::string_view folder = current.get();
    return root == "/" || folder == root || (folder.starts_with(root) && folder[root.size()] == '/');
}

/// The start of a path on `root`, to which `rest`, the path behind the drive, is appended.
std::string DriveStart(const std::string& root, std::u16string_view rest)
{
    const bool rooted = !rest.empty() && Detail::IsPathSeparator(rest[0]);
    if (!rooted && CurrentDirectoryIsIn(root)) {
        return rest.empty() ? "." : std::string();
    }
    if (root == "/") {
        return rooted ? std::string() : root;
    }
    return rooted || rest.empty() ? root : root + "/";
}

std::string NoHostPath(unsigned long code)
{
    SetLastError(code);
    return {};
}

} // namespace

std::string HostPath(const System::UnicodeString& path)
{
    std::u16string_view rest = path.AsView();
    if (rest.empty()) {
        return NoHostPath(ERROR_PATH_NOT_FOUND);
    }
    if (rest.starts_with(u"\\\\?\\") && HasDrive(rest.substr(4))) {
        rest.remove_prefix(4);
    }
    std::string bytes;
    if (HasDrive(rest)) {
        const std::string root = GetDrive(rest[0]);
        rest.remove_prefix(2);
        if (root.empty()) {
            return NoHostPath(ERROR_PATH_NOT_FOUND);
        }
        bytes = DriveStart(root, rest);
    }
    bytes.reserve(bytes.size() + rest.size());
    return AppendHostBytes(bytes, rest) ? bytes : NoHostPath(ERROR_INVALID_NAME);
}

System::UnicodeString FromHostPath(std::string_view hostPath)
{
    while (hostPath.starts_with("//")) {
        hostPath.remove_prefix(1);
    }
    System::UnicodeString text(System::Detail::FromHostName(hostPath));
    std::replace(text.UniqueData(), text.UniqueData() + text.Length(), u'/', u'\\');
    return text;
}

bool SetDrive(System::WideChar letter, std::string_view hostRoot)
{
    const auto index = DriveIndex(letter);
    if (!index || (!hostRoot.empty() && !hostRoot.starts_with('/')) ||
        hostRoot.find('\0') != std::string_view::npos) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    while (hostRoot.size() > 1 && hostRoot.ends_with('/')) {
        hostRoot.remove_suffix(1);
    }
    DriveTable& drives = Drives();
    const std::lock_guard lock(drives.guard);
    drives.roots[*index] = hostRoot;
    return true;
}

std::string GetDrive(System::WideChar letter)
{
    const auto index = DriveIndex(letter);
    if (!index) {
        return {};
    }
    DriveTable& drives = Drives();
    const std::lock_guard lock(drives.guard);
    return drives.roots[*index];
}

} // namespace Sysutils
