// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/runtime/classes/Classes_Persistent.h"
#include "platform/runtime/typinfo/System_Closure.h"

namespace Classes
{
class TStream;
}

namespace Toolkits
{
class PaintDevice;
}

namespace Graphics
{

class TCanvas;

/// A picture of any kind. What is loaded is kept as it was, and looked at no sooner than its size or its
/// pixels are asked for; a damaged one raises `EInvalidGraphic` then. Negative sizes and those beyond reason
/// raise `EInvalidGraphicOperation` before memory is taken.
///
///     bitmap.LoadFromFile(u"logo.bmp");
///     canvas->StretchDraw(rect, &bitmap);
class TRS8_BTL_API TGraphic : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TGraphic, Classes::TPersistent)

public:
    TGraphic() = default;
    ~TGraphic() override;

    /// Whether there is no picture.
    virtual bool getEmpty() const = 0;
    /// In pixels.
    virtual int getWidth() const = 0;
    virtual int getHeight() const = 0;
    virtual void setWidth(int width) = 0;
    virtual void setHeight(int height) = 0;
    virtual void SetSize(int width, int height);

    /// Whether the picture was changed since it was made, loaded or saved.
    bool getModified() const noexcept { return mModified; }
    void setModified(bool modified);
    /// Whether what is below shows through.
    virtual bool getTransparent() const { return mTransparent; }
    virtual void setTransparent(bool transparent);
    /// Whether pixels of the picture may be half transparent.
    virtual bool getSupportsPartialTransparency() const;

    /// `EInvalidGraphic` if the content isn't of the picture's type, `EFOpenError` if the file can't be
    /// opened; the picture stays as it was then. `SaveToFile` raises what a file stream raises.
    virtual void LoadFromFile(const System::UnicodeString& path);
    virtual void SaveToFile(const System::UnicodeString& path);
    /// Takes the rest of the stream, or writes at its position. Faults as of `LoadFromFile`.
    virtual void LoadFromStream(Classes::TStream* stream) = 0;
    virtual void SaveToStream(Classes::TStream* stream) = 0;
    /// The form in which a property of a picture is stored: the length in four bytes and the picture, or the
    /// picture alone, as its class has it.
    virtual void ReadData(Classes::TStream* stream);
    virtual void WriteData(Classes::TStream* stream);
    /// Whether both are of one class and store the same; false for null.
    bool Equals(TGraphic* other);

    const Classes::TNotifyEvent& getOnChange() const noexcept { return mOnChange; }
    /// Called after each change.
    void setOnChange(const Classes::TNotifyEvent& event) { mOnChange = event; }

protected:
    /// The picture itself as a binary property "Data", unless it is empty or as that of the ancestor.
    void DefineProperties(Classes::TFiler& filer) override;
    /// Draws the picture, which isn't empty, into the rectangle.
    virtual void Draw(TCanvas* canvas, const Types::TRect& rect) = 0;
    /// As `Draw`, but lets show through what is below: 0 all, 255 nothing.
    virtual void DrawTransparent(TCanvas* canvas, const Types::TRect& rect, unsigned char opacity);
    /// Marks the picture as modified and calls the event.
    virtual void Changed(System::TObject* sender);

    /// `ReadData` and `WriteData` with the length in front.
    void ReadSized(Classes::TStream* stream);
    void WriteSized(Classes::TStream* stream);

    /// The device of a canvas, to draw a picture on.
    static Toolkits::PaintDevice& DeviceOf(TCanvas& canvas);

private:
    friend class TCanvas;

    bool mModified = false;
    bool mTransparent = false;
    Classes::TNotifyEvent mOnChange;
};

} // namespace Graphics
