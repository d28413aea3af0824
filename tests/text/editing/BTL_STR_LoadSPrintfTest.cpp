// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_LoadSPrintf.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

TEST(LoadSPrintfTest, LoadsFormats)
{
    const Sysutils::TStringResources resources({{4711, u"%s is %d"}});
    EXPECT_EQ(BTL::LoadSPrintf(4711, UnicodeString(u"x"), 7), u"x is 7");
    EXPECT_EQ(BTL::LoadSPrintfA(4711, "x", 7), "x is 7");
    EXPECT_EQ(BTL::LoadSPrintf(4712, 1), u"");
    EXPECT_THROW(BTL::LoadSPrintf(4711, 1), Sysutils::EConvertError);
}

} // namespace
