// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Types.h"

namespace Forms
{

bool IsAccel(System::Word character, const System::UnicodeString& caption)
{
    const std::u16string_view text = caption.AsView();
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') {
            continue;
        }
        ++i;
        if (text[i] != u'&') {
            const auto typed = static_cast<System::WideChar>(character);
            return System::UnicodeString(text[i]).UpperCase() == System::UnicodeString(typed).UpperCase();
        }
    }
    return false;
}

} // namespace Forms

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
