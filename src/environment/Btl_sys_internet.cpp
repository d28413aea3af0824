// SPDX-License-Identifier: MIT
#include "environment/Btl_sys_internet.h"

#include "platform/host/Host_Shell.h"

namespace BTL
{

using System::UnicodeString;

void ExecEMailTo(const UnicodeString& address)
{
    ::ShellExecuteW(nullptr, u"open", (u"mailto:" + address).c_str(), nullptr, nullptr, SW_SHOWDEFAULT);
}

void ExecEMailTo(const UnicodeString& address, const UnicodeString& subject, const UnicodeString& body)
{
    UnicodeString target = u"mailto:" + address;
    if (!subject.IsEmpty()) {
        target += u"?subject=" + subject;
    }
    if (!body.IsEmpty()) {
        target += u"&body=" + body;
    }
    ::ShellExecuteW(nullptr, nullptr, target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

} // namespace BTL
