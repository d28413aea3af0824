// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace WIN
{

/// What `code` means in the context `section`, which isn't empty, by the file "WIN_Error_German.ids" in the
/// folder of the error texts: the texts stand in a section for each context, under the code in decimal
/// digits, with escapes. The file is read anew at each call. "WIN-Error-IDS File is missing." without the
/// file, "Unexpected error 5 in ShellExecute." without the text. `GetErrorMessage` and the exceptions of
/// failed calls ask here.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ReadErrorText(unsigned long code,
                                                               const System::UnicodeString& section);

/// Takes the error texts from another folder, which ends with a separator, from now on; an empty one stands
/// for `BTL::GetProgramIDSPath()`, where they come from at first. Any thread may call it at any time.
///
///     WIN::SetErrorTextPath(BTL::GetProgramIDSPath() + u"English\\");
TRS8_BTL_API void SetErrorTextPath(const System::UnicodeString& path);

} // namespace WIN
