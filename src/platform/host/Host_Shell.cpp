// SPDX-License-Identifier: MIT
#include "platform/host/Host_Shell.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_ShellFile.h"
#include "platform/host/internal/Host_SpawnApart.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <future>
#include <optional>
#include <string>

using System::NativeInt;
using System::UnicodeString;

namespace
{

constexpr NativeInt Started = 42;

enum class Verb
{
    Open,
    /// Shows a folder, and nothing else.
    Explore,
    Print,
};

std::optional<Verb> FindVerb(const UnicodeString& text)
{
    const UnicodeString verb = text.LowerCase();
    if (verb.IsEmpty() || verb == u"open") {
        return Verb::Open;
    }
    if (verb == u"explore") {
        return Verb::Explore;
    }
    return verb == u"print" ? std::optional(Verb::Print) : std::nullopt;
}

/// Two letters at least, since one is a drive, and then the colon.
bool IsAddress(std::u16string_view text)
{
    const auto isSchemeCharacter = [](char16_t unit) {
        return System::Detail::IsAsciiLetter(unit) || System::Detail::IsAsciiDigit(unit) || unit == u'+' ||
               unit == u'-' || unit == u'.';
    };
    const auto end = std::ranges::find_if_not(text, isSchemeCharacter);
    const bool beginsWithLetter = !text.empty() && System::Detail::IsAsciiLetter(text[0]);
    return beginsWithLetter && end != text.end() && *end == u':' && end - text.begin() > 1;
}

/// An error as a result: what is above 32 would pass for success.
NativeInt Refusal(unsigned long error)
{
    constexpr unsigned long largest = 32;
    switch (error) {
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_CANT_RESOLVE_FILENAME:
        return ERROR_FILE_NOT_FOUND;
    default:
        return static_cast<NativeInt>(error <= largest ? error : ERROR_NOT_ENOUGH_MEMORY);
    }
}

NativeInt StartProgram(const std::string& path, const UnicodeString& parameters, const std::string& folder)
{
    std::vector<std::string> arguments;
    for (const UnicodeString& argument : Host::SplitArguments(parameters)) {
        arguments.push_back(System::ToUtf8(argument));
    }
    std::future<int> exitCode;
    const int error = Host::SpawnApart(path, std::move(arguments), folder, exitCode);
    return error == 0 ? Started : Refusal(Host::ErrorFromErrno(error));
}

/// `target` begins with `/` or with a scheme, so that it can't be taken for an option.
NativeInt HandTo(const char* helper, const std::string& target, const std::string& folder,
                 std::future<int>& exitCode)
{
    const int error = Host::SpawnHelper(helper, {target}, folder, exitCode);
    if (error == ENOENT) {
        return SE_ERR_NOASSOC;
    }
    return error == 0 ? Started : Refusal(Host::ErrorFromErrno(error));
}

/// Gives the helper some time to refuse the file.
NativeInt HandFileTo(const char* helper, const std::string& path, const std::string& folder)
{
    std::future<int> exitCode;
    const NativeInt result = HandTo(helper, path, folder, exitCode);
    if (result != Started || exitCode.wait_for(std::chrono::milliseconds(500)) != std::future_status::ready) {
        return result;
    }
    switch (exitCode.get()) {
    case 0:
        return Started;
    case 2:
        return ERROR_FILE_NOT_FOUND;
    default:
        return SE_ERR_NOASSOC;
    }
}

/// Web addresses go to the browser, those of mails to the mail program.
NativeInt OpenAddress(const UnicodeString& address, const std::string& folder)
{
    const UnicodeString mail = u"mailto:";
    std::future<int> exitCode;
    if (address.SubString(1, mail.Length()).LowerCase() != mail) {
        return HandTo("xdg-open", System::ToUtf8(address), folder, exitCode);
    }
    // The helper knows the scheme in small letters alone.
    const UnicodeString rest = address.SubString(mail.Length() + 1);
    return HandTo("xdg-email", System::ToUtf8(mail + rest), folder, exitCode);
}

NativeInt UseFileOrFolder(const UnicodeString& file, const UnicodeString& parameters,
                          const std::string& folder, Verb verb)
{
    const std::string path = Host::AbsolutePath(file, folder);
    if (path.empty()) {
        return Refusal(GetLastError());
    }
    const auto info = Host::QueryFile(Sysutils::FromHostPath(path));
    if (!info) {
        return Refusal(GetLastError());
    }
    const bool isFolder = (info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if ((verb == Verb::Explore && !isFolder) || (verb == Verb::Print && isFolder)) {
        return SE_ERR_NOASSOC;
    }
    if (verb == Verb::Print) {
        return HandFileTo("lp", path, folder);
    }
    return Host::IsProgram(path) ? StartProgram(path, parameters, folder)
                                 : HandFileTo("xdg-open", path, folder);
}

UnicodeString QuotedArgument(const UnicodeString& argument)
{
    const std::u16string_view text = argument.AsView();
    const auto needsQuotes = [](char16_t unit) { return unit == u'"' || System::Detail::IsAsciiSpace(unit); };
    if (!text.empty() && std::ranges::none_of(text, needsQuotes)) {
        return argument;
    }
    UnicodeString quoted = u'"';
    std::size_t backslashes = 0;
    for (const char16_t unit : text) {
        if (unit == u'"') {
            quoted += UnicodeString::StringOfChar(u'\\', static_cast<int>(backslashes) + 1);
        }
        backslashes = unit == u'\\' ? backslashes + 1 : 0;
        quoted += unit;
    }
    return quoted + UnicodeString::StringOfChar(u'\\', static_cast<int>(backslashes)) + u'"';
}

} // namespace

NativeInt ShellExecuteW(void* /*owner*/, const System::WideChar* verb, const System::WideChar* file,
                        const System::WideChar* parameters, const System::WideChar* directory, int /*show*/)
{
    const auto action = FindVerb(verb);
    const UnicodeString target(file);
    const UnicodeString start(directory);
    if (!action) {
        return SE_ERR_NOASSOC;
    }
    if (target.IsEmpty()) {
        return ERROR_FILE_NOT_FOUND;
    }
    std::string folder;
    if (!start.IsEmpty()) {
        const auto info = Host::QueryFile(start);
        if (!info || (info->attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            return ERROR_PATH_NOT_FOUND;
        }
        folder = Sysutils::HostPath(start);
    }
    // A name may hold a colon as well.
    const std::string path = Host::AbsolutePath(target, folder);
    const bool isThere = !path.empty() && Host::QueryFile(Sysutils::FromHostPath(path));
    if (*action != Verb::Print && IsAddress(target.AsView()) && !isThere) {
        return OpenAddress(target, folder);
    }
    return UseFileOrFolder(target, UnicodeString(parameters), folder, *action);
}

namespace Host
{

std::vector<UnicodeString> SplitArguments(const UnicodeString& text)
{
    std::vector<UnicodeString> arguments;
    UnicodeString current;
    bool quoted = false;
    bool begun = false;
    int backslashes = 0;
    const auto takeBackslashes = [&](int count) {
        current += UnicodeString::StringOfChar(u'\\', count);
        backslashes = 0;
    };
    for (const char16_t unit : text.AsView()) {
        if (unit == u'\\') {
            ++backslashes;
            begun = true;
            continue;
        }
        if (unit == u'"') {
            const bool isPlain = backslashes % 2 != 0;
            takeBackslashes(backslashes / 2);
            begun = true;
            if (isPlain) {
                current += unit;
            } else {
                quoted = !quoted;
            }
            continue;
        }
        takeBackslashes(backslashes);
        if (quoted || (unit != u' ' && unit != u'\t')) {
            current += unit;
            begun = true;
        } else if (begun) {
            arguments.push_back(std::exchange(current, {}));
            begun = false;
        }
    }
    takeBackslashes(backslashes);
    if (begun) {
        arguments.push_back(current);
    }
    return arguments;
}

UnicodeString JoinArguments(const std::vector<UnicodeString>& arguments)
{
    UnicodeString line;
    for (const UnicodeString& argument : arguments) {
        line += (&argument == arguments.data() ? UnicodeString() : UnicodeString(u' ')) +
                QuotedArgument(argument);
    }
    return line;
}

} // namespace Host
