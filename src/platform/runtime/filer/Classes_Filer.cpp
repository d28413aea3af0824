// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_Filer.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Classes
{

System::TMetaClass* TFiler::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TFiler>(u"TFiler").Build();
    return record;
}

TFiler::~TFiler() = default;

} // namespace Classes
