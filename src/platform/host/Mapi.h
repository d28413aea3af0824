// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

// Mails that the user's own mail program sends.
//
//     MapiRecipDesc to{.ulRecipClass = MAPI_TO, .lpszAddress = "support@example.org"};
//     MapiMessage message{.lpszSubject = "Report", .nRecipCount = 1, .lpRecips = &to};
//     if (MapiSendMail(0, nullptr, &message, 0, 0) != SUCCESS_SUCCESS) { ... }

namespace Mapi
{

/// The results of `MapiSendMail`.
inline constexpr unsigned long SUCCESS_SUCCESS = 0;
inline constexpr unsigned long MAPI_E_USER_ABORT = 1;
inline constexpr unsigned long MAPI_E_FAILURE = 2;
inline constexpr unsigned long MAPI_E_LOGIN_FAILURE = 3;
inline constexpr unsigned long MAPI_E_INSUFFICIENT_MEMORY = 5;
inline constexpr unsigned long MAPI_E_TOO_MANY_FILES = 9;
inline constexpr unsigned long MAPI_E_TOO_MANY_RECIPIENTS = 10;
inline constexpr unsigned long MAPI_E_ATTACHMENT_NOT_FOUND = 11;
inline constexpr unsigned long MAPI_E_ATTACHMENT_OPEN_FAILURE = 12;
inline constexpr unsigned long MAPI_E_UNKNOWN_RECIPIENT = 14;
inline constexpr unsigned long MAPI_E_BAD_RECIPTYPE = 15;
inline constexpr unsigned long MAPI_E_TEXT_TOO_LARGE = 18;
inline constexpr unsigned long MAPI_E_AMBIGUOUS_RECIPIENT = 21;

/// What a recipient record is for: who sends, who gets the mail, who gets a copy, and a hidden one.
inline constexpr unsigned long MAPI_ORIG = 0;
inline constexpr unsigned long MAPI_TO = 1;
inline constexpr unsigned long MAPI_CC = 2;
inline constexpr unsigned long MAPI_BCC = 3;

/// Flags of `MapiSendMail`: the user may log in, the user sees the mail first.
inline constexpr unsigned long MAPI_LOGON_UI = 1;
inline constexpr unsigned long MAPI_DIALOG = 8;

/// Sender or recipient of a mail. Texts are in the code page 1252; null counts as empty.
struct MapiRecipDesc
{
    unsigned long ulReserved = 0;
    /// `MAPI_ORIG` to `MAPI_BCC`.
    unsigned long ulRecipClass = MAPI_ORIG;
    const char* lpszName = nullptr;
    const char* lpszAddress = nullptr;
    unsigned long ulEIDSize = 0;
    void* lpEntryID = nullptr;
};

/// A file that goes with a mail.
struct MapiFileDesc
{
    unsigned long ulReserved = 0;
    unsigned long flFlags = 0;
    unsigned long nPosition = 0;
    /// The path of the file, in the code page 1252.
    const char* lpszPathName = nullptr;
    const char* lpszFileName = nullptr;
    void* lpFileType = nullptr;
};

/// A mail. Texts are in the code page 1252; null counts as empty.
struct MapiMessage
{
    unsigned long ulReserved = 0;
    const char* lpszSubject = nullptr;
    const char* lpszNoteText = nullptr;
    const char* lpszMessageType = nullptr;
    const char* lpszDateReceived = nullptr;
    const char* lpszConversationID = nullptr;
    unsigned long flFlags = 0;
    const MapiRecipDesc* lpOriginator = nullptr;
    unsigned long nRecipCount = 0;
    const MapiRecipDesc* lpRecips = nullptr;
    unsigned long nFileCount = 0;
    const MapiFileDesc* lpFiles = nullptr;
};

/// Opens the mail in the user's mail program, through `xdg-email`: the user always sees it and sends it, and
/// who sends it is the user's choice. Subject, text, addresses and files go over, names of recipients don't;
/// each is an argument of its own in UTF-8, which no shell reads. An address may begin with "SMTP:"; an empty
/// one is left out.
///
/// `SUCCESS_SUCCESS` once the helper is started, whose end isn't awaited; `MAPI_E_FAILURE` if there is none
/// or the message is null, `MAPI_E_BAD_RECIPTYPE` for a recipient of another class than `MAPI_TO` to
/// `MAPI_BCC`, `MAPI_E_ATTACHMENT_NOT_FOUND` or `MAPI_E_ATTACHMENT_OPEN_FAILURE` for a file that isn't there
/// or can't be read, `MAPI_E_TEXT_TOO_LARGE` for more than an argument holds, 128 kB. Session, window, flags
/// and the reserved number are not looked at.
[[nodiscard]] TRS8_BTL_API unsigned long MapiSendMail(unsigned long session, void* window,
                                                      const MapiMessage* message, unsigned long flags,
                                                      unsigned long reserved);

} // namespace Mapi
