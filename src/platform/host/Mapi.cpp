// SPDX-License-Identifier: MIT
#include "platform/host/Mapi.h"

#include "platform/base/System_String.h"
#include "platform/host/internal/Host_ShellFile.h"
#include "platform/host/internal/Host_SpawnApart.h"

#include <cerrno>
#include <future>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace Mapi
{

namespace
{

using Arguments = std::vector<std::string>;

std::string Utf8(const char* text)
{
    return System::ToUtf8(System::UnicodeString(text));
}

/// Without the kind of address that may stand in front.
std::string PlainAddress(const char* text)
{
    const System::UnicodeString address(text);
    for (const char16_t* kind : {u"smtp:", u"mailto:"}) {
        const System::UnicodeString head(kind);
        if (address.SubString(1, head.Length()).LowerCase() == head) {
            return System::ToUtf8(address.SubString(head.Length() + 1));
        }
    }
    return System::ToUtf8(address);
}

/// The helper refuses an option without a value.
void AddOption(Arguments& arguments, const char* name, const std::string& value)
{
    if (!value.empty()) {
        arguments.insert(arguments.end(), {name, value});
    }
}

void AddRecipient(Arguments& arguments, const std::string& address)
{
    // Only what looks like an address may stand alone; anything else could be an option.
    if (address.find('@') != std::string::npos && !address.starts_with('-')) {
        arguments.push_back(address);
    } else {
        AddOption(arguments, "--to", address);
    }
}

unsigned long AddRecipients(Arguments& arguments, std::span<const MapiRecipDesc> recipients)
{
    for (const MapiRecipDesc& recipient : recipients) {
        const std::string address = PlainAddress(recipient.lpszAddress);
        switch (recipient.ulRecipClass) {
        case MAPI_TO:
            AddRecipient(arguments, address);
            break;
        case MAPI_CC:
            AddOption(arguments, "--cc", address);
            break;
        case MAPI_BCC:
            AddOption(arguments, "--bcc", address);
            break;
        default:
            return MAPI_E_BAD_RECIPTYPE;
        }
    }
    return SUCCESS_SUCCESS;
}

unsigned long AddFiles(Arguments& arguments, std::span<const MapiFileDesc> files)
{
    for (const MapiFileDesc& file : files) {
        const std::string path = Host::AbsolutePath(file.lpszPathName, {});
        if (path.empty() || access(path.c_str(), F_OK) != 0) {
            return MAPI_E_ATTACHMENT_NOT_FOUND;
        }
        if (access(path.c_str(), R_OK) != 0) {
            return MAPI_E_ATTACHMENT_OPEN_FAILURE;
        }
        AddOption(arguments, "--attach", path);
    }
    return SUCCESS_SUCCESS;
}

unsigned long ResultFromErrno(int error)
{
    switch (error) {
    case 0:
        return SUCCESS_SUCCESS;
    case ENOMEM:
        return MAPI_E_INSUFFICIENT_MEMORY;
    case E2BIG:
        return MAPI_E_TEXT_TOO_LARGE;
    default:
        return MAPI_E_FAILURE;
    }
}

/// The items of a list of the message, which may be null.
template <class T>
std::span<const T> Items(const T* items, unsigned long count)
{
    return items == nullptr ? std::span<const T>() : std::span(items, count);
}

} // namespace

unsigned long MapiSendMail(unsigned long /*session*/, void* /*window*/, const MapiMessage* message,
                           unsigned long /*flags*/, unsigned long /*reserved*/)
{
    if (message == nullptr) {
        return MAPI_E_FAILURE;
    }
    Arguments arguments{"--utf8"};
    AddOption(arguments, "--subject", Utf8(message->lpszSubject));
    AddOption(arguments, "--body", Utf8(message->lpszNoteText));
    if (const auto result = AddFiles(arguments, Items(message->lpFiles, message->nFileCount))) {
        return result;
    }
    if (const auto result = AddRecipients(arguments, Items(message->lpRecips, message->nRecipCount))) {
        return result;
    }
    std::future<int> exitCode;
    return ResultFromErrno(Host::SpawnHelper("xdg-email", std::move(arguments), {}, exitCode));
}

} // namespace Mapi
