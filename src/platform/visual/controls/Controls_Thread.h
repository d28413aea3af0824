// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace Controls
{

/// How it is told that another thread than the main one touched a control; where it returns, the call goes
/// on. The layer of internal faults fills it in. Until then it is null, and `Classes::EInvalidOperation` is
/// raised.
using FForeignThread = void (*)();
TRS8_BTL_API extern FForeignThread ForeignThread;

/// Raises, by `ForeignThread`, in any thread but the main one.
TRS8_BTL_API void CheckMainThread();

} // namespace Controls
