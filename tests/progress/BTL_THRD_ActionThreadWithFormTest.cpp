// SPDX-License-Identifier: MIT
#include "progress/BTL_THRD_ActionThreadWithForm.h"

#include "platform/toolkit/Dialogs.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace
{

using BTL::TActionThreadWithForm;

/// Does one thing, once.
class TWorker : public TActionThreadWithForm
{
public:
    TWorker(Forms::TCustomForm* form, std::function<void(TWorker&)> work)
        : TActionThreadWithForm(form, false, false, false), mWork(std::move(work))
    {
        AfterConstruction();
    }
    ~TWorker() override { EndThread(); }

protected:
    void Execute() override { mWork(*this); }

private:
    std::function<void(TWorker&)> mWork;
};

/// The loop of the form goes on until the thread closes it.
void WaitForEnd(Toolkits::ModalWindow& window)
{
    const auto& form = dynamic_cast<Forms::TCustomForm&>(window);
    EXPECT_TRUE(Support::WaitUntil([&] {
        Forms::Application->ProcessMessages();
        return form.getModalResult() != 0;
    }));
}

TEST(ActionThreadWithFormTest, ClosesAModalForm)
{
    Support::ScriptedBoxes boxes;
    Forms::TForm own;
    Forms::TForm other;
    boxes.AnswerForm(WaitForEnd);
    TWorker ofItsOwn(&own, [](TWorker& worker) { worker.CloseForm(mrOk); });
    EXPECT_EQ(own.ShowModal(), mrOk);

    boxes.AnswerForm(WaitForEnd);
    TWorker ofAnother(nullptr, [&](TWorker& worker) {
        worker.CloseForm(mrYes);
        worker.CloseForm(nullptr, mrYes);
        worker.CloseForm(&other, mrNo);
    });
    EXPECT_EQ(other.ShowModal(), mrNo);
}

TEST(ActionThreadWithFormTest, TheFormMayGoFirst)
{
    const Support::ScriptedBoxes boxes;
    auto form = std::make_unique<Forms::TForm>();
    Forms::TForm* const address = form.get();
    std::atomic<bool> isDone = false;
    TWorker worker(form.get(), [&](TWorker& self) {
        self.CloseForm(mrOk);
        self.CloseForm(address, mrOk);
        isDone = true;
    });
    form.reset();
    EXPECT_TRUE(Support::WaitUntil([&] {
        Forms::Application->ProcessMessages();
        return isDone.load();
    }));
}

/// The object goes at the end of its thread, while the form knows it.
TEST(ActionThreadWithFormTest, TheThreadMayDestroyItself)
{
    const Support::ScriptedBoxes boxes;
    auto form = std::make_unique<Forms::TForm>();
    std::atomic<bool> isDone = false;
    new TWorker(form.get(), [&](TWorker& self) {
        self.setFreeOnTerminate(true);
        isDone = true;
    });
    EXPECT_TRUE(Support::WaitUntil([&] {
        Forms::Application->ProcessMessages();
        return isDone.load();
    }));
    Forms::Application->ProcessMessages();
    form.reset();
}

TEST(ActionThreadWithFormTest, WithoutAFormItClosesNone)
{
    TActionThreadWithForm thread(true, false, false);
    thread.CloseForm(mrOk);
}

} // namespace
