// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

/// Hands a mail to the user's mail program, which shows it before it is sent; an empty second address means
/// one recipient. The result is that of `Mapi::MapiSendMail`, 0 once the helper of the desktop is started.
/// For any other one a box of the library's texts tells the reason first. `dialog` asks for the mail to be
/// shown, which happens here in any case, and the user chooses the sender. Of the main thread.
///
///     if (BTL::SendEMail("Report", text, "", "", "Support", "support@example.org", "", "", true) == 0) { ...
///     }
TRS8_BTL_API unsigned long SendEMail(const System::AnsiString& subject, const System::AnsiString& text,
                                     const System::AnsiString& fromName,
                                     const System::AnsiString& fromAddress, const System::AnsiString& toName,
                                     const System::AnsiString& toAddress,
                                     const System::AnsiString& secondName,
                                     const System::AnsiString& secondAddress, bool dialog);

} // namespace BTL
