// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_LineErrors.h"

#include "platform/host/devices/Host_CommTypes.h"

#include <linux/serial.h>
#include <sys/ioctl.h>

namespace Host
{

unsigned long LineErrors::Since(int device) const
{
    return Compare(Read(device));
}

unsigned long LineErrors::Take(int device)
{
    const Counters now = Read(device);
    const unsigned long errors = Compare(now);
    mLast = now;
    return errors;
}

LineErrors::Counters LineErrors::Read(int device)
{
    serial_icounter_struct counters{};
    if (ioctl(device, TIOCGICOUNT, &counters) != 0) {
        return {};
    }
    return {counters.buf_overrun, counters.overrun, counters.parity, counters.frame, counters.brk};
}

unsigned long LineErrors::Compare(const Counters& now) const
{
    unsigned long errors = 0;
    errors |= now.overruns != mLast.overruns ? CE_RXOVER : 0;
    errors |= now.losses != mLast.losses ? CE_OVERRUN : 0;
    errors |= now.parities != mLast.parities ? CE_RXPARITY : 0;
    errors |= now.frames != mLast.frames ? CE_FRAME : 0;
    errors |= now.breaks != mLast.breaks ? CE_BREAK : 0;
    return errors;
}

} // namespace Host
