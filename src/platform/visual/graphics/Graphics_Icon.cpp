// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Icon.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/internal/Graphics_IconFile.h"
#include "platform/visual/graphics/internal/Graphics_Place.h"

namespace Graphics
{

namespace
{

System::GSharedBlock<TIconImages> NoImages()
{
    return System::GSharedBlock<TIconImages>(new TIconImages);
}

System::GSharedBlock<TIconImages> ImagesOf(const TBitmap& bitmap)
{
    System::GSharedBlock<TIconImages> images = NoImages();
    if (!bitmap.getEmpty()) {
        auto* const pixels = new Toolkits::Pixels(*bitmap.SharePixels());
        images->images.push_back({.size = {.cx = pixels->getWidth(), .cy = pixels->getHeight()},
                                  .part = {},
                                  .pixels = Toolkits::TSharedPixels(pixels)});
        const Toolkits::TPixel through = ColorToPixel(bitmap.getTransparentColor());
        for (Toolkits::TPixel& pixel : pixels->All()) {
            const Toolkits::TPixel color = pixel | Toolkits::OpaquePixel(0, 0, 0);
            pixel = bitmap.getTransparent() && color == through ? 0
                    : bitmap.getAlphaFormat() == afIgnored      ? color
                                                                : pixel;
        }
    }
    return images;
}

} // namespace

System::TMetaClass* TIcon::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TIcon>(u"TIcon").Build();
    return record;
}

TIcon::TIcon() : mImages(NoImages()) {}

TIcon::~TIcon() = default;

void TIcon::TakeImages(System::GSharedBlock<TIconImages> images)
{
    mImages = std::move(images);
    mHandle = nullptr;
    Changed(this);
}

void TIcon::Assign(TPersistent* source)
{
    if (source == nullptr) {
        TakeImages(NoImages());
    } else if (const auto* const icon = dynamic_cast<TIcon*>(source)) {
        mWanted = icon->mWanted;
        TakeImages(icon->mImages);
    } else if (const auto* const bitmap = dynamic_cast<TBitmap*>(source)) {
        mWanted = {.cx = bitmap->getWidth(), .cy = bitmap->getHeight()};
        TakeImages(ImagesOf(*bitmap));
    } else {
        TGraphic::Assign(source);
    }
}

void TIcon::AssignTo(TPersistent* target) const
{
    auto* const bitmap = dynamic_cast<TBitmap*>(target);
    if (bitmap == nullptr) {
        TGraphic::AssignTo(target);
        return;
    }
    bitmap->TakePixels(getEmpty() ? Toolkits::Pixels() : PixelsFor(mWanted.cx, mWanted.cy));
    bitmap->setPixelFormat(pf32bit);
    bitmap->setAlphaFormat(afDefined);
}

bool TIcon::getEmpty() const
{
    return mImages->images.empty();
}

int TIcon::getWidth() const
{
    const TIconImage* const image = mImages->Nearest(mWanted);
    return image == nullptr ? mWanted.cx : image->size.cx;
}

int TIcon::getHeight() const
{
    const TIconImage* const image = mImages->Nearest(mWanted);
    return image == nullptr ? mWanted.cy : image->size.cy;
}

void TIcon::SetSize(int width, int height)
{
    if (!Toolkits::Pixels::IsSize(width, height)) {
        throw EInvalidGraphicOperation(u"An icon can't have that size");
    }
    if (mWanted != Types::TSize{.cx = width, .cy = height}) {
        mWanted = {.cx = width, .cy = height};
        Changed(this);
    }
}

int TIcon::getCount() const noexcept
{
    return static_cast<int>(mImages->images.size());
}

TIconObject* TIcon::getHandle() const
{
    if (mHandle == nullptr && !getEmpty()) {
        mHandle = System::GOwner<TIconObject>(new TIconObject{mImages});
    }
    return mHandle.get();
}

void TIcon::setHandle(TIconObject* handle)
{
    System::GOwner<TIconObject> owner(handle);
    TakeImages(handle == nullptr ? NoImages() : handle->images);
    if (const TIconImage* const image = mImages->Nearest(mWanted)) {
        mWanted = image->size;
    }
    mHandle = std::move(owner);
}

TIconObject* TIcon::ReleaseHandle()
{
    if (getEmpty()) {
        return nullptr;
    }
    auto* const handle = new TIconObject{mImages};
    TakeImages(NoImages());
    return handle;
}

const Toolkits::Pixels& TIcon::PixelsFor(int width, int height) const
{
    TIconImage* const image = mImages->Nearest({.cx = width, .cy = height});
    if (image == nullptr) {
        throw EInvalidGraphicOperation(u"The icon is empty");
    }
    return TIconImages::Decoded(*image);
}

void TIcon::LoadFromStream(Classes::TStream* stream)
{
    TakeImages(OpenIconFile(ReadRest(stream)));
    setModified(false);
}

void TIcon::SaveToStream(Classes::TStream* stream)
{
    if (mImages->file) {
        WriteBytes(stream, mImages->file->bytes);
    } else if (!getEmpty()) {
        WriteBytes(stream, WriteIconFile(*mImages));
    }
    setModified(false);
}

void TIcon::DrawTransparent(TCanvas* canvas, const Types::TRect& rect, unsigned char opacity)
{
    const Toolkits::Pixels& pixels =
        PixelsFor(Distance(rect.Left, rect.Right), Distance(rect.Top, rect.Bottom));
    DeviceOf(*canvas).Image(pixels, pixels.Bounds(), rect, {.hasAlpha = true, .opacity = opacity});
}

void TIcon::Draw(TCanvas* canvas, const Types::TRect& rect)
{
    DrawTransparent(canvas, rect, 255);
}

} // namespace Graphics
