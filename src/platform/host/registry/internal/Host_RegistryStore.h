// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/registry/internal/Host_RegistryText.h"

#include <functional>

// The registry files: one of the user, one of the machine. Both are read afresh each time, so that what other
// processes write shows.
//
//     ChangeRegistry(RegistryPart::User, [](RegistryText& text) {
//         text.Set(u"Ports", u"COM7", UnicodeString(u"/dev/ttyACM0"));
//         return true;
//     });

namespace Host
{

enum class RegistryPart
{
    User,
    Machine,
};

/// `TRS8_BTL\registry` in the user's folder of configuration, by `XDG_CONFIG_HOME`, or in one of the
/// machine's: the first of `XDG_CONFIG_DIRS`, or else of `\etc\xdg`, that has the file, or the first of all
/// if none has.
[[nodiscard]] System::UnicodeString RegistryFile(RegistryPart part);

/// Empty for a file that isn't there or can't be read.
[[nodiscard]] RegistryText LoadRegistry(RegistryPart part);

/// Lets `change` work on the file and writes it in one step if that gives true. No other process changes it
/// meanwhile: one that does so for more than 5 seconds fails the call with 33. False, with the last error, if
/// the file can't be read or written.
bool ChangeRegistry(RegistryPart part, const std::function<bool(RegistryText&)>& change);

} // namespace Host
