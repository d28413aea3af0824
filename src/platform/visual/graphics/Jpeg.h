// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_CodedGraphic.h"

namespace Jpeg
{

/// The qualities of JPEG pictures, from 1 to 100.
using TJPEGQualityRange = int;

/// A JPEG picture.
///
///     Jpeg::TJPEGImage picture;
///     picture.Assign(&bitmap);
///     picture.setCompressionQuality(75);
///     picture.SaveToFile(u"chart.jpg");
class TRS8_BTL_API TJPEGImage : public Graphics::TCodedGraphic
{
    TRS8_BTL_CLASS(TJPEGImage, Graphics::TCodedGraphic)

public:
    TJPEGImage() = default;
    ~TJPEGImage() override;

    void Assign(TPersistent* source) override;

    TJPEGQualityRange getCompressionQuality() const noexcept { return mQuality; }
    /// What is held to 1 to 100; 90 at first. It counts when new pixels are saved, or after `Compress`.
    void setCompressionQuality(TJPEGQualityRange quality);
    /// Lets the picture be saved in the quality that is set, also if it was loaded. `EInvalidGraphic` if it
    /// can't be read.
    void Compress() { ForgetFile(); }
    /// Reads the pixels now. `EInvalidGraphic` if they can't be read.
    void DIBNeeded() { Content(); }

    Toolkits::EPictureType PictureType() const override { return Toolkits::EPictureType::Jpeg; }
    void ReadData(Classes::TStream* stream) override { ReadSized(stream); }
    void WriteData(Classes::TStream* stream) override { WriteSized(stream); }

protected:
    int Quality() const override { return mQuality; }

private:
    TJPEGQualityRange mQuality = 90;
};

} // namespace Jpeg
