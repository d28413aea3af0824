// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_ProgressDialogWithTimekeeper.h"

#include "support/ScriptedBoxes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace
{

using testing::StartsWith;

TEST(ProgressDialogWithTimekeeperTest, TellsTheCountAtEachStepAndTheTimeOnceASecond)
{
    const Support::ScriptedBoxes toolkit;
    BTL::CProgressDialogWithTimekeeper dialog;
    dialog.Prepare(400, false, true, u"Import", u"Reading", 0);
    EXPECT_EQ(dialog.getText1(), u"0 ... 400");
    EXPECT_EQ(dialog.getText2(), u"Reading");
    dialog.Start(0);
    dialog.IncPosition(1);
    EXPECT_EQ(dialog.getText1(), u"1 ... 400");
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    dialog.IncPosition(1);
    const std::string first = System::ToUtf8(dialog.getText1());
    EXPECT_THAT(first, StartsWith("2 ... 400 ["));
    dialog.IncPosition(1);
    EXPECT_EQ(System::ToUtf8(dialog.getText1()), "3" + first.substr(1));
    dialog.Stop();
    EXPECT_THAT(System::ToUtf8(dialog.getText1()), StartsWith("3 ... 400 ["));
    EXPECT_NE(System::ToUtf8(dialog.getText1()), "3" + first.substr(1));
}

TEST(ProgressDialogWithTimekeeperTest, TellsTheCountOfFastLoopsWhereTheyAreShown)
{
    const Support::ScriptedBoxes toolkit;
    BTL::CProgressDialogWithTimekeeper dialog;
    dialog.Prepare(10000, false, true, u"", u"", 0);
    dialog.Start(0);
    for (int i = 0; i < 150; ++i) {
        dialog.IncPositionModulo(100);
    }
    EXPECT_EQ(dialog.getText1(), u"100 ... 10000");
    EXPECT_EQ(dialog.getPosition(), 150);
}

} // namespace
