// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Controls_ImageList.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_Filer.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"

#include <algorithm>
#include <optional>

namespace Controls
{

using Toolkits::Pixels;
using Toolkits::TPixel;

namespace
{

constexpr TPixel ColorBits = 0xFFFFFF;

/// The bitmap's pixels, of which those with the colour bits of `transparent` are see-through.
Pixels OpaqueBut(Graphics::TBitmap& bitmap, std::optional<TPixel> transparent)
{
    Pixels pixels(*bitmap.SharePixels());
    const bool hasAlpha = bitmap.getAlphaFormat() != Graphics::afIgnored;
    for (TPixel& pixel : pixels.All()) {
        if (transparent && ((pixel ^ *transparent) & ColorBits) == 0) {
            pixel = 0;
        } else if (!hasAlpha) {
            pixel |= ~ColorBits;
        }
    }
    return pixels;
}

} // namespace

// TChangeLink

TChangeLink::~TChangeLink()
{
    setSender(nullptr);
}

void TChangeLink::setSender(TImageList* sender)
{
    if (mSender != nullptr) {
        std::erase(mSender->mLinks, this);
    }
    mSender = sender;
    if (mSender != nullptr) {
        mSender->mLinks.push_back(this);
    }
}

// TImageList

System::TMetaClass* TImageList::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TImageList>(u"TImageList")
            .Property(u"Height", &TImageList::getHeight, &TImageList::setHeight, {.defaultValue = 16})
            .Property(u"Width", &TImageList::getWidth, &TImageList::setWidth, {.defaultValue = 16})
            .Property(u"OnChange", &TImageList::OnChange)
            .HearsInsertions(false)
            .Build();
    return record;
}

TImageList::~TImageList()
{
    Destroying();
    while (!mLinks.empty()) {
        TChangeLink& link = *mLinks.back();
        link.setSender(nullptr);
        if (link.OnChange) {
            link.OnChange(this);
        }
    }
}

void TImageList::SetSize(int width, int height)
{
    width = std::clamp(width, 1, MaximumExtent);
    height = std::clamp(height, 1, MaximumExtent);
    if (width != mWidth || height != mHeight) {
        mWidth = width;
        mHeight = height;
        mPictures.clear();
        Change();
    }
}

int TImageList::Add(Graphics::TBitmap* picture)
{
    return picture == nullptr ? -1 : AddPixels(OpaqueBut(*picture, std::nullopt));
}

int TImageList::AddMasked(Graphics::TBitmap* picture, Graphics::TColor color)
{
    return picture == nullptr ? -1 : AddPixels(OpaqueBut(*picture, Graphics::ColorToPixel(color)));
}

int TImageList::AddPixels(const Pixels& pixels)
{
    const int first = getCount();
    const int rows = std::min(mHeight, pixels.getHeight());
    for (int left = 0; left + mWidth <= pixels.getWidth(); left += mWidth) {
        Pixels& made = mPictures.emplace_back(mWidth, mHeight);
        for (int y = 0; y < rows; ++y) {
            std::ranges::copy(pixels.Row(y).subspan(static_cast<std::size_t>(left), made.Row(y).size()),
                              made.Row(y).begin());
        }
    }
    if (getCount() == first) {
        return -1;
    }
    Change();
    return first;
}

void TImageList::Delete(int index)
{
    if (index >= 0 && index < getCount()) {
        mPictures.erase(mPictures.begin() + index);
        Change();
    }
}

void TImageList::Clear()
{
    if (!mPictures.empty()) {
        mPictures.clear();
        Change();
    }
}

const Toolkits::Pixels* TImageList::GetPixels(int index) const noexcept
{
    return index < 0 || index >= getCount() ? nullptr : &mPictures[static_cast<std::size_t>(index)];
}

void TImageList::Draw(Graphics::TCanvas* canvas, int x, int y, int index) const
{
    const Toolkits::Pixels* const pixels = GetPixels(index);
    if (canvas == nullptr || pixels == nullptr) {
        return;
    }
    Graphics::TBitmap bitmap;
    bitmap.TakePixels(*pixels);
    bitmap.setAlphaFormat(Graphics::afDefined);
    canvas->Draw(x, y, &bitmap);
}

void TImageList::Change()
{
    // A control may leave, or another come, while they are told.
    const std::vector<TChangeLink*> links(mLinks);
    for (TChangeLink* const link : links) {
        if (std::ranges::count(mLinks, link) > 0 && link->OnChange) {
            link->OnChange(this);
        }
    }
    if (OnChange) {
        OnChange(this);
    }
}

void TImageList::ReadPictures(Classes::TStream& stream)
{
    std::vector<Pixels> pictures;
    const auto size = static_cast<System::Int64>(sizeof(TPixel)) * mWidth * mHeight;
    for (System::Int64 left = stream.getSize(); left >= size; left -= size) {
        Pixels& made = pictures.emplace_back(mWidth, mHeight);
        stream.ReadBuffer(made.All().data(), size);
    }
    mPictures = std::move(pictures);
    Change();
}

void TImageList::WritePictures(Classes::TStream& stream) const
{
    for (const Pixels& picture : mPictures) {
        stream.WriteBuffer(picture.All().data(), static_cast<System::Int64>(picture.All().size_bytes()));
    }
}

bool TImageList::HasPicturesOf(const TImageList* ancestor) const
{
    return ancestor == nullptr ? mPictures.empty() : mPictures == ancestor->mPictures;
}

void TImageList::DefineProperties(Classes::TFiler& filer)
{
    TComponent::DefineProperties(filer);
    filer.DefineBinaryProperty(
        u"Pictures", [this](Classes::TStream* stream) { ReadPictures(*stream); },
        [this](Classes::TStream* stream) { WritePictures(*stream); },
        !HasPicturesOf(dynamic_cast<const TImageList*>(filer.getAncestor())));
}

} // namespace Controls
