// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace Classes
{

/// Tells of the exception that is being handled, which one raised who was told of a component's end: a
/// destructor can't let it pass. Filled in by the application; null lets it end the program.
TRS8_BTL_API extern void (*TellEndFault)();

} // namespace Classes
