// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Locale.h"

#include "support/FormatSettingsGuard.h"
#include "support/ScopedVariable.h"

#include <gtest/gtest.h>

#include <clocale>

#include <locale.h>

namespace
{

using Sysutils::TFormatSettings;

bool IsInstalled(const char* name)
{
    const locale_t locale = newlocale(LC_ALL_MASK, name, nullptr);
    if (locale != nullptr) {
        freelocale(locale);
    }
    return locale != nullptr;
}

TEST(LocaleTest, ThePlainLocaleGivesTheDefaults)
{
    for (const char* name : {"C", "POSIX", "C.UTF-8", "xx_NOWHERE.UTF-8"}) {
        const Support::ScopedVariable locale("LC_ALL", name);
        const TFormatSettings settings = Sysutils::GetUserFormatSettings();
        EXPECT_EQ(settings.DecimalSeparator, u'.') << name;
        EXPECT_EQ(settings.ThousandSeparator, u',') << name;
        EXPECT_EQ(settings.ListSeparator, u',') << name;
        EXPECT_EQ(settings.DateSeparator, u'-') << name;
        EXPECT_EQ(settings.TimeSeparator, u':') << name;
        EXPECT_EQ(settings.ShortDateFormat, u"yyyy-MM-dd") << name;
        EXPECT_EQ(settings.LongTimeFormat, u"hh:nn:ss") << name;
        EXPECT_EQ(settings.ShortTimeFormat, u"hh:nn") << name;
        EXPECT_EQ(settings.TimeAMString, u"AM") << name;
        EXPECT_EQ(settings.LongMonthNames[0], u"January") << name;
        EXPECT_EQ(settings.ShortMonthNames[11], u"Dec") << name;
        EXPECT_EQ(settings.LongDayNames[0], u"Sunday") << name;
        EXPECT_EQ(settings.ShortDayNames[6], u"Sat") << name;
    }
}

TEST(LocaleTest, AnInstalledLocaleGivesItsOwn)
{
    if (!IsInstalled("de_DE.UTF-8")) {
        GTEST_SKIP() << "this machine has no de_DE.UTF-8";
    }
    const Support::ScopedVariable locale("LC_ALL", "de_DE.UTF-8");
    const TFormatSettings settings = Sysutils::GetUserFormatSettings();
    EXPECT_EQ(settings.DecimalSeparator, u',');
    EXPECT_EQ(settings.ThousandSeparator, u'.');
    EXPECT_EQ(settings.ListSeparator, u';');
    EXPECT_EQ(settings.ShortDateFormat, u"dd.MM.yyyy");
    EXPECT_EQ(settings.DateSeparator, u'.');
    EXPECT_EQ(settings.ShortTimeFormat, u"hh:nn");
    EXPECT_EQ(settings.LongMonthNames[2], u"März");
    EXPECT_EQ(settings.CurrencyString, u"€");
    EXPECT_EQ(settings.CurrencyFormat, 3);
}

TEST(LocaleTest, OldNamesAreTheMembersOfTheSettings)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u'#';
    Sysutils::ShortDateFormat = u"d";
    EXPECT_EQ(Sysutils::FormatSettings.DecimalSeparator, u'#');
    EXPECT_EQ(Sysutils::FormatSettings.ShortDateFormat, u"d");
    EXPECT_EQ(&Sysutils::TimePMString, &Sysutils::FormatSettings.TimePMString);
}

} // namespace
