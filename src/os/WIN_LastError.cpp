// SPDX-License-Identifier: MIT
#include "os/WIN_LastError.h"

#include "platform/host/Host_Error.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/Forms.h"

namespace WIN
{

namespace
{

using System::UnicodeString;
using System::WideChar;

constexpr unsigned long MessageBufferSize = 2048;
constexpr unsigned long UserDefaultLanguage = 1024;

UnicodeString WithText(const UnicodeString& message, const UnicodeString& text)
{
    return text.IsEmpty() ? message : message + u'\n' + text;
}

int ShowPlainBox(const WideChar* text, const WideChar* caption, int flags)
{
    return MessageBoxW(nullptr, text, caption, static_cast<unsigned>(flags));
}

UnicodeString TellMissingTexts(unsigned long /*code*/, const UnicodeString& /*section*/)
{
    return u"WIN-Error-IDS File is missing.";
}

bool IsTerminating()
{
    return Forms::Application != nullptr && Forms::Application->getTerminated();
}

void RaiseOrShow(const UnicodeString& place)
{
    if (::GetLastError() == 0) {
        return;
    }
    if (!IsTerminating()) {
        throw XLastError(place);
    }
    ShowBox((place + GetLastError()).c_str(), u"LastError", MB_ICONSTOP);
}

} // namespace

constinit FShowBox ShowBox = ShowPlainBox;
constinit FGetSectionMessage GetSectionMessage = TellMissingTexts;

UnicodeString GetSystemMessage(unsigned long code)
{
    WideChar buffer[MessageBufferSize];
    const unsigned long length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code,
                                                  UserDefaultLanguage, buffer, MessageBufferSize, nullptr);
    if (length == 0) {
        return u"The function 'FormatMessage' fails.";
    }
    return {buffer, static_cast<int>(length)};
}

UnicodeString GetErrorMessage(unsigned long code)
{
    return GetSystemMessage(code);
}

UnicodeString GetErrorMessage(unsigned long code, const UnicodeString& section)
{
    return section.IsEmpty() ? GetSystemMessage(code) : GetSectionMessage(code, section);
}

UnicodeString GetLastError()
{
    return GetErrorMessage(::GetLastError());
}

XWinError::XWinError(unsigned long code) : XWinError(GetErrorMessage(code), code) {}

XWinError::XWinError(unsigned long code, const UnicodeString& section)
    : XWinError(code, section, UnicodeString())
{
}

XWinError::XWinError(unsigned long code, const UnicodeString& section, const UnicodeString& extra)
    : XWinError(WithText(GetErrorMessage(code, section), extra), code)
{
    mSection = section;
}

XWinError::XWinError(const UnicodeString& message, unsigned long code) : Exception(message), mError(code) {}

XWinError::~XWinError() = default;

XLastError::XLastError() : XLastError(UnicodeString()) {}

XLastError::XLastError(const UnicodeString& text) : XLastError(text, ::GetLastError()) {}

XLastError::XLastError(const UnicodeString& text, unsigned long code)
    : XWinError(WithText(GetErrorMessage(code), text), code)
{
}

XLastError::~XLastError() = default;

void ThrowSystemError(unsigned long code)
{
    throw XWinError(code);
}

void ThrowSystemError(unsigned long code, const UnicodeString& section)
{
    throw XWinError(code, section);
}

void ThrowLastError()
{
    RaiseOrShow(UnicodeString());
}

void ThrowLastError(const char* file, int line)
{
    RaiseOrShow(u"File:" + UnicodeString(file) + u"\nLine: " + UnicodeString(line) + u"\n");
}

} // namespace WIN
