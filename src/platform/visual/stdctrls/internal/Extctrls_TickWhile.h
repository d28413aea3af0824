// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"

namespace Extctrls
{

/// Lets the timer of a control tick while `isOn`, with an interval in milliseconds; makes it when it is
/// needed first.
inline void TickWhile(bool isOn, System::GOwner<TTimer>& timer, unsigned milliseconds,
                      const Classes::TNotifyEvent& onTimer)
{
    if (timer == nullptr) {
        if (!isOn) {
            return;
        }
        timer = System::MakeOwner<TTimer>();
        timer->setOnTimer(onTimer);
    }
    timer->setInterval(milliseconds);
    timer->setEnabled(isOn);
}

} // namespace Extctrls
