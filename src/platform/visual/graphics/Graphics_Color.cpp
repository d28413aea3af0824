// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Color.h"

#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/filer/Classes_IntegerConsts.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/internal/Graphics_Idents.h"

namespace Graphics
{

namespace
{

constexpr TIdent Colors[] = {{u"clBlack", clBlack},
                             {u"clMaroon", clMaroon},
                             {u"clGreen", clGreen},
                             {u"clOlive", clOlive},
                             {u"clNavy", clNavy},
                             {u"clPurple", clPurple},
                             {u"clTeal", clTeal},
                             {u"clGray", clGray},
                             {u"clSilver", clSilver},
                             {u"clRed", clRed},
                             {u"clLime", clLime},
                             {u"clYellow", clYellow},
                             {u"clBlue", clBlue},
                             {u"clFuchsia", clFuchsia},
                             {u"clAqua", clAqua},
                             {u"clWhite", clWhite},
                             {u"clMoneyGreen", clMoneyGreen},
                             {u"clSkyBlue", clSkyBlue},
                             {u"clCream", clCream},
                             {u"clMedGray", clMedGray},
                             {u"clActiveBorder", clActiveBorder},
                             {u"clActiveCaption", clActiveCaption},
                             {u"clAppWorkSpace", clAppWorkSpace},
                             {u"clBackground", clBackground},
                             {u"clBtnFace", clBtnFace},
                             {u"clBtnHighlight", clBtnHighlight},
                             {u"clBtnShadow", clBtnShadow},
                             {u"clBtnText", clBtnText},
                             {u"clCaptionText", clCaptionText},
                             {u"clDefault", clDefault},
                             {u"clGradientActiveCaption", clGradientActiveCaption},
                             {u"clGradientInactiveCaption", clGradientInactiveCaption},
                             {u"clGrayText", clGrayText},
                             {u"clHighlight", clHighlight},
                             {u"clHighlightText", clHighlightText},
                             {u"clHotLight", clHotLight},
                             {u"clInactiveBorder", clInactiveBorder},
                             {u"clInactiveCaption", clInactiveCaption},
                             {u"clInactiveCaptionText", clInactiveCaptionText},
                             {u"clInfoBk", clInfoBk},
                             {u"clInfoText", clInfoText},
                             {u"clMenu", clMenu},
                             {u"clMenuBar", clMenuBar},
                             {u"clMenuHighlight", clMenuHighlight},
                             {u"clMenuText", clMenuText},
                             {u"clNone", clNone},
                             {u"clScrollBar", clScrollBar},
                             {u"cl3DDkShadow", cl3DDkShadow},
                             {u"cl3DLight", cl3DLight},
                             {u"clWindow", clWindow},
                             {u"clWindowFrame", clWindowFrame},
                             {u"clWindowText", clWindowText},
                             // Read, but never written: their colours have other names.
                             {u"clLtGray", clLtGray},
                             {u"clDkGray", clDkGray}};

/// Whether the colour is one of the desktop, by its number.
bool IsSystemColor(TColor color)
{
    return (static_cast<unsigned>(color) & 0xFF000000U) == 0xFF000000U;
}

/// Lets form resources have the names.
struct TLinkToFiler
{
    TLinkToFiler()
    {
        Classes::RegisterIntegerConsts(Typinfo::TypeInfoOf<TColor>(), &IdentToColor, &ColorToIdent);
    }
};

const TLinkToFiler linkToFiler;

} // namespace

bool ColorToIdent(int color, System::UnicodeString& ident)
{
    return FindIdent(Colors, color, ident);
}

bool IdentToColor(const System::UnicodeString& ident, int& color)
{
    return FindValue(Colors, ident, color);
}

System::UnicodeString ColorToString(TColor color)
{
    System::UnicodeString ident;
    return ColorToIdent(color, ident) ? ident : u"$" + Sysutils::IntToHex(int{color}, 8);
}

TColor StringToColor(const System::UnicodeString& text)
{
    int color = 0;
    return TColor(IdentToColor(text, color) ? color : Sysutils::StrToInt(text));
}

void GetColorValues(const System::TClosure<void(const System::UnicodeString&)>& call)
{
    for (const TIdent& color : Colors) {
        call(color.name);
    }
}

Toolkits::TPixel ColorToPixel(TColor color)
{
    const auto value = static_cast<unsigned>(color);
    if (IsSystemColor(color)) {
        return Toolkits::CurrentToolkit().SystemColor(static_cast<int>(value & 0xFFU));
    }
    return Toolkits::OpaquePixel(value, value >> 8U, value >> 16U);
}

int ColorToRGB(TColor color)
{
    return IsSystemColor(color) ? int{PixelToColor(ColorToPixel(color))} : color & 0xFFFFFF;
}

} // namespace Graphics

namespace Typinfo
{

TTypeInfo GEnumType<Graphics::TColor>::Make()
{
    return {.Kind = tkInteger,
            .Name = u"TColor",
            .MinValue = std::numeric_limits<int>::min(),
            .MaxValue = std::numeric_limits<int>::max()};
}

const TTypeInfo* GPropTraits<Graphics::TColor>::TypeInfo()
{
    static const auto* const type = new TTypeInfo(GEnumType<Graphics::TColor>::Make());
    return type;
}

} // namespace Typinfo
