// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_ProgressDLG.h"

#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace
{

using System::TObject;

class ProgressDLGTest : public testing::Test
{
protected:
    ProgressDLGTest()
    {
        mToolkit.UseVirtualClock();
        mDialog.Prepare(100, false, true, u"", u"", u"", u"", 0);
        mDialog.Start(0);
    }

    Support::ScriptedBoxes mToolkit;
    TProgressDLG mDialog;
};

TEST_F(ProgressDLGTest, KeepsItsNumbersInTheBar)
{
    mDialog.SetPosition(40);
    EXPECT_EQ(mDialog.GetPosition(), 40);
    mDialog.IncPosition(2);
    mDialog.StepBy(3);
    EXPECT_EQ(mDialog.GetPosition(), 45);
    mDialog.StepIt();
    EXPECT_EQ(mDialog.GetPosition(), 55);
    mDialog.SetPosition(500);
    EXPECT_EQ(mDialog.GetPosition(), 100);
    mDialog.setMax(std::numeric_limits<System::Int64>::max());
    EXPECT_EQ(mDialog.GetMax(), 2147483647);
    mDialog.SetText(1, u"one");
    EXPECT_EQ(mDialog.GetText1(), u"one");
    EXPECT_FALSE(mDialog.fTimer->getEnabled());
}

TEST_F(ProgressDLGTest, GlidesToAPosition)
{
    std::vector<int> seen;
    mDialog.OnTick = [&](TObject*) { seen.push_back(mDialog.GetPosition()); };
    mDialog.SetPositionDelayed(35, 300, 100);
    mToolkit.AdvanceClock(1000);
    EXPECT_EQ(seen, (std::vector<int>{0, 11, 22, 33}));
    EXPECT_EQ(mDialog.GetPosition(), 35);
    EXPECT_FALSE(mDialog.fTimer->getEnabled());
}

TEST_F(ProgressDLGTest, GlidesByOneWhereItWouldStandStill)
{
    mDialog.SetPositionDelayed(3, 100'000, 10);
    mToolkit.AdvanceClock(30);
    EXPECT_EQ(mDialog.GetPosition(), 3);
    mDialog.SetPositionDelayed(10, 5, 100);
    mToolkit.AdvanceClock(100);
    EXPECT_EQ(mDialog.GetPosition(), 10);
    mDialog.SetPositionDelayed(20, 0, 100);
    EXPECT_EQ(mDialog.GetPosition(), 20);
    mDialog.SetPositionDelayed(12, 1000, 100);
    EXPECT_EQ(mDialog.GetPosition(), 12);
    mDialog.SetPositionDelayed(150, 1, 0);
    mToolkit.AdvanceClock(1000);
    EXPECT_EQ(mDialog.GetPosition(), 100);
    EXPECT_FALSE(mDialog.fTimer->getEnabled());
}

TEST_F(ProgressDLGTest, TheTimerEndsWithTheGlide)
{
    mDialog.SetPositionDelayed(50, 1000, 100);
    mDialog.SetPosition(60);
    mToolkit.AdvanceClock(1000);
    EXPECT_FALSE(mDialog.fTimer->getEnabled());
    EXPECT_EQ(mDialog.GetPosition(), 60);
    mDialog.SetPositionDelayed(std::numeric_limits<int>::min(), 1000, 100);
    EXPECT_EQ(mDialog.GetPosition(), 0);
}

/// The work may go on to its end.
TEST_F(ProgressDLGTest, GlidesAnewBehindACancel)
{
    mDialog.UserCancelClick();
    mDialog.SetPositionDelayed(50, 1000, 100);
    mToolkit.AdvanceClock(2000);
    EXPECT_EQ(mDialog.GetPosition(), 50);
}

TEST_F(ProgressDLGTest, ACancelInTheTickStopsTheGlide)
{
    mDialog.OnTick = [&](TObject*) { mDialog.UserCancelClick(); };
    mDialog.SetPositionDelayed(50, 1000, 100);
    mToolkit.AdvanceClock(2000);
    EXPECT_EQ(mDialog.GetPosition(), 0);
    EXPECT_FALSE(mDialog.fTimer->getEnabled());
}

TEST_F(ProgressDLGTest, TheTimerServesTheProgramWhereNothingGlides)
{
    int ticks = 0;
    mDialog.OnTick = [&](TObject*) { ++ticks; };
    mDialog.fTimer->setInterval(100);
    mDialog.fTimer->setEnabled(true);
    for (int i = 0; i < 3; ++i) {
        mToolkit.AdvanceClock(100);
    }
    EXPECT_EQ(ticks, 3);
}

TEST_F(ProgressDLGTest, MayBeDestroyedByItsEvents)
{
    using TEvent = Classes::TNotifyEvent TProgressDLG::*;
    struct TCase
    {
        TEvent event;
        void (*use)(TProgressDLG&, Support::ScriptedBoxes&);
    };
    const TCase cases[] = {
        {&TProgressDLG::OnEndPosition, [](auto& dialog, auto&) { dialog.IncPosition(100); }},
        {&TProgressDLG::OnEndPosition, [](auto& dialog, auto&) { dialog.StepBy(100); }},
        {&TProgressDLG::OnEndPosition,
         [](auto& dialog, auto& toolkit) {
             dialog.SetPositionDelayed(100, 1, 10);
             toolkit.AdvanceClock(100);
         }},
        {&TProgressDLG::OnTick,
         [](auto& dialog, auto& toolkit) {
             dialog.SetPositionDelayed(50, 1000, 10);
             toolkit.AdvanceClock(100);
         }},
        {&TProgressDLG::OnCancel,
         [](auto& dialog, auto&) { Testing::CFormDriver(dialog).Click(u"fBtn_Cancel"); }},
        {&TProgressDLG::OnCancel, [](auto& dialog, auto&) { dialog.UserCancelClick(); }},
    };
    for (const TCase& tested : cases) {
        SCOPED_TRACE(&tested - cases);
        auto* const dialog = new TProgressDLG;
        const Classes::TComponentWatch watch(dialog);
        dialog->Prepare(100, true, true, u"", u"", u"", u"", 0);
        dialog->Start(0);
        dialog->*tested.event = [](TObject* sender) {
            // The timer, and a button, belong to the form.
            auto* const part = dynamic_cast<Classes::TComponent*>(sender);
            auto* const form = dynamic_cast<TProgressDLG*>(part);
            delete (form != nullptr ? form : part->getOwner());
        };
        tested.use(*dialog, mToolkit);
        EXPECT_FALSE(watch.IsAlive());
    }
}

TEST_F(ProgressDLGTest, CountsStepsOfFastLoopsInTheBar)
{
    mDialog.SetMax(1000);
    EXPECT_FALSE(mDialog.IncPositionModulo(2));
    EXPECT_TRUE(mDialog.IncPositionModulo(2));
    EXPECT_EQ(mDialog.GetPosition(), 2);
    EXPECT_TRUE(mDialog.IncPositionModulo(101)) << "there are fewer than ten";
    EXPECT_EQ(mDialog.GetPosition(), 3);
}

TEST_F(ProgressDLGTest, StandsStillOnceTheUserCancels)
{
    mDialog.Prepare(100, true, true, u"", u"", u"", u"", 0);
    mDialog.Start(0);
    mDialog.SetPositionDelayed(100, 1000, 100);
    mToolkit.AdvanceClock(100);
    EXPECT_EQ(mDialog.GetPosition(), 10);
    mDialog.UserCancelClick();
    mToolkit.AdvanceClock(1000);
    EXPECT_EQ(mDialog.GetPosition(), 10);
    EXPECT_THROW(mDialog.SetPosition(20), EProgressException);
    mDialog.SetUserCancel(false);
    mDialog.SetPositionDelayed(100, 1000, 100);
    mDialog.OnTick = [&](TObject*) { mDialog.setUserCancel(true); };
    mToolkit.AdvanceClock(100);
    EXPECT_TRUE(mToolkit.TakeShown().empty());
    EXPECT_FALSE(mDialog.fTimer->getEnabled());
}

} // namespace
