// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Print.h"

namespace UTL
{

namespace
{

/// What `SPrintf` gives at most.
constexpr int LongestPrinted = 511;

} // namespace

CString VSPrintf(const char* format, System::TVarArgs arguments)
{
    return System::PrintfA(format, arguments).SubString(1, LongestPrinted);
}

CString VSPrintf(const System::WideChar* format, System::TVarArgs arguments)
{
    return System::AnsiString(System::Printf(format, arguments)).SubString(1, LongestPrinted);
}

} // namespace UTL
