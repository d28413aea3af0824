// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/visual/graphics/Graphics_Color.h"

namespace Graphics
{
class TBitmap;
struct TIconObject;
} // namespace Graphics

namespace WIN
{

// Icons of files, which the caller gives back by `::DestroyIcon`, and files that were dropped. Which files
// have icons stands with `::ExtractIconW`; null texts count as empty.
//
//     const auto icon = WIN::ExtractSmallIcon(u"station.ico");
//     WIN::DrawSmalIcon(bitmap, icon, Graphics::clBtnFace);
//     ::DestroyIcon(icon);

/// The icon of a file; null with the last error set if there is none at the index.
[[nodiscard]] TRS8_BTL_API Graphics::TIconObject* ExtractIconW(const System::UnicodeString& file,
                                                               unsigned index);
/// As `ExtractIconW`, of 8-bit text.
[[nodiscard]] TRS8_BTL_API Graphics::TIconObject* ExtractIconA(const System::AnsiString& file,
                                                               unsigned index);
/// As `::ExtractIconExW`.
TRS8_BTL_API unsigned ExtractIconExW(const System::UnicodeString& file, int index,
                                     Graphics::TIconObject** large, Graphics::TIconObject** small,
                                     unsigned count);
TRS8_BTL_API unsigned ExtractIconExW(const char* file, int index, Graphics::TIconObject** large,
                                     Graphics::TIconObject** small, unsigned count);
/// As `::ExtractAssociatedIconW`.
[[nodiscard]] TRS8_BTL_API Graphics::TIconObject* ExtractAssociatedIconW(const System::UnicodeString& file,
                                                                         unsigned short& index);
[[nodiscard]] TRS8_BTL_API Graphics::TIconObject* ExtractAssociatedIconW(const char* file,
                                                                         unsigned short& index);
/// The first small icon of a file; null with the last error set if there is none.
[[nodiscard]] TRS8_BTL_API Graphics::TIconObject* ExtractSmallIcon(const System::UnicodeString& file);
[[nodiscard]] TRS8_BTL_API Graphics::TIconObject* ExtractSmallIcon(const char* file);

/// Draws the icon, 16 by 16 pixels large, at the upper left of the bitmap on a ground of `color`, which
/// becomes the colour of the canvas's brush. A failure goes to `ThrowLastError`, as where either is null.
TRS8_BTL_API void DrawSmalIcon(Graphics::TBitmap* bitmap, Graphics::TIconObject* icon,
                               Graphics::TColor color);

} // namespace WIN
