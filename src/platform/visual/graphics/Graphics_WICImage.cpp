// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_WICImage.h"

#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <array>

namespace Graphics
{

namespace
{

using Toolkits::EPictureType;

struct TFormat
{
    TWICImageFormat format;
    EPictureType type;
    const System::WideChar* extension;
};

constexpr std::array Formats = {
    TFormat{wifBmp, EPictureType::Bitmap, u".bmp"}, TFormat{wifPng, EPictureType::Png, u".png"},
    TFormat{wifJpeg, EPictureType::Jpeg, u".jpg"},  TFormat{wifJpeg, EPictureType::Jpeg, u".jpeg"},
    TFormat{wifGif, EPictureType::Gif, u".gif"},    TFormat{wifTiff, EPictureType::Tiff, u".tif"},
    TFormat{wifTiff, EPictureType::Tiff, u".tiff"}};

} // namespace

System::TMetaClass* TWICImage::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TWICImage>(u"TWICImage").Build();
    return record;
}

TWICImage::~TWICImage() = default;

void TWICImage::Assign(TPersistent* source)
{
    if (const auto* const other = dynamic_cast<TWICImage*>(source)) {
        mFormat = other->mFormat;
    }
    TCodedGraphic::Assign(source);
}

void TWICImage::setImageFormat(TWICImageFormat format)
{
    if (format != mFormat) {
        ForgetFile();
        mFormat = format;
    }
}

EPictureType TWICImage::PictureType() const
{
    const auto* const found = std::ranges::find(Formats, mFormat, &TFormat::format);
    if (found == Formats.end()) {
        throw EInvalidGraphic(u"There is no codec for pictures of that format");
    }
    return found->type;
}

bool TWICImage::Accepts(EPictureType type)
{
    const auto* const found = std::ranges::find(Formats, type, &TFormat::type);
    if (found == Formats.end()) {
        return false;
    }
    mFormat = found->format;
    return true;
}

void TWICImage::SaveToFile(const System::UnicodeString& path)
{
    const System::UnicodeString extension = Sysutils::ExtractFileExt(path);
    const auto* const found = std::ranges::find_if(
        Formats, [&](const TFormat& row) { return Sysutils::SameText(row.extension, extension); });
    if (found != Formats.end()) {
        setImageFormat(found->format);
    }
    TCodedGraphic::SaveToFile(path);
}

} // namespace Graphics
