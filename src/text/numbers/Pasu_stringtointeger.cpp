// SPDX-License-Identifier: MIT
#include "text/numbers/Pasu_stringtointeger.h"

#include "platform/base/numbers/Sysutils_Number.h"

namespace Pasu_stringtointeger
{

void StringToInteger(const System::UnicodeString& text, int& value, int& code)
{
    System::Val(text, value, code);
}

} // namespace Pasu_stringtointeger
