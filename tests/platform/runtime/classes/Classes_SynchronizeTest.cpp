// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Synchronize.h"

#include "platform/host/Host_CurrentThread.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/ThreadSupport.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

using Classes::CheckSynchronize;
using Classes::EThread;
using Classes::TThread;
using Support::ThreadOf;
using Support::WaitUntil;

/// Serves the main thread until `isTrue`.
template <class Test>
bool ServeUntil(Test isTrue)
{
    return WaitUntil([&] {
        CheckSynchronize();
        return isTrue();
    });
}

/// Returns when a thread has handed something over, without serving it.
void WaitForACall()
{
    Toolkits::CurrentToolkit().WaitMessage();
}

TEST(SynchronizeTest, RunsInTheMainThreadBeforeItReturns)
{
    EXPECT_EQ(System::MainThreadID, GetCurrentThreadId());
    unsigned long place = 0;
    unsigned long seen = 0;
    ThreadOf thread([&](ThreadOf& self) {
        EXPECT_TRUE(self.Synchronize([&] { place = GetCurrentThreadId(); }));
        seen = place;
        EXPECT_TRUE(TThread::Synchronize(nullptr, [&] { place = 0; }));
        EXPECT_TRUE(self.Synchronize(nullptr));
    });
    thread.WaitFor();
    EXPECT_EQ(seen, System::MainThreadID);
    EXPECT_EQ(place, 0U);
}

TEST(SynchronizeTest, ServesForeignThreadsToo)
{
    std::atomic<bool> isDone = false;
    int value = 0;
    std::thread thread([&] {
        TThread::Synchronize(nullptr, [&] { value = 5; });
        isDone = true;
    });
    EXPECT_TRUE(ServeUntil([&] { return isDone.load(); }));
    thread.join();
    EXPECT_EQ(value, 5);
}

TEST(SynchronizeTest, RunsAtOnceInTheMainThread)
{
    int value = 0;
    EXPECT_TRUE(TThread::Synchronize(nullptr, [&] { value = 1; }));
    EXPECT_EQ(value, 1);
    TThread::Queue(nullptr, [&] { value = 2; });
    EXPECT_EQ(value, 2);
    EXPECT_THROW(TThread::Synchronize(nullptr, [] { throw std::runtime_error("fault"); }),
                 std::runtime_error);
    EXPECT_FALSE(CheckSynchronize());
}

TEST(SynchronizeTest, CarriesExceptionsBackToTheThread)
{
    ThreadOf thread([](ThreadOf& self) {
        EXPECT_THROW(self.Synchronize([] { throw std::out_of_range("caught"); }), std::out_of_range);
        self.Synchronize([] { throw std::runtime_error("fatal"); });
    });
    thread.WaitFor();
    EXPECT_THROW(std::rethrow_exception(thread.getFatalException()), std::runtime_error);
}

TEST(SynchronizeTest, IsServedByTheMessageLoop)
{
    const Support::ScriptedBoxes toolkit;
    std::vector<int> order;
    std::optional<ThreadOf> thread;
    thread.emplace([&](ThreadOf& self) {
        for (int i = 0; i < 100; ++i) {
            self.Queue([&order, i] { order.push_back(i); });
        }
        self.Synchronize([&] { order.push_back(100); });
    });
    // Sleeps until it is woken.
    while (order.size() <= 100) {
        Forms::Application->HandleMessage();
    }
    thread.reset();
    for (int i = 0; i <= 100; ++i) {
        EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
    }
}

TEST(SynchronizeTest, IsServedByTheNextToolkit)
{
    auto former = std::make_unique<Support::ScriptedBoxes>();
    bool isRun = false;
    std::thread([&] { TThread::Queue(nullptr, [&] { isRun = true; }); }).join();
    former = nullptr;
    Forms::Application->ProcessMessages();
    EXPECT_TRUE(isRun);
}

TEST(SynchronizeTest, IsServedByAWaitForAThread)
{
    std::vector<int> order;
    ThreadOf thread([&](ThreadOf& self) {
        self.Queue([&] { order.push_back(1); });
        self.Synchronize([&] { order.push_back(2); });
    });
    thread.WaitFor();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST(SynchronizeTest, KeepsTheRestWhenAQueuedMethodRaises)
{
    const Support::ScriptedBoxes toolkit;
    int runs = 0;
    std::thread([&] {
        TThread::Queue(nullptr, [&] { ++runs; });
        TThread::Queue(nullptr, [] { throw std::runtime_error("queued"); });
        TThread::Queue(nullptr, [&] { ++runs; });
    }).join();
    EXPECT_THROW(Forms::Application->ProcessMessages(), std::runtime_error);
    EXPECT_EQ(runs, 1);
    Forms::Application->ProcessMessages();
    EXPECT_EQ(runs, 2);
}

TEST(SynchronizeTest, WaitsForSomethingToDo)
{
    EXPECT_FALSE(CheckSynchronize());
    EXPECT_FALSE(CheckSynchronize(1));
    bool isRun = false;
    std::thread thread([&] { TThread::Queue(nullptr, [&] { isRun = true; }); });
    EXPECT_TRUE(CheckSynchronize(60'000));
    thread.join();
    EXPECT_TRUE(isRun);
}

TEST(SynchronizeTest, BelongsToTheMainThread)
{
    std::thread([] { EXPECT_THROW(CheckSynchronize(), EThread); }).join();
}

TEST(SynchronizeTest, TakesBackWhatIsQueued)
{
    std::vector<int> runs;
    const Classes::TThreadMethod method([&] { runs.push_back(3); });
    ThreadOf first([&](ThreadOf& self) {
        self.Queue([&] { runs.push_back(1); });
        TThread::Queue(nullptr, method);
        TThread::Queue(nullptr, [&] { runs.push_back(2); });
    });
    auto second = std::make_unique<ThreadOf>([&](ThreadOf& self) { self.Queue([&] { runs.push_back(4); }); });
    ASSERT_TRUE(WaitUntil([&] { return first.getFinished() && second->getFinished(); }));
    TThread::RemoveQueuedEvents(&first);
    TThread::RemoveQueuedEvents(method);
    TThread::RemoveQueuedEvents(static_cast<const TThread*>(nullptr));
    second = nullptr;
    CheckSynchronize();
    EXPECT_EQ(runs, std::vector{2});
}

TEST(SynchronizeTest, EndsWhenTheObjectOfTheThreadIsDestroyed)
{
    for (const bool isOwnObject : {true, false}) {
        SCOPED_TRACE(isOwnObject);
        const Support::ScriptedBoxes toolkit;
        bool isRun = false;
        std::optional<bool> isDone;
        {
            const ThreadOf thread([&](ThreadOf& self) {
                isDone = TThread::Synchronize(isOwnObject ? &self : nullptr, [&] { isRun = true; });
            });
            WaitForACall();
        }
        EXPECT_EQ(isDone, false);
        EXPECT_FALSE(isRun);
    }
}

TEST(SynchronizeTest, EndsWhenTheThreadObjectItGoesThroughIsDestroyed)
{
    const Support::ScriptedBoxes toolkit;
    auto* const target = new ThreadOf([](ThreadOf&) {});
    std::optional<bool> isDone;
    std::thread thread([&] { isDone = TThread::Synchronize(target, [] { ADD_FAILURE(); }); });
    WaitForACall();
    delete target;
    thread.join();
    EXPECT_EQ(isDone, false);
}

TEST(SynchronizeTest, MayDestroyTheThreadThatWaits)
{
    ThreadOf* thread = nullptr;
    std::atomic<int> told = -1;
    thread = new ThreadOf(
        [&](ThreadOf& self) {
            told = self.Synchronize([&] {
                EXPECT_THROW(thread->WaitFor(), EThread);
                delete thread;
                thread = nullptr;
            });
        },
        true);
    thread->Start();
    EXPECT_TRUE(ServeUntil([&] { return thread == nullptr; }));
    EXPECT_EQ(told, 0);
}

TEST(SynchronizeTest, OthersAreServedWhileAThreadIsDestroyed)
{
    int served = 0;
    ThreadOf helper(
        [&](ThreadOf& self) {
            for (int i = 0; i < 10; ++i) {
                self.Synchronize([&] { ++served; });
            }
        },
        true);
    {
        std::atomic<bool> isBegun = false;
        ThreadOf waiting([&](ThreadOf&) {
            isBegun = true;
            helper.Start();
            helper.WaitFor();
        });
        ASSERT_TRUE(WaitUntil([&] { return isBegun.load(); }));
    }
    EXPECT_EQ(served, 10);
}

} // namespace
