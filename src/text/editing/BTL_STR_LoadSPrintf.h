// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/sysutils/System_Printf.h"

namespace BTL
{

/// The string resource `id` as a format, filled. A format that misfits its arguments raises
/// `Sysutils::EConvertError`.
///
///     const Sysutils::TStringResources texts({{100, u"%s: %d of %d"}});
///     const auto line = BTL::LoadSPrintf(100, u"read", 3, 5);     // "read: 3 of 5"
TRS8_BTL_API System::UnicodeString LoadSPrintf_V(int id, System::TVarArgs arguments);
TRS8_BTL_API System::AnsiString LoadSPrintfA_V(int id, System::TVarArgs arguments);

/// As `LoadSPrintf_V`, with the arguments one by one.
template <class... Arguments>
System::UnicodeString LoadSPrintf(int id, const Arguments&... arguments)
{
    return LoadSPrintf_V(id, {arguments...});
}

/// As `LoadSPrintfA_V`, with the arguments one by one.
template <class... Arguments>
System::AnsiString LoadSPrintfA(int id, const Arguments&... arguments)
{
    return LoadSPrintfA_V(id, {arguments...});
}

} // namespace BTL
