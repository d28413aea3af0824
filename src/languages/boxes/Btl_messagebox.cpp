// SPDX-License-Identifier: MIT
#include "languages/boxes/Btl_messagebox.h"

#include "os/WIN_LastError.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/Forms.h"
#include "text/grammar/BTL_STR_Escape.h"

namespace BTL
{

namespace
{

using System::TVarArgs;
using System::UnicodeString;
using System::WideChar;

constexpr int MaxFormattedLength = 4095;

UnicodeString Fill(const UnicodeString& format, TVarArgs arguments)
{
    return System::Printf(ApplyEscapeSequences(format), arguments).SubString(1, MaxFormattedLength);
}

[[maybe_unused]] const bool linked = [] {
    WIN::ShowBox = static_cast<WIN::FShowBox>(MessageBoxW);
    return true;
}();

} // namespace

int MessageBoxW(const WideChar* text, int flags)
{
    return MessageBoxW(text, nullptr, flags);
}

int MessageBoxW(const WideChar* text, const WideChar* caption, int flags)
{
    if (Forms::Application == nullptr) {
        return ::MessageBoxW(nullptr, text, caption, static_cast<unsigned>(flags));
    }
    return Forms::Application->MessageBox(text, caption, flags);
}

int MessageBox1(const UnicodeString& text, int flags)
{
    return MessageBoxW(text.c_str(), flags);
}

int MessageBox1_V(const UnicodeString& format, int flags, TVarArgs arguments)
{
    return MessageBox1(Fill(format, arguments), flags);
}

int MessageBox2_V(const UnicodeString& format, const UnicodeString& caption, int flags, TVarArgs arguments)
{
    return MessageBoxW(Fill(format, arguments).c_str(), caption.c_str(), flags);
}

int LoadMessageBox1(int resourceId, int flags)
{
    return MessageBox1(Sysutils::LoadStr(resourceId), flags);
}

int LoadMessageBox2(int resourceId, int captionId, int flags)
{
    return MessageBoxW(Sysutils::LoadStr(resourceId).c_str(), Sysutils::LoadStr(captionId).c_str(), flags);
}

int LoadMessageBox1_V(int resourceId, int flags, TVarArgs arguments)
{
    return MessageBox1_V(Sysutils::LoadStr(resourceId), flags, arguments);
}

int LoadMessageBox2_V(int resourceId, int captionId, int flags, TVarArgs arguments)
{
    return MessageBox2_V(Sysutils::LoadStr(resourceId), Sysutils::LoadStr(captionId), flags, arguments);
}

} // namespace BTL
