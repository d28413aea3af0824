// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/PictureType.h"
#include "platform/toolkit/internal/DeviceState.h"
#include "platform/visual/graphics/internal/Graphics_Bytes.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileObjects.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReader.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace Graphics
{

/// A device that writes what is drawn on it as a metafile.
///
///     const auto writer = NewMetafileWriter(EPictureType::Metafile, {.cx = 200, .cy = 100}, {});
///     recording.Play(*writer, bounds, bounds);
///     const std::vector<System::Byte> file = writer->TakeFile();
class CMetafileWriter : public Toolkits::PaintDevice
{
public:
    ~CMetafileWriter() override;

    /// The file; nothing may be drawn any more.
    virtual std::vector<System::Byte> TakeFile() = 0;

    void PushState() override { mState.Push(); }
    void PopState() override { mState.Pop(); }
    void MoveOrigin(int dx, int dy) override { mState.MoveOrigin(dx, dy); }
    void IntersectClip(const Types::TRect& rect) override { mState.Intersect(rect); }
    Types::TRect ClipRect() const override { return mState.ClipFromOrigin(); }
    bool GetPixel(const Types::TPoint&, Toolkits::TPixel&) const override { return false; }
    bool ReadPixels(const Types::TRect&, Toolkits::Pixels&) const override { return false; }
    void SetPixel(const Types::TPoint& at, Toolkits::TPixel color) override;
    void Polyline(std::span<const Types::TPoint> points, const Toolkits::TPenData& pen) override;
    void Polygon(std::span<const Types::TPoint> points, const Toolkits::TPenData& pen,
                 const Toolkits::TBrushData& brush) override;
    void FillRect(const Types::TRect& rect, const Toolkits::TBrushData& brush) override;
    void Rectangle(const Types::TRect& rect, const Types::TSize& corner, const Toolkits::TPenData& pen,
                   const Toolkits::TBrushData& brush) override;
    void Ellipse(const Types::TRect& rect, const Toolkits::TPenData& pen,
                 const Toolkits::TBrushData& brush) override;
    void Arc(Toolkits::EArc kind, const Types::TRect& rect, const Types::TPoint& from,
             const Types::TPoint& to, const Toolkits::TPenData& pen,
             const Toolkits::TBrushData& brush) override;
    void Text(const Types::TPoint& at, const System::UnicodeString& text, const Toolkits::TFontData& font,
              const Toolkits::TTextOptions& options) override;
    void Image(const Toolkits::Pixels& image, const Types::TRect& source, const Types::TRect& target,
               const Toolkits::TImageOptions& options) override;
    void FocusRect(const Types::TRect& rect) override;
    void FloodFill(const Types::TPoint& at, Toolkits::TPixel color, Toolkits::EFlood kind,
                   const Toolkits::TBrushData& brush) override;

protected:
    /// What is a number that holds until it is set anew.
    enum ESetting
    {
        PenMode,
        FillRule,
        BackgroundMode,
        BackgroundColor,
        TextColor,
        SettingCount
    };

    /// A text with its place; the rectangle is what it is cut to.
    struct TText
    {
        Types::TPoint at;
        const System::UnicodeString& text;
        const Toolkits::TFontData& font;
        unsigned options;
        Types::TRect rect;
    };

    explicit CMetafileWriter(const Types::TSize& size);

    const Types::TSize& Size() const { return mSize; }
    /// As many objects as there are at once.
    std::size_t ObjectCount() const { return mIsUsed.size(); }
    /// The font that can show the text.
    virtual Toolkits::TFontData FontFor(const Toolkits::TFontData& font, const System::UnicodeString& text)
    {
        (void)text;
        return font;
    }

    // The records of a type of metafiles. Places are pixels of the picture. Objects have numbers from 0 on; a
    // new one gets the lowest that is free.

    virtual void PutClip(const Types::TRect& rect) = 0;
    virtual void PutEndOfClip() = 0;
    virtual void PutObject(std::size_t number, const Toolkits::TPenData& pen) = 0;
    virtual void PutObject(std::size_t number, const TLogicalBrush& brush, unsigned color) = 0;
    /// A brush with a bitmap for its pattern.
    virtual void PutPattern(std::size_t number, std::span<const System::Byte> dib) = 0;
    virtual void PutObject(std::size_t number, const Toolkits::TFontData& font) = 0;
    virtual void PutSelect(std::size_t number) = 0;
    virtual void PutDelete(std::size_t number) = 0;
    virtual void PutSetting(ESetting setting, unsigned value) = 0;
    virtual void PutPixel(const Types::TPoint& at, unsigned color) = 0;
    virtual void PutPoints(const std::vector<Types::TPoint>& points, bool isClosed) = 0;
    virtual void PutFill(const Types::TRect& rect) = 0;
    virtual void PutRectangle(const Types::TRect& rect, const Types::TSize& corner) = 0;
    virtual void PutEllipse(const Types::TRect& rect) = 0;
    virtual void PutArc(Toolkits::EArc kind, const Types::TRect& rect, const Types::TPoint& from,
                        const Types::TPoint& to) = 0;
    virtual void PutText(const TText& text) = 0;
    virtual void PutImage(const Toolkits::Pixels& image, const Types::TRect& target, unsigned operation) = 0;
    /// `opacity` as of `TImageOptions`.
    virtual void PutBlend(const Toolkits::Pixels& image, const Types::TRect& target, unsigned opacity) = 0;
    virtual void PutFlood(const Types::TPoint& at, unsigned color, bool isSurface) = 0;

private:
    /// An object that was written, and its number.
    template <class Object>
    struct GSelected
    {
        std::optional<Object> object;
        std::size_t number = 0;
    };
    struct TSelection
    {
        GSelected<Toolkits::TPenData> pen;
        GSelected<Toolkits::TBrushData> brush;
        GSelected<Toolkits::TFontData> font;
        std::array<std::optional<unsigned>, SettingCount> settings;
    };

    void PutObject(std::size_t number, const Toolkits::TBrushData& brush);
    template <class Object>
    void Use(GSelected<Object>& selected, const Object& wanted);
    template <class Object>
    void Free(const GSelected<Object>& selected);
    void Use(ESetting setting, unsigned value);
    void UsePen(const Toolkits::TPenData& pen);
    void UseClip();
    std::vector<Types::TPoint> ToPicture(std::span<const Types::TPoint> points) const;
    Types::TRect ToPicture(const Types::TRect& rect) const
    {
        return Toolkits::Normalized(mState.ToDevice(rect));
    }

    Types::TSize mSize;
    Toolkits::CDeviceState mState;
    std::optional<Types::TRect> mClip;
    TSelection mSelection;
    /// What was selected before the clip rectangle was set, which holds again behind it.
    TSelection mOutside;
    std::vector<bool> mIsUsed;
};

/// A writer of metafiles of the type; the older one has no place for names. `EInvalidGraphic` if one can't
/// have the size.
std::unique_ptr<CMetafileWriter> NewMetafileWriter(Toolkits::EPictureType type, const Types::TSize& size,
                                                   const TMetafileNames& names);

/// The number of the operation in files, of its byte.
unsigned OperationNumber(unsigned char operation);

} // namespace Graphics
