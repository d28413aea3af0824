// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/ToolkitPlugin.h"
#include "platform/toolkit/qt/QtDisplay.h"
#include "platform/toolkit/qt/QtToolkit.h"
#include "platform/toolkit/qt/painting/QtPictures.h"

// What the library looks for in the plug-in.

extern "C" {
[[gnu::visibility("default")]] extern const Toolkits::TToolkitPlugin trs8_btl_toolkit;
const Toolkits::TToolkitPlugin trs8_btl_toolkit = {
    TRS8_BTL_VERSION,
    []() -> Toolkits::Toolkit* {
        Toolkits::RequireDisplay();
        return new Toolkits::CQtToolkit;
    },
    []() -> Toolkits::PictureCodecs* { return new Toolkits::CQtCodecs; }};
}
