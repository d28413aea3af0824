// SPDX-License-Identifier: MIT
#include "progress/BTL_StartOnce.h"

#include "languages/BTL_I18N_Texts.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_TickCount.h"
#include "platform/host/objects/Host_Mutex.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/toolkit/MessageWindow.h"
#include "platform/visual/Forms.h"
#include "support/ScopedVariable.h"
#include "support/ScriptedBoxes.h"
#include "support/SecondProcess.h"
#include "support/Session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <sched.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace
{

using BTL::CStartOnce;
using Support::SecondProcess;
using Support::Session;
using System::UnicodeString;

/// Each test has names of its own: the process keeps those that it took.
class StartOnceTest : public testing::Test
{
public:
    static const System::WideChar* GetName() { return mName.c_str(); }

protected:
    StartOnceTest()
    {
        static int count = 0;
        mName = u"start/once \u00E4 'of' test " + UnicodeString(++count);
    }

    Session session;

private:
    static inline UnicodeString mName;
};

const System::WideChar* Name()
{
    return StartOnceTest::GetName();
}

/// A first process that answers with `handler`; without one it has no handler.
class FirstProcess
{
public:
    explicit FirstProcess(BTL::TStartOnceHandler handler = nullptr)
        : mProcess([handler](int tell) {
              CStartOnce once(Name());
              once.OnMessage = handler;
              once.CreateMessageWindow();
              // Comes too late for the window.
              once.OnMessage = [](const UnicodeString&) { return 77; };
              if (once.IsMainProcess()) {
                  SecondProcess::Tell(tell);
              }
              Forms::Application->Run();
          })
    {
        EXPECT_TRUE(mProcess.Await());
    }

    void Kill() { mProcess.Kill(); }

private:
    SecondProcess mProcess;
};

TEST_F(StartOnceTest, TheFirstIsTheOneThatMadeTheName)
{
    const CStartOnce first(Name());
    EXPECT_TRUE(first.IsMainProcess());
    EXPECT_TRUE(first.ExistsMainProcess());
    const CStartOnce second(Name());
    EXPECT_FALSE(second.IsMainProcess()) << "two objects of one name in one process";
    EXPECT_TRUE(second.ExistsMainProcess());
    EXPECT_TRUE(CStartOnce("one more").IsMainProcess());
    EXPECT_FALSE(CStartOnce(u"one more").IsMainProcess()) << "the name stays taken up to the process's end";
    EXPECT_TRUE(CStartOnce().IsMainProcess());
    EXPECT_FALSE(CStartOnce("*TARMIS-StartOnce*", "elsewhere").IsMainProcess());
    const HANDLE machine = OpenMutexW(MUTEX_ALL_ACCESS, false, Name());
    EXPECT_EQ(machine, nullptr) << "other users would find it";
}

TEST_F(StartOnceTest, ALaterOneStaysThatWhenTheFirstEnds)
{
    FirstProcess first;
    const CStartOnce later(Name());
    EXPECT_FALSE(later.IsMainProcess());
    EXPECT_TRUE(later.ExistsMainProcess());
    first.Kill();
    EXPECT_FALSE(later.IsMainProcess());
    EXPECT_FALSE(later.ExistsMainProcess()) << "a later process holds the name";
    EXPECT_TRUE(CStartOnce(Name()).IsMainProcess());
}

TEST_F(StartOnceTest, NamesMayBeAnyText)
{
    const std::u16string names[] = {u"",
                                    u"a/../b",
                                    u"..",
                                    u"\xD800",
                                    u"%s",
                                    std::u16string(5000, u'x'),
                                    std::u16string(5000, u'x') + u'y',
                                    u"A/../B"};
    for (const std::u16string& name : names) {
        CStartOnce once(name.c_str());
        EXPECT_TRUE(once.IsMainProcess());
        EXPECT_TRUE(once.ExistsMainProcess());
        EXPECT_FALSE(CStartOnce(name.c_str()).IsMainProcess());
        once.OnMessage = [](const UnicodeString& text) { return text.Length(); };
        once.CreateMessageWindow();
        EXPECT_EQ(once.SendMessageToMainProcess(u"four"), 4) << "to itself";
    }
}

TEST_F(StartOnceTest, TellsTheUserThatItIsNotTheFirst)
{
    Support::ScriptedBoxes boxes({IDOK});
    const CStartOnce first(Name());
    EXPECT_FALSE(first.ShowMessageIfNotSingular());
    EXPECT_TRUE(boxes.TakeShown().empty());
    EXPECT_TRUE(CStartOnce(Name()).ShowMessageIfNotSingular());
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, BTL::Gi18n::GetString(BTL::EIDS::AlreadyRunning));
    EXPECT_EQ(shown[0].box.flags, 16U);
}

TEST_F(StartOnceTest, HandsTextsOver)
{
    const FirstProcess first(
        [](const UnicodeString& text) { return text == u"Gr\u00F6\u00DFe \xD800" ? -5 : text.Length(); });
    CStartOnce later(Name());
    EXPECT_EQ(later.SendMessageToMainProcess(u"Gr\u00F6\u00DFe \xD800"), -5);
    EXPECT_EQ(later.SendMessageToMainProcess("Gr\xF6\xDF"
                                             "e"),
              5)
        << "8-bit text in its code page";
    EXPECT_EQ(later.SendMessageToMainProcess(u"-IsReady"), 8);
    EXPECT_EQ(later.SendMessageToMainProcess(std::u16string(5'000'000, u'x').c_str()), 5'000'000);
    EXPECT_EQ(later.SendMessageTo(FindWindowW(nullptr, Name()), u"abc"), 3);
    // What isn't sent.
    EXPECT_EQ(later.SendMessageToMainProcess(u""), 0);
    EXPECT_EQ(later.SendMessageToMainProcess(""), 0);
    EXPECT_EQ(later.SendMessageToMainProcess(static_cast<const char*>(nullptr)), 0);
    EXPECT_EQ(later.SendMessageToMainProcess(static_cast<const char16_t*>(nullptr)), 0);
    EXPECT_EQ(later.SendMessageTo(FindWindowW(nullptr, Name()), u""), 0);
    EXPECT_EQ(later.SendMessageTo(FindWindowW(nullptr, Name()), nullptr), 0);
    EXPECT_EQ(later.SendMessageTo(nullptr, u"abc"), 0);
    later.OnMessage = [](const UnicodeString&) { return 9; };
    later.CreateMessageWindow();
    EXPECT_EQ(later.SendMessageToMainProcess(u"abc"), 3) << "a later process got a window";
}

TEST_F(StartOnceTest, SendsTheTextWithItsZeroAndTheLengthInBytes)
{
    const SecondProcess receiver([](int tell) {
        const Toolkits::MessageWindow window(Name(), [](const Toolkits::MessageWindow::TMessage& message) {
            return std::intptr_t{message.dwData == 0xFFFFFFFF && message.wParam == 0 &&
                                 message.text == u"abc"};
        });
        SecondProcess::Tell(tell);
        Forms::Application->Run();
    });
    ASSERT_TRUE(receiver.Await());
    EXPECT_EQ(CStartOnce(u"mutex", Name()).SendMessageToMainProcess(u"abc"), 1);
}

TEST_F(StartOnceTest, AnswersNothingWithoutAHandler)
{
    const FirstProcess first;
    const CStartOnce later(Name());
    EXPECT_EQ(later.SendMessageToMainProcess(u"text"), 0) << "the handler that came too late was called";
}

TEST_F(StartOnceTest, WaitsForAWindowThatIsComing)
{
    CStartOnce later(Name());
    const std::uint32_t start = GetTickCount();
    EXPECT_EQ(later.SendMessageToMainProcess("-IsReady"), 0);
    EXPECT_LT(GetTickCount() - start, 400U) << "the question alone doesn't wait";
    EXPECT_EQ(later.SendMessageToMainProcess(u"text", 20), 0);
    EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);
    const SecondProcess coming([](int tell) {
        SecondProcess::Tell(tell);
        Sleep(100);
        const Toolkits::MessageWindow window(
            Name(), [](const auto& message) { return std::intptr_t{message.text.Length()}; });
        Forms::Application->Run();
    });
    ASSERT_TRUE(coming.Await());
    EXPECT_EQ(later.SendMessageToMainProcess(u"text"), 4);
}

TEST_F(StartOnceTest, GivesUpOnAFirstOneThatNeverAnswers)
{
    const SecondProcess first([](int tell) {
        CStartOnce once(Name());
        once.CreateMessageWindow();
        SecondProcess::Tell(tell);
        pause();
    });
    ASSERT_TRUE(first.Await());
    const CStartOnce later(Name());
    EXPECT_EQ(later.SendMessageToMainProcess(u"text", 30), 0);
    EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);
    EXPECT_EQ(later.SendMessageTo(FindWindowW(nullptr, Name()), u"text", 30), 0);
    EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);

    // Without a limit it waits, and the user's interrupt ends it.
    const pid_t waiting = fork();
    if (waiting == 0) {
        CStartOnce(Name()).SendMessageToMainProcess(u"text");
        _exit(0);
    }
    Sleep(50);
    EXPECT_EQ(waitpid(waiting, nullptr, WNOHANG), 0) << "it didn't wait";
    kill(waiting, SIGINT);
    int status = 0;
    waitpid(waiting, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
}

TEST_F(StartOnceTest, EndsWithAFirstOneThatDies)
{
    FirstProcess first([](const UnicodeString&) -> int {
        kill(getpid(), SIGKILL);
        return 1;
    });
    EXPECT_EQ(CStartOnce(Name()).SendMessageToMainProcess(u"text"), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    first.Kill();
    EXPECT_TRUE(CStartOnce(Name()).IsMainProcess());
}

TEST_F(StartOnceTest, TellsWhereTheSenderIs)
{
    const Support::TempFolder folder;
    const FirstProcess first([expected =
                                  Sysutils::FromHostPath(folder.Path().native())](const UnicodeString&) {
        return CStartOnce::GetSenderFolder() == expected && CStartOnce::GetSenderToken() == u"tok" ? 1 : 2;
    });
    const SecondProcess later([&](int tell) {
        const Support::ScopedVariable token("XDG_ACTIVATION_TOKEN", "tok");
        if (chdir(folder.Path().c_str()) == 0 && CStartOnce(Name()).SendMessageToMainProcess(u"text") == 1) {
            SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(later.Await());
}

TEST_F(StartOnceTest, IsNobodysWhereTheSessionHasNoPlace)
{
    std::filesystem::create_directory_symlink("/tmp", session.Folder());
    CStartOnce once(Name());
    EXPECT_FALSE(once.IsMainProcess());
    EXPECT_FALSE(once.ExistsMainProcess());
    once.CreateMessageWindow();
    EXPECT_EQ(once.SendMessageToMainProcess(u"-IsReady"), 0);
    std::filesystem::remove(session.Folder());
}

TEST_F(StartOnceTest, KeepsItsWindowWhereItGetsNoOther)
{
    CStartOnce once(Name());
    const auto answer = [&](int result) {
        once.OnMessage = [result](const UnicodeString&) { return result; };
        once.CreateMessageWindow();
        return once.SendMessageToMainProcess(u"-IsReady");
    };
    EXPECT_EQ(answer(1), 1);
    EXPECT_EQ(answer(2), 2) << "the later window takes the place of the former";
    const auto away = session.Folder().native() + ".away";
    std::filesystem::rename(session.Folder(), away);
    std::filesystem::create_directory_symlink("/tmp", session.Folder());
    EXPECT_EQ(answer(3), 2);
    std::filesystem::remove(session.Folder());
    std::filesystem::rename(away, session.Folder());
}

/// Counters that forks share.
class SharedCounts
{
public:
    SharedCounts()
        : mCounts(static_cast<std::atomic<int>*>(
              mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {
    }
    SharedCounts(const SharedCounts&) = delete;
    SharedCounts& operator=(const SharedCounts&) = delete;
    ~SharedCounts() { munmap(mCounts, 4096); }

    std::atomic<int>& operator[](int index) const { return mCounts[index]; }

private:
    std::atomic<int>* mCounts;
};

/// Starts that begin at once. Each is the first or hands over, and then stays until it is killed.
class ManyStarts
{
public:
    explicit ManyStarts(int count)
    {
        for (int i = 0; i < count; ++i) {
            mProcesses.push_back(std::make_unique<SecondProcess>([this](int tell) { Start(tell); }));
        }
        mCounts[Go] = 1;
    }

    /// Waits until each knows what it is. False if one of them fell.
    bool AwaitAll() const
    {
        return std::ranges::all_of(mProcesses, [](const auto& process) { return process->Await(); });
    }

    int CountFirsts() const { return mCounts[Firsts]; }
    /// How many got the answer of the first one.
    int CountAnswered() const { return mCounts[Answered]; }
    /// Kills the first one, and leaves the others.
    void KillFirst() { mProcesses[static_cast<std::size_t>(mCounts[FirstIndex] - 1)]->Kill(); }

private:
    enum
    {
        Go,
        Firsts,
        Answered,
        FirstIndex,
    };

    void Start(int tell)
    {
        const int index = static_cast<int>(mProcesses.size()) + 1;
        while (mCounts[Go] == 0) {
            sched_yield();
        }
        CStartOnce once(Name());
        if (!once.IsMainProcess()) {
            mCounts[Answered] += once.SendMessageToMainProcess(u"start") == 5 ? 1 : 0;
            SecondProcess::Tell(tell);
            pause();
        }
        ++mCounts[Firsts];
        mCounts[FirstIndex] = index;
        once.OnMessage = [](const UnicodeString& text) { return text.Length(); };
        once.CreateMessageWindow();
        SecondProcess::Tell(tell);
        Forms::Application->Run();
    }

    SharedCounts mCounts;
    std::vector<std::unique_ptr<SecondProcess>> mProcesses;
};

TEST_F(StartOnceTest, OfManyStartsAtOnceOneIsTheFirst)
{
    constexpr int count = 50;
    const ManyStarts starts(count);
    ASSERT_TRUE(starts.AwaitAll());
    EXPECT_EQ(starts.CountFirsts(), 1);
    EXPECT_EQ(starts.CountAnswered(), count - 1);
}

/// How often a first process is killed; all of the 500 by `TRS8_BTL_KILLS=500`.
int Kills()
{
    const char* const kills = std::getenv("TRS8_BTL_KILLS");
    return kills == nullptr ? 20 : std::atoi(kills);
}

TEST_F(StartOnceTest, BehindAFirstOneThatWasKilledOneIsTheFirstAgain)
{
    // Later ones still live when two more start.
    std::unique_ptr<ManyStarts> former;
    for (int i = 0; i < Kills(); ++i) {
        auto starts = std::make_unique<ManyStarts>(2);
        ASSERT_TRUE(starts->AwaitAll());
        ASSERT_EQ(starts->CountFirsts(), 1);
        ASSERT_EQ(starts->CountAnswered(), 1);
        starts->KillFirst();
        former = std::move(starts);
    }
}

TEST_F(StartOnceTest, FindsTheCommandOfTheStart)
{
    const struct
    {
        const char16_t* line;
        int command;
    } cases[] = {
        {u"app", 0},
        {u"app -1", 1},
        {u"app -Initialize", 2},
        {u"app -IsReady", 3},
        {u"app -1 -Initialize", 2},
        {u"app -IsReady -1", 1},
        {u"app (-1) -IsReady", 3},
        {u"app (a (-1) b) -Initialize", 2},
        {u"app (-Initialize -1)", 0},
        {u"app -12", 0},
        {u"", 0},
    };
    for (const auto& c : cases) {
        const UnicodeString line(c.line);
        EXPECT_EQ(BTL::GetStartOnceCommand(c.line), c.command) << line;
        EXPECT_EQ(BTL::GetStartOnceCommand(System::AnsiString(line).c_str()), c.command) << line;
    }
    EXPECT_EQ(BTL::GetStartOnceCommand(static_cast<const char*>(nullptr)), 0);
    EXPECT_EQ(BTL::GetStartOnceCommand(static_cast<const char16_t*>(nullptr)), 0);
    char both[] = "app -Initialize -1 (x)";
    EXPECT_TRUE(BTL::ContainsStartOnceCommand(both));
    EXPECT_STREQ(both, "app -Initialize -1 (x)");
    EXPECT_FALSE(BTL::ContainsStartOnceCommand("app (-1) -Initialize"));
    EXPECT_FALSE(BTL::ContainsStartOnceCommand(nullptr));
}

} // namespace
