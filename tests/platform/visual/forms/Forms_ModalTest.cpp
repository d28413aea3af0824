// SPDX-License-Identifier: MIT
#include "platform/toolkit/Dialogs.h"
#include "platform/visual/Forms.h"
#include "platform/visual/controls/ProbeControl.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Forms::TForm;
using System::TObject;
using System::UnicodeString;

class ModalFormTest : public testing::Test
{
protected:
    /// Drives the next modal form.
    void Answer(std::function<void(TForm&)> drive)
    {
        mToolkit.AnswerForm([drive = std::move(drive)](Toolkits::ModalWindow& window) {
            drive(dynamic_cast<TForm&>(window));
        });
    }

    Support::ScriptedBoxes mToolkit;
};

TEST_F(ModalFormTest, RunsUntilItHasAResult)
{
    TForm form;
    Answer([](TForm& shown) {
        EXPECT_TRUE(shown.getFormState().Contains(Forms::fsModal));
        EXPECT_TRUE(shown.getActive());
        shown.setModalResult(mrOk);
    });
    EXPECT_EQ(form.ShowModal(), mrOk);
    EXPECT_FALSE(form.getVisible());
    EXPECT_FALSE(form.getFormState().Contains(Forms::fsModal));
    form.Show();
    EXPECT_THROW(form.ShowModal(), Classes::EInvalidOperation);
}

TEST_F(ModalFormTest, GoesOnWhereItsQueryRefuses)
{
    TForm form;
    int queries = 0;
    form.OnCloseQuery = [&](TObject*, bool& canClose) { canClose = ++queries == 3; };
    Answer([](TForm& shown) {
        shown.setModalResult(mrYes);
        for (int i = 0; i < 2; ++i) {
            Toolkits::CurrentToolkit().Post([&shown] { shown.Close(); });
        }
    });
    EXPECT_EQ(form.ShowModal(), mrCancel);
    EXPECT_EQ(queries, 3);
}

TEST_F(ModalFormTest, IsEndedWhereNobodyAttends)
{
    TForm form;
    form.setCaption(u"Settings");
    form.OnCloseQuery = [](TObject*, bool& canClose) { canClose = false; };
    testing::internal::CaptureStderr();
    const int result = form.ShowModal();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Settings: nobody attends, closed\n");
    EXPECT_EQ(result, mrCancel);
}

TEST_F(ModalFormTest, KeepsTheUserFromOtherFormsAndGivesThemBack)
{
    TForm other;
    other.Show();
    TForm form;
    Answer([&](TForm& shown) {
        EXPECT_EQ(Forms::Screen->getActiveForm(), &shown);
        shown.Close();
    });
    form.ShowModal();
    EXPECT_EQ(Forms::Screen->getActiveForm(), &other);
    EXPECT_TRUE(other.getActive());
}

TEST_F(ModalFormTest, NestsAndEndsInAnyOrder)
{
    TForm outer;
    TForm inner;
    UnicodeString order;
    Answer([&](TForm&) {
        Answer([&](TForm& shown) {
            outer.setModalResult(mrYes);
            Toolkits::CurrentToolkit().Post([&shown] { shown.setModalResult(mrNo); });
        });
        order += UnicodeString(inner.ShowModal()) + u" ";
    });
    order += UnicodeString(outer.ShowModal());
    EXPECT_EQ(order, u"7 6");
}

TEST_F(ModalFormTest, NestsAHundredDeep)
{
    int depth = 0;
    std::function<void(TForm&)> next = [&](TForm& shown) {
        if (++depth < 100) {
            Answer(next);
            TForm inner;
            inner.ShowModal();
        }
        shown.setModalResult(mrOk);
    };
    Answer(next);
    TForm form;
    EXPECT_EQ(form.ShowModal(), mrOk);
    EXPECT_EQ(depth, 100);
}

TEST_F(ModalFormTest, IsCancelledByItsEndAndThatOfTheProgram)
{
    auto* const form = new TForm;
    Answer([](TForm& shown) { delete &shown; });
    EXPECT_EQ(form->ShowModal(), mrCancel);
}

TEST_F(ModalFormTest, IsClosedByItsOwnTimer)
{
    mToolkit.UseVirtualClock();
    TForm form;
    int ticks = 0;
    Toolkits::TTimerId timer = 0;
    Answer([&](TForm& shown) {
        timer = Toolkits::CurrentToolkit().StartTimer(1000, [&] {
            if (++ticks == 3) {
                Toolkits::CurrentToolkit().StopTimer(timer);
                shown.setModalResult(mrRetry);
            }
        });
    });
    EXPECT_EQ(form.ShowModal(), mrRetry);
    EXPECT_EQ(ticks, 3);
}

} // namespace
