// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/Variants.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

namespace Support
{

inline System::Variant Decimal(System::UInt64 value)
{
    return System::Variant(value).AsType(System::varDecimal);
}

/// A test under a decimal comma, with the settings put back at its end.
class VariantFixture : public testing::Test
{
protected:
    VariantFixture()
    {
        Sysutils::FormatSettings = Sysutils::TFormatSettings();
        Sysutils::FormatSettings.DecimalSeparator = u',';
    }

private:
    FormatSettingsGuard mGuard;
};

} // namespace Support
