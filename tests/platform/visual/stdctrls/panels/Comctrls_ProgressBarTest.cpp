// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"

#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using Comctrls::TProgressBar;

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

class ProgressBarTest : public testing::Test
{
protected:
    ProgressBarTest()
    {
        mBar.setParent(&mForm);
        mBar.SetBounds(0, 0, 104, 20);
    }

    std::string Painted()
    {
        Toolkits::PaintRecording recording;
        mBar.PaintTo(&recording, 0, 0);
        return System::ToUtf8(recording.AsText());
    }

    Support::ScriptedBoxes mToolkit;
    Forms::TForm mForm;
    TProgressBar mBar{&mForm};
};

TEST_F(ProgressBarTest, HoldsThePositionWithinItsLimits)
{
    EXPECT_EQ(mBar.getMax(), 100);
    mBar.setPosition(250);
    EXPECT_EQ(mBar.getPosition(), 100);
    mBar.setMax(50);
    EXPECT_EQ(mBar.getPosition(), 50);
    mBar.setPosition(-3);
    EXPECT_EQ(mBar.getPosition(), 0);
    mBar.setMin(20);
    EXPECT_EQ(mBar.getPosition(), 20);
    EXPECT_THROW(mBar.setMin(51), Classes::EInvalidOperation);
    EXPECT_THROW(mBar.setMax(19), Classes::EInvalidOperation);
    EXPECT_EQ(mBar.getMin(), 20);
    EXPECT_EQ(mBar.getMax(), 50);
}

TEST_F(ProgressBarTest, StepsAndBeginsAnewAtTheEnd)
{
    const struct
    {
        int min, max, position, step, next;
    } cases[] = {
        {0, 100, 0, 10, 10},
        {0, 100, 90, 10, 100},
        {0, 100, 95, 10, 5},
        {0, 100, 0, -10, 90},
        {5, 5, 5, 1, 5},
        {Least, Most, Most, 1, Least + 1},
        {Least, Most, Least, 10, Least + 10},
        {0, Most, Most, Most, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.position << " of " << c.min << ".." << c.max << " by " << c.step);
        mBar.SetRange(c.min, c.max);
        mBar.setPosition(c.position);
        mBar.setStep(c.step);
        mBar.StepIt();
        EXPECT_EQ(mBar.getPosition(), c.next);
    }
}

TEST_F(ProgressBarTest, IsHeldWhereItIsMovedByMore)
{
    mBar.StepBy(30);
    EXPECT_EQ(mBar.getPosition(), 30);
    mBar.StepBy(Most);
    EXPECT_EQ(mBar.getPosition(), 100);
    mBar.StepBy(Least);
    EXPECT_EQ(mBar.getPosition(), 0);
}

TEST_F(ProgressBarTest, IsPrintedWithItsPosition)
{
    mBar.setPosition(40);
    const std::string form = Testing::CFormDriver(mForm).Print();
    EXPECT_NE(form.find("104x20 \"\" position 40 of 0..100"), std::string::npos) << form;
}

TEST_F(ProgressBarTest, FillsItsRoomByThePosition)
{
    mBar.setSmooth(true);
    const std::string empty = Painted();
    mBar.setPosition(50);
    // Two pixels on each side are its frame.
    EXPECT_NE(Painted().find("2,2,52,18"), std::string::npos) << Painted();
    mBar.setOrientation(Comctrls::pbVertical);
    EXPECT_NE(Painted().find("2,10,102,18"), std::string::npos) << Painted();
    mBar.setPosition(0);
    EXPECT_EQ(Painted(), empty);
    for (const auto& [width, height] : {std::pair(0, 0), {3, 1}, {Most, 5}}) {
        mBar.SetBounds(0, 0, width, height);
        mBar.SetRange(Least, Most);
        mBar.setPosition(Most);
        EXPECT_NO_THROW(Painted());
    }
}

TEST_F(ProgressBarTest, WandersOnlyWhileItIsSeen)
{
    mToolkit.UseVirtualClock();
    mBar.setStyle(Comctrls::pbstMarquee);
    const std::string hidden = Painted();
    mToolkit.AdvanceClock(100);
    EXPECT_EQ(Painted(), hidden);
    mForm.Show();
    mToolkit.AdvanceClock(100);
    const std::string moved = Painted();
    EXPECT_NE(moved, hidden);
    mBar.setVisible(false);
    mToolkit.AdvanceClock(100);
    EXPECT_EQ(Painted(), moved);
}

} // namespace
