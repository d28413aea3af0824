// SPDX-License-Identifier: MIT
#include "platform/visual/Forms.h"

#include "platform/host/Host_Path.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/toolkit/Toolkit.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <thread>
#include <vector>

namespace
{

TEST(ApplicationTest, ShowsItsTitleWhereNoCaptionIsGiven)
{
    Support::ScriptedBoxes boxes({IDCANCEL, IDOK});
    Forms::TApplication application;
    application.setTitle(u"Program");
    EXPECT_EQ(application.MessageBox(u"text", nullptr, MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(application.MessageBox(u"text", u"caption", MB_OK), IDOK);
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].box.caption, u"Program");
    EXPECT_EQ(shown[1].box.caption, u"caption");
}

TEST(ApplicationTest, KnowsItsProgram)
{
    ASSERT_NE(Forms::Application, nullptr);
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(Forms::Application->getTitle(), System::FromUtf8(program.stem().string()));
    EXPECT_EQ(Forms::Application->getExeName(), Sysutils::FromHostPath(program.string()));
}

TEST(ApplicationTest, RunsPostedActionsInOrderUntilTerminated)
{
    Support::ScriptedBoxes toolkit;
    Forms::TApplication application;
    std::vector<int> done;
    std::thread poster([&] {
        for (int i = 0; i < 100; ++i) {
            Toolkits::CurrentToolkit().Post([&done, i] { done.push_back(i); });
        }
        Toolkits::CurrentToolkit().Post([&application] { application.Terminate(); });
    });
    application.Run();
    poster.join();
    ASSERT_EQ(done.size(), 100U);
    EXPECT_TRUE(std::ranges::is_sorted(done));
    EXPECT_TRUE(application.getTerminated());
}

} // namespace
