// SPDX-License-Identifier: MIT
#include "foundation/UTL_LOG_Log.h"

#include "foundation/LogSupport.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

TEST(LogChild, DISABLED_WritesToTheDefaultFile)
{
    BTL::Log(u"größer →");
    BTL::SetLogFile(u"");
    BTL::Log(u"lost");
    Support::PrintResult("done");
}

TEST(LogTest, TheDefaultFileLiesBesideTheProgram)
{
    const Support::TempFolder folder;
    Support::RunChildTest("LogChild.DISABLED_WritesToTheDefaultFile", folder.Path() / "program");
    EXPECT_EQ(Support::ReadFile(folder.Path() / "Log.txt"), "gr\xF6\xDF"
                                                            "er ?\n");
}

} // namespace
