// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Types.h"

namespace Typinfo
{

TTypeInfo GEnumType<Forms::TFormBorderStyle>::Make()
{
    return EnumType(u"TFormBorderStyle",
                    {u"bsNone", u"bsSingle", u"bsSizeable", u"bsDialog", u"bsToolWindow", u"bsSizeToolWin"});
}

TTypeInfo GEnumType<Forms::TBorderIcon>::Make()
{
    return EnumType(u"TBorderIcon", {u"biSystemMenu", u"biMinimize", u"biMaximize", u"biHelp"});
}

TTypeInfo GEnumType<Forms::TPosition>::Make()
{
    return EnumType(u"TPosition",
                    {u"poDesigned", u"poDefault", u"poDefaultPosOnly", u"poDefaultSizeOnly",
                     u"poScreenCenter", u"poDesktopCenter", u"poMainFormCenter", u"poOwnerFormCenter"});
}

TTypeInfo GEnumType<Forms::TWindowState>::Make()
{
    return EnumType(u"TWindowState", {u"wsNormal", u"wsMinimized", u"wsMaximized"});
}

TTypeInfo GEnumType<Forms::TFormStyle>::Make()
{
    return EnumType(u"TFormStyle", {u"fsNormal", u"fsMDIChild", u"fsMDIForm", u"fsStayOnTop"});
}

} // namespace Typinfo
