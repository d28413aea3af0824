// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/Stdctrls_ScrollStyle.h"

namespace Typinfo
{

TTypeInfo GEnumType<Stdctrls::TScrollStyle>::Make()
{
    return EnumType(u"TScrollStyle", {u"ssNone", u"ssHorizontal", u"ssVertical", u"ssBoth"});
}

} // namespace Typinfo
