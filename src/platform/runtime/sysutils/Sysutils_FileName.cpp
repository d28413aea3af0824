// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_FileName.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_PathText.h"
#include "platform/runtime/sysutils/internal/Sysutils_FileParts.h"

#include <algorithm>
#include <vector>

using System::UnicodeString;

namespace Sysutils
{

namespace
{

using View = std::u16string_view;

/// 2 behind the colon of a drive, else 0.
std::size_t DriveLength(View path)
{
    return path.size() >= 2 && path[1] == u':' && System::Detail::IsAsciiLetter(path[0]) ? 2 : 0;
}

/// Where the name begins.
std::size_t NameStart(View path)
{
    const auto separator = path.find_last_of(u"\\/");
    return separator == View::npos ? DriveLength(path) : separator + 1;
}

/// Where the dot of the extension is; the end if there is none.
std::size_t ExtensionStart(View path)
{
    const auto dot = path.find_last_of(u'.');
    return dot == View::npos || dot < NameStart(path) ? path.size() : dot;
}

std::vector<View> Parts(View path)
{
    std::vector<View> parts;
    while (!path.empty()) {
        const auto end = std::min(path.find_first_of(u"\\/"), path.size());
        if (end > 0) {
            parts.push_back(path.substr(0, end));
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

/// The parts with `.` and `..` resolved; `..` at the begin leads nowhere.
std::vector<View> ResolvedParts(View path)
{
    std::vector<View> resolved;
    for (const View part : Parts(path)) {
        if (part == u"..") {
            if (!resolved.empty()) {
                resolved.pop_back();
            }
        } else if (part != u".") {
            resolved.push_back(part);
        }
    }
    return resolved;
}

/// The folder from which a path without a separator behind its volume counts, without the volume: the current
/// directory, on a drive as far as it lies in there; else the root.
UnicodeString StartFolder(View volume)
{
    UnicodeString current = Host::CurrentDirectory();
    if (volume.empty()) {
        return current;
    }
    const std::string root = volume.size() == 2 ? GetDrive(volume[0]) : std::string();
    if (root == "/") {
        return current;
    }
    const std::string folder = HostPath(current);
    const bool isInside = !root.empty() && folder.starts_with(root + "/");
    return isInside ? FromHostPath(std::string_view(folder).substr(root.size())) : UnicodeString();
}

} // namespace

std::size_t Detail::VolumeLength(View path)
{
    if (path.size() < 3 || !Detail::IsPathSeparator(path[0]) || !Detail::IsPathSeparator(path[1]) ||
        Detail::IsPathSeparator(path[2])) {
        return DriveLength(path);
    }
    const auto server = path.find_first_of(u"\\/", 2);
    if (server == View::npos || server + 1 == path.size() || Detail::IsPathSeparator(path[server + 1])) {
        return 0;
    }
    return std::min(path.find_first_of(u"\\/", server + 1), path.size());
}

UnicodeString ExtractFilePath(const UnicodeString& path)
{
    return path.SubString(1, static_cast<int>(NameStart(path.AsView())));
}

UnicodeString ExtractFileDir(const UnicodeString& path)
{
    const View text = path.AsView();
    std::size_t end = NameStart(text);
    // "X:\" and "\" are roots and keep theirs; so does a double separator, which may begin a server's name.
    if (end > 1 && Detail::IsPathSeparator(text[end - 1]) && !Detail::IsPathSeparator(text[end - 2]) &&
        end - 1 != DriveLength(text)) {
        --end;
    }
    return path.SubString(1, static_cast<int>(end));
}

UnicodeString ExtractFileDrive(const UnicodeString& path)
{
    return path.SubString(1, static_cast<int>(Detail::VolumeLength(path.AsView())));
}

UnicodeString ExtractFileName(const UnicodeString& path)
{
    return UnicodeString(path.AsView().substr(NameStart(path.AsView())));
}

UnicodeString ExtractFileExt(const UnicodeString& path)
{
    return UnicodeString(path.AsView().substr(ExtensionStart(path.AsView())));
}

UnicodeString ChangeFileExt(const UnicodeString& path, const UnicodeString& extension)
{
    return path.SubString(1, static_cast<int>(ExtensionStart(path.AsView()))) + extension;
}

UnicodeString ExpandFileName(const UnicodeString& path)
{
    if (path.IsEmpty()) {
        return {};
    }
    const std::size_t volume = Detail::VolumeLength(path.AsView());
    const View local = path.AsView().substr(volume);
    const bool rooted = !local.empty() && Detail::IsPathSeparator(local[0]);
    const UnicodeString whole =
        rooted ? UnicodeString(local)
               : StartFolder(path.AsView().substr(0, volume)) + u"\\" + UnicodeString(local);
    UnicodeString full(path.AsView().substr(0, volume));
    std::replace(full.UniqueData(), full.UniqueData() + full.Length(), u'/', u'\\');
    const std::vector<View> parts = ResolvedParts(whole.AsView());
    for (const View part : parts) {
        full += u'\\';
        full.Append(part);
    }
    if (parts.empty() || (!local.empty() && Detail::IsPathSeparator(local.back()))) {
        full += u'\\';
    }
    return full;
}

UnicodeString ExtractRelativePath(const UnicodeString& base, const UnicodeString& path)
{
    if (ExtractFileDrive(base) != ExtractFileDrive(path)) {
        return path;
    }
    const std::size_t volume = Detail::VolumeLength(path.AsView());
    const auto folders = [volume](const UnicodeString& text) {
        const View view = text.AsView();
        return Parts(view.substr(volume, std::max(NameStart(view), volume) - volume));
    };
    const std::vector<View> from = folders(base);
    const std::vector<View> to = folders(path);
    const auto [up, down] = std::ranges::mismatch(from, to);
    UnicodeString result;
    std::for_each(up, from.end(), [&](View) { result += u"..\\"; });
    std::for_each(down, to.end(), [&](View part) {
        result.Append(part);
        result += u'\\';
    });
    return result + ExtractFileName(path);
}

UnicodeString IncludeTrailingPathDelimiter(const UnicodeString& path)
{
    return IsPathDelimiter(path, path.Length()) ? path : path + u'\\';
}

UnicodeString ExcludeTrailingPathDelimiter(const UnicodeString& path)
{
    return IsPathDelimiter(path, path.Length()) ? path.SubString(1, path.Length() - 1) : path;
}

bool IsPathDelimiter(const UnicodeString& path, int index)
{
    return index >= 1 && index <= path.Length() && Detail::IsPathSeparator(path[index]);
}

} // namespace Sysutils
