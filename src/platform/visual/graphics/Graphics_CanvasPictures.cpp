// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/internal/Graphics_Place.h"

namespace Graphics
{

namespace
{

Types::TRect PlaceOf(int x, int y, const TGraphic& graphic)
{
    return RectAt(x, y, graphic.getWidth(), graphic.getHeight());
}

} // namespace

void TCanvas::Draw(int x, int y, TGraphic* graphic)
{
    if (graphic != nullptr && !graphic->getEmpty()) {
        StretchDraw(PlaceOf(x, y, *graphic), graphic);
    }
}

void TCanvas::Draw(int x, int y, TGraphic* graphic, unsigned char opacity)
{
    if (graphic != nullptr && !graphic->getEmpty()) {
        Changing();
        graphic->DrawTransparent(this, PlaceOf(x, y, *graphic), opacity);
        Changed();
    }
}

void TCanvas::StretchDraw(const Types::TRect& rect, TGraphic* graphic)
{
    if (graphic != nullptr && !graphic->getEmpty()) {
        Changing();
        graphic->Draw(this, rect);
        Changed();
    }
}

void TCanvas::CopyRect(const Types::TRect& rect, TCanvas* source, const Types::TRect& sourceRect)
{
    Toolkits::Pixels pixels;
    if (source == nullptr || !source->RequiredDevice().ReadPixels(sourceRect, pixels)) {
        return;
    }
    Changing();
    RequiredDevice().Image(
        pixels, pixels.Bounds(), rect,
        {.operation = static_cast<unsigned char>(mCopyMode >> 16), .brush = ColorToPixel(mBrush.getColor())});
    Changed();
}

void TCanvas::BrushCopy(const Types::TRect& rect, TBitmap* bitmap, const Types::TRect& sourceRect,
                        TColor color)
{
    if (bitmap == nullptr || bitmap->getEmpty()) {
        return;
    }
    Toolkits::Pixels pixels = *bitmap->SharePixels();
    const Toolkits::TPixel replaced = ColorToPixel(color);
    const Toolkits::TPixel brush = ColorToPixel(mBrush.getColor());
    for (Toolkits::TPixel& pixel : pixels.All()) {
        pixel |= Toolkits::OpaquePixel(0, 0, 0);
        pixel = pixel == replaced ? brush : pixel;
    }
    Changing();
    RequiredDevice().Image(pixels, sourceRect, rect, {});
    Changed();
}

} // namespace Graphics
