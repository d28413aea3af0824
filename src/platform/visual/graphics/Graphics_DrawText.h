// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"
#include "platform/visual/graphics/Graphics_TextFormat.h"

namespace Graphics
{

class TCanvas;

/// Lays a text out in lines within the rectangle and draws it in the font of the canvas, on its brush if that
/// is solid, by the `DT_...` flags. Gives the height of the lines, with `DT_VCENTER` and `DT_BOTTOM` the
/// distance from the top of the rectangle to their end.
///
///     Types::TRect rect{.Left = 2, .Top = 2, .Right = 102, .Bottom = 22};
///     DrawText(canvas, text, rect, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
TRS8_BTL_API int DrawText(TCanvas* canvas, const System::UnicodeString& text, Types::TRect& rect,
                          unsigned flags);
/// As `DrawText`, but `DT_MODIFYSTRING` changes the text to what was drawn.
TRS8_BTL_API int DrawText(TCanvas* canvas, System::UnicodeString& text, Types::TRect& rect, unsigned flags);

/// The flags of a format.
TRS8_BTL_API unsigned TextFlagsOf(const TTextFormat& format);

} // namespace Graphics
