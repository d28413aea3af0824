// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Ioutils.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_UserFiles.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

#include <algorithm>

namespace Ioutils
{

using System::UnicodeString;
using System::WideChar;

namespace
{

constexpr std::u16string_view ForbiddenInPaths = u"\"<>|";
constexpr std::u16string_view ForbiddenInNames = u"\"<>|*/:?\\";

void CheckPath(const UnicodeString& path)
{
    if (path.Pos(WideChar()) != 0) {
        throw Sysutils::EArgumentException(u"Invalid characters in path");
    }
}

bool IsControl(WideChar character)
{
    return character < u' ';
}

std::vector<WideChar> WithControls(std::u16string_view forbidden)
{
    std::vector<WideChar> characters;
    for (WideChar control = 0; IsControl(control); ++control) {
        characters.push_back(control);
    }
    characters.insert(characters.end(), forbidden.begin(), forbidden.end());
    return characters;
}

template <class IsValid>
bool AllValid(const UnicodeString& text, bool useWildcards, IsValid isValid)
{
    return std::ranges::all_of(text.AsView(), [&](WideChar character) {
        return character == u'*' || character == u'?' ? useWildcards : isValid(character);
    });
}

} // namespace

UnicodeString TPath::Combine(const UnicodeString& first, const UnicodeString& second)
{
    CheckPath(first);
    CheckPath(second);
    if (first.IsEmpty() || IsPathRooted(second)) {
        return second;
    }
    if (second.IsEmpty()) {
        return first;
    }
    // "X:" without a separator means the current folder of the drive, and still does with a name behind it.
    const bool isDriveAlone = first.Length() == 2 && Sysutils::ExtractFileDrive(first) == first;
    return (isDriveAlone ? first : Sysutils::IncludeTrailingPathDelimiter(first)) + second;
}

UnicodeString TPath::GetFullPath(const UnicodeString& path)
{
    CheckPath(path);
    if (path.IsEmpty()) {
        throw Sysutils::EArgumentException(u"Path is empty");
    }
    return Sysutils::ExpandFileName(path);
}

UnicodeString TPath::GetFileName(const UnicodeString& path)
{
    CheckPath(path);
    return Sysutils::ExtractFileName(path);
}

UnicodeString TPath::GetFileNameWithoutExtension(const UnicodeString& path)
{
    return Sysutils::ChangeFileExt(GetFileName(path), UnicodeString());
}

UnicodeString TPath::GetExtension(const UnicodeString& path)
{
    CheckPath(path);
    const UnicodeString extension = Sysutils::ExtractFileExt(path);
    return extension.Length() > 1 ? extension : UnicodeString();
}

bool TPath::HasExtension(const UnicodeString& path)
{
    return !GetExtension(path).IsEmpty();
}

UnicodeString TPath::ChangeExtension(const UnicodeString& path, const UnicodeString& extension)
{
    CheckPath(path);
    CheckPath(extension);
    if (path.IsEmpty()) {
        return {};
    }
    if (extension.IsEmpty() || extension[1] == ExtensionSeparatorChar) {
        return Sysutils::ChangeFileExt(path, extension);
    }
    return Sysutils::ChangeFileExt(path, ExtensionSeparatorChar + extension);
}

UnicodeString TPath::GetDirectoryName(const UnicodeString& path)
{
    CheckPath(path);
    return Sysutils::ExtractFileDir(path);
}

UnicodeString TPath::GetPathRoot(const UnicodeString& path)
{
    CheckPath(path);
    const UnicodeString drive = Sysutils::ExtractFileDrive(path);
    const int length = drive.Length();
    if (length <= 2 && Sysutils::IsPathDelimiter(path, length + 1)) {
        return path.SubString(1, length + 1);
    }
    return drive;
}

bool TPath::IsPathRooted(const UnicodeString& path)
{
    CheckPath(path);
    return Sysutils::IsPathDelimiter(path, 1) || !Sysutils::ExtractFileDrive(path).IsEmpty();
}

bool TPath::IsExtendedPrefixed(const UnicodeString& path)
{
    return path.AsView().starts_with(u"\\\\?\\");
}

UnicodeString TPath::GetTempPath()
{
    UnicodeString folder = Host::EnvironmentPath("TMPDIR");
    if (folder.IsEmpty()) {
        folder = u"\\tmp";
    }
    return Sysutils::IncludeTrailingPathDelimiter(folder);
}

UnicodeString TPath::GetTempFileName()
{
    return Host::MakeTempFile(GetTempPath(), u"tmp");
}

UnicodeString TPath::GetHomePath()
{
    const UnicodeString folder = Host::HomeFolder();
    return folder.Length() > 1 ? Sysutils::ExcludeTrailingPathDelimiter(folder) : folder;
}

bool TPath::HasValidPathChars(const UnicodeString& path, bool useWildcards)
{
    return AllValid(path, useWildcards, IsValidPathChar);
}

bool TPath::HasValidFileNameChars(const UnicodeString& name, bool useWildcards)
{
    return AllValid(name, useWildcards, IsValidFileNameChar);
}

bool TPath::IsValidPathChar(WideChar character)
{
    return !IsControl(character) && ForbiddenInPaths.find(character) == std::u16string_view::npos;
}

bool TPath::IsValidFileNameChar(WideChar character)
{
    return !IsControl(character) && ForbiddenInNames.find(character) == std::u16string_view::npos;
}

std::vector<WideChar> TPath::GetInvalidPathChars()
{
    return WithControls(ForbiddenInPaths);
}

std::vector<WideChar> TPath::GetInvalidFileNameChars()
{
    return WithControls(ForbiddenInNames);
}

} // namespace Ioutils
