// SPDX-License-Identifier: MIT
#include "foundation/UTL_I18N_Texts.h"

#include "platform/base/System_String.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

TEST(FoundationTextsTest, KeepTheirPlace)
{
    const char* text = UTL::Ci18n::GetString(UTL::EXStrings::IniFileReadOnly);
    EXPECT_EQ(UTL::Ci18n::GetString(UTL::EXStrings::IniFileReadOnly), text);
    EXPECT_EQ(
        UnicodeString(text),
        u"Die Ini-Datei \n'%s'\nist schreibgeschützt.\nEntfernen Sie bitte den Schreibschutz, damit die "
        u"Daten gespeichert werden können.");
    EXPECT_STREQ(UTL::Ci18n::GetString(static_cast<UTL::EXStrings>(99)), "");
}

} // namespace
