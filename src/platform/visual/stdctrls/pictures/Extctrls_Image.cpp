// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/pictures/Extctrls_Image.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Icon.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "platform/visual/graphics/Graphics_Picture.h"

#include <algorithm>

namespace Extctrls
{

using Types::TRect;

System::TMetaClass* TImage::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishControl(System::GClassBuilder<TImage>(u"TImage"))
            .Property(u"AutoSize", &TImage::getAutoSize, &TImage::setAutoSize, {.defaultValue = 0})
            .Property(u"Center", &TImage::getCenter, &TImage::setCenter, {.defaultValue = 0})
            .Property(u"IncrementalDisplay", &TImage::getIncrementalDisplay, &TImage::setIncrementalDisplay,
                      {.defaultValue = 0})
            .Property(u"Picture", &TImage::getPicture, &TImage::setPicture)
            .Property(u"Proportional", &TImage::getProportional, &TImage::setProportional,
                      {.defaultValue = 0})
            .Property(u"Stretch", &TImage::getStretch, &TImage::setStretch, {.defaultValue = 0})
            .Property(u"Transparent", &TImage::getTransparent, &TImage::setTransparent, {.defaultValue = 0})
            .Build();
    return record;
}

TImage::TImage(Classes::TComponent* owner)
    : TGraphicControl(owner), mPicture(std::make_unique<Graphics::TPicture>())
{
    Controls::TControlStyle style = getControlStyle();
    setControlStyle(style << Controls::csReplicatable);
    mPicture->setOnChange([this](System::TObject* sender) { PictureChanged(sender); });
    SetBounds(0, 0, 105, 105);
}

TImage::~TImage()
{
    mPicture->setOnChange({});
}

void TImage::setPicture(Graphics::TPicture* picture)
{
    mPicture->Assign(picture);
}

void TImage::Put(bool& member, bool value)
{
    if (member != value) {
        member = value;
        Invalidate();
    }
}

void TImage::setTransparent(bool isOn)
{
    if (isOn != mTransparent) {
        mTransparent = isOn;
        PictureChanged(this);
    }
}

void TImage::ShareTransparency()
{
    Graphics::TGraphic* const graphic = mPicture->getGraphic();
    const bool knowsItself = dynamic_cast<Graphics::TMetafile*>(graphic) != nullptr ||
                             dynamic_cast<Graphics::TIcon*>(graphic) != nullptr;
    if (graphic != nullptr && !knowsItself && graphic->getTransparent() != mTransparent) {
        graphic->setTransparent(mTransparent);
    }
}

void TImage::PictureChanged(System::TObject*)
{
    if (mIsPainting) {
        return;
    }
    ShareTransparency();
    const Classes::TComponentWatch watch(this);
    if (mPicture->getWidth() > 0 && mPicture->getHeight() > 0) {
        AdjustSize();
    }
    if (watch.IsAlive()) {
        Invalidate();
    }
}

Graphics::TCanvas* TImage::getCanvas() const
{
    if (mPicture->getGraphic() == nullptr) {
        Graphics::TBitmap* const bitmap = mPicture->getBitmap();
        bitmap->SetSize(getWidth(), getHeight());
    }
    auto* const bitmap = dynamic_cast<Graphics::TBitmap*>(mPicture->getGraphic());
    if (bitmap == nullptr) {
        throw Classes::EInvalidOperation(u"Can only modify an image if it contains a bitmap");
    }
    return bitmap->getCanvas();
}

bool TImage::CanAutoSize(int& width, int& height)
{
    if (mPicture->getWidth() <= 0 || mPicture->getHeight() <= 0) {
        return false;
    }
    width = mPicture->getWidth();
    height = mPicture->getHeight();
    return true;
}

TRect TImage::DestRect() const
{
    int width = mPicture->getWidth();
    int height = mPicture->getHeight();
    const int roomWidth = getWidth();
    const int roomHeight = getHeight();
    const bool isTooLarge = width > roomWidth || height > roomHeight;
    if (mStretch || (mProportional && isTooLarge)) {
        if (mProportional && width > 0 && height > 0) {
            const double factor =
                std::min(static_cast<double>(roomWidth) / width, static_cast<double>(roomHeight) / height);
            width = static_cast<int>(width * factor);
            height = static_cast<int>(height * factor);
        } else {
            width = roomWidth;
            height = roomHeight;
        }
    }
    const int left = mCenter ? (roomWidth - width) / 2 : 0;
    const int top = mCenter ? (roomHeight - height) / 2 : 0;
    return {left, top, left + width, top + height};
}

void TImage::Paint()
{
    Graphics::TGraphic* const graphic = mPicture->getGraphic();
    if (graphic == nullptr || graphic->getEmpty()) {
        return;
    }
    // A picture that is drawn may change how it keeps itself.
    mIsPainting = true;
    try {
        TGraphicControl::getCanvas()->StretchDraw(DestRect(), graphic);
    } catch (...) {
        mIsPainting = false;
        throw;
    }
    mIsPainting = false;
}

} // namespace Extctrls
