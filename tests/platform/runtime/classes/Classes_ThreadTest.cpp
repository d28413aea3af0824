// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Thread.h"

#include "platform/host/Host_CurrentThread.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/ThreadSupport.h"
#include "support/ChildProgram.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace
{

using Classes::EThread;
using Classes::TThread;
using Support::ThreadOf;
using Support::WaitUntil;

/// A body that counts its rounds until the thread is terminated.
auto CountInto(std::atomic<int>& rounds)
{
    return [&rounds](ThreadOf& thread) {
        while (!thread.getTerminated()) {
            ++rounds;
            thread.PassGate();
            std::this_thread::yield();
        }
    };
}

bool GoesOn(const std::atomic<int>& rounds)
{
    return WaitUntil([&, before = rounds.load()] { return rounds > before; });
}

/// Whether the counting thread stands, but for the round that was under way.
bool Stands(const std::atomic<int>& rounds)
{
    const int before = rounds;
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    return rounds <= before + 1;
}

TEST(ThreadTest, RunsByItselfUnlessItIsCreatedSuspended)
{
    std::atomic<int> rounds = 0;
    ThreadOf running(CountInto(rounds));
    EXPECT_FALSE(running.getSuspended());
    EXPECT_TRUE(GoesOn(rounds));

    std::atomic<int> none = 0;
    ThreadOf suspended(CountInto(none), true);
    EXPECT_TRUE(suspended.getSuspended());
    EXPECT_TRUE(Stands(none));
    EXPECT_EQ(none, 0);
    suspended.Start();
    EXPECT_TRUE(GoesOn(none));
}

TEST(ThreadTest, StartsOnlyOnce)
{
    ThreadOf running([](ThreadOf&) {});
    EXPECT_THROW(running.Start(), EThread);
    ThreadOf suspended([](ThreadOf&) {}, true);
    suspended.Start();
    EXPECT_THROW(suspended.Start(), EThread);
    ThreadOf resumed([](ThreadOf&) {}, true);
    resumed.Resume();
    EXPECT_THROW(resumed.Start(), EThread);
    resumed.WaitFor();
    EXPECT_THROW(resumed.Start(), EThread);
}

TEST(ThreadTest, GivesItsValueToAllWhoWait)
{
    ThreadOf thread([](ThreadOf& self) { self.setReturnValue(42); }, true);
    std::vector<std::thread> waiting;
    std::atomic<int> sum = 0;
    for (int i = 0; i < 3; ++i) {
        waiting.emplace_back([&] { sum += thread.WaitFor(); });
    }
    EXPECT_FALSE(thread.getFinished());
    thread.Start();
    EXPECT_EQ(thread.WaitFor(), 42);
    EXPECT_TRUE(thread.getFinished());
    for (std::thread& waiter : waiting) {
        waiter.join();
    }
    EXPECT_EQ(sum, 3 * 42);
}

TEST(ThreadTest, IsSuspendedAsOftenAsItIsAsked)
{
    std::atomic<int> rounds = 0;
    ThreadOf thread(CountInto(rounds));
    std::thread first([&] { thread.Suspend(); });
    std::thread second([&] { thread.Suspend(); });
    first.join();
    second.join();
    EXPECT_TRUE(thread.getSuspended());
    EXPECT_TRUE(Stands(rounds));
    thread.Resume();
    EXPECT_TRUE(thread.getSuspended());
    EXPECT_TRUE(Stands(rounds));
    thread.Resume();
    EXPECT_FALSE(thread.getSuspended());
    EXPECT_TRUE(GoesOn(rounds));
    thread.Resume();
    thread.Suspend();
    EXPECT_TRUE(thread.getSuspended()) << "a resume too many isn't kept";
}

TEST(ThreadTest, SuspendsItselfAtOnce)
{
    std::atomic<int> step = 0;
    ThreadOf thread([&](ThreadOf& self) {
        step = 1;
        self.Suspend();
        step = 2;
    });
    ASSERT_TRUE(WaitUntil([&] { return thread.getSuspended(); }));
    EXPECT_EQ(step, 1);
    thread.Resume();
    thread.WaitFor();
    EXPECT_EQ(step, 2);
}

TEST(ThreadTest, GoesOnFromItsGateWhenItIsTerminated)
{
    ThreadOf thread([](ThreadOf& self) { self.Suspend(); });
    ASSERT_TRUE(WaitUntil([&] { return thread.getSuspended(); }));
    thread.Terminate();
    EXPECT_FALSE(thread.getSuspended());
    EXPECT_TRUE(thread.getTerminated());
    thread.WaitFor();
}

TEST(ThreadTest, RunsNothingIfItEndsBeforeItBegins)
{
    std::atomic<bool> hasRun = false;
    const auto body = [&](ThreadOf&) { hasRun = true; };
    {
        const ThreadOf destroyed(body, true);
    }
    ThreadOf terminated(body, true);
    terminated.Terminate();
    EXPECT_THROW(terminated.Start(), EThread);
    terminated.WaitFor();
    EXPECT_FALSE(hasRun);
}

TEST(ThreadTest, EndsWithItsObject)
{
    std::atomic<int> rounds = 0;
    for (const bool isSuspended : {false, true}) {
        SCOPED_TRACE(isSuspended);
        ThreadOf thread(CountInto(rounds));
        EXPECT_TRUE(GoesOn(rounds));
        if (isSuspended) {
            thread.Suspend();
            EXPECT_TRUE(Stands(rounds));
        }
    }
    EXPECT_TRUE(Stands(rounds));
}

TEST(ThreadTest, KeepsTheExceptionThatEndsIt)
{
    ThreadOf thread([](ThreadOf&) { throw std::out_of_range("channel 5"); });
    thread.WaitFor();
    try {
        std::rethrow_exception(thread.getFatalException());
    } catch (const std::out_of_range& fault) {
        EXPECT_STREQ(fault.what(), "channel 5");
    }
    ThreadOf quiet([](ThreadOf&) {});
    quiet.WaitFor();
    EXPECT_EQ(quiet.getFatalException(), nullptr);
}

TEST(ThreadTest, IsLeftInOrderFromWithin)
{
    std::atomic<bool> isCleanedUp = false;
    struct TCleanUp
    {
        std::atomic<bool>& done;
        ~TCleanUp() { done = true; }
    };
    ThreadOf thread([&](ThreadOf& self) {
        const TCleanUp cleanUp{isCleanedUp};
        try {
            self.LeaveThread(7);
        } catch (const std::exception&) {
            self.setReturnValue(-1);
        }
    });
    EXPECT_THROW(thread.LeaveThread(1), EThread);
    EXPECT_EQ(thread.WaitFor(), 7);
    EXPECT_TRUE(isCleanedUp);
    EXPECT_EQ(thread.getFatalException(), nullptr);
}

TEST(ThreadTest, TellsItsEndInTheMainThread)
{
    for (const bool fails : {false, true}) {
        SCOPED_TRACE(fails);
        ThreadOf thread(
            [fails](ThreadOf&) {
                if (fails) {
                    throw std::runtime_error("fault");
                }
            },
            true);
        System::TObject* sender = nullptr;
        unsigned long place = 0;
        bool hasFault = false;
        thread.setOnTerminate([&](System::TObject* object) {
            sender = object;
            place = GetCurrentThreadId();
            hasFault = thread.getFatalException() != nullptr;
            throw std::logic_error("of the event");
        });
        thread.Start();
        thread.WaitFor();
        EXPECT_EQ(sender, &thread);
        EXPECT_EQ(place, System::MainThreadID);
        EXPECT_EQ(hasFault, fails);
        EXPECT_THROW(std::rethrow_exception(thread.getFatalException()), std::exception);
    }
}

TEST(ThreadTest, TellsItsEndToTheDestructorInTheMainThread)
{
    int told = 0;
    {
        ThreadOf thread([](ThreadOf& self) { self.Suspend(); });
        thread.setOnTerminate([&](System::TObject*) { ++told; });
        ASSERT_TRUE(WaitUntil([&] { return thread.getSuspended(); }));
    }
    EXPECT_EQ(told, 1);
}

TEST(ThreadTest, FreesItsObject)
{
    const auto held = std::make_shared<int>(1);
    auto* const thread = new ThreadOf([copy = held](ThreadOf&) {}, true);
    EXPECT_FALSE(thread->getFreeOnTerminate());
    thread->setFreeOnTerminate(true);
    EXPECT_EQ(held.use_count(), 2);
    thread->Start();
    EXPECT_TRUE(WaitUntil([&] { return held.use_count() == 1; }));
}

TEST(ThreadTest, RefusesToWaitForItself)
{
    std::atomic<bool> isRefused = false;
    ThreadOf thread([&](ThreadOf& self) {
        try {
            self.WaitFor();
        } catch (const EThread&) {
            isRefused = true;
        }
    });
    thread.WaitFor();
    EXPECT_TRUE(isRefused);
}

std::string NameOf(unsigned long thread)
{
    std::string name;
    std::getline(std::ifstream("/proc/self/task/" + std::to_string(thread) + "/comm"), name);
    return name;
}

TEST(ThreadTest, HasTheNameThatDebuggersShow)
{
    ThreadOf thread([](ThreadOf& self) {
        TThread::NameThreadForDebugging(u"sampling");
        self.Suspend();
    });
    ASSERT_TRUE(WaitUntil([&] { return thread.getSuspended(); }));
    EXPECT_NE(thread.getThreadID(), GetCurrentThreadId());
    EXPECT_EQ(NameOf(thread.getThreadID()), "sampling");
    const std::pair<const char16_t*, const char*> rows[] = {
        {u"Messung", "Messung"},
        {u"fifteen bytes..", "fifteen bytes.."},
        {u"sixteen bytes...", "sixteen bytes.."},
        {u"fourteen bytesäö", "fourteen bytes"},
        {u"", ""},
    };
    for (const auto& [name, shown] : rows) {
        TThread::NameThreadForDebugging(name, thread.getThreadID());
        EXPECT_EQ(NameOf(thread.getThreadID()), shown);
    }
    TThread::NameThreadForDebugging(u"nobody", 0x7FFFFFFF);
}

TEST(ThreadTest, IsOfAClassThatKnowsItself)
{
    ThreadOf thread([](ThreadOf&) {}, true);
    EXPECT_EQ(thread.ClassName(), u"TThread");
}

/// Tells when it is destroyed.
struct TGlobal
{
    std::atomic<bool> isThere{true};
    ~TGlobal() { isThere = false; }
};

TGlobal& Global()
{
    static TGlobal global;
    return global;
}

/// A thread that nobody destroys; it stays known, so that it counts as no leak.
template <class Body>
ThreadOf& Leak(Body body, bool createSuspended = false)
{
    static auto& kept = *new std::vector<ThreadOf*>;
    return *kept.emplace_back(new ThreadOf(body, createSuspended));
}

TEST(ThreadEndChild, DISABLED_EndsWithThreads)
{
    static std::atomic<bool> isWrong = false;
    // Nobody ends these: they run, are suspended, wait for the main thread, or were never started.
    const auto run = [](ThreadOf& thread) {
        while (!thread.getTerminated()) {
            thread.PassGate();
        }
        isWrong = isWrong || !Global().isThere;
    };
    Leak(run);
    Leak(run).Suspend();
    Leak(run, true);
    Leak([run](ThreadOf& thread) {
        isWrong = isWrong || TThread::Synchronize(nullptr, [] { isWrong = true; });
        run(thread);
    });
    // The first thread stands before this object.
    Global();
    std::atexit([] { Support::PrintResult(isWrong ? "wrong" : "right"); });
}

TEST(ThreadEndTest, ThreadsEndBeforeTheGlobalObjects)
{
    EXPECT_EQ(Support::RunChildTest("ThreadEndChild.DISABLED_EndsWithThreads"), "right");
}

TEST(ThreadEndChild, DISABLED_EndsWhileItServes)
{
    ThreadOf& thread = Leak([](ThreadOf&) {
        const bool isDone = TThread::Synchronize(nullptr, [] { std::exit(0); });
        Support::PrintResult(isDone ? "done" : "taken back");
    });
    thread.WaitFor();
}

TEST(ThreadEndTest, TheProcessMayEndInWhatAThreadHandedOver)
{
    EXPECT_EQ(Support::RunChildTest("ThreadEndChild.DISABLED_EndsWhileItServes"), "taken back");
}

TEST(ThreadEndChild, DISABLED_EndsInAThread)
{
    static std::atomic<int>& rounds = *new std::atomic<int>;
    Leak(CountInto(rounds));
    ThreadOf thread([](ThreadOf&) {
        std::atexit([] { Support::PrintResult("ended"); });
        std::exit(0);
    });
    thread.WaitFor();
}

TEST(ThreadEndTest, TheProcessMayEndInAThread)
{
    EXPECT_EQ(Support::RunChildTest("ThreadEndChild.DISABLED_EndsInAThread"), "ended");
}

TEST(ThreadEndChild, DISABLED_EndsDespiteAThreadThatDoesNotHeed)
{
    Leak([](ThreadOf&) { std::this_thread::sleep_for(std::chrono::hours(1)); });
    std::atexit([] { Support::PrintResult("ended"); });
}

TEST(ThreadEndTest, TheProcessEndsDespiteAThreadThatDoesNotHeed)
{
    EXPECT_EQ(Support::RunChildTest("ThreadEndChild.DISABLED_EndsDespiteAThreadThatDoesNotHeed"), "ended");
}

} // namespace
