// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/base/Types.h"
#include "platform/runtime/typinfo/System_Closure.h"

namespace Controls
{
class TWinControl;
} // namespace Controls

namespace Stdctrls
{

/// What holds for an item that is drawn.
enum TOwnerDrawStateFlag
{
    odSelected,
    odGrayed,
    odDisabled,
    odChecked,
    odFocused,
    odDefault,
    odHotLight,
    odInactive,
    odNoAccel,
    odNoFocusRect,
    odReserved1,
    odReserved2,
    odComboBoxEdit
};
/// All that holds for an item; `odComboBoxEdit` is the one that a closed combo box shows.
using TOwnerDrawState = System::Set<TOwnerDrawStateFlag, odSelected, odComboBoxEdit>;

/// An item is to be drawn on the control's canvas, which has the colours of the state.
using TDrawItemEvent = System::TClosure<void(Controls::TWinControl* control, int index,
                                             const Types::TRect& rect, TOwnerDrawState state)>;
/// The height of an item is asked for; `height` is the usual one at first.
using TMeasureItemEvent = System::TClosure<void(Controls::TWinControl* control, int index, int& height)>;

} // namespace Stdctrls
