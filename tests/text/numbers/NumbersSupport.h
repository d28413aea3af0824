// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "support/FormatSettingsGuard.h"
#include "text/BothWidthsSupport.h"

#include <gtest/gtest.h>

namespace Support
{

/// Runs a test in both widths, free to change `Sysutils::FormatSettings`.
template <class S>
class NumbersTest : public BothWidths<S>
{
private:
    FormatSettingsGuard mGuard;
};

/// As `NumbersTest`, for what is wide only.
class WideNumbersTest : public testing::Test
{
private:
    FormatSettingsGuard mGuard;
};

} // namespace Support
