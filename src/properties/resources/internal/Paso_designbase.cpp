// SPDX-License-Identifier: MIT
#include "properties/resources/internal/Paso_designbase.h"

#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/visual/Forms.h"

namespace PASO
{

System::TMetaClass* DesignBaseOf(const System::TMetaClass* type)
{
    for (System::TMetaClass* const base : {System::ClassOf<Forms::TForm>(), System::ClassOf<Forms::TFrame>(),
                                           System::ClassOf<Classes::TDataModule>()}) {
        if (type != nullptr && type->Inherits(base)) {
            return base;
        }
    }
    return nullptr;
}

} // namespace PASO
