// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/system/Host_SystemInfo.h"

namespace WIN
{

/// Whether the system keeps its programs apart.
[[nodiscard]] TRS8_BTL_API bool IsNT();
/// Whether the system is at least of version 6.
[[nodiscard]] TRS8_BTL_API bool IsVista();
/// Fills the structure, its length included. A failure goes to `ThrowLastError`.
TRS8_BTL_API void GlobalMemoryStatus(_MEMORYSTATUSEX& status);

} // namespace WIN
