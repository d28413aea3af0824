// SPDX-License-Identifier: MIT
#include "os/Win_sys_icons.h"

#include "os/WIN_LastError.h"
#include "platform/host/Host_Error.h"
#include "platform/visual/graphics/Graphics_Brush.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_FileIcon.h"

namespace WIN
{

using System::AnsiString;
using System::UnicodeString;

HICON ExtractIconW(const UnicodeString& file, unsigned index)
{
    return ::ExtractIconW(nullptr, file.c_str(), index);
}

HICON ExtractIconA(const AnsiString& file, unsigned index)
{
    return ExtractIconW(UnicodeString(file), index);
}

unsigned ExtractIconExW(const UnicodeString& file, int index, HICON* large, HICON* small, unsigned count)
{
    return ::ExtractIconExW(file.c_str(), index, large, small, count);
}

unsigned ExtractIconExW(const char* file, int index, HICON* large, HICON* small, unsigned count)
{
    return ExtractIconExW(UnicodeString(file), index, large, small, count);
}

HICON ExtractAssociatedIconW(const UnicodeString& file, unsigned short& index)
{
    return ::ExtractAssociatedIconW(nullptr, file.c_str(), &index);
}

HICON ExtractAssociatedIconW(const char* file, unsigned short& index)
{
    return ExtractAssociatedIconW(UnicodeString(file), index);
}

HICON ExtractSmallIcon(const UnicodeString& file)
{
    HICON icon = nullptr;
    ExtractIconExW(file, 0, nullptr, &icon, 1);
    return icon;
}

HICON ExtractSmallIcon(const char* file)
{
    return ExtractSmallIcon(UnicodeString(file));
}

void DrawSmalIcon(Graphics::TBitmap* bitmap, HICON icon, Graphics::TColor color)
{
    constexpr int Side = 16;
    if (bitmap == nullptr) {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        ThrowLastError();
        return;
    }
    Graphics::TCanvas* const canvas = bitmap->getCanvas();
    canvas->getBrush()->setColor(color);
    const Toolkits::TBrushData ground = canvas->getBrush()->getData();
    if (!::DrawIconEx(canvas->getHandle(), 0, 0, icon, Side, Side, 0, &ground, DI_NORMAL)) {
        ThrowLastError();
    }
}

} // namespace WIN
