// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/toolkit/Pixels.h"
#include "platform/visual/graphics/Graphics_Color.h"

#include <vector>

namespace Classes
{
class TStream;
} // namespace Classes

namespace Graphics
{
class TBitmap;
class TCanvas;
} // namespace Graphics

namespace Controls
{

class TImageList;

/// Holds a control to the list whose pictures it shows, as long as both are there.
class TRS8_BTL_API TChangeLink
{
public:
    TChangeLink() = default;
    TChangeLink(const TChangeLink&) = delete;
    TChangeLink& operator=(const TChangeLink&) = delete;
    ~TChangeLink();

    /// Null for none, and once the list is gone.
    TImageList* getSender() const noexcept { return mSender; }
    void setSender(TImageList* sender);

    /// The pictures are others, or the list goes; at its end no exception may pass.
    Classes::TNotifyEvent OnChange;

private:
    friend class TImageList;

    TImageList* mSender = nullptr;
};

/// Pictures of one size, known by their numbers, for controls that show several. A design keeps them.
///
///     auto* const images = new Controls::TImageList(form);
///     images->AddMasked(&bitmap, Graphics::clFuchsia);            // 0
///     pages->setImages(images);
///     sheet->setImageIndex(0);
class TRS8_BTL_API TImageList : public Classes::TComponent
{
    TRS8_BTL_CLASS(TImageList, Classes::TComponent)

public:
    /// The widest and highest that a picture can be.
    static constexpr int MaximumExtent = 1024;

    explicit TImageList(Classes::TComponent* owner = nullptr) : TComponent(owner) {}
    ~TImageList() override;

    /// Pixels of each picture, 16 at first, held within 1 and `MaximumExtent`. Another size takes all
    /// pictures away.
    int getWidth() const noexcept { return mWidth; }
    void setWidth(int width) { SetSize(width, mHeight); }
    int getHeight() const noexcept { return mHeight; }
    void setHeight(int height) { SetSize(mWidth, height); }

    int getCount() const noexcept { return static_cast<int>(mPictures.size()); }
    /// Adds the picture, or several that stand side by side in it, and gives the number of the first. What is
    /// lower than the list's pictures is filled up with nothing, what is higher cut off. -1 for null and for
    /// a bitmap that is narrower than one picture.
    int Add(Graphics::TBitmap* picture);
    /// As `Add`, but pixels of the colour are see-through.
    int AddMasked(Graphics::TBitmap* picture, Graphics::TColor color);
    /// A number out of range changes nothing.
    void Delete(int index);
    void Clear();
    /// The pixels of a picture, up to the next change of the list; null for a number out of range.
    const Toolkits::Pixels* GetPixels(int index) const noexcept;
    /// Nothing for a number out of range.
    void Draw(Graphics::TCanvas* canvas, int x, int y, int index) const;

    Classes::TNotifyEvent OnChange;

protected:
    /// Called after each change; tells the controls and calls `OnChange`.
    virtual void Change();
    /// Keeps the pixels as `Pictures`: all rows of each picture, four bytes a pixel, blue first and alpha
    /// last.
    void DefineProperties(Classes::TFiler& filer) override;

private:
    friend class TChangeLink;

    void SetSize(int width, int height);
    int AddPixels(const Toolkits::Pixels& pixels);
    void ReadPictures(Classes::TStream& stream);
    void WritePictures(Classes::TStream& stream) const;
    bool HasPicturesOf(const TImageList* ancestor) const;

    int mWidth = 16;
    int mHeight = 16;
    std::vector<Toolkits::Pixels> mPictures;
    std::vector<TChangeLink*> mLinks;
};

} // namespace Controls
