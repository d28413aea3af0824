// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace Forms
{

/// Calls `proc` for each component that `owner` owns and that stands in no other one, as a timer or a menu:
/// they are written with their owner.
inline void ForEachOrphan(const Classes::TComponent& owner, const Classes::TGetChildProc& proc)
{
    for (int i = 0; i < owner.GetComponentCount(); ++i) {
        if (!owner.GetComponent(i)->HasParent()) {
            proc(owner.GetComponent(i));
        }
    }
}

} // namespace Forms
