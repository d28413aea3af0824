// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/ToolkitPlugin.h"

// A plug-in that needs what isn't there.

extern "C" {
Toolkits::Toolkit* aLibraryThatIsMissing();
[[gnu::visibility("default")]] extern const Toolkits::TToolkitPlugin trs8_btl_toolkit;
const Toolkits::TToolkitPlugin trs8_btl_toolkit = {"0.2.0", &aLibraryThatIsMissing};
}
