// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/visual/controls/Controls_Types.h"
#include "platform/visual/graphics/Graphics_Color.h"

namespace Graphics
{
class TCanvas;
} // namespace Graphics

namespace Extctrls
{

/// Draws a frame of so many pixels, its left and upper edges in `top`, the others in `bottom`, and takes it
/// from the rectangle. Of a rectangle that is narrower, nothing is left.
///
///     Types::TRect rect = getClientRect();
///     Extctrls::Frame3D(canvas, rect, Graphics::clBtnHighlight, Graphics::clBtnShadow, 1);
TRS8_BTL_API void Frame3D(Graphics::TCanvas* canvas, Types::TRect& rect, Graphics::TColor top,
                          Graphics::TColor bottom, int width);
/// As `Frame3D`, raised or lowered; `bvSpace` takes the place in `face`, and `bvNone` takes none.
TRS8_BTL_API void FrameBevel(Graphics::TCanvas* canvas, Types::TRect& rect, Controls::TBevelCut bevel,
                             Graphics::TColor face, int width);

} // namespace Extctrls
