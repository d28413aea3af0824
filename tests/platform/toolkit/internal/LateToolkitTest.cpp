// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/LateToolkit.h"

#include "platform/host/internal/Host_Wakeup.h"
#include "platform/toolkit/Watch.h"
#include "platform/visual/Forms.h"
#include "support/RunUntil.h"
#include "support/ScopedVariable.h"
#include "support/ScriptedScreen.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{

using Support::RunUntil;
using Toolkits::CurrentToolkit;
using Toolkits::Toolkit;

/// On a toolkit that isn't loaded yet. Where the tests run without windows there is no plug-in of its name,
/// so that the headless toolkit takes over.
class LateToolkitTest : public testing::Test
{
protected:
    LateToolkitTest()
        : mHasWindows(Support::ScriptedScreen::IsWanted()),
          mWish("TRS8_BTL_TOOLKIT", mHasWindows ? std::getenv("TRS8_BTL_TOOLKIT") : "missing"),
          mFormer(Toolkits::ExchangeToolkit(nullptr))
    {
    }
    ~LateToolkitTest() override { Toolkits::ExchangeToolkit(std::move(mFormer)); }

    /// Has the toolkit loaded.
    void NeedScreen() const
    {
        testing::internal::CaptureStderr();
        EXPECT_GT(CurrentToolkit().DesktopRect().Width(), 0);
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(told.find("running headless") != std::string::npos, !mHasWindows);
    }

private:
    bool mHasWindows;
    Support::ScopedVariable mWish;
    std::unique_ptr<Toolkit> mFormer;
};

TEST_F(LateToolkitTest, MovesWhatIsPostedInItsOrder)
{
    Toolkit& before = CurrentToolkit();
    std::string order;
    before.Post([&] { order += '1'; });
    before.Post([&] {
        order += '2';
        before.Post([&] { order += '4'; });
        NeedScreen();
        before.Post([&] { order += '5'; });
    });
    before.Post([&] { order += '3'; });
    EXPECT_TRUE(RunUntil([&] { return order.size() >= 5; }));
    Forms::Application->ProcessMessages();
    EXPECT_EQ(order, "12345");
    EXPECT_EQ(&CurrentToolkit(), &before);
}

TEST_F(LateToolkitTest, KeepsWhatThreadsPostMeanwhile)
{
    constexpr int count = 2000;
    std::array<std::vector<int>, 3> done;
    std::vector<std::thread> posters;
    for (auto& numbers : done) {
        posters.emplace_back([&numbers] {
            for (int i = 0; i < count; ++i) {
                CurrentToolkit().Post([&numbers, i] { numbers.push_back(i); });
            }
        });
    }
    EXPECT_TRUE(RunUntil([&] { return done[0].size() > 10; }));
    NeedScreen();
    EXPECT_TRUE(RunUntil([&] {
        return std::ranges::all_of(done, [](const auto& numbers) { return numbers.size() >= count; });
    }));
    for (std::thread& poster : posters) {
        poster.join();
    }
    Forms::Application->ProcessMessages();
    std::vector<int> expected(count);
    std::ranges::generate(expected, [i = 0]() mutable { return i++; });
    for (const auto& numbers : done) {
        EXPECT_EQ(numbers, expected);
    }
}

TEST_F(LateToolkitTest, KeepsTimersTheirIdsAndWhenTheyAreDue)
{
    Toolkit& toolkit = CurrentToolkit();
    std::string order;
    const auto stopped = toolkit.StartTimer(1, [&] { order += 's'; });
    const auto slow = toolkit.StartTimer(200, [&] { order += 'a'; });
    Toolkits::TTimerId atMove = 0;
    bool hasMoved = false;
    atMove = toolkit.StartTimer(120, [&] {
        toolkit.StopTimer(stopped);
        order.clear();
        NeedScreen();
        toolkit.StopTimer(atMove);
        hasMoved = true;
    });
    EXPECT_TRUE(RunUntil([&] { return hasMoved; }));
    // It has been on its way for so long that this one comes behind it.
    const auto late = toolkit.StartTimer(150, [&] { order += 'b'; });
    EXPECT_TRUE(RunUntil([&] { return order.size() >= 4; }));
    EXPECT_EQ(order.front(), 'a') << order;
    EXPECT_EQ(order.find('s'), std::string::npos) << order;
    EXPECT_GE(std::ranges::count(order, 'a'), 1) << order;
    toolkit.StopTimer(slow);
    order.clear();
    EXPECT_TRUE(RunUntil([&] { return order.size() >= 2; }));
    EXPECT_EQ(order, "bb");
    toolkit.StopTimer(late);
}

TEST_F(LateToolkitTest, MovedTimersGoOnAndStopThemselves)
{
    Toolkit& toolkit = CurrentToolkit();
    int ticks = 0;
    Toolkits::TTimerId timer = 0;
    timer = toolkit.StartTimer(1, [&] {
        if (++ticks == 3) {
            toolkit.StopTimer(timer);
        }
    });
    NeedScreen();
    EXPECT_TRUE(RunUntil([&] { return ticks >= 3; }));
    bool isOver = false;
    const auto other = toolkit.StartTimer(20, [&] { isOver = true; });
    EXPECT_NE(other, timer);
    EXPECT_TRUE(RunUntil([&] { return isOver; }));
    EXPECT_EQ(ticks, 3);
    toolkit.StopTimer(other);
}

TEST_F(LateToolkitTest, LooksAfterDescriptorsOnTheOtherSide)
{
    const Host::Wakeup source;
    int runs = 0;
    auto watch = std::make_unique<Toolkits::Watch>(source.Get(), [&] {
        static_cast<void>(source.Take());
        if (++runs == 1) {
            NeedScreen();
        }
    });
    for (int i = 1; i <= 3; ++i) {
        source.Wake();
        EXPECT_TRUE(RunUntil([&] { return runs >= i; }));
        EXPECT_EQ(runs, i);
    }
    watch.reset();
    source.Wake();
    Forms::Application->ProcessMessages();
    EXPECT_EQ(runs, 3);
}

TEST_F(LateToolkitTest, IsntLoadedForWhatNeedsNoScreen)
{
    testing::internal::CaptureStderr();
    CurrentToolkit().SetCursor(-11);
    CurrentToolkit().SetActivationToken(u"token");
    EXPECT_EQ(CurrentToolkit().FrameMargins(Toolkits::EFrame::Dialog).top, 26);
    int ticks = 0;
    const auto timer = CurrentToolkit().StartTimer(1, [&] { ++ticks; });
    EXPECT_TRUE(RunUntil([&] { return ticks > 0; }));
    CurrentToolkit().StopTimer(timer);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    NeedScreen();
}

} // namespace
