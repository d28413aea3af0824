// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Bitmap.h"

#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/internal/Graphics_BitmapFile.h"

#include <algorithm>

namespace Graphics
{

using Toolkits::Pixels;
using Toolkits::TPixel;

namespace
{

constexpr TPixel White = 0xFFFFFFFFU;
constexpr TPixel Black = 0xFF000000U;
constexpr TPixel AlphaBits = 0xFF000000U;

TPixel BlackOrWhite(TPixel pixel)
{
    const TPixel sum = (pixel >> 16U & 255U) * 30 + (pixel >> 8U & 255U) * 59 + (pixel & 255U) * 11;
    return sum >= 128 * 100 ? White : Black;
}

} // namespace

/// Draws on the pixels of a bitmap, which tell it when they are replaced.
class CBitmapCanvas : public TCanvas
{
public:
    explicit CBitmapCanvas(TBitmap& bitmap) : mBitmap(bitmap) {}
    ~CBitmapCanvas() override { setHandle(nullptr); }

    void ForgetDevice()
    {
        setHandle(nullptr);
        mOwnDevice.reset();
    }

protected:
    void CreateHandle() override
    {
        mOwnDevice = Toolkits::CurrentToolkit().NewPixelDevice(mBitmap.ContentToChange());
        setHandle(mOwnDevice.get());
    }
    void Changing() override
    {
        mBitmap.ContentToChange();
        TCanvas::Changing();
    }
    void Changed() override
    {
        mBitmap.Changed(this);
        TCanvas::Changed();
    }

private:
    TBitmap& mBitmap;
    std::unique_ptr<Toolkits::PaintDevice> mOwnDevice;
};

System::TMetaClass* TBitmap::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TBitmap>(u"TBitmap").Build();
    return record;
}

TBitmap::TBitmap() : mImage(new TBitmapImage) {}

TBitmap::TBitmap(int width, int height) : TBitmap()
{
    SetSize(width, height);
    setModified(false);
}

TBitmap::~TBitmap() = default;

const Pixels& TBitmap::Content() const
{
    return mImage->Decoded();
}

Pixels& TBitmap::ContentToChange()
{
    Pixels& pixels = mImage->Decoded();
    mWithAlpha = {};
    if (mImage.IsUnique()) {
        mImage->file = {};
        if (mImage->pixels.IsUnique()) {
            return pixels;
        }
    }
    auto* const own = new TBitmapImage;
    const System::GSharedBlock<TBitmapImage> image(own);
    own->pixels = Toolkits::TSharedPixels(new Pixels(pixels));
    ForgetDevice();
    mImage = image;
    return *own->pixels;
}

void TBitmap::ForgetDevice() const
{
    if (mCanvas != nullptr) {
        static_cast<CBitmapCanvas&>(*mCanvas).ForgetDevice();
    }
}

void TBitmap::TakeImage(System::GSharedBlock<TBitmapImage> image)
{
    ForgetDevice();
    mWithAlpha = {};
    mImage = std::move(image);
    Changed(this);
}

void TBitmap::Assign(TPersistent* source)
{
    if (source == nullptr) {
        TakeImage(System::GSharedBlock<TBitmapImage>(new TBitmapImage));
        return;
    }
    const auto* const other = dynamic_cast<TBitmap*>(source);
    if (other == nullptr) {
        TGraphic::Assign(source);
        return;
    }
    if (other == this) {
        return;
    }
    // What draws on the pixels later must find out that they are shared.
    other->ForgetDevice();
    mPixelFormat = other->mPixelFormat;
    mTransparentMode = other->mTransparentMode;
    mTransparentColor = other->mTransparentColor;
    mAlphaFormat = other->mAlphaFormat;
    TakeImage(other->mImage);
    TGraphic::setTransparent(other->getTransparent());
}

bool TBitmap::getEmpty() const
{
    return getWidth() == 0 || getHeight() == 0;
}

int TBitmap::getWidth() const
{
    return mImage->Size().cx;
}

int TBitmap::getHeight() const
{
    return mImage->Size().cy;
}

void TBitmap::SetSize(int width, int height)
{
    if (width == getWidth() && height == getHeight()) {
        return;
    }
    Pixels fresh = Content();
    fresh.Resize(width, height, White);
    TakePixels(std::move(fresh));
}

void TBitmap::TakePixels(Pixels pixels)
{
    auto* const image = new TBitmapImage;
    const System::GSharedBlock<TBitmapImage> holder(image);
    image->pixels = Toolkits::TSharedPixels(new Pixels(std::move(pixels)));
    TakeImage(holder);
}

TCanvas* TBitmap::getCanvas() const
{
    if (mCanvas == nullptr) {
        // A canvas changes the picture, as any of its operations does.
        mCanvas = System::GOwner<TCanvas>(new CBitmapCanvas(const_cast<TBitmap&>(*this)));
    }
    return mCanvas.get();
}

void TBitmap::setPixelFormat(TPixelFormat format)
{
    if (format == mPixelFormat) {
        return;
    }
    Pixels& pixels = ContentToChange();
    if (format == pf1bit) {
        std::ranges::transform(pixels.All(), pixels.All().begin(), &BlackOrWhite);
    }
    mPixelFormat = format;
    Changed(this);
}

void TBitmap::setMonochrome(bool monochrome)
{
    if (monochrome != getMonochrome()) {
        setPixelFormat(monochrome ? pf1bit : pfDevice);
    }
}

void* TBitmap::getScanLine(int row)
{
    if (row < 0 || row >= getHeight()) {
        throw EInvalidGraphicOperation(u"The bitmap has no row " + Sysutils::IntToStr(row));
    }
    return ContentToChange().Row(row).data();
}

TColor TBitmap::getTransparentColor() const
{
    if (mTransparentMode == tmFixed && mTransparentColor != clDefault) {
        return mTransparentColor;
    }
    return getEmpty() ? clDefault : PixelToColor(Content().At(0, getHeight() - 1));
}

void TBitmap::setTransparentColor(TColor color)
{
    if (color == mTransparentColor) {
        return;
    }
    mTransparentColor = color;
    mTransparentMode = color == clDefault ? tmAuto : tmFixed;
    mWithAlpha = {};
    Changed(this);
}

void TBitmap::setTransparentMode(TTransparentMode mode)
{
    if (mode != mTransparentMode) {
        setTransparentColor(mode == tmAuto ? clDefault : getTransparentColor());
        mTransparentMode = mode;
    }
}

void TBitmap::setAlphaFormat(TAlphaFormat format)
{
    if (format != mAlphaFormat) {
        mAlphaFormat = format;
        mWithAlpha = {};
        Changed(this);
    }
}

void TBitmap::Mask(TColor color)
{
    const TPixel wanted = ColorToPixel(color);
    for (TPixel& pixel : ContentToChange().All()) {
        pixel = (pixel | AlphaBits) == wanted ? White : Black;
    }
    mPixelFormat = pf1bit;
    Changed(this);
}

HBITMAP TBitmap::getHandle() const
{
    return getEmpty() ? nullptr : &Content();
}

void TBitmap::setHandle(HBITMAP handle)
{
    TakePixels(handle == nullptr ? Pixels() : *handle);
}

Toolkits::TSharedPixels TBitmap::SharePixels() const
{
    ForgetDevice();
    mImage->Decoded();
    return mImage->pixels;
}

void TBitmap::Dormant()
{
    ForgetDevice();
    mWithAlpha = {};
    mImage->Decoded();
    if (mImage.IsUnique()) {
        mImage->file = {};
    }
}

void TBitmap::LoadFromStream(Classes::TStream* stream)
{
    const System::Int64 start = stream == nullptr ? 0 : stream->getPosition();
    std::vector<System::Byte> bytes = ReadRest(stream);
    TBitmapFile file = OpenBitmapFile(std::move(bytes));
    // Others may have put something behind the picture.
    if (start >= 0 && stream->getPosition() >= 0) {
        stream->setPosition(start + static_cast<System::Int64>(file.length));
    }
    mPixelFormat = file.format;
    TakeImage(std::move(file.image));
    setModified(false);
}

void TBitmap::SaveToStream(Classes::TStream* stream)
{
    if (mImage->file) {
        WriteBytes(stream, mImage->file->bytes);
    } else if (!getEmpty()) {
        WriteBytes(stream, WriteBitmapFile(Content(), mPixelFormat));
    }
    setModified(false);
}

void TBitmap::LoadFromResourceName(System::NativeInt, const System::UnicodeString& name)
{
    Classes::TResourceStream resource(name, u"BITMAP");
    LoadFromStream(&resource);
}

const Pixels& TBitmap::PixelsWithAlpha()
{
    // Who has the canvas's device may draw on it without a word.
    if (mWithAlpha && (mCanvas == nullptr || !mCanvas->HandleAllocated())) {
        return *mWithAlpha;
    }
    mWithAlpha = Toolkits::TSharedPixels(new Pixels(Content()));
    const bool hasMask = getTransparent();
    const TPixel through = ColorToPixel(getTransparentColor());
    for (TPixel& pixel : mWithAlpha->All()) {
        const TPixel covering = mAlphaFormat == afIgnored ? pixel | AlphaBits : pixel;
        pixel = hasMask && (pixel | AlphaBits) == through ? 0 : covering;
    }
    return *mWithAlpha;
}

void TBitmap::DrawPixels(TCanvas& canvas, const Types::TRect& rect, unsigned char opacity)
{
    const bool hasAlpha = getTransparent() || mAlphaFormat != afIgnored || opacity < 255;
    const Pixels& pixels = hasAlpha ? PixelsWithAlpha() : Content();
    DeviceOf(canvas).Image(pixels, pixels.Bounds(), rect,
                           {.hasAlpha = hasAlpha,
                            .opacity = opacity,
                            .operation = static_cast<unsigned char>(canvas.getCopyMode() >> 16),
                            .brush = ColorToPixel(canvas.getBrush()->getColor())});
}

void TBitmap::Draw(TCanvas* canvas, const Types::TRect& rect)
{
    DrawPixels(*canvas, rect, 255);
}

void TBitmap::DrawTransparent(TCanvas* canvas, const Types::TRect& rect, unsigned char opacity)
{
    DrawPixels(*canvas, rect, opacity);
}

void TBitmap::Changed(System::TObject* sender)
{
    mWithAlpha = {};
    TGraphic::Changed(sender);
}

} // namespace Graphics
