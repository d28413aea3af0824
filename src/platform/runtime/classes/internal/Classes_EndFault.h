// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace Classes
{

class TComponent;

/// Tells of the exception that is being handled, which came on the way to the end of `component` from one
/// that was told of that: a destructor can't let it pass. Filled in by the application; null lets it end the
/// program.
TRS8_BTL_API extern void (*TellEndFault)(TComponent& component);

} // namespace Classes
