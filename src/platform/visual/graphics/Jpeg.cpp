// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Jpeg.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>

namespace Jpeg
{

System::TMetaClass* TJPEGImage::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TJPEGImage>(u"TJPEGImage").Build();
    return record;
}

TJPEGImage::~TJPEGImage() = default;

void TJPEGImage::Assign(TPersistent* source)
{
    if (const auto* const other = dynamic_cast<TJPEGImage*>(source)) {
        mQuality = other->mQuality;
    }
    TCodedGraphic::Assign(source);
}

void TJPEGImage::setCompressionQuality(TJPEGQualityRange quality)
{
    mQuality = std::clamp(quality, 1, 100);
}

} // namespace Jpeg
