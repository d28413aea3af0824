// SPDX-License-Identifier: MIT
#include "platform/toolkit/Dialogs.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using namespace Dialogs;

TEST(DialogsTest, ShowsTheButtonsAndTheIcon)
{
    struct TCase
    {
        TMsgDlgType type;
        TMsgDlgButtons buttons;
        unsigned flags;
        int answer;
    };
    const TCase cases[] = {
        {mtError, {mbOK}, MB_OK | MB_ICONSTOP, mrOk},
        {mtConfirmation, {mbNo, mbYes}, MB_YESNO | MB_ICONQUESTION, mrNo},
        {mtWarning, {mbYes, mbNo, mbCancel}, MB_YESNOCANCEL | MB_ICONWARNING, mrCancel},
        {mtInformation, {mbAbort, mbIgnore}, MB_ABORTRETRYIGNORE | MB_ICONINFORMATION, mrIgnore},
        {mtCustom, {mbOK, mbYes}, MB_OK, mrOk}};
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.flags);
        Support::ScriptedBoxes boxes{row.answer};
        EXPECT_EQ(MessageDlg(u"text", row.type, row.buttons, 0), row.answer);
        const auto shown = boxes.TakeShown();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_EQ(shown[0].box.text, u"text");
        EXPECT_EQ(shown[0].box.flags, row.flags);
    }
}

TEST(DialogsTest, ShowsAMessage)
{
    Support::ScriptedBoxes boxes{mrOk};
    ShowMessage(u"done");
    EXPECT_EQ(boxes.TakeShown().at(0).box.text, u"done");
}

TEST(DialogsTest, AsksForALine)
{
    Support::ScriptedBoxes boxes;
    boxes.AnswerInput(u"Ofen 2");
    boxes.AnswerInput(std::nullopt);
    boxes.AnswerInput(u"");

    System::UnicodeString name = u"Ofen";
    EXPECT_TRUE(InputQuery(u"Kanal", u"Name:", name));
    EXPECT_EQ(name, u"Ofen 2");
    EXPECT_FALSE(InputQuery(u"Kanal", u"Name:", name));
    EXPECT_EQ(name, u"Ofen 2");
    EXPECT_EQ(InputBox(u"Kanal", u"Name:", u"keiner"), u"");

    const auto asked = boxes.TakeAsked();
    ASSERT_EQ(asked.size(), 3U);
    EXPECT_EQ(asked[0].input.caption, u"Kanal");
    EXPECT_EQ(asked[0].input.prompt, u"Name:");
    EXPECT_EQ(asked[0].input.value, u"Ofen");
    EXPECT_EQ(asked[1].input.value, u"Ofen 2");
    EXPECT_EQ(asked[1].answer, std::nullopt);
}

TEST(DialogsTest, AsksForSeveralLines)
{
    Support::ScriptedBoxes boxes;
    const System::UnicodeString prompts[] = {u"Name:", u"Ort:"};
    System::UnicodeString values[] = {u"a", u"b"};
    boxes.AnswerInput(u"x");
    boxes.AnswerInput(std::nullopt);
    EXPECT_FALSE(InputQuery(u"Kanal", prompts, values));
    EXPECT_EQ(values[0], u"a");
    boxes.AnswerInput(u"x");
    boxes.AnswerInput(u"y");
    EXPECT_TRUE(InputQuery(u"Kanal", prompts, values));
    EXPECT_EQ(values[0], u"x");
    EXPECT_EQ(values[1], u"y");
    EXPECT_EQ(boxes.TakeAsked().at(3).input.prompt, u"Ort:");
    EXPECT_THROW(InputQuery(u"Kanal", prompts, std::span(values).first(1)), Classes::EInvalidOperation);
    EXPECT_THROW(InputQuery(u"Kanal", std::span(prompts).first(0), values), Classes::EInvalidOperation);
}

} // namespace
