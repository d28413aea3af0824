// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Metafile.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/internal/Graphics_Bytes.h"
#include "platform/visual/graphics/internal/Graphics_MulDiv.h"
#include "platform/visual/graphics/internal/Graphics_PictureHeader.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReader.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileWriter.h"

namespace Graphics
{

using Toolkits::EPictureType;

namespace
{

constexpr int DotsPerInch = 96;
constexpr int HundredthsPerInch = 2540;

} // namespace

/// What metafiles share: the drawing and its own size, or the file that it is read from when somebody asks.
struct TMetafileImage : System::TSharedBlock
{
    TMetafileImage() = default;
    explicit TMetafileImage(const Types::TRect& bounds) : recording(bounds) {}

    Toolkits::PaintRecording& Decoded()
    {
        if (file && !isDecoded) {
            recording.Clear();
            ReadMetafile(type, file->bytes, size, recording);
            isDecoded = true;
        }
        return recording;
    }

    Toolkits::PaintRecording recording;
    Types::TSize size;
    TSharedBytes file;
    /// Those in the file, which has none if it is of the older type.
    TMetafileNames names;
    EPictureType type = EPictureType::EnhancedMetafile;
    bool isDecoded = false;
};

System::TMetaClass* TMetafile::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TMetafile>(u"TMetafile").Build();
    return record;
}

TMetafile::TMetafile() : mImage(new TMetafileImage) {}

TMetafile::~TMetafile() = default;

void TMetafile::TakeImage(System::GSharedBlock<TMetafileImage> image)
{
    mImage = std::move(image);
    Changed(this);
}

void TMetafile::Assign(TPersistent* source)
{
    if (source == nullptr) {
        mSize = {};
        TakeImage(System::GSharedBlock<TMetafileImage>(new TMetafileImage));
        return;
    }
    const auto* const other = dynamic_cast<TMetafile*>(source);
    if (other == nullptr) {
        TGraphic::Assign(source);
        return;
    }
    mSize = other->mSize;
    mEnhanced = other->mEnhanced;
    mDescription = other->mDescription;
    mCreatedBy = other->mCreatedBy;
    TakeImage(other->mImage);
}

bool TMetafile::getEmpty() const
{
    return !mImage->file && mImage->recording.Count() == 0;
}

void TMetafile::SetSize(int width, int height)
{
    if (!Toolkits::Pixels::IsSize(width, height)) {
        throw EInvalidGraphicOperation(u"A metafile can't have that size");
    }
    const Types::TSize size{.cx = width, .cy = height};
    if (size != mSize) {
        mSize = size;
        Changed(this);
    }
}

int TMetafile::getMMWidth() const noexcept
{
    return MulDiv(mSize.cx, HundredthsPerInch, DotsPerInch);
}

int TMetafile::getMMHeight() const noexcept
{
    return MulDiv(mSize.cy, HundredthsPerInch, DotsPerInch);
}

void TMetafile::setMMWidth(int width)
{
    setWidth(MulDiv(width, DotsPerInch, HundredthsPerInch));
}

void TMetafile::setMMHeight(int height)
{
    setHeight(MulDiv(height, DotsPerInch, HundredthsPerInch));
}

void TMetafile::setEnhanced(bool enhanced)
{
    if (enhanced != mEnhanced) {
        mEnhanced = enhanced;
        Changed(this);
    }
}

const Toolkits::PaintRecording& TMetafile::Recording() const
{
    return mImage->Decoded();
}

void TMetafile::LoadFromStream(Classes::TStream* stream)
{
    std::vector<System::Byte> bytes = ReadRest(stream);
    if (bytes.empty()) {
        Assign(nullptr);
        setModified(false);
        return;
    }
    const System::GSharedBlock<TMetafileImage> image(new TMetafileImage);
    const bool isKnown = FindPictureType(bytes, image->type);
    if (!isKnown ||
        (image->type != EPictureType::EnhancedMetafile && image->type != EPictureType::Metafile)) {
        throw EInvalidGraphic(u"The picture is no metafile");
    }
    image->size = PictureSize(image->type, bytes);
    if (image->type == EPictureType::EnhancedMetafile) {
        image->names = ReadMetafileNames(bytes);
    }
    image->file = TSharedBytes(new TBytesBlock(std::move(bytes)));
    mSize = image->size;
    mEnhanced = image->type == EPictureType::EnhancedMetafile;
    mCreatedBy = image->names.createdBy;
    mDescription = image->names.description;
    TakeImage(image);
    setModified(false);
}

void TMetafile::SaveToStream(Classes::TStream* stream)
{
    const EPictureType type = mEnhanced ? EPictureType::EnhancedMetafile : EPictureType::Metafile;
    const TMetafileNames names = mEnhanced ? TMetafileNames{mCreatedBy, mDescription} : TMetafileNames();
    if (mImage->file && mImage->type == type && mImage->size == mSize && mImage->names == names) {
        WriteBytes(stream, mImage->file->bytes);
    } else if (!getEmpty()) {
        // A drawing that is shown in another size is stored as it is shown.
        const auto writer = NewMetafileWriter(type, mSize, names);
        Play(*writer, {.Left = 0, .Top = 0, .Right = mSize.cx, .Bottom = mSize.cy});
        WriteBytes(stream, writer->TakeFile());
    }
    setModified(false);
}

void TMetafile::Play(Toolkits::PaintDevice& device, const Types::TRect& rect) const
{
    const Types::TSize& size = mImage->size;
    mImage->Decoded().Play(device, {.Left = 0, .Top = 0, .Right = size.cx, .Bottom = size.cy}, rect);
}

void TMetafile::Draw(TCanvas* canvas, const Types::TRect& rect)
{
    Play(DeviceOf(*canvas), rect);
}

System::TMetaClass* TMetafileCanvas::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TMetafileCanvas>(u"TMetafileCanvas").Build();
    return record;
}

TMetafileCanvas::TMetafileCanvas(TMetafile* metafile, HDC reference)
    : TMetafileCanvas(metafile, reference, {}, {})
{
}

TMetafileCanvas::TMetafileCanvas(TMetafile* metafile, HDC, const System::UnicodeString& createdBy,
                                 const System::UnicodeString& description)
    : mMetafile(metafile != nullptr ? *metafile : throw EInvalidGraphicOperation(u"There is no metafile"))
{
    const bool hasSize = mMetafile.getWidth() > 0 && mMetafile.getHeight() > 0;
    const Types::TRect bounds{
        .Left = 0, .Top = 0, .Right = mMetafile.getWidth(), .Bottom = mMetafile.getHeight()};
    mImage = System::GSharedBlock<TMetafileImage>(hasSize ? new TMetafileImage(bounds) : new TMetafileImage);
    mImage->size = {.cx = bounds.Right, .cy = bounds.Bottom};
    mMetafile.setCreatedBy(createdBy);
    mMetafile.setDescription(description);
    setHandle(&mImage->recording);
}

TMetafileCanvas::~TMetafileCanvas()
{
    setHandle(nullptr);
    if (mImage->size.cx <= 0 || mImage->size.cy <= 0) {
        mImage->size = mImage->recording.Extent();
    }
    if (mMetafile.mSize.cx <= 0 || mMetafile.mSize.cy <= 0) {
        mMetafile.mSize = mImage->size;
    }
    mMetafile.TakeImage(mImage);
}

} // namespace Graphics
