// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

namespace WIN
{

/// The system's description of `code`, as the system gives it; "The function 'FormatMessage' fails." for a
/// code that it can't describe.
TRS8_BTL_API System::UnicodeString GetSystemMessage(unsigned long code);
/// As `GetSystemMessage`.
TRS8_BTL_API System::UnicodeString GetErrorMessage(unsigned long code);
/// What `code` means in a context, such as "ShellExecute", by the error texts of the program; an empty
/// section gives the system's description. Without error texts it is "WIN-Error-IDS File is missing.".
TRS8_BTL_API System::UnicodeString GetErrorMessage(unsigned long code, const System::UnicodeString& section);
/// The system's description of the thread's last error.
TRS8_BTL_API System::UnicodeString GetLastError();

/// A failed system call.
///
///     if (!CopyFileW(from, to, true)) {
///         WIN::ThrowLastError();                                  // `XLastError`, with the host's words
///     }
class TRS8_BTL_API XWinError : public Sysutils::Exception
{
public:
    /// The message is the system's description of `code`.
    explicit XWinError(unsigned long code);
    /// The message is that of `GetErrorMessage` for the code in the context `section`.
    XWinError(unsigned long code, const System::UnicodeString& section);
    /// Adds a line with `extra` to the message, unless `extra` is empty.
    XWinError(unsigned long code, const System::UnicodeString& section, const System::UnicodeString& extra);
    ~XWinError() override;

    /// The context that explains the code; empty for a code of the system.
    const System::UnicodeString& getSection() const noexcept { return mSection; }
    unsigned long getError() const noexcept { return mError; }

protected:
    XWinError(const System::UnicodeString& message, unsigned long code);

private:
    System::UnicodeString mSection;
    unsigned long mError;
};

/// The thread's last error as an exception; the constructors read the code themselves.
class TRS8_BTL_API XLastError : public XWinError
{
public:
    XLastError();
    /// Adds a line with `text` to the message, unless `text` is empty.
    explicit XLastError(const System::UnicodeString& text);
    ~XLastError() override;

private:
    XLastError(const System::UnicodeString& text, unsigned long code);
};

/// Raises `XWinError` with the system's description of `code`, also for 0.
[[noreturn]] TRS8_BTL_API void ThrowSystemError(unsigned long code);
/// Raises `XWinError` with what `code` means in the context `section`, also for 0.
[[noreturn]] TRS8_BTL_API void ThrowSystemError(unsigned long code, const System::UnicodeString& section);

/// Raises `XLastError` if the thread's last error isn't 0. While the application terminates nobody could
/// handle an exception any more, so a box tells the error and the function returns.
TRS8_BTL_API void ThrowLastError();
/// As `ThrowLastError`, but with the place of the fault in the message.
TRS8_BTL_API void ThrowLastError(const char* file, int line);

/// How this layer shows a box; the message boxes of the language layer take its place.
using FShowBox = int (*)(const System::WideChar* text, const System::WideChar* caption, int flags);
TRS8_BTL_API extern FShowBox ShowBox;

/// What a code means in a context that isn't empty; the language layer reads it from the program's error
/// texts.
using FGetSectionMessage = System::UnicodeString (*)(unsigned long code,
                                                     const System::UnicodeString& section);
TRS8_BTL_API extern FGetSectionMessage GetSectionMessage;

} // namespace WIN
