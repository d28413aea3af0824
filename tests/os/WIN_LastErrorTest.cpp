// SPDX-License-Identifier: MIT
#include "os/WIN_LastError.h"

#include "platform/host/Host_Error.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

using System::UnicodeString;

/// An application that ends, in place of the program's own.
class TerminatingApplication
{
public:
    TerminatingApplication()
    {
        mApplication.Terminate();
        mFormer = std::exchange(Forms::Application, &mApplication);
    }
    TerminatingApplication(const TerminatingApplication&) = delete;
    TerminatingApplication& operator=(const TerminatingApplication&) = delete;
    ~TerminatingApplication() { Forms::Application = mFormer; }

private:
    Forms::TApplication mApplication;
    Forms::TApplication* mFormer;
};

TEST(LastErrorTest, DescribesCodes)
{
    EXPECT_FALSE(WIN::GetErrorMessage(2).IsEmpty());
    EXPECT_NE(WIN::GetErrorMessage(2), WIN::GetErrorMessage(5));
    EXPECT_EQ(WIN::GetErrorMessage(2), WIN::GetSystemMessage(2));
    EXPECT_EQ(WIN::GetErrorMessage(0xDEADBEEF), u"The function 'FormatMessage' fails.");
    SetLastError(5);
    EXPECT_EQ(WIN::GetLastError(), WIN::GetErrorMessage(5));
}

TEST(LastErrorTest, ExceptionsCarryTheCode)
{
    const WIN::XWinError byCode(3);
    EXPECT_EQ(byCode.getError(), 3U);
    EXPECT_TRUE(byCode.getSection().IsEmpty());
    EXPECT_EQ(byCode.getMessage(), WIN::GetErrorMessage(3));

    SetLastError(5);
    EXPECT_EQ(WIN::XLastError().getError(), 5U);
    EXPECT_EQ(WIN::XLastError(UnicodeString()).getMessage(), WIN::GetErrorMessage(5));
    SetLastError(0);
    EXPECT_EQ(WIN::XLastError(u"text").getMessage(), WIN::GetErrorMessage(0) + u"\ntext");
    EXPECT_THROW(WIN::ThrowSystemError(2), WIN::XWinError);
}

TEST(LastErrorTest, ExplainsACodeByItsContext)
{
    EXPECT_EQ(WIN::GetErrorMessage(2, UnicodeString()), WIN::GetErrorMessage(2));
    const auto former =
        std::exchange(WIN::GetSectionMessage, [](unsigned long code, const UnicodeString& section) {
            return section + u' ' + UnicodeString(code);
        });
    EXPECT_EQ(WIN::GetErrorMessage(2, UnicodeString()), WIN::GetErrorMessage(2));
    EXPECT_EQ(WIN::GetErrorMessage(5, u"ShellExecute"), u"ShellExecute 5");
    const WIN::XWinError error(5, u"ShellExecute", u"a.txt");
    EXPECT_EQ(error.getMessage(), u"ShellExecute 5\na.txt");
    EXPECT_EQ(error.getSection(), u"ShellExecute");
    EXPECT_EQ(error.getError(), 5U);
    const WIN::XWinError brief(5, u"ShellExecute");
    EXPECT_EQ(brief.getMessage(), WIN::XWinError(5, u"ShellExecute", UnicodeString()).getMessage());
    EXPECT_EQ(brief.getSection(), u"ShellExecute");
    EXPECT_THROW(WIN::ThrowSystemError(0, u"ShellExecute"), WIN::XWinError);
    WIN::GetSectionMessage = former;
}

TEST(LastErrorTest, ThrowsOnlyForAnError)
{
    SetLastError(0);
    EXPECT_NO_THROW(WIN::ThrowLastError());
    EXPECT_NO_THROW(WIN::ThrowLastError("a.cpp", 7));
    SetLastError(5);
    EXPECT_THROW(WIN::ThrowLastError(), WIN::XLastError);
    SetLastError(5);
    try {
        WIN::ThrowLastError("a.cpp", 7);
        FAIL() << "nothing was raised";
    } catch (const WIN::XLastError& error) {
        EXPECT_EQ(error.getMessage(), WIN::GetErrorMessage(5) + u"\nFile:a.cpp\nLine: 7\n");
    }
}

TEST(LastErrorTest, ShowsABoxWhileTheApplicationEnds)
{
    Support::ScriptedBoxes boxes;
    const TerminatingApplication application;
    testing::internal::CaptureStderr();
    SetLastError(5);
    EXPECT_NO_THROW(WIN::ThrowLastError());
    SetLastError(5);
    EXPECT_NO_THROW(WIN::ThrowLastError("a.cpp", 7));
    testing::internal::GetCapturedStderr();
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].box.text, WIN::GetErrorMessage(5));
    EXPECT_EQ(shown[0].box.caption, u"LastError");
    EXPECT_EQ(shown[0].box.flags, 16U);
    EXPECT_EQ(shown[1].box.text, u"File:a.cpp\nLine: 7\n" + WIN::GetErrorMessage(5));
}

} // namespace
