// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Brush.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"

namespace Graphics
{

System::TMetaClass* TBrush::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TBrush>(u"TBrush")
            .Property(u"Color", &TBrush::getColor, &TBrush::setColor, {.defaultValue = clWhite})
            .Property(u"Style", &TBrush::getStyle, &TBrush::setStyle, {.defaultValue = bsSolid})
            .Build();
    return record;
}

TBrush::~TBrush() = default;

void TBrush::Assign(TPersistent* source)
{
    const auto* const other = dynamic_cast<TBrush*>(source);
    if (other == nullptr) {
        TPersistent::Assign(source);
        return;
    }
    const bool isEqual = mColor == other->mColor && mStyle == other->mStyle && mPattern == other->mPattern;
    mColor = other->mColor;
    mStyle = other->mStyle;
    mBitmap = other->mBitmap;
    mPattern = other->mPattern;
    if (!isEqual) {
        Changed();
    }
}

void TBrush::setColor(TColor color)
{
    Put(color, mStyle == bsClear ? bsSolid : mStyle);
}

void TBrush::setStyle(TBrushStyle style)
{
    Put(mColor, style);
}

void TBrush::Put(TColor color, TBrushStyle style)
{
    if (color == mColor && style == mStyle && !mPattern) {
        return;
    }
    mColor = color;
    mStyle = style;
    mBitmap = nullptr;
    mPattern = {};
    Changed();
}

void TBrush::setBitmap(TBitmap* bitmap)
{
    if (bitmap == nullptr && mBitmap == nullptr) {
        return;
    }
    mBitmap = bitmap;
    mPattern = bitmap == nullptr || bitmap->getEmpty() ? Toolkits::TSharedPixels() : bitmap->SharePixels();
    Changed();
}

Toolkits::TBrushData TBrush::getData() const
{
    return {.color = ColorToPixel(mColor), .style = mStyle, .pattern = mPattern};
}

} // namespace Graphics

namespace Typinfo
{

TTypeInfo GEnumType<Graphics::TBrushStyle>::Make()
{
    return EnumType(u"TBrushStyle", {u"bsSolid", u"bsClear", u"bsHorizontal", u"bsVertical", u"bsFDiagonal",
                                     u"bsBDiagonal", u"bsCross", u"bsDiagCross"});
}

} // namespace Typinfo
