// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"

#include "platform/toolkit/MessageBox.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace
{

using Toolkits::HeadlessToolkit;

TEST(HeadlessToolkitTest, UnattendedBoxesGetTheAnswerThatLosesNothing)
{
    const struct
    {
        unsigned flags;
        int answer;
    } cases[] = {
        {MB_YESNO, IDYES},
        {MB_YESNO | MB_ICONQUESTION, IDNO},
        {MB_YESNO | MB_ICONWARNING, IDNO},
        {MB_YESNOCANCEL | MB_ICONQUESTION, IDNO},
        {MB_OK, IDOK},
        {MB_OK | MB_ICONSTOP, IDOK},
        {MB_OKCANCEL | MB_ICONQUESTION, IDCANCEL},
        {MB_RETRYCANCEL, IDCANCEL},
        {MB_ABORTRETRYIGNORE, IDABORT},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(HeadlessToolkit::UnattendedAnswer(c.flags), c.answer) << c.flags;
    }
}

TEST(HeadlessToolkitTest, WritesUnattendedBoxesToTheErrorStream)
{
    Support::ScriptedBoxes boxes;
    testing::internal::CaptureStderr();
    EXPECT_EQ(MessageBoxW(nullptr, u"Größe?", nullptr, MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: Größe?\n[No]\n");
}

TEST(HeadlessToolkitTest, RefusesAScriptedAnswerWithoutAButton)
{
    Support::ScriptedBoxes boxes({IDYES});
    EXPECT_THROW(MessageBoxW(nullptr, u"text", u"caption", MB_OK), std::logic_error);
}

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
    EXPECT_EQ(Forms::Application->getTitle(), u"test_platform");
    EXPECT_GT(Forms::Application->getExeName().Pos(u"\\test_platform"), 0);
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
