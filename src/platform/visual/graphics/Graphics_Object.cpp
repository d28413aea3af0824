// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Object.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Graphics
{

System::TMetaClass* TGraphicsObject::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TGraphicsObject>(u"TGraphicsObject").Build();
    return record;
}

TGraphicsObject::~TGraphicsObject() = default;

void TGraphicsObject::Changed()
{
    if (mOnChange) {
        mOnChange(this);
    }
}

} // namespace Graphics
