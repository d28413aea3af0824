// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Stdctrls_ListControl.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"

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

void TCustomListControl::StopIfGone(const Classes::TComponentWatch& watch)
{
    if (!watch.IsAlive()) {
        throw Sysutils::EAbort(u"The list is gone");
    }
}

void TCustomListControl::DrawItemText(const System::UnicodeString& text, const Types::TRect& rect)
{
    const bool isFromRight = UseRightToLeftAlignment();
    Types::TRect place{rect.Left + (isFromRight ? 0 : 2), rect.Top, rect.Right - (isFromRight ? 2 : 0),
                       rect.Bottom};
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.FillRect(rect);
    Graphics::DrawText(&canvas, text, place, DrawTextBiDiModeFlags(DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX));
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
