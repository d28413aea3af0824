// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/toolkit/PaintTypes.h"

namespace Graphics
{

/// A colour: 0x00BBGGRR with the parts blue, green and red, or a colour of the desktop by its number,
/// 0xFF000000 + number. The names of colours are in `ColorToIdent`.
///
///     font.setColor(clRed);
///     font.setColor(TColor(0x00C0DCC0));
///     UnicodeString name;
///     ColorToIdent(clWindowText, name);                           // "clWindowText"
enum TColor : int
{
    clBlack = 0x000000,
    clMaroon = 0x000080,
    clGreen = 0x008000,
    clOlive = 0x008080,
    clNavy = 0x800000,
    clPurple = 0x800080,
    clTeal = 0x808000,
    clGray = 0x808080,
    clSilver = 0xC0C0C0,
    clRed = 0x0000FF,
    clLime = 0x00FF00,
    clYellow = 0x00FFFF,
    clBlue = 0xFF0000,
    clFuchsia = 0xFF00FF,
    clAqua = 0xFFFF00,
    clLtGray = 0xC0C0C0,
    clDkGray = 0x808080,
    clWhite = 0xFFFFFF,
    clMoneyGreen = 0xC0DCC0,
    clSkyBlue = 0xF0CAA6,
    clCream = 0xF0FBFF,
    clMedGray = 0xA4A0A0,

    /// No colour, and whichever is the default.
    clNone = 0x1FFFFFFF,
    clDefault = 0x20000000,

    clScrollBar = -0x1000000,
    clBackground,
    clActiveCaption,
    clInactiveCaption,
    clMenu,
    clWindow,
    clWindowFrame,
    clMenuText,
    clWindowText,
    clCaptionText,
    clActiveBorder,
    clInactiveBorder,
    clAppWorkSpace,
    clHighlight,
    clHighlightText,
    clBtnFace,
    clBtnShadow,
    clGrayText,
    clBtnText,
    clInactiveCaptionText,
    clBtnHighlight,
    cl3DDkShadow,
    cl3DLight,
    clInfoText,
    clInfoBk,
    clHotLight = clInfoBk + 2,
    clGradientActiveCaption,
    clGradientInactiveCaption,
    clMenuHighlight,
    clMenuBar
};

/// The name of a colour, such as "clRed"; false, and `ident` stays, for one without a name.
TRS8_BTL_API bool ColorToIdent(int color, System::UnicodeString& ident);
/// The colour of a name, case aside; false, and `color` stays, for an unknown name.
TRS8_BTL_API bool IdentToColor(const System::UnicodeString& ident, int& color);
/// The name of the colour, or "$" and eight hexadecimal digits where it has none.
TRS8_BTL_API System::UnicodeString ColorToString(TColor color);
/// The colour of a name or of an integer's text. `Sysutils::EConvertError` for any other.
TRS8_BTL_API TColor StringToColor(const System::UnicodeString& text);
/// Calls `call` with each name, in the order of the colours.
TRS8_BTL_API void GetColorValues(const System::TClosure<void(const System::UnicodeString&)>& call);

/// 0x00BBGGRR of the colour: what the desktop has for one of its numbers, and the lower 24 bits of any other.
TRS8_BTL_API int ColorToRGB(TColor color);
/// The colour as a toolkit has it.
TRS8_BTL_API Toolkits::TPixel ColorToPixel(TColor color);
/// The colour without its alpha.
constexpr TColor PixelToColor(Toolkits::TPixel pixel)
{
    return TColor((pixel & 0xFFU) << 16U | (pixel & 0xFF00U) | (pixel >> 16U & 0xFFU));
}

} // namespace Graphics

/// The colour of the parts, of which the lower eight bits count.
constexpr Graphics::TColor RGB(int red, int green, int blue)
{
    return Graphics::TColor((red & 255) | (green & 255) << 8 | (blue & 255) << 16);
}

namespace Typinfo
{

/// An integer named "TColor", with names in form resources. All modules have one record of it, by which these
/// are found.
template <>
struct TRS8_BTL_API GEnumType<Graphics::TColor>
{
    static TTypeInfo Make();
};

template <>
struct TRS8_BTL_API GPropTraits<Graphics::TColor>
{
    static const TTypeInfo* TypeInfo();
    static TPropValue ToValue(Graphics::TColor value) { return System::Int64{value}; }
    static Graphics::TColor FromValue(const TPropValue& value)
    {
        return Graphics::TColor(std::get<System::Int64>(value));
    }
};

} // namespace Typinfo
