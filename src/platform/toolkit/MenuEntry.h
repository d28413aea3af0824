// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <vector>

namespace Toolkits
{

/// An item of a menu as a toolkit shows it; only what can be seen is there.
struct TMenuEntry
{
    /// What the toolkit gives back for the item that was chosen.
    int id = 0;
    /// With `&` in front of the key's character; "-" for a line.
    System::UnicodeString caption = {};
    System::UnicodeString shortCut = {};
    bool isEnabled = true;
    bool isChecked = false;
    bool isRadio = false;
    bool isDefault = false;
    std::vector<TMenuEntry> entries = {};
};

} // namespace Toolkits
