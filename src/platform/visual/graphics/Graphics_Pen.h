// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_Color.h"
#include "platform/visual/graphics/Graphics_Object.h"

namespace Graphics
{

/// What a canvas draws lines with: a solid black line, one pixel wide, at first.
///
///     canvas->getPen()->setStyle(psDot);
///     canvas->getPen()->setMode(pmXor);                           // drawn twice it is gone
class TRS8_BTL_API TPen : public TGraphicsObject
{
    TRS8_BTL_CLASS(TPen, TGraphicsObject)

public:
    TPen() = default;
    ~TPen() override;

    void Assign(TPersistent* source) override;

    TColor getColor() const noexcept { return mColor; }
    void setColor(TColor color);
    /// In pixels; a negative one changes nothing.
    int getWidth() const noexcept { return mWidth; }
    void setWidth(int width);
    TPenStyle getStyle() const noexcept { return mStyle; }
    void setStyle(TPenStyle style);
    TPenMode getMode() const noexcept { return mMode; }
    void setMode(TPenMode mode);

    /// The pen as a device draws with it.
    Toolkits::TPenData getData() const;

private:
    template <class Value>
    void Put(Value TPen::*member, Value value);

    TColor mColor = clBlack;
    int mWidth = 1;
    TPenStyle mStyle = psSolid;
    TPenMode mMode = pmCopy;
};

} // namespace Graphics

namespace Typinfo
{

// The enumerations of a pen, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Graphics::TPenStyle>
{
    static TTypeInfo Make();
};

template <>
struct TRS8_BTL_API GEnumType<Graphics::TPenMode>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
