// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/pictures/Extctrls_Shape.h"

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/graphics/Graphics_Brush.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Pen.h"

#include <algorithm>

namespace Typinfo
{

TTypeInfo GEnumType<Extctrls::TShapeType>::Make()
{
    return EnumType(u"TShapeType", {u"stRectangle", u"stSquare", u"stRoundRect", u"stRoundSquare",
                                    u"stEllipse", u"stCircle"});
}

} // namespace Typinfo

namespace Extctrls
{

using Types::TRect;

System::TMetaClass* TShape::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishControl(System::GClassBuilder<TShape>(u"TShape"))
            .Property(u"Brush", &TShape::getBrush, &TShape::setBrush)
            .Property(u"Pen", &TShape::getPen, &TShape::setPen)
            .Property(u"Shape", &TShape::getShape, &TShape::setShape, {.defaultValue = stRectangle})
            .Build();
    return record;
}

TShape::TShape(Classes::TComponent* owner)
    : TGraphicControl(owner),
      mBrush(std::make_unique<Graphics::TBrush>()),
      mPen(std::make_unique<Graphics::TPen>())
{
    Controls::TControlStyle style = getControlStyle();
    setControlStyle(style << Controls::csReplicatable);
    mBrush->setOnChange({this, &TShape::StyleChanged});
    mPen->setOnChange({this, &TShape::StyleChanged});
    SetBounds(0, 0, 65, 65);
}

TShape::~TShape() = default;

void TShape::setShape(TShapeType shape)
{
    if (shape != mShape) {
        mShape = shape;
        Invalidate();
    }
}

void TShape::setBrush(Graphics::TBrush* brush)
{
    mBrush->Assign(brush);
}

void TShape::setPen(Graphics::TPen* pen)
{
    mPen->Assign(pen);
}

void TShape::StyleChanged(System::TObject*)
{
    Invalidate();
}

void TShape::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.setPen(mPen.get());
    canvas.setBrush(mBrush.get());
    // A line is as far inside as outside of where it is drawn.
    const int line = mPen->getWidth();
    const int hair = line == 0 ? 1 : 0;
    int x = line / 2;
    int y = x;
    int width = getWidth() - line + 1 - hair;
    int height = getHeight() - line + 1 - hair;
    const int least = std::min(width, height);
    if (mShape == stSquare || mShape == stRoundSquare || mShape == stCircle) {
        x += (width - least) / 2;
        y += (height - least) / 2;
        width = least;
        height = least;
    }
    const TRect rect{x, y, x + width, y + height};
    switch (mShape) {
    case stRectangle:
    case stSquare:
        return canvas.Rectangle(rect);
    case stRoundRect:
    case stRoundSquare:
        return canvas.RoundRect(rect, least / 4, least / 4);
    case stEllipse:
    case stCircle:
        return canvas.Ellipse(rect);
    }
}

} // namespace Extctrls
