// SPDX-License-Identifier: MIT
#include "progress/BTL_HourGlassCursor.h"

#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>
#include <utility>

namespace
{

using BTL::AHourGlassCursor;
using BTL::CHourGlassCursor;
using Controls::TCursor;

TCursor Cursor()
{
    return Forms::Screen->getCursor();
}

TEST(HourGlassCursorTest, ShowsItsCursorForAScope)
{
    const Support::ScriptedBoxes toolkit;
    {
        const CHourGlassCursor busy(true);
        EXPECT_EQ(Cursor(), -11);
    }
    {
        const BTL::CHourGlassCursorAppStart busy(true);
        EXPECT_EQ(Cursor(), -19);
    }
    {
        const BTL::CHourGlassCursorSQLWait busy(true);
        EXPECT_EQ(Cursor(), -11);
    }
    {
        const AHourGlassCursor cross(Controls::crCross, true);
        EXPECT_EQ(toolkit.getCursor(), Controls::crCross) << "the screen shows it";
    }
    EXPECT_EQ(Cursor(), Controls::crDefault);
    EXPECT_EQ(toolkit.getCursor(), 0);
    const CHourGlassCursor idle(false);
    EXPECT_EQ(Cursor(), Controls::crDefault);
}

TEST(HourGlassCursorTest, IsPutBackByTheOutermost)
{
    const Support::ScriptedBoxes toolkit;
    Forms::Screen->setCursor(Controls::crHelp);
    {
        std::optional<CHourGlassCursor> outer(true);
        {
            const CHourGlassCursor inner(true);
        }
        EXPECT_EQ(Cursor(), Controls::crHourGlass);
        {
            const BTL::CHourGlassCursorAppStart other(true);
            EXPECT_EQ(Cursor(), Controls::crAppStart);
        }
        EXPECT_EQ(Cursor(), Controls::crHourGlass);
        outer.reset();
        EXPECT_EQ(Cursor(), Controls::crHelp);
    }
    Forms::Screen->setCursor(Controls::crHourGlass);
    {
        const CHourGlassCursor busy(true);
        Forms::Screen->setCursor(Controls::crArrow);
    }
    EXPECT_EQ(Cursor(), Controls::crArrow) << "it found its cursor, and so left it alone";
    Forms::Screen->setCursor(Controls::crDefault);
}

TEST(HourGlassCursorTest, IsSwitchedOffAsOftenAsOn)
{
    const Support::ScriptedBoxes toolkit;
    const auto shows = [] {
        const CHourGlassCursor busy(true);
        return Cursor() == Controls::crHourGlass;
    };
    AHourGlassCursor::Disable();
    AHourGlassCursor::Disable();
    EXPECT_FALSE(shows());
    AHourGlassCursor::Enable();
    EXPECT_FALSE(shows());
    AHourGlassCursor::Enable();
    EXPECT_TRUE(shows());
    AHourGlassCursor::Enable();
    AHourGlassCursor::Disable();
    EXPECT_FALSE(shows()) << "it never counts below 0";
    AHourGlassCursor::Enable();
    std::optional<CHourGlassCursor> busy(true);
    AHourGlassCursor::Disable();
    busy.reset();
    EXPECT_EQ(Cursor(), Controls::crDefault) << "one that acts puts back what it found";
    AHourGlassCursor::Enable();
}

TEST(HourGlassCursorTest, NeedsTheMainThreadAndAScreen)
{
    const Support::ScriptedBoxes toolkit;
    std::thread([] {
        const CHourGlassCursor busy(true);
        EXPECT_EQ(Cursor(), Controls::crDefault);
    }).join();
    auto* const screen = std::exchange(Forms::Screen, nullptr);
    {
        const CHourGlassCursor busy(true);
        Forms::Screen = screen;
    }
    EXPECT_EQ(Cursor(), Controls::crDefault);
    {
        const CHourGlassCursor busy(true);
        Forms::Screen = nullptr;
    }
    Forms::Screen = screen;
    EXPECT_EQ(Cursor(), Controls::crHourGlass) << "the screen was gone when it ended";
    Forms::Screen->setCursor(Controls::crDefault);
}

} // namespace
