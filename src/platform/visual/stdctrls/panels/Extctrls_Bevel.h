// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"

namespace Extctrls
{

/// What a bevel draws: all edges of a box, or of a groove, or one line, or nothing.
enum TBevelShape
{
    bsBox,
    bsFrame,
    bsTopLine,
    bsBottomLine,
    bsLeftLine,
    bsRightLine,
    bsSpacer
};

/// Whether what it draws looks sunk or raised.
enum TBevelStyle
{
    bsLowered,
    bsRaised
};

/// A line or frame that parts controls on a form.
///
///     auto* const line = new Extctrls::TBevel(form);
///     line->setParent(form);
///     line->setShape(Extctrls::bsTopLine);
class TRS8_BTL_API TBevel : public Controls::TGraphicControl
{
    TRS8_BTL_CLASS(TBevel, Controls::TGraphicControl)

public:
    explicit TBevel(Classes::TComponent* owner = nullptr);
    ~TBevel() override;

    /// A box at first.
    TBevelShape getShape() const noexcept { return mShape; }
    void setShape(TBevelShape shape);
    /// Lowered at first.
    TBevelStyle getStyle() const noexcept { return mStyle; }
    void setStyle(TBevelStyle style);

protected:
    void Paint() override;

private:
    TBevelShape mShape = bsBox;
    TBevelStyle mStyle = bsLowered;
};

} // namespace Extctrls

namespace Typinfo
{

// The enumerations of a bevel, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Extctrls::TBevelShape>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Extctrls::TBevelStyle>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
