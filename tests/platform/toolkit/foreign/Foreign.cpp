// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/ToolkitPlugin.h"

// A plug-in of another version of the library.

extern "C" {
[[gnu::visibility("default")]] extern const Toolkits::TToolkitPlugin trs8_btl_toolkit;
const Toolkits::TToolkitPlugin trs8_btl_toolkit = {"0.0.1", nullptr};
}
