// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Buttons_Types.h"

namespace Typinfo
{

TTypeInfo GEnumType<Buttons::TButtonLayout>::Make()
{
    return EnumType(u"TButtonLayout", {u"blGlyphLeft", u"blGlyphRight", u"blGlyphTop", u"blGlyphBottom"});
}

TTypeInfo GEnumType<Buttons::TBitBtnKind>::Make()
{
    return EnumType(u"TBitBtnKind", {u"bkCustom", u"bkOK", u"bkCancel", u"bkHelp", u"bkYes", u"bkNo",
                                     u"bkClose", u"bkAbort", u"bkRetry", u"bkIgnore", u"bkAll"});
}

} // namespace Typinfo
