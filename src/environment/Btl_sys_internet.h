// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Mails that the user writes: the user's mail program opens with them. `ExecHttp` opens addresses of the web.
//
//     BTL::ExecEMailTo(u"support@example.org", u"Question", u"Dear colleagues,\n");

/// Opens a mail to `address`, as "mailto:" and the address, with no character of it escaped. Neither a
/// missing mail program nor what becomes of the mail is told.
TRS8_BTL_API void ExecEMailTo(const System::UnicodeString& address);
/// As `ExecEMailTo` of the address alone, with "?subject=" and a subject, unless that is empty, and "&body="
/// and a body, unless that is empty, behind it. A body without a subject thus stands right behind the
/// address.
TRS8_BTL_API void ExecEMailTo(const System::UnicodeString& address, const System::UnicodeString& subject,
                              const System::UnicodeString& body);

} // namespace BTL
