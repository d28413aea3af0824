// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/toolkit/Pixels.h"
#include "platform/visual/graphics/Graphics_Color.h"
#include "platform/visual/graphics/Graphics_Graphic.h"

/// The pixels of a bitmap as a handle: valid until the bitmap changes or is gone.
using HBITMAP = const Toolkits::Pixels*;

namespace Graphics
{

class CBitmapCanvas;
struct TBitmapImage;

/// How the pixels of a bitmap are stored in a file. In memory they always have 32 bits.
enum TPixelFormat
{
    pfDevice,
    pf1bit,
    pf4bit,
    pf8bit,
    pf15bit,
    pf16bit,
    pf24bit,
    pf32bit,
    pfCustom
};

/// Which colour of a transparent bitmap lets through what is below: that of its lower left pixel, or a fixed
/// one.
enum TTransparentMode
{
    tmAuto,
    tmFixed
};

/// Whether the alpha of the pixels counts.
enum TAlphaFormat
{
    afIgnored,
    afDefined,
    afPremultiplied
};

/// A picture of pixels, with a canvas. A bitmap that took over another one by `Assign` shares its pixels
/// until one of the two changes.
///
///     TBitmap bitmap;
///     bitmap.SetSize(64, 64);
///     bitmap.getCanvas()->FillRect({0, 0, 64, 64});
///     bitmap.SaveToFile(u"box.bmp");
class TRS8_BTL_API TBitmap : public TGraphic
{
    TRS8_BTL_CLASS(TBitmap, TGraphic)

public:
    TBitmap();
    /// A white one of that size.
    TBitmap(int width, int height);
    ~TBitmap() override;

    /// Takes over another bitmap, or the pixels of a picture that gives them; null makes it empty.
    void Assign(TPersistent* source) override;

    bool getEmpty() const override;
    int getWidth() const override;
    int getHeight() const override;
    void setWidth(int width) override { SetSize(width, getHeight()); }
    void setHeight(int height) override { SetSize(getWidth(), height); }
    /// What fits stays, and new pixels are white. `EInvalidGraphicOperation` for a size that it can't have.
    void SetSize(int width, int height) override;

    /// What draws on the bitmap. The bitmap owns it.
    TCanvas* getCanvas() const;
    TPixelFormat getPixelFormat() const noexcept { return mPixelFormat; }
    /// `pf1bit` makes all pixels black or white, whichever is nearer.
    void setPixelFormat(TPixelFormat format);
    bool getMonochrome() const noexcept { return mPixelFormat == pf1bit; }
    /// Turning it off leaves the pixels black and white.
    void setMonochrome(bool monochrome);
    /// As many 32-bit pixels as the bitmap is wide, each 0xAARRGGBB. `EInvalidGraphicOperation` for a row
    /// that it doesn't have. Valid until the bitmap changes in another way.
    void* getScanLine(int row);

    /// `clDefault` stands for the lower left pixel.
    TColor getTransparentColor() const;
    void setTransparentColor(TColor color);
    TTransparentMode getTransparentMode() const noexcept { return mTransparentMode; }
    void setTransparentMode(TTransparentMode mode);
    TAlphaFormat getAlphaFormat() const noexcept { return mAlphaFormat; }
    /// Whether drawing looks at the alpha of the pixels; it doesn't at first.
    void setAlphaFormat(TAlphaFormat format);
    bool getSupportsPartialTransparency() const override { return mAlphaFormat != afIgnored; }
    /// Makes pixels of `color` white and all others black.
    void Mask(TColor color);

    /// The pixels as a handle, of which `setHandle` makes a copy.
    HBITMAP getHandle() const;
    void setHandle(HBITMAP handle);
    /// The pixels, shared: who changes the bitmap later changes its own.
    Toolkits::TSharedPixels SharePixels() const;
    /// Makes these the pixels.
    void TakePixels(Toolkits::Pixels pixels);

    /// Gives up what can be made again: the device of the canvas, the picture as it was loaded.
    void Dormant();
    void FreeImage() { Dormant(); }

    void LoadFromStream(Classes::TStream* stream) override;
    void SaveToStream(Classes::TStream* stream) override;
    void ReadData(Classes::TStream* stream) override { ReadSized(stream); }
    void WriteData(Classes::TStream* stream) override { WriteSized(stream); }
    /// Takes a bitmap file from the program's resources, of the type "BITMAP"; `instance` isn't looked at.
    /// `Classes::EResNotFound` if there is none.
    void LoadFromResourceName(System::NativeInt instance, const System::UnicodeString& name);

protected:
    void Draw(TCanvas* canvas, const Types::TRect& rect) override;
    void DrawTransparent(TCanvas* canvas, const Types::TRect& rect, unsigned char opacity) override;
    void Changed(System::TObject* sender) override;

private:
    friend class CBitmapCanvas;

    /// The pixels, decoded.
    const Toolkits::Pixels& Content() const;
    /// The pixels, for this bitmap alone and about to change.
    Toolkits::Pixels& ContentToChange();
    void TakeImage(System::GSharedBlock<TBitmapImage> image);
    void ForgetDevice() const;
    void DrawPixels(TCanvas& canvas, const Types::TRect& rect, unsigned char opacity);
    const Toolkits::Pixels& PixelsWithAlpha();

    System::GSharedBlock<TBitmapImage> mImage;
    /// The pixels with the transparency they are drawn with, kept while neither changes.
    Toolkits::TSharedPixels mWithAlpha;
    mutable System::GOwner<TCanvas> mCanvas;
    TPixelFormat mPixelFormat = pfDevice;
    TTransparentMode mTransparentMode = tmAuto;
    TAlphaFormat mAlphaFormat = afIgnored;
    TColor mTransparentColor = clDefault;
};

} // namespace Graphics
