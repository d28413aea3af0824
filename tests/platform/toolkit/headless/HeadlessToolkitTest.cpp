// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/HeadlessToolkit.h"

#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <stdexcept>

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

TEST(HeadlessToolkitTest, CancelsUnattendedInputs)
{
    Support::ScriptedBoxes boxes;
    testing::internal::CaptureStderr();
    EXPECT_EQ(Dialogs::InputBox(u"Kanal", u"Name:", u"Ofen"), u"Ofen");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Kanal: Name: [Ofen]\n[Cancel]\n");
}

TEST(HeadlessToolkitTest, AnswersQuestionsForFilesFromTheScript)
{
    HeadlessToolkit toolkit;
    toolkit.AnswerFiles({.files = {u"/tmp/a.csv"}, .filterIndex = 1});
    const Toolkits::TFileQuestion question{.kind = Toolkits::EFileQuestion::Save,
                                           .caption = u"Messung",
                                           .folder = u"/tmp",
                                           .fileName = u"b.csv"};
    const Toolkits::TFileAnswer answer = toolkit.AskFiles(question);
    EXPECT_EQ(answer.files, std::vector<System::UnicodeString>{u"/tmp/a.csv"});
    EXPECT_EQ(answer.filterIndex, 1U);

    testing::internal::CaptureStderr();
    EXPECT_TRUE(toolkit.AskFiles(question).files.empty());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Messung: /tmp [b.csv]\n[Cancel]\n");
    EXPECT_EQ(toolkit.TakeAskedFiles().size(), 2U);
}

TEST(HeadlessToolkitTest, RefusesAScriptedAnswerWithoutAButton)
{
    Support::ScriptedBoxes boxes({IDYES});
    EXPECT_THROW(MessageBoxW(nullptr, u"text", u"caption", MB_OK), std::logic_error);
}

TEST(HeadlessToolkitTest, KeepsATextForItsOwnProgramAlone)
{
    HeadlessToolkit toolkit;
    EXPECT_EQ(toolkit.GetClipboardText(), u"");
    EXPECT_FALSE(toolkit.SetClipboardText(u"a\n\u00E4"));
    EXPECT_EQ(toolkit.GetClipboardText(), u"a\n\u00E4");
}

} // namespace
