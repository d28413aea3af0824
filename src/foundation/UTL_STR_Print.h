// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_String.h"
#include "platform/runtime/sysutils/System_Printf.h"

namespace UTL
{

/// Formats by the rules of `System::PrintfA`, which raises `Sysutils::EConvertError` where the arguments
/// don't fit. A result of more than 511 characters is cut there. The result of a wide format is narrowed.
///
///     const UTL::CString line = UTL::SPrintf("%s: %.2f V", "U", 12.5); // "U: 12.50 V"
TRS8_BTL_API CString VSPrintf(const char* format, System::TVarArgs arguments);
TRS8_BTL_API CString VSPrintf(const System::WideChar* format, System::TVarArgs arguments);

/// As `VSPrintf`, with the arguments one by one.
template <class... Arguments>
CString SPrintf(const char* format, const Arguments&... arguments)
{
    return VSPrintf(format, System::TVarArgs{System::TVarRec(arguments)...});
}

/// As `VSPrintf` of a wide format, with the arguments one by one.
template <class... Arguments>
CString SPrintf(const System::WideChar* format, const Arguments&... arguments)
{
    return VSPrintf(format, System::TVarArgs{System::TVarRec(arguments)...});
}

} // namespace UTL
