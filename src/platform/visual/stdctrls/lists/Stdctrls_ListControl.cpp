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

bool TCustomListControl::DispatchItems(Messages::TMessage& message, const TListMessages& numbers)
{
    const auto index = static_cast<int>(message.WParam);
    if (message.Msg == numbers.GetCount) {
        message.Result = GetCount();
    } else if (message.Msg == numbers.GetCurrent) {
        message.Result = GetItemIndex();
    } else if (message.Msg == numbers.SetCurrent) {
        SetItemIndex(index);
        message.Result = GetItemIndex();
    } else if (message.Msg == numbers.GetItemData) {
        message.Result = HasItem(index) ? reinterpret_cast<std::intptr_t>(GetItemObject(index)) : -1;
    } else if (message.Msg == numbers.SetItemData) {
        auto* const object = reinterpret_cast<System::TObject*>(message.LParam);
        message.Result = HasItem(index) && SetItemObject(index, object) ? 0 : -1;
    } else {
        return false;
    }
    return true;
}

System::TMetaClass* TCustomMultiSelectListControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomMultiSelectListControl>(u"TCustomMultiSelectListControl").Build();
    return record;
}

TCustomMultiSelectListControl::~TCustomMultiSelectListControl() = default;

} // namespace Stdctrls
