// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_LoadSPrintf.h"

#include "platform/runtime/sysutils/Sysutils_Text.h"

namespace BTL
{

System::UnicodeString LoadSPrintf_V(int id, System::TVarArgs arguments)
{
    return System::Printf(Sysutils::LoadStr(id), arguments);
}

System::AnsiString LoadSPrintfA_V(int id, System::TVarArgs arguments)
{
    return System::PrintfA(Sysutils::LoadStr(id), arguments);
}

} // namespace BTL
