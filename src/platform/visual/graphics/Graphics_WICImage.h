// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_CodedGraphic.h"

namespace Graphics
{

/// The types of files that a `TWICImage` may have.
enum TWICImageFormat
{
    wifBmp,
    wifPng,
    wifJpeg,
    wifGif,
    wifTiff,
    wifWMPhoto,
    wifOther
};

/// A picture of any type that the toolkit has a codec for.
///
///     TWICImage picture;
///     picture.LoadFromFile(u"scan.tif");
///     picture.setImageFormat(wifPng);
///     picture.SaveToFile(u"scan.png");
class TRS8_BTL_API TWICImage : public TCodedGraphic
{
    TRS8_BTL_CLASS(TWICImage, TCodedGraphic)

public:
    TWICImage() = default;
    ~TWICImage() override;

    void Assign(TPersistent* source) override;
    bool getSupportsPartialTransparency() const override { return true; }

    /// The type of the picture that was loaded; a bitmap at first.
    TWICImageFormat getImageFormat() const noexcept { return mFormat; }
    /// The type to save it as. `EInvalidGraphic` if the picture, which is of another one, can't be read.
    void setImageFormat(TWICImageFormat format);

    /// `EInvalidGraphic` for a format that there is no type of.
    Toolkits::EPictureType PictureType() const override;
    /// As of `TGraphic`, but a file whose extension tells a type becomes one of that type.
    void SaveToFile(const System::UnicodeString& path) override;

protected:
    bool Accepts(Toolkits::EPictureType type) override;

private:
    TWICImageFormat mFormat = wifBmp;
};

} // namespace Graphics
