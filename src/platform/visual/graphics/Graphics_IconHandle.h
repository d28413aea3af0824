// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"

namespace Graphics
{

struct TIconObject;

} // namespace Graphics

/// An icon as a handle. Whoever got it from a call that makes one gives it back by `DestroyIcon` or hands it
/// to a `Graphics::TIcon`.
using HICON = Graphics::TIconObject*;

/// What an icon or cursor is made of.
struct ICONINFO
{
    /// An icon, not a cursor.
    int fIcon = 1;
    /// The place that a cursor points with.
    unsigned xHotspot = 0;
    unsigned yHotspot = 0;
    /// White where what is below shows through; the lower half is the picture if there is no `hbmColor`.
    HBITMAP hbmMask = nullptr;
    HBITMAP hbmColor = nullptr;
};

/// `DrawIconEx` draws the mask, the picture, or both.
inline constexpr unsigned DI_MASK = 1;
inline constexpr unsigned DI_IMAGE = 2;
inline constexpr unsigned DI_NORMAL = 3;

//     const HICON icon = CreateIconIndirect(&info);
//     DrawIconEx(canvas->getHandle(), 0, 0, icon, 16, 16, 0, nullptr, DI_NORMAL);
//     DestroyIcon(icon);

/// An icon of the pixels, which are copied; null with the error `ERROR_INVALID_PARAMETER` without any, or if
/// mask and picture differ in size.
TRS8_BTL_API HICON CreateIconIndirect(const ICONINFO* info);
/// A copy with a handle of its own; null for null.
TRS8_BTL_API HICON CopyIcon(HICON icon);
/// False with the error `ERROR_INVALID_HANDLE` for null.
TRS8_BTL_API bool DestroyIcon(HICON icon);
/// Draws the icon, stretched to the size; a side of 0 is that of the icon. `brush` fills the ground first, so
/// that nothing flickers; null draws on what is there. False with the last error for a null device or icon,
/// and where the icon's picture can't be read.
TRS8_BTL_API bool DrawIconEx(HDC device, int x, int y, HICON icon, int width, int height, unsigned step,
                             const Toolkits::TBrushData* brush, unsigned flags);
