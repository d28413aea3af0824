// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PictureCodecs.h"
#include "platform/toolkit/Toolkit.h"

#include <memory>
#include <string>
#include <string_view>

namespace Toolkits
{

/// What a plug-in exports as `trs8_btl_toolkit`. Its first member never changes its place.
struct TToolkitPlugin
{
    /// `System::LibraryVersion()` of the headers that the plug-in was compiled with.
    const char* version;
    /// Raises `std::exception`, which tells why, where it can't be used.
    Toolkit* (*make)();
    /// The part for pictures, which needs no display and no toolkit.
    PictureCodecs* (*makeCodecs)() = nullptr;
};

/// The toolkit of the plug-in `libTRS8_BTL_NAME.so`, which is never unloaded; null, and `reason` tells why,
/// if there is none that fits. Raises as `TToolkitPlugin::make`.
[[nodiscard]] std::unique_ptr<Toolkit> LoadToolkit(std::string_view name, std::string& reason);

/// As `LoadToolkit`, but its part for pictures.
[[nodiscard]] std::unique_ptr<PictureCodecs> LoadCodecs(std::string_view name, std::string& reason);

} // namespace Toolkits
