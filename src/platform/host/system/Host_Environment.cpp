// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_Environment.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_UserFiles.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include <unistd.h>

namespace Host
{

using System::UnicodeString;

namespace
{

bool IsSameName(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, {}, System::Detail::AsciiLower<char>,
                              System::Detail::AsciiLower<char>);
}

template <class Match>
std::optional<std::string_view> FindValue(Match isName)
{
    // A program that cleared its environment has no list at all.
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        const std::string_view text(*variable);
        const std::size_t equals = text.find('=');
        if (equals != std::string_view::npos && isName(text.substr(0, equals))) {
            return text.substr(equals + 1);
        }
    }
    return std::nullopt;
}

/// What the host knows under another name.
std::optional<UnicodeString> HostValue(std::string_view name)
{
    if (IsSameName(name, "USERPROFILE")) {
        return HomeFolder();
    }
    if (IsSameName(name, "TEMP") || IsSameName(name, "TMP")) {
        const UnicodeString folder = EnvironmentPath("TMPDIR");
        return folder.IsEmpty() ? UnicodeString(u"\\tmp") : folder;
    }
    return std::nullopt;
}

/// Gives the room that the text takes.
unsigned long CopyText(const UnicodeString& text, System::WideChar* buffer, unsigned long size)
{
    const auto room = static_cast<unsigned long>(text.Length()) + 1;
    if (buffer != nullptr && room <= size) {
        std::copy_n(text.c_str(), room, buffer);
    }
    return room;
}

} // namespace

bool FindVariable(const UnicodeString& name, UnicodeString& value)
{
    const std::string wanted = System::ToUtf8(name);
    if (wanted.empty()) {
        return false;
    }
    auto found = FindValue([&](std::string_view other) { return other == wanted; });
    if (!found) {
        found = FindValue([&](std::string_view other) { return IsSameName(other, wanted); });
    }
    if (found) {
        value = System::FromUtf8(*found);
        return true;
    }
    const auto known = HostValue(wanted);
    value = known.value_or(value);
    return known.has_value();
}

UnicodeString ExpandVariables(const UnicodeString& text)
{
    UnicodeString result;
    std::u16string_view rest = text.AsView();
    for (std::size_t begin = rest.find(u'%'); begin != std::u16string_view::npos; begin = rest.find(u'%')) {
        const std::size_t end = rest.find(u'%', begin + 1);
        if (end == std::u16string_view::npos) {
            break;
        }
        UnicodeString value;
        const bool isKnown = FindVariable(UnicodeString(rest.substr(begin + 1, end - begin - 1)), value);
        // The second sign may begin the name of a variable itself.
        const std::size_t stop = isKnown ? begin : end;
        result += UnicodeString(rest.substr(0, stop)) + value;
        rest.remove_prefix(isKnown ? end + 1 : end);
    }
    return result + UnicodeString(rest);
}

} // namespace Host

unsigned long GetEnvironmentVariableW(const System::WideChar* name, System::WideChar* buffer,
                                      unsigned long size)
{
    System::UnicodeString value;
    if (!Host::FindVariable(name, value)) {
        SetLastError(ERROR_ENVVAR_NOT_FOUND);
        return 0;
    }
    SetLastError(ERROR_SUCCESS);
    const unsigned long room = Host::CopyText(value, buffer, size);
    return room <= size ? room - 1 : room;
}

unsigned long ExpandEnvironmentStringsW(const System::WideChar* text, System::WideChar* buffer,
                                        unsigned long size)
{
    return Host::CopyText(Host::ExpandVariables(text), buffer, size);
}
