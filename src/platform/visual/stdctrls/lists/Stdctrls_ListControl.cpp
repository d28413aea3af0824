// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Stdctrls_ListControl.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Stdctrls
{

System::TMetaClass* TCustomListControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomListControl>(u"TCustomListControl").Build();
    return record;
}

TCustomListControl::~TCustomListControl() = default;

void TCustomListControl::MoveSelection(TCustomListControl* destination)
{
    if (destination != nullptr && destination != this) {
        CopySelection(destination);
        DeleteSelected();
    }
}

System::TMetaClass* TCustomMultiSelectListControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomMultiSelectListControl>(u"TCustomMultiSelectListControl").Build();
    return record;
}

TCustomMultiSelectListControl::~TCustomMultiSelectListControl() = default;

} // namespace Stdctrls
