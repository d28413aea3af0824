// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_CodedGraphic.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/PictureCodecs.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/internal/Graphics_BitmapFile.h"
#include "platform/visual/graphics/internal/Graphics_PictureHeader.h"

namespace Graphics
{

using Toolkits::EPictureType;
using Toolkits::Pixels;

System::TMetaClass* TCodedGraphic::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TCodedGraphic>(u"TCodedGraphic").Build();
    return record;
}

TCodedGraphic::TCodedGraphic() = default;

TCodedGraphic::~TCodedGraphic() = default;

void TCodedGraphic::Assign(TPersistent* source)
{
    if (source == nullptr) {
        mFile = {};
        mPixels = {};
        mSize = {};
        Changed(this);
        return;
    }
    if (const auto* const bitmap = dynamic_cast<TBitmap*>(source)) {
        Pixels pixels = *bitmap->SharePixels();
        if (bitmap->getAlphaFormat() == afIgnored) {
            for (Toolkits::TPixel& pixel : pixels.All()) {
                pixel |= Toolkits::OpaquePixel(0, 0, 0);
            }
        }
        TakePixels(std::move(pixels));
        return;
    }
    const auto* const coded = dynamic_cast<TCodedGraphic*>(source);
    if (coded == nullptr) {
        TGraphic::Assign(source);
    } else if (coded->mFile && Accepts(coded->PictureType())) {
        mFile = coded->mFile;
        mPixels = coded->mPixels;
        mSize = coded->mSize;
        Changed(this);
    } else {
        TakePixels(coded->getEmpty() ? Pixels() : coded->Content());
    }
}

void TCodedGraphic::AssignTo(TPersistent* target) const
{
    auto* const bitmap = dynamic_cast<TBitmap*>(target);
    if (bitmap == nullptr) {
        TGraphic::AssignTo(target);
        return;
    }
    bitmap->TakePixels(getEmpty() ? Pixels() : Content());
    bitmap->setPixelFormat(getSupportsPartialTransparency() ? pf32bit : pf24bit);
    bitmap->setAlphaFormat(getSupportsPartialTransparency() ? afDefined : afIgnored);
}

bool TCodedGraphic::getEmpty() const
{
    return mSize.cx == 0 || mSize.cy == 0;
}

int TCodedGraphic::getWidth() const
{
    return mSize.cx;
}

int TCodedGraphic::getHeight() const
{
    return mSize.cy;
}

void TCodedGraphic::setWidth(int width)
{
    if (width != mSize.cx) {
        throw EInvalidGraphicOperation(u"The size of a " + ClassName() + u" can't be changed");
    }
}

void TCodedGraphic::setHeight(int height)
{
    if (height != mSize.cy) {
        throw EInvalidGraphicOperation(u"The size of a " + ClassName() + u" can't be changed");
    }
}

const Pixels& TCodedGraphic::Content() const
{
    if (!mPixels) {
        if (!mFile) {
            throw EInvalidGraphicOperation(u"The picture is empty");
        }
        const EPictureType type = PictureType();
        Pixels pixels = type == EPictureType::Bitmap ? ReadBitmapFile(mFile->bytes)
                                                     : Toolkits::DecodePicture(type, mFile->bytes);
        mPixels = Toolkits::TSharedPixels(new Pixels(std::move(pixels)));
    }
    return *mPixels;
}

void TCodedGraphic::TakePixels(Pixels pixels)
{
    mFile = {};
    mSize = {.cx = pixels.getWidth(), .cy = pixels.getHeight()};
    mPixels = Toolkits::TSharedPixels(new Pixels(std::move(pixels)));
    Changed(this);
}

void TCodedGraphic::ForgetFile()
{
    if (mFile) {
        Content();
        mFile = {};
    }
}

bool TCodedGraphic::Accepts(EPictureType type)
{
    return type == PictureType();
}

void TCodedGraphic::LoadFromStream(Classes::TStream* stream)
{
    std::vector<System::Byte> bytes = ReadRest(stream);
    if (bytes.empty()) {
        Assign(nullptr);
        setModified(false);
        return;
    }
    EPictureType type = EPictureType::Bitmap;
    if (!FindPictureType(bytes, type)) {
        throw EInvalidGraphic(u"The picture is of no type that a " + ClassName() + u" knows");
    }
    const Types::TSize size = PictureSize(type, bytes);
    if (!Accepts(type)) {
        throw EInvalidGraphic(u"The picture is of no type that a " + ClassName() + u" knows");
    }
    mFile = TSharedBytes(new TBytesBlock(std::move(bytes)));
    mPixels = {};
    mSize = size;
    Changed(this);
    setModified(false);
}

void TCodedGraphic::SaveToStream(Classes::TStream* stream)
{
    if (mFile) {
        WriteBytes(stream, mFile->bytes);
    } else if (!getEmpty()) {
        const EPictureType type = PictureType();
        WriteBytes(stream, type == EPictureType::Bitmap
                               ? WriteBitmapFile(Content(), pf32bit)
                               : Toolkits::EncodePicture(type, Content(), Quality()));
    }
    setModified(false);
}

void TCodedGraphic::DrawTransparent(TCanvas* canvas, const Types::TRect& rect, unsigned char opacity)
{
    const Pixels& pixels = Content();
    DeviceOf(*canvas).Image(pixels, pixels.Bounds(), rect, {.hasAlpha = true, .opacity = opacity});
}

void TCodedGraphic::Draw(TCanvas* canvas, const Types::TRect& rect)
{
    DrawTransparent(canvas, rect, 255);
}

} // namespace Graphics
