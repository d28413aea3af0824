// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/sysutils/System_Printf.h"

namespace BTL
{

// Boxes with a text of the caller's. `flags` and the result are those of the platform's box. Where no caption
// is given it is the application's title. All of them work also before the application object exists and
// after it is gone. A formatted text holds at most 4095 characters, the rest is cut; a format that misfits
// its arguments raises `Sysutils::EConvertError`.
//
//     BTL::MessageBox1_VA(u"%d files\\nread", MB_OK, 3);          // two lines
//     if (BTL::MessageBoxW(u"Go on?", MB_YESNO | MB_ICONQUESTION) == IDYES) { ... }

TRS8_BTL_API int MessageBoxW(const System::WideChar* text, int flags);
TRS8_BTL_API int MessageBoxW(const System::WideChar* text, const System::WideChar* caption, int flags);
TRS8_BTL_API int MessageBox1(const System::UnicodeString& text, int flags);

/// The format is filled after its escapes "\n", "\r", "\t" and "\\" are replaced.
TRS8_BTL_API int MessageBox1_V(const System::UnicodeString& format, int flags, System::TVarArgs arguments);
TRS8_BTL_API int MessageBox2_V(const System::UnicodeString& format, const System::UnicodeString& caption,
                               int flags, System::TVarArgs arguments);

/// The text is a string resource of the program; an unknown id gives an empty text.
TRS8_BTL_API int LoadMessageBox1(int resourceId, int flags);
TRS8_BTL_API int LoadMessageBox2(int resourceId, int captionId, int flags);
/// The string resource is the format.
TRS8_BTL_API int LoadMessageBox1_V(int resourceId, int flags, System::TVarArgs arguments);
TRS8_BTL_API int LoadMessageBox2_V(int resourceId, int captionId, int flags, System::TVarArgs arguments);

/// As `MessageBox1_V`, with the arguments one by one.
template <class... Arguments>
int MessageBox1_VA(const System::UnicodeString& format, int flags, const Arguments&... arguments)
{
    return MessageBox1_V(format, flags, {arguments...});
}

/// As `MessageBox2_V`, with the arguments one by one.
template <class... Arguments>
int MessageBox2_VA(const System::UnicodeString& format, const System::UnicodeString& caption, int flags,
                   const Arguments&... arguments)
{
    return MessageBox2_V(format, caption, flags, {arguments...});
}

/// As `LoadMessageBox1_V`, with the arguments one by one.
template <class... Arguments>
int LoadMessageBox1_VA(int resourceId, int flags, const Arguments&... arguments)
{
    return LoadMessageBox1_V(resourceId, flags, {arguments...});
}

/// As `LoadMessageBox2_V`, with the arguments one by one.
template <class... Arguments>
int LoadMessageBox2_VA(int resourceId, int captionId, int flags, const Arguments&... arguments)
{
    return LoadMessageBox2_V(resourceId, captionId, flags, {arguments...});
}

} // namespace BTL
