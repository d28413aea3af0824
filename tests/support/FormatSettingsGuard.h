// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"

namespace Support
{

/// Puts `Sysutils::FormatSettings` back at the end of a test that changes them.
class FormatSettingsGuard
{
public:
    FormatSettingsGuard() : mFormer(Sysutils::FormatSettings) {}
    FormatSettingsGuard(const FormatSettingsGuard&) = delete;
    FormatSettingsGuard& operator=(const FormatSettingsGuard&) = delete;
    ~FormatSettingsGuard() { Sysutils::FormatSettings = mFormer; }

private:
    Sysutils::TFormatSettings mFormer;
};

} // namespace Support
