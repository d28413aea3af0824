// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/toolkit/internal/PaintRecords.h"

#include <array>

namespace Toolkits
{

namespace
{

using System::UnicodeString;
using Sysutils::IntToStr;

UnicodeString TextOf(const Types::TPoint& point)
{
    return IntToStr(point.X) + u"," + IntToStr(point.Y);
}

UnicodeString TextOf(const Types::TRect& rect)
{
    return IntToStr(rect.Left) + u"," + IntToStr(rect.Top) + u"," + IntToStr(rect.Right) + u"," +
           IntToStr(rect.Bottom);
}

UnicodeString TextOf(const Types::TSize& size)
{
    return IntToStr(size.cx) + u"x" + IntToStr(size.cy);
}

UnicodeString TextOf(const std::vector<Types::TPoint>& points)
{
    UnicodeString text;
    for (const Types::TPoint& point : points) {
        text += (text.IsEmpty() ? u"" : u" ") + TextOf(point);
    }
    return text;
}

UnicodeString ColorText(TPixel color)
{
    return u"#" + Sysutils::IntToHex(System::Int64{color & 0xFFFFFFU}, 6);
}

/// The name of the value, in a row of names that begins with that of 0.
template <std::size_t Count>
UnicodeString NameOf(int value, const std::array<const System::WideChar*, Count>& names)
{
    const auto index = static_cast<std::size_t>(value);
    return index < Count ? UnicodeString(names[index]) : IntToStr(value);
}

UnicodeString TextOf(const TPenData& pen)
{
    static constexpr std::array styles = {u"solid",      u"dash",  u"dot",   u"dashdot",
                                          u"dashdotdot", u"clear", u"inside"};
    static constexpr std::array modes = {u"black",       u"white",      u"nop",         u"not",
                                         u"copy",        u"notcopy",    u"mergepennot", u"maskpennot",
                                         u"mergenotpen", u"masknotpen", u"merge",       u"notmerge",
                                         u"mask",        u"notmask",    u"xor",         u"notxor"};
    if (pen.style == Graphics::psClear) {
        return u" pen clear";
    }
    UnicodeString text = u" pen " + ColorText(pen.color);
    if (pen.width != 1) {
        text += u" width " + IntToStr(pen.width);
    }
    if (pen.style != Graphics::psSolid) {
        text += u" " + NameOf(pen.style, styles);
    }
    if (pen.mode != Graphics::pmCopy) {
        text += u" " + NameOf(pen.mode, modes);
    }
    return text;
}

UnicodeString TextOf(const TBrushData& brush)
{
    static constexpr std::array styles = {u"solid",     u"clear",     u"horizontal", u"vertical",
                                          u"fdiagonal", u"bdiagonal", u"cross",      u"diagcross"};
    if (brush.pattern) {
        return u" brush " + TextOf(Types::TSize{brush.pattern->getWidth(), brush.pattern->getHeight()});
    }
    if (brush.style == Graphics::bsClear) {
        return u" brush clear";
    }
    const UnicodeString text = u" brush " + ColorText(brush.color);
    return brush.style == Graphics::bsSolid ? text : text + u" " + NameOf(brush.style, styles);
}

UnicodeString TextOf(const TFontData& font)
{
    static constexpr std::array styles = {u"bold", u"italic", u"underline", u"strikeout"};
    UnicodeString text = u" font " + font.name + u" " + IntToStr(font.height);
    for (const Graphics::TFontStyle style : font.styles) {
        text += u" " + NameOf(style, styles);
    }
    return font.orientation == 0 ? text : text + u" turned " + IntToStr(font.orientation);
}

/// The text in quotation marks, on one line whatever is in it.
UnicodeString Quoted(const UnicodeString& text)
{
    UnicodeString quoted = u"\"";
    for (const System::WideChar unit : text.AsView()) {
        if (unit == u'"' || unit == u'\\') {
            quoted += u'\\';
        }
        if (unit < u' ') {
            quoted += u"\\x" + Sysutils::IntToHex(int{unit}, 2);
        } else {
            quoted += unit;
        }
    }
    return quoted + u"\"";
}

struct CLine
{
    UnicodeString operator()(const TPushRecord&) const { return u"push"; }
    UnicodeString operator()(const TPopRecord&) const { return u"pop"; }
    UnicodeString operator()(const TOriginRecord& call) const
    {
        return u"origin " + TextOf(Types::TPoint{.X = call.by.cx, .Y = call.by.cy});
    }
    UnicodeString operator()(const TClipRecord& call) const { return u"clip " + TextOf(call.rect); }
    UnicodeString operator()(const TPixelRecord& call) const
    {
        return u"pixel " + TextOf(call.at) + u" " + ColorText(call.color);
    }
    UnicodeString operator()(const TPolylineRecord& call) const
    {
        return u"polyline " + TextOf(call.points) + TextOf(call.pen);
    }
    UnicodeString operator()(const TPolygonRecord& call) const
    {
        return u"polygon " + TextOf(call.points) + TextOf(call.pen) + TextOf(call.brush) +
               (call.brush.rule == EFillRule::Winding ? u" winding" : u"");
    }
    UnicodeString operator()(const TFillRecord& call) const
    {
        return u"fill " + TextOf(call.rect) + TextOf(call.brush);
    }
    UnicodeString operator()(const TRectangleRecord& call) const
    {
        const bool isRound = call.corner != Types::TSize{};
        return u"rectangle " + TextOf(call.rect) +
               (isRound ? u" corner " + TextOf(call.corner) : UnicodeString()) + TextOf(call.pen) +
               TextOf(call.brush);
    }
    UnicodeString operator()(const TEllipseRecord& call) const
    {
        return u"ellipse " + TextOf(call.rect) + TextOf(call.pen) + TextOf(call.brush);
    }
    UnicodeString operator()(const TArcRecord& call) const
    {
        static constexpr std::array kinds = {u"arc", u"chord", u"pie"};
        const UnicodeString text = NameOf(static_cast<int>(call.kind), kinds) + u" " + TextOf(call.rect) +
                                   u" from " + TextOf(call.from) + u" to " + TextOf(call.to) +
                                   TextOf(call.pen);
        return call.kind == EArc::Open ? text : text + TextOf(call.brush);
    }
    UnicodeString operator()(const TTextRecord& call) const
    {
        UnicodeString text = u"text " + TextOf(call.at) + u" " + Quoted(call.text) + TextOf(call.font) +
                             u" color " + ColorText(call.options.color);
        if (call.options.isOpaque) {
            text += u" on " + ColorText(call.options.background);
        }
        if (call.options.isRightToLeft) {
            text += u" rtl";
        }
        return call.clip ? text + u" clip " + TextOf(*call.clip) : text;
    }
    UnicodeString operator()(const TImageRecord& call) const
    {
        const Pixels& image = *call.image;
        UnicodeString text = u"image " + TextOf(Types::TSize{image.getWidth(), image.getHeight()}) +
                             u" onto " + TextOf(call.target);
        if (call.source != image.Bounds()) {
            text += u" from " + TextOf(call.source);
        }
        if (call.options.hasAlpha) {
            text += u" alpha " + IntToStr(int{call.options.opacity});
        } else if (call.options.operation != TImageOptions::CopyImage) {
            text += u" operation " + Sysutils::IntToHex(int{call.options.operation}, 2);
        }
        return text;
    }
    UnicodeString operator()(const TFocusRecord& call) const { return u"focus " + TextOf(call.rect); }
    UnicodeString operator()(const TFloodRecord& call) const
    {
        return u"flood " + TextOf(call.at) + (call.kind == EFlood::Surface ? u" on " : u" to ") +
               ColorText(call.color) + TextOf(call.brush);
    }
};

} // namespace

System::UnicodeString LineOf(const TPaintRecord& record)
{
    return std::visit(CLine(), record);
}

} // namespace Toolkits
