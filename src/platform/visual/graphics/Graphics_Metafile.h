// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Graphic.h"

namespace Toolkits
{
class PaintRecording;
}

namespace Graphics
{

struct TMetafileImage;

/// A kept drawing, which can be drawn again in any size. It is filled by a `TMetafileCanvas`.
///
///     TMetafile picture;
///     picture.SetSize(200, 100);
///     {
///         TMetafileCanvas canvas(&picture, nullptr);
///         canvas.Ellipse(0, 0, 200, 100);
///     }                                                           // the picture has it from here on
///     form->getCanvas()->StretchDraw(rect, &picture);
class TRS8_BTL_API TMetafile : public TGraphic
{
    TRS8_BTL_CLASS(TMetafile, TGraphic)

public:
    TMetafile();
    ~TMetafile() override;

    /// Takes over another metafile; null makes it empty.
    void Assign(TPersistent* source) override;
    /// Makes it empty, of size 0.
    void Clear() { Assign(nullptr); }

    bool getEmpty() const override;
    int getWidth() const override { return mSize.cx; }
    int getHeight() const override { return mSize.cy; }
    /// In which size the drawing is shown; what was drawn is stretched.
    void setWidth(int width) override { SetSize(width, mSize.cy); }
    void setHeight(int height) override { SetSize(mSize.cx, height); }
    void SetSize(int width, int height) override;
    /// The size in hundredths of a millimetre.
    int getMMWidth() const noexcept;
    int getMMHeight() const noexcept;
    void setMMWidth(int width);
    void setMMHeight(int height);

    /// Whether a file of it is of the newer form; it is at first.
    bool getEnhanced() const noexcept { return mEnhanced; }
    void setEnhanced(bool enhanced);
    /// Dots an inch that the drawing was made for.
    System::Word getInch() const noexcept { return 96; }
    /// What it shows and who made it; only files of the newer form have these.
    const System::UnicodeString& getDescription() const noexcept { return mDescription; }
    void setDescription(const System::UnicodeString& text) { mDescription = text; }
    const System::UnicodeString& getCreatedBy() const noexcept { return mCreatedBy; }
    void setCreatedBy(const System::UnicodeString& text) { mCreatedBy = text; }

    /// What was drawn. `EInvalidGraphic` if it is in a file that is damaged, or that draws more than a
    /// picture can have.
    const Toolkits::PaintRecording& Recording() const;

    /// `EInvalidGraphic` if the stream has no metafile.
    void LoadFromStream(Classes::TStream* stream) override;
    /// `EInvalidGraphic` if the older type can't have its size: that has 32,767 pixels each way at most.
    void SaveToStream(Classes::TStream* stream) override;
    void ReadData(Classes::TStream* stream) override { ReadSized(stream); }
    void WriteData(Classes::TStream* stream) override { WriteSized(stream); }

protected:
    void Draw(TCanvas* canvas, const Types::TRect& rect) override;

private:
    friend class TMetafileCanvas;

    void TakeImage(System::GSharedBlock<TMetafileImage> image);
    void Play(Toolkits::PaintDevice& device, const Types::TRect& rect) const;

    System::GSharedBlock<TMetafileImage> mImage;
    Types::TSize mSize;
    bool mEnhanced = true;
    System::UnicodeString mDescription;
    System::UnicodeString mCreatedBy;
};

/// Draws a metafile anew: what was drawn takes the place of its content when the canvas is destroyed.
class TRS8_BTL_API TMetafileCanvas : public TCanvas
{
    TRS8_BTL_CLASS(TMetafileCanvas, TCanvas)

public:
    /// The metafile must outlive the canvas; one of size 0 gets the size of what is drawn. The device whose
    /// dots count is the screen, whatever `reference` is. `EInvalidGraphicOperation` for null.
    TMetafileCanvas(TMetafile* metafile, HDC reference);
    /// As the other, with the names of who made it and of what it shows.
    TMetafileCanvas(TMetafile* metafile, HDC reference, const System::UnicodeString& createdBy,
                    const System::UnicodeString& description);
    ~TMetafileCanvas() override;

private:
    TMetafile& mMetafile;
    System::GSharedBlock<TMetafileImage> mImage;
};

} // namespace Graphics
