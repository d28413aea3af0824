// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_CodedGraphic.h"

namespace Pngimage
{

/// A PNG picture, whose pixels may be half transparent.
///
///     Pngimage::TPngImage picture;
///     picture.LoadFromFile(u"logo.png");
///     canvas->Draw(0, 0, &picture);
class TRS8_BTL_API TPngImage : public Graphics::TCodedGraphic
{
    TRS8_BTL_CLASS(TPngImage, Graphics::TCodedGraphic)

public:
    TPngImage() = default;
    ~TPngImage() override;

    bool getSupportsPartialTransparency() const override { return true; }
    void setWidth(int width) override { SetSize(width, getHeight()); }
    void setHeight(int height) override { SetSize(getWidth(), height); }
    /// What fits stays, and new pixels are transparent. `EInvalidGraphicOperation` for a size that it can't
    /// have, `EInvalidGraphic` if the picture can't be read.
    void SetSize(int width, int height) override;

    Toolkits::EPictureType PictureType() const override { return Toolkits::EPictureType::Png; }
};

} // namespace Pngimage
