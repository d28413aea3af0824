// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Mails to write: the user's mail program opens with them, and the user sends them. No shell reads the texts.
//
//     BTL::ExecEMailTo(u"support@example.org", u"Question", u"Dear colleagues,\n");
//     BTL::SendEMail("Report", text, "", "", "Support", "support@example.org", "", "", true);

/// Opens a mail to `address`, as "mailto:" and the address, with no character of it escaped. Neither a
/// missing mail program nor what becomes of the mail is told.
TRS8_BTL_API void ExecEMailTo(const System::UnicodeString& address);
/// As `ExecEMailTo` of the address alone, with "?subject=" and a subject, unless that is empty, and "&body="
/// and a body, unless that is empty, behind it. A body without a subject thus stands right behind the
/// address.
TRS8_BTL_API void ExecEMailTo(const System::UnicodeString& address, const System::UnicodeString& subject,
                              const System::UnicodeString& body);

/// Hands a mail to the user's mail program, which shows it before it is sent; an empty second address means
/// one recipient. The result is that of `Mapi::MapiSendMail`, 0 once the helper of the desktop is started.
/// For any other one a box of the library's texts tells the reason first. `dialog` asks for the mail to be
/// shown, which happens here in any case, and the user chooses the sender. Of the main thread.
TRS8_BTL_API unsigned long SendEMail(const System::AnsiString& subject, const System::AnsiString& text,
                                     const System::AnsiString& fromName,
                                     const System::AnsiString& fromAddress, const System::AnsiString& toName,
                                     const System::AnsiString& toAddress,
                                     const System::AnsiString& secondName,
                                     const System::AnsiString& secondAddress, bool dialog);

} // namespace BTL
