// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_FindFile.h"

#include <gtest/gtest.h>

using namespace Sysutils;
using System::UnicodeString;

namespace
{

TEST(SysutilsFindFileTest, MasksStayQuickOnLongTexts)
{
    const UnicodeString name = UnicodeString::StringOfChar(u'a', 255);
    UnicodeString mask;
    for (int i = 0; i < 100; ++i) {
        mask += u"a*";
    }
    EXPECT_TRUE(FileNameFits(name, mask));
    EXPECT_FALSE(FileNameFits(name, mask + u"b"));
    EXPECT_TRUE(FileNameFits(u"", u"*.*"));
    EXPECT_FALSE(FileNameFits(u"", u"?"));
}

} // namespace
