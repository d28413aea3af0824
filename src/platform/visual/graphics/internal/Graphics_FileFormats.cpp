// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_FileFormats.h"

#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Icon.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "platform/visual/graphics/Graphics_WICImage.h"
#include "platform/visual/graphics/Jpeg.h"
#include "platform/visual/graphics/Pngimage.h"

#include <algorithm>

namespace Graphics
{

std::vector<TFileFormat>& FileFormats()
{
    // Never destroyed: pictures of static lifetime may ask for it at the end of the program.
    static auto& formats = *new std::vector<TFileFormat>{
        {u"tif", u"TIFF Images", System::ClassOf<TWICImage>()},
        {u"tiff", u"TIFF Images", System::ClassOf<TWICImage>()},
        {u"gif", u"GIF Images", System::ClassOf<TWICImage>()},
        {u"png", u"Portable Network Graphics", System::ClassOf<Pngimage::TPngImage>()},
        {u"jpeg", u"JPEG Image File", System::ClassOf<Jpeg::TJPEGImage>()},
        {u"jpg", u"JPEG Image File", System::ClassOf<Jpeg::TJPEGImage>()},
        {u"wmf", u"Metafiles", System::ClassOf<TMetafile>()},
        {u"emf", u"Enhanced Metafiles", System::ClassOf<TMetafile>()},
        {u"ico", u"Icons", System::ClassOf<TIcon>()},
        {u"bmp", u"Bitmaps", System::ClassOf<TBitmap>()}};
    return formats;
}

System::TMetaClass* ClassOfExtension(const System::UnicodeString& extension)
{
    const auto& formats = FileFormats();
    const auto found = std::find_if(formats.rbegin(), formats.rend(), [&](const TFileFormat& format) {
        return Sysutils::SameText(format.extension, extension);
    });
    return found == formats.rend() ? nullptr : found->type;
}

System::TMetaClass* GraphicClassOfName(const System::UnicodeString& name)
{
    const auto& formats = FileFormats();
    const auto found = std::ranges::find_if(
        formats, [&](const TFileFormat& format) { return Sysutils::SameText(format.type->getName(), name); });
    return found == formats.end() ? nullptr : found->type;
}

std::unique_ptr<TGraphic> NewGraphic(const System::TMetaClass& type)
{
    std::unique_ptr<System::TObject> object = type.Create();
    auto* const graphic = dynamic_cast<TGraphic*>(object.get());
    if (graphic != nullptr) {
        object.release();
    }
    return std::unique_ptr<TGraphic>(graphic);
}

} // namespace Graphics
