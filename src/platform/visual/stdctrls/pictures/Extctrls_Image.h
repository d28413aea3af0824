// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"

namespace Graphics
{
class TPicture;
} // namespace Graphics

namespace Extctrls
{

/// A picture on a form.
///
///     auto* const image = new Extctrls::TImage(form);
///     image->setParent(form);
///     image->setAutoSize(true);
///     image->getPicture()->LoadFromFile(u"logo.bmp");
class TRS8_BTL_API TImage : public Controls::TGraphicControl
{
    TRS8_BTL_CLASS(TImage, Controls::TGraphicControl)

public:
    explicit TImage(Classes::TComponent* owner = nullptr);
    ~TImage() override;

    /// The picture, which the image owns; writing copies.
    Graphics::TPicture* getPicture() const noexcept { return mPicture.get(); }
    void setPicture(Graphics::TPicture* picture);
    /// Whether the picture stands in the middle rather than at the upper left; off at first.
    bool getCenter() const noexcept { return mCenter; }
    void setCenter(bool isOn) { Put(mCenter, isOn); }
    /// Whether it is brought to the image's size; off at first.
    bool getStretch() const noexcept { return mStretch; }
    void setStretch(bool isOn) { Put(mStretch, isOn); }
    /// Whether one that is larger than the image, or any with `Stretch`, keeps the ratio of its sides; off at
    /// first.
    bool getProportional() const noexcept { return mProportional; }
    void setProportional(bool isOn) { Put(mProportional, isOn); }
    /// Whether the ground shows through it; off at first. An icon always lets it.
    bool getTransparent() const noexcept { return mTransparent; }
    void setTransparent(bool isOn);
    /// Whether what comes of a picture is shown while it is loaded. Kept for designs.
    bool getIncrementalDisplay() const noexcept { return mIncrementalDisplay; }
    void setIncrementalDisplay(bool isOn) noexcept { mIncrementalDisplay = isOn; }

    /// What draws on the picture, which must be a bitmap; where there is none, it becomes one of the image's
    /// size. `Classes::EInvalidOperation` for any other picture.
    Graphics::TCanvas* getCanvas() const;
    /// Where the picture is drawn.
    Types::TRect DestRect() const;

protected:
    void Paint() override;
    bool CanAutoSize(int& width, int& height) override;

private:
    void Put(bool& member, bool value);
    void PictureChanged(System::TObject* sender);
    void ShareTransparency();

    std::unique_ptr<Graphics::TPicture> mPicture;
    bool mCenter = false;
    bool mStretch = false;
    bool mProportional = false;
    bool mTransparent = false;
    bool mIncrementalDisplay = false;
    /// The picture changes since it is painted.
    bool mIsPainting = false;
};

} // namespace Extctrls
