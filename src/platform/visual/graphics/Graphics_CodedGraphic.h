// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PictureType.h"
#include "platform/toolkit/Pixels.h"
#include "platform/visual/graphics/Graphics_Graphic.h"

namespace Graphics
{

struct TBytesBlock;

/// Base of the pictures that only a codec of the toolkit can read and write. The file is kept as it was
/// loaded, and decoded when somebody asks for pixels; sizes come from its header. So such a picture loads,
/// saves and is copied where there is no codec.
class TRS8_BTL_API TCodedGraphic : public TGraphic
{
    TRS8_BTL_CLASS(TCodedGraphic, TGraphic)

public:
    ~TCodedGraphic() override;

    /// Takes over a picture of a type that pixels can be had of; null makes it empty.
    void Assign(TPersistent* source) override;
    void AssignTo(TPersistent* target) const override;

    bool getEmpty() const override;
    int getWidth() const override;
    int getHeight() const override;
    /// `EInvalidGraphicOperation`: the size is that of the picture.
    void setWidth(int width) override;
    void setHeight(int height) override;

    /// The pixels. `EInvalidGraphic` if the picture is damaged or there is no codec.
    const Toolkits::Pixels& Content() const;
    /// Makes these the pixels.
    void TakePixels(Toolkits::Pixels pixels);
    /// The type of the file.
    virtual Toolkits::EPictureType PictureType() const = 0;

    /// `EInvalidGraphic` if what the stream has is of another type.
    void LoadFromStream(Classes::TStream* stream) override;
    /// `EInvalidGraphic` if the pixels are new and there is no codec to write them.
    void SaveToStream(Classes::TStream* stream) override;

protected:
    TCodedGraphic();

    void Draw(TCanvas* canvas, const Types::TRect& rect) override;
    void DrawTransparent(TCanvas* canvas, const Types::TRect& rect, unsigned char opacity) override;
    /// Whether the picture takes a file of the type.
    virtual bool Accepts(Toolkits::EPictureType type);
    /// From 1 to 100.
    virtual int Quality() const { return 90; }
    /// The file that was loaded no longer is what the picture would save.
    void ForgetFile();

private:
    System::GSharedBlock<TBytesBlock> mFile;
    mutable Toolkits::TSharedPixels mPixels;
    Types::TSize mSize;
};

} // namespace Graphics
