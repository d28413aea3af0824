// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Pen.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Graphics
{

System::TMetaClass* TPen::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TPen>(u"TPen")
            .Property(u"Color", &TPen::getColor, &TPen::setColor, {.defaultValue = clBlack})
            .Property(u"Mode", &TPen::getMode, &TPen::setMode, {.defaultValue = pmCopy})
            .Property(u"Style", &TPen::getStyle, &TPen::setStyle, {.defaultValue = psSolid})
            .Property(u"Width", &TPen::getWidth, &TPen::setWidth, {.defaultValue = 1})
            .Build();
    return record;
}

TPen::~TPen() = default;

void TPen::Assign(TPersistent* source)
{
    const auto* const other = dynamic_cast<TPen*>(source);
    if (other == nullptr) {
        TPersistent::Assign(source);
        return;
    }
    const bool isEqual = mColor == other->mColor && mWidth == other->mWidth && mStyle == other->mStyle &&
                         mMode == other->mMode;
    mColor = other->mColor;
    mWidth = other->mWidth;
    mStyle = other->mStyle;
    mMode = other->mMode;
    if (!isEqual) {
        Changed();
    }
}

template <class Value>
void TPen::Put(Value TPen::*member, Value value)
{
    if (this->*member != value) {
        this->*member = value;
        Changed();
    }
}

void TPen::setColor(TColor color)
{
    Put(&TPen::mColor, color);
}

void TPen::setWidth(int width)
{
    if (width >= 0) {
        Put(&TPen::mWidth, width);
    }
}

void TPen::setStyle(TPenStyle style)
{
    Put(&TPen::mStyle, style);
}

void TPen::setMode(TPenMode mode)
{
    Put(&TPen::mMode, mode);
}

Toolkits::TPenData TPen::getData() const
{
    return {.color = ColorToPixel(mColor), .width = mWidth, .style = mStyle, .mode = mMode};
}

} // namespace Graphics

namespace Typinfo
{

TTypeInfo GEnumType<Graphics::TPenStyle>::Make()
{
    return EnumType(u"TPenStyle", {u"psSolid", u"psDash", u"psDot", u"psDashDot", u"psDashDotDot", u"psClear",
                                   u"psInsideFrame"});
}

TTypeInfo GEnumType<Graphics::TPenMode>::Make()
{
    return EnumType(u"TPenMode", {u"pmBlack", u"pmWhite", u"pmNop", u"pmNot", u"pmCopy", u"pmNotCopy",
                                  u"pmMergePenNot", u"pmMaskPenNot", u"pmMergeNotPen", u"pmMaskNotPen",
                                  u"pmMerge", u"pmNotMerge", u"pmMask", u"pmNotMask", u"pmXor", u"pmNotXor"});
}

} // namespace Typinfo
