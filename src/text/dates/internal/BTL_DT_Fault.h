// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_ASRT_Assert.h"

namespace BTL::Detail
{

constexpr UTL::CFaultPlace DateBeyondCalendar{"BTL_DateTimeUtilities", 250};

/// The fault of a date that no correct caller passes. Comes back if the user lets it pass.
inline void FaultOnDate()
{
    UTL::THROW_XAssert(DateBeyondCalendar);
}

} // namespace BTL::Detail
