// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/registry/internal/Host_RegistryText.h"

namespace Registry
{

/// Adds what the host knows at `path`: the serial ports, over what the file says of them, and the folders of
/// the user that the file doesn't name.
void AddHostValues(const System::UnicodeString& path, Host::RegistryText& registry);

} // namespace Registry
