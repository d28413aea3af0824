// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Extctrls_Bevel.h"

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/panels/Extctrls_Frame3D.h"

#include <utility>

namespace Typinfo
{

TTypeInfo GEnumType<Extctrls::TBevelShape>::Make()
{
    return EnumType(u"TBevelShape", {u"bsBox", u"bsFrame", u"bsTopLine", u"bsBottomLine", u"bsLeftLine",
                                     u"bsRightLine", u"bsSpacer"});
}

TTypeInfo GEnumType<Extctrls::TBevelStyle>::Make()
{
    return EnumType(u"TBevelStyle", {u"bsLowered", u"bsRaised"});
}

} // namespace Typinfo

namespace Extctrls
{

using Graphics::TColor;
using Types::TRect;

System::TMetaClass* TBevel::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishControl(System::GClassBuilder<TBevel>(u"TBevel"))
            .Property(u"Shape", &TBevel::getShape, &TBevel::setShape, {.defaultValue = bsBox})
            .Property(u"Style", &TBevel::getStyle, &TBevel::setStyle, {.defaultValue = bsLowered})
            .Build();
    return record;
}

TBevel::TBevel(Classes::TComponent* owner) : TGraphicControl(owner)
{
    Controls::TControlStyle style = getControlStyle();
    setControlStyle(style << Controls::csReplicatable);
    SetBounds(0, 0, 50, 50);
}

TBevel::~TBevel() = default;

void TBevel::setShape(TBevelShape shape)
{
    if (shape != mShape) {
        mShape = shape;
        Invalidate();
    }
}

void TBevel::setStyle(TBevelStyle style)
{
    if (style != mStyle) {
        mStyle = style;
        Invalidate();
    }
}

namespace
{

/// A line of two pixels along an edge, the first of them nearer to the left or upper one.
void DrawGroove(Graphics::TCanvas& canvas, const TRect& line, TColor first, TColor second)
{
    const bool isUpright = line.Width() == 0;
    const auto draw = [&](int offset, TColor color) {
        const int x = isUpright ? offset : 0;
        const int y = isUpright ? 0 : offset;
        canvas.getPen()->setColor(color);
        canvas.MoveTo(line.Left + x, line.Top + y);
        canvas.LineTo(line.Right + x, line.Bottom + y);
    };
    draw(0, first);
    draw(1, second);
}

} // namespace

void TBevel::Paint()
{
    TColor first = Graphics::clBtnShadow;
    TColor second = Graphics::clBtnHighlight;
    if (mStyle == bsRaised) {
        std::swap(first, second);
    }
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getPen()->setWidth(1);
    const int width = getWidth();
    const int height = getHeight();
    TRect box = GetClientRect();
    switch (mShape) {
    case bsBox:
        return Frame3D(&canvas, box, first, second, 1);
    case bsFrame:
        Frame3D(&canvas, box, first, second, 1);
        return Frame3D(&canvas, box, second, first, 1);
    case bsTopLine:
        return DrawGroove(canvas, {0, 0, width, 0}, first, second);
    case bsBottomLine:
        return DrawGroove(canvas, {0, height - 2, width, height - 2}, first, second);
    case bsLeftLine:
        return DrawGroove(canvas, {0, 0, 0, height}, first, second);
    case bsRightLine:
        return DrawGroove(canvas, {width - 2, 0, width - 2, height}, first, second);
    case bsSpacer:
        return;
    }
}

} // namespace Extctrls
