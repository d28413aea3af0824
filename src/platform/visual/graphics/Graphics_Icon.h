// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"

namespace Graphics
{

struct TIconImages;
struct TIconObject;

/// A picture in one or several sizes, whose ground shows through.
///
///     TIcon icon;
///     icon.LoadFromFile(u"station.ico");
///     icon.SetSize(16, 16);                                       // takes the image that is nearest
///     canvas->Draw(0, 0, &icon);
class TRS8_BTL_API TIcon : public TGraphic
{
    TRS8_BTL_CLASS(TIcon, TGraphic)

public:
    TIcon();
    ~TIcon() override;

    /// Takes over another icon, or the pixels of a bitmap; null makes it empty.
    void Assign(TPersistent* source) override;
    void AssignTo(TPersistent* target) const override;

    bool getEmpty() const override;
    /// The size of the image in use; 32 by 32 for an empty icon of which nothing else was asked.
    int getWidth() const override;
    int getHeight() const override;
    void setWidth(int width) override { SetSize(width, getHeight()); }
    void setHeight(int height) override { SetSize(getWidth(), height); }
    /// Takes the image that is nearest to the size into use.
    void SetSize(int width, int height) override;
    /// How many images it has.
    int getCount() const noexcept;

    /// Always true; setting it does nothing.
    bool getTransparent() const override { return true; }
    void setTransparent(bool) override {}
    bool getSupportsPartialTransparency() const override { return true; }

    /// The icon as a handle, which stays the icon's; null for an empty one.
    TIconObject* getHandle() const;
    /// Takes the handle over, which is the icon's from then on; null makes it empty.
    void setHandle(TIconObject* handle);
    /// As `getHandle`, but the handle is the caller's, and the icon is empty.
    TIconObject* ReleaseHandle();
    bool HandleAllocated() const noexcept { return mHandle != nullptr; }

    /// The pixels of the image that is nearest to the size. `EInvalidGraphic` if it is damaged or needs a
    /// codec that there isn't.
    const Toolkits::Pixels& PixelsFor(int width, int height) const;

    void LoadFromStream(Classes::TStream* stream) override;
    void SaveToStream(Classes::TStream* stream) override;

protected:
    void Draw(TCanvas* canvas, const Types::TRect& rect) override;
    void DrawTransparent(TCanvas* canvas, const Types::TRect& rect, unsigned char opacity) override;

private:
    void TakeImages(System::GSharedBlock<TIconImages> images);

    System::GSharedBlock<TIconImages> mImages;
    Types::TSize mWanted{.cx = 32, .cy = 32};
    mutable System::GOwner<TIconObject> mHandle;
};

} // namespace Graphics
