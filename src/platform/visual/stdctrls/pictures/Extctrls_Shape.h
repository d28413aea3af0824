// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"

namespace Graphics
{
class TBrush;
class TPen;
} // namespace Graphics

namespace Extctrls
{

/// What a shape draws; of the even-sided ones, as large as there is room for, in the middle.
enum TShapeType
{
    stRectangle,
    stSquare,
    stRoundRect,
    stRoundSquare,
    stEllipse,
    stCircle
};

/// A filled shape with an edge.
///
///     auto* const lamp = new Extctrls::TShape(form);
///     lamp->setParent(form);
///     lamp->setShape(Extctrls::stCircle);
///     lamp->getBrush()->setColor(Graphics::clLime);
class TRS8_BTL_API TShape : public Controls::TGraphicControl
{
    TRS8_BTL_CLASS(TShape, Controls::TGraphicControl)

public:
    explicit TShape(Classes::TComponent* owner = nullptr);
    ~TShape() override;

    /// A rectangle at first.
    TShapeType getShape() const noexcept { return mShape; }
    void setShape(TShapeType shape);
    /// What it is filled and drawn with, which it owns; writing copies.
    Graphics::TBrush* getBrush() const noexcept { return mBrush.get(); }
    void setBrush(Graphics::TBrush* brush);
    Graphics::TPen* getPen() const noexcept { return mPen.get(); }
    void setPen(Graphics::TPen* pen);

    /// Called when brush or pen changed: paints the shape anew.
    void StyleChanged(System::TObject* sender);

protected:
    void Paint() override;

private:
    std::unique_ptr<Graphics::TBrush> mBrush;
    std::unique_ptr<Graphics::TPen> mPen;
    TShapeType mShape = stRectangle;
};

} // namespace Extctrls

namespace Typinfo
{

// The enumeration of shapes, by the names of its values.

template <>
struct TRS8_BTL_API GEnumType<Extctrls::TShapeType>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
