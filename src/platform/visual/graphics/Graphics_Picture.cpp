// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Picture.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_Filer.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Icon.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "platform/visual/graphics/internal/Graphics_FileFormats.h"

#include <algorithm>

namespace Graphics
{

namespace
{

using System::UnicodeString;

std::unique_ptr<TGraphic> RequiredGraphic(const System::TMetaClass* type, const UnicodeString& what)
{
    std::unique_ptr<TGraphic> graphic = type == nullptr ? nullptr : NewGraphic(*type);
    if (graphic == nullptr) {
        throw EInvalidGraphic(what);
    }
    return graphic;
}

/// The formats of the class, in the order in which they are offered: the newest first.
std::vector<TFileFormat> FormatsOf(const System::TMetaClass* type)
{
    std::vector<TFileFormat> formats;
    std::copy_if(FileFormats().rbegin(), FileFormats().rend(), std::back_inserter(formats),
                 [&](const TFileFormat& format) { return format.type->Inherits(type); });
    return formats;
}

} // namespace

System::TMetaClass* TPicture::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TPicture>(u"TPicture").Build();
    return record;
}

TPicture::~TPicture() = default;

void TPicture::Changed(System::TObject*)
{
    if (mOnChange) {
        mOnChange(this);
    }
}

void TPicture::TakeGraphic(System::GOwner<TGraphic> graphic)
{
    mGraphic = std::move(graphic);
    if (mGraphic != nullptr) {
        mGraphic->setOnChange([this](System::TObject* sender) { Changed(sender); });
    }
    Changed(this);
}

void TPicture::setGraphic(TGraphic* graphic)
{
    if (graphic == nullptr) {
        TakeGraphic(nullptr);
        return;
    }
    auto copy = RequiredGraphic(graphic->ClassType(), u"A " + graphic->ClassName() + u" makes no copies");
    copy->Assign(graphic);
    copy->setTransparent(graphic->getTransparent());
    TakeGraphic(System::GOwner<TGraphic>(copy.release()));
}

void TPicture::Assign(TPersistent* source)
{
    if (source == nullptr) {
        setGraphic(nullptr);
    } else if (const auto* const picture = dynamic_cast<TPicture*>(source)) {
        setGraphic(picture->getGraphic());
    } else if (auto* const graphic = dynamic_cast<TGraphic*>(source)) {
        setGraphic(graphic);
    } else {
        TPersistent::Assign(source);
    }
}

void TPicture::AssignTo(TPersistent* target) const
{
    if (dynamic_cast<TGraphic*>(target) != nullptr) {
        target->Assign(mGraphic.get());
    } else {
        TPersistent::AssignTo(target);
    }
}

template <class Graphic>
Graphic* TPicture::Forced()
{
    auto* graphic = dynamic_cast<Graphic*>(mGraphic.get());
    if (graphic == nullptr) {
        graphic = new Graphic;
        TakeGraphic(System::GOwner<TGraphic>(graphic));
    }
    return graphic;
}

TBitmap* TPicture::getBitmap()
{
    return Forced<TBitmap>();
}

void TPicture::setBitmap(TBitmap* bitmap)
{
    setGraphic(bitmap);
}

TIcon* TPicture::getIcon()
{
    return Forced<TIcon>();
}

void TPicture::setIcon(TIcon* icon)
{
    setGraphic(icon);
}

TMetafile* TPicture::getMetafile()
{
    return Forced<TMetafile>();
}

void TPicture::setMetafile(TMetafile* metafile)
{
    setGraphic(metafile);
}

int TPicture::getWidth() const
{
    return mGraphic == nullptr ? 0 : mGraphic->getWidth();
}

int TPicture::getHeight() const
{
    return mGraphic == nullptr ? 0 : mGraphic->getHeight();
}

void TPicture::LoadFromFile(const UnicodeString& path)
{
    const UnicodeString extension = Sysutils::ExtractFileExt(path).SubString(2, path.Length());
    auto graphic =
        RequiredGraphic(ClassOfExtension(extension), u"Unknown picture file extension (." + extension + u")");
    graphic->LoadFromFile(path);
    TakeGraphic(System::GOwner<TGraphic>(graphic.release()));
}

void TPicture::SaveToFile(const UnicodeString& path)
{
    if (mGraphic != nullptr) {
        mGraphic->SaveToFile(path);
    }
}

void TPicture::ReadData(Classes::TStream* stream)
{
    System::Byte length = 0;
    stream->ReadBuffer(&length, 1);
    if (length == 0) {
        TakeGraphic(nullptr);
        return;
    }
    char name[255] = {};
    stream->ReadBuffer(name, length);
    const UnicodeString className{System::AnsiString(name, length)};
    auto graphic = RequiredGraphic(GraphicClassOfName(className), u"Unknown class of pictures " + className);
    graphic->ReadData(stream);
    TakeGraphic(System::GOwner<TGraphic>(graphic.release()));
}

void TPicture::WriteData(Classes::TStream* stream) const
{
    const System::AnsiString name(mGraphic == nullptr ? UnicodeString() : mGraphic->ClassName());
    const auto length = static_cast<System::Byte>(std::min(name.Length(), 255));
    stream->WriteBuffer(&length, 1);
    stream->WriteBuffer(name.c_str(), length);
    if (mGraphic != nullptr) {
        mGraphic->WriteData(stream);
    }
}

void TPicture::DefineProperties(Classes::TFiler& filer)
{
    TPersistent::DefineProperties(filer);
    const auto* const ancestor = dynamic_cast<TPicture*>(filer.getAncestor());
    TGraphic* const inherited = ancestor == nullptr ? nullptr : ancestor->getGraphic();
    const bool hasData = mGraphic == nullptr ? inherited != nullptr : !mGraphic->Equals(inherited);
    filer.DefineBinaryProperty(
        u"Data", [this](Classes::TStream* stream) { ReadData(stream); },
        [this](Classes::TStream* stream) { WriteData(stream); }, hasData);
}

void TPicture::RegisterFileFormat(const UnicodeString& extension, const UnicodeString& description,
                                  System::TMetaClass* type)
{
    if (type == nullptr || NewGraphic(*type) == nullptr) {
        throw EInvalidGraphicOperation(u"The class makes no graphics");
    }
    FileFormats().push_back({extension, description, type});
}

void TPicture::UnregisterGraphicClass(System::TMetaClass* type)
{
    std::erase_if(FileFormats(), [type](const TFileFormat& format) { return format.type->Inherits(type); });
}

UnicodeString GraphicFileMask(const System::TMetaClass* type)
{
    UnicodeString mask;
    for (const TFileFormat& format : FormatsOf(type)) {
        mask += (mask.IsEmpty() ? u"*." : u";*.") + format.extension;
    }
    return mask;
}

UnicodeString GraphicFilter(const System::TMetaClass* type)
{
    const std::vector<TFileFormat> formats = FormatsOf(type);
    UnicodeString filter;
    if (formats.size() > 1) {
        const UnicodeString mask = GraphicFileMask(type);
        filter = u"All (" + mask + u")|" + mask;
    }
    for (const TFileFormat& format : formats) {
        const UnicodeString mask = u"*." + format.extension;
        filter += (filter.IsEmpty() ? u"" : u"|") + format.description + u" (" + mask + u")|" + mask;
    }
    return filter;
}

UnicodeString GraphicExtension(const System::TMetaClass* type)
{
    const auto found = std::find_if(FileFormats().rbegin(), FileFormats().rend(),
                                    [type](const TFileFormat& format) { return format.type == type; });
    return found == FileFormats().rend() ? UnicodeString() : found->extension;
}

} // namespace Graphics
