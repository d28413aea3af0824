// SPDX-License-Identifier: MIT
#include "platform/toolkit/Watch.h"

#include "platform/host/internal/Host_Wakeup.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

namespace
{

using Host::Wakeup;
using Toolkits::CurrentToolkit;
using Toolkits::Watch;

TEST(WatchTest, RunsFromTheLoopWhileThereIsSomethingToRead)
{
    const Wakeup source;
    int runs = 0;
    const Watch watch(source.Get(), [&] {
        if (++runs == 3) {
            static_cast<void>(source.Take());
        }
    });
    Forms::Application->ProcessMessages();
    EXPECT_EQ(runs, 0);
    source.Wake();
    CurrentToolkit().WaitMessage();
    EXPECT_EQ(runs, 0) << "waiting handles nothing";
    Forms::Application->ProcessMessages();
    EXPECT_EQ(runs, 3);
}

TEST(WatchTest, WakesTheLoopAndIsWokenBesideIt)
{
    const Wakeup source;
    std::string order;
    const Watch watch(source.Get(), [&] {
        static_cast<void>(source.Take());
        order += 'w';
    });
    const auto await = [&](std::size_t count) {
        while (order.size() < count) {
            Forms::Application->HandleMessage();
        }
    };
    std::thread([&] { source.Wake(); }).join();
    await(1);
    std::thread poster([&] { CurrentToolkit().Post([&] { order += 'p'; }); });
    await(2);
    poster.join();
    std::thread waker([&] { source.Wake(); });
    await(3);
    waker.join();
    EXPECT_EQ(order, "wpw");
}

TEST(WatchTest, HasItsTurnBesideWhatIsPostedAndOtherWatches)
{
    const Wakeup first;
    const Wakeup second;
    std::string order;
    const Watch watchFirst(first.Get(), [&] { order += '1'; });
    const Watch watchSecond(second.Get(), [&] { order += '2'; });
    first.Wake();
    second.Wake();
    std::function<void()> again = [&] {
        order += 'p';
        CurrentToolkit().Post(again);
    };
    CurrentToolkit().Post(again);
    for (int i = 0; i < 8; ++i) {
        EXPECT_TRUE(CurrentToolkit().ProcessMessage());
    }
    for (const char mark : {'1', '2', 'p'}) {
        EXPECT_GE(std::ranges::count(order, mark), 2) << mark << " starves in " << order;
    }
    again = [] {};
    CurrentToolkit().ProcessMessage();
    CurrentToolkit().ProcessMessage();
}

TEST(WatchTest, EndsWithItsObjectAlsoFromItsAction)
{
    const Wakeup source;
    source.Wake();
    int runs = 0;
    std::unique_ptr<Watch> watch;
    watch = std::make_unique<Watch>(source.Get(), [&] {
        watch.reset();
        ++runs;
    });
    Forms::Application->ProcessMessages();
    EXPECT_EQ(runs, 1);
}

TEST(WatchTest, GoesOnUnderAnotherToolkit)
{
    const Wakeup source;
    int runs = 0;
    const Watch watch(source.Get(), [&] {
        static_cast<void>(source.Take());
        ++runs;
    });
    {
        const Support::ScriptedBoxes boxes;
        source.Wake();
        Forms::Application->ProcessMessages();
        EXPECT_EQ(runs, 1);
    }
    source.Wake();
    Forms::Application->ProcessMessages();
    EXPECT_EQ(runs, 2);
}

} // namespace
