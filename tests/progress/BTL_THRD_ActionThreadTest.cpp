// SPDX-License-Identifier: MIT
#include "progress/BTL_THRD_ActionThread.h"

#include "foundation/logs/UTL_LOG_Log.h"
#include "platform/host/Host_CurrentThread.h"
#include "platform/host/Host_Error.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/sysutils/Sysutils_StdPath.h"
#include "platform/toolkit/Toolkit.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace
{

using BTL::TActionThread;
using Classes::CheckSynchronize;
using Classes::EThread;
using Support::WaitUntil;

void Pause()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

/// An action that counts its runs and where they take place.
class Counter
{
public:
    void Count()
    {
        mPlace = GetCurrentThreadId();
        ++mRuns;
        Pause();
    }
    TActionThread::TAction Action() { return {this, &Counter::Count}; }

    int Runs() const { return mRuns; }
    unsigned long Place() const { return mPlace; }
    bool GoesOn() const
    {
        return WaitUntil([&, before = Runs()] {
            CheckSynchronize();
            return Runs() > before + 1;
        });
    }
    /// Whether no action runs any more, but for the one that was under way.
    bool Stands() const
    {
        const int before = Runs();
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        CheckSynchronize();
        return Runs() <= before + 1;
    }

private:
    std::atomic<int> mRuns{0};
    std::atomic<unsigned long> mPlace{0};
};

bool WaitSuspended(const TActionThread& thread)
{
    return WaitUntil([&] { return thread.getSuspended(); });
}

TEST(ActionThreadTest, RunsItsActionOverAndOver)
{
    Counter counter;
    TActionThread thread(counter.Action(), false, false, false);
    EXPECT_TRUE(counter.GoesOn());
    EXPECT_EQ(counter.Place(), thread.getThreadID());
    EXPECT_EQ(thread.ClassName(), u"TActionThread");
}

TEST(ActionThreadTest, RunsNothingBeforeItsStart)
{
    for (const bool isStart2 : {false, true}) {
        SCOPED_TRACE(isStart2);
        Counter counter;
        TActionThread thread(counter.Action(), true, false, false);
        EXPECT_TRUE(counter.Stands());
        EXPECT_EQ(counter.Runs(), 0);
        if (isStart2) {
            thread.Start2();
            EXPECT_THROW(thread.Start2(), EThread);
        } else {
            thread.Start();
        }
        EXPECT_TRUE(counter.GoesOn());
    }
}

TEST(ActionThreadTest, StopsAndStartsAgain)
{
    for (const bool isSynchronized : {false, true}) {
        SCOPED_TRACE(isSynchronized);
        Counter counter;
        TActionThread thread(counter.Action(), false, isSynchronized, false);
        for (int i = 0; i < 3; ++i) {
            EXPECT_TRUE(counter.GoesOn());
            thread.Start();
            EXPECT_TRUE(counter.GoesOn());
            thread.Stop();
            ASSERT_TRUE(WaitUntil([&] {
                CheckSynchronize();
                return thread.getSuspended();
            }));
            thread.Stop();
            EXPECT_TRUE(counter.Stands());
            thread.Start();
        }
        EXPECT_TRUE(counter.GoesOn());
        EXPECT_EQ(counter.Place() == System::MainThreadID, isSynchronized);
    }
}

TEST(ActionThreadTest, IsSuspendedByForceWhileItRuns)
{
    Counter counter;
    TActionThread thread(counter.Action(), false, false, false);
    EXPECT_TRUE(counter.GoesOn());
    thread.ForceSuspend();
    EXPECT_TRUE(thread.getSuspended());
    EXPECT_TRUE(counter.Stands());
    thread.Suspend();
    thread.Suspend();
    thread.ForceSuspend();
    thread.ForceResume();
    EXPECT_FALSE(thread.getSuspended());
    EXPECT_TRUE(counter.GoesOn());
    thread.Terminate();
    thread.ForceSuspend();
    thread.WaitFor();
}

TEST(ActionThreadTest, SuspendsItselfInItsAction)
{
    Counter counter;
    TActionThread thread(
        [&](TActionThread* self) {
            self->ForceSuspend();
            counter.Count();
        },
        false, true, false);
    ASSERT_TRUE(WaitSuspended(thread));
    EXPECT_EQ(counter.Runs(), 0);
    thread.ForceResume();
    EXPECT_TRUE(WaitUntil([&] { return counter.Runs() == 1; }));
    EXPECT_EQ(counter.Place(), thread.getThreadID()) << "such an action runs in the thread";
}

TEST(ActionThreadTest, BearsStopsAndStartsFromSeveralThreads)
{
    Counter counter;
    TActionThread thread(counter.Action(), true, false, false);
    const auto control = [&] {
        for (int i = 0; i < 200; ++i) {
            thread.Start();
            thread.Stop();
            thread.ForceSuspend();
            thread.ForceResume();
        }
    };
    std::thread first(control);
    std::thread second(control);
    first.join();
    second.join();
    // Stopped or not: the last stop may still be under way.
    ASSERT_TRUE(WaitUntil([&, before = counter.Runs()] {
        thread.Start();
        return counter.Runs() > before + 5;
    }));
}

TEST(ActionThreadTest, RunsNoFurtherActionWhenItIsDestroyed)
{
    for (const bool isSynchronized : {false, true}) {
        for (const bool isSuspended : {false, true}) {
            SCOPED_TRACE(testing::Message() << isSynchronized << isSuspended);
            Counter counter;
            int runs = 0;
            {
                TActionThread thread(counter.Action(), isSuspended, isSynchronized, false);
                if (!isSuspended && !isSynchronized) {
                    EXPECT_TRUE(counter.GoesOn());
                }
                Pause();
                runs = counter.Runs();
            }
            const int atEnd = counter.Runs();
            Pause();
            CheckSynchronize();
            EXPECT_EQ(counter.Runs(), atEnd);
            if (isSuspended || isSynchronized) {
                EXPECT_EQ(atEnd, runs);
            }
        }
    }
}

TEST(ActionThreadTest, IsKilledBehindTheActionUnderWay)
{
    std::atomic<int> step = 0;
    auto* const thread = new TActionThread(
        [&] {
            step = 1;
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
            ++step;
        },
        false, false, false);
    ASSERT_TRUE(WaitUntil([&] { return step == 1; }));
    thread->Kill();
    EXPECT_EQ(step, 2);
    TActionThread::Kill(nullptr);
    TActionThread::Kill(new TActionThread(TActionThread::TAction(), true, false, false));
}

TEST(ActionThreadTest, MayBeKilledByItsAction)
{
    const auto held = std::make_shared<int>(0);
    for (const bool isSynchronized : {false, true}) {
        SCOPED_TRACE(isSynchronized);
        TActionThread* thread = nullptr;
        int runs = 0;
        thread = new TActionThread(
            [&, copy = held] {
                ++runs;
                thread->Kill();
            },
            true, isSynchronized, false);
        thread->Start();
        ASSERT_TRUE(WaitUntil([&] {
            CheckSynchronize();
            return held.use_count() == 1;
        }));
        EXPECT_EQ(runs, 1);
    }
}

class ActionThreadLogTest : public testing::Test
{
protected:
    ActionThreadLogTest() { BTL::SetLogFile(Sysutils::ToFileName(File())); }
    ~ActionThreadLogTest() override { BTL::SetLogFile(u""); }

    std::filesystem::path File() const { return mFolder.Path() / "log.txt"; }
    std::string Content() const
    {
        std::ostringstream content;
        content << std::ifstream(File()).rdbuf();
        return content.str();
    }

private:
    Support::TempFolder mFolder;
};

TEST_F(ActionThreadLogTest, HasTheExceptionThatEndsTheThread)
{
    std::string expected;
    for (const bool isSynchronized : {false, true}) {
        SCOPED_TRACE(isSynchronized);
        int runs = 0;
        TActionThread thread(
            [&] {
                ++runs;
                throw std::runtime_error("no answer");
            },
            true, isSynchronized, false);
        thread.Start();
        thread.WaitFor();
        EXPECT_EQ(runs, 1);
        EXPECT_THROW(std::rethrow_exception(thread.getFatalException()), std::runtime_error);
        expected += "no answer\n";
        EXPECT_EQ(Content(), expected);
        thread.Start();
        EXPECT_EQ(thread.WaitFor(), 0);
        EXPECT_EQ(runs, 1);
    }
    TActionThread thread([] { throw 5; }, false, false, false);
    thread.WaitFor();
    EXPECT_EQ(Content(), expected + "A thread was ended by an exception without a message.\n");
}

TEST_F(ActionThreadLogTest, HasNothingOfAThreadThatEndsInOrder)
{
    {
        TActionThread thread([](TActionThread* self) { self->ExitThread(9); }, false, false, false);
        EXPECT_EQ(thread.WaitFor(), 9);
        EXPECT_THROW(thread.ExitThread(1), EThread);
    }
    EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST(ActionThreadTest, CannotBeCutOff)
{
    Counter counter;
    TActionThread thread(counter.Action(), false, false, false);
    SetLastError(0);
    EXPECT_FALSE(thread.TerminateThread());
    EXPECT_EQ(GetLastError(), ERROR_CALL_NOT_IMPLEMENTED);
    EXPECT_TRUE(counter.GoesOn());
}

TEST(ActionThreadTest, HandlesTheMessagesOfTheMainThread)
{
    const Support::ScriptedBoxes toolkit;
    Counter counter;
    int messages = 0;
    TActionThread thread(counter.Action(), true, false, true);
    Toolkits::CurrentToolkit().Post([&] { ++messages; });
    thread.Start();
    EXPECT_TRUE(counter.GoesOn());
    EXPECT_EQ(messages, 1);
}

/// Runs an `Execute` of its own.
class DerivedThread : public TActionThread
{
public:
    explicit DerivedThread(bool createSuspended) : TActionThread(createSuspended, false, false)
    {
        AfterConstruction();
    }
    ~DerivedThread() override { EndThread(); }

    std::atomic<int> runs{0};

protected:
    void Execute() override
    {
        while (!getTerminated()) {
            ++runs;
            PassGate();
            Pause();
        }
    }
};

TEST(ActionThreadTest, RunsTheExecuteOfADerivedClass)
{
    DerivedThread running(false);
    EXPECT_TRUE(WaitUntil([&] { return running.runs > 1; }));
    DerivedThread suspended(true);
    Pause();
    EXPECT_EQ(suspended.runs, 0);
    suspended.Start();
    EXPECT_TRUE(WaitUntil([&] { return suspended.runs > 1; }));
}

TEST(ActionThreadTest, BringsWorkToTheMainThread)
{
    EXPECT_TRUE(BTL::IsTheCurrentThreadTheMainThread());
    BTL::SynchronizeWithMainThread(nullptr);
    EXPECT_THROW(BTL::SynchronizeWithMainThread([] { throw std::range_error("direct"); }), std::range_error);

    std::atomic<bool> isMain = true;
    bool isServedThere = false;
    TActionThread thread(
        [&](TActionThread* self) {
            isMain = BTL::IsTheCurrentThreadTheMainThread();
            BTL::SynchronizeWithMainThread([&] { isServedThere = BTL::IsTheCurrentThreadTheMainThread(); });
            self->Terminate();
        },
        false, false, false);
    thread.WaitFor();
    EXPECT_FALSE(isMain);
    EXPECT_TRUE(isServedThere);
}

} // namespace
