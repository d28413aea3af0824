// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/dates/Sysutils_Date.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <limits>

namespace Support
{

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

inline System::TDateTime Day(System::Word year, System::Word month, System::Word day)
{
    return Sysutils::EncodeDate(year, month, day);
}

/// All tests of dates start with day first.
class DatesTest : public testing::Test
{
protected:
    DatesTest()
    {
        Sysutils::FormatSettings = Sysutils::TFormatSettings();
        SetOrder(u"dd.MM.yyyy", u'.');
        Sysutils::DecimalSeparator = u',';
    }

    static void SetOrder(const System::UnicodeString& picture, System::WideChar separator)
    {
        Sysutils::ShortDateFormat = picture;
        Sysutils::DateSeparator = separator;
    }

private:
    FormatSettingsGuard mGuard;
};

} // namespace Support
