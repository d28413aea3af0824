// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/Host_Module.h"
#include "platform/visual/graphics/Graphics_IconHandle.h"

// Icons in files: those of icon files, and PNG pictures, which are what the desktop keeps its icons in. Each
// such file has one icon, in one or several sizes; any other file has none. The instance isn't looked at.
//
//     HICON small = nullptr;
//     if (ExtractIconExW(u"station.ico", 0, nullptr, &small, 1) == 1) {
//         DrawIconEx(canvas->getHandle(), 0, 0, small, 16, 16, 0, nullptr, DI_NORMAL);
//         DestroyIcon(small);
//     }

/// The icon of a file, which the caller destroys; null with the last error set if there is none at the index,
/// or the file can't be read.
TRS8_BTL_API HICON ExtractIconW(HINSTANCE instance, const System::WideChar* file, unsigned index);
/// Fills `large` and `small`, each for `count` icons from `index` on, with the image nearest to 32 and to 16
/// pixels; either may be null. The caller destroys them. Gives how many icons were filled in; with the index
/// -1, or where both are null, how many the file has. 0 with the last error set if it can't be read.
TRS8_BTL_API unsigned ExtractIconExW(const System::WideChar* file, int index, HICON* large, HICON* small,
                                     unsigned count);
/// The icon of a file, or where it has none the one that the desktop shows for it, see `Host::FindIcon`; the
/// caller destroys it. Null with the last error set if there is neither. `index` is set to 0, which is the
/// one icon that there is.
TRS8_BTL_API HICON ExtractAssociatedIconW(HINSTANCE instance, const System::WideChar* file,
                                          unsigned short* index);
