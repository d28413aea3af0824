// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Pngimage.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Pngimage
{

System::TMetaClass* TPngImage::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TPngImage>(u"TPngImage").Build();
    return record;
}

TPngImage::~TPngImage() = default;

void TPngImage::SetSize(int width, int height)
{
    if (width == getWidth() && height == getHeight()) {
        return;
    }
    Toolkits::Pixels pixels = getEmpty() ? Toolkits::Pixels(getWidth(), getHeight()) : Content();
    pixels.Resize(width, height, 0);
    TakePixels(std::move(pixels));
}

} // namespace Pngimage
