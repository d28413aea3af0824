// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Graphic.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_Filer.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/internal/Graphics_Bytes.h"

namespace Graphics
{

System::TMetaClass* TGraphic::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TGraphic>(u"TGraphic").Build();
    return record;
}

TGraphic::~TGraphic() = default;

void TGraphic::SetSize(int width, int height)
{
    setWidth(width);
    setHeight(height);
}

void TGraphic::setModified(bool modified)
{
    if (modified) {
        Changed(this);
    } else {
        mModified = false;
    }
}

void TGraphic::setTransparent(bool transparent)
{
    if (transparent != mTransparent) {
        mTransparent = transparent;
        Changed(this);
    }
}

bool TGraphic::getSupportsPartialTransparency() const
{
    return false;
}

void TGraphic::LoadFromFile(const System::UnicodeString& path)
{
    Classes::TFileStream file(path, Classes::fmOpenRead | Classes::fmShareDenyWrite);
    LoadFromStream(&file);
}

void TGraphic::SaveToFile(const System::UnicodeString& path)
{
    // A picture that can't be written leaves a file that is there as it is.
    Classes::TMemoryStream whole;
    SaveToStream(&whole);
    whole.SaveToFile(path);
}

void TGraphic::ReadData(Classes::TStream* stream)
{
    LoadFromStream(stream);
}

void TGraphic::WriteData(Classes::TStream* stream)
{
    SaveToStream(stream);
}

bool TGraphic::Equals(TGraphic* other)
{
    if (other == nullptr || other->ClassType() != ClassType() || other->getEmpty() != getEmpty()) {
        return false;
    }
    Classes::TMemoryStream own;
    Classes::TMemoryStream others;
    WriteData(&own);
    other->WriteData(&others);
    return own.AsView() == others.AsView();
}

void TGraphic::DefineProperties(Classes::TFiler& filer)
{
    TPersistent::DefineProperties(filer);
    auto* const ancestor = dynamic_cast<TGraphic*>(filer.getAncestor());
    const bool hasData = ancestor == nullptr ? !getEmpty() : !Equals(ancestor);
    filer.DefineBinaryProperty(
        u"Data", [this](Classes::TStream* stream) { ReadData(stream); },
        [this](Classes::TStream* stream) { WriteData(stream); }, hasData);
}

void TGraphic::ReadSized(Classes::TStream* stream)
{
    Classes::TBytesStream part{std::span<const System::Byte>(ReadSizedBytes(stream))};
    LoadFromStream(&part);
}

void TGraphic::WriteSized(Classes::TStream* stream)
{
    Classes::TMemoryStream part;
    SaveToStream(&part);
    WriteSizedBytes(stream, part.AsView());
}

void TGraphic::DrawTransparent(TCanvas* canvas, const Types::TRect& rect, unsigned char)
{
    Draw(canvas, rect);
}

void TGraphic::Changed(System::TObject*)
{
    mModified = true;
    if (mOnChange) {
        mOnChange(this);
    }
}

Toolkits::PaintDevice& TGraphic::DeviceOf(TCanvas& canvas)
{
    return canvas.RequiredDevice();
}

} // namespace Graphics
