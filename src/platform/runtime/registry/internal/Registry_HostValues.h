// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/registry/internal/Host_RegistryText.h"

namespace Registry
{

/// Adds what the host knows and nobody wrote at `path`, such as the serial ports: values of the file stay.
void AddHostValues(const System::UnicodeString& path, Host::RegistryText& registry);

} // namespace Registry
