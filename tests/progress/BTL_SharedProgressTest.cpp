// SPDX-License-Identifier: MIT
#include "progress/BTL_SharedProgress.h"

#include "os/WIN_LastError.h"
#include "os/WIN_SharedMemory.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/host/system/Host_CommandLine.h"
#include "support/ObjectNames.h"
#include "support/SecondProcess.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#include <fcntl.h>
#include <sys/mman.h>

namespace
{

using BTL::CSharedProgressInfo;
using BTL::CSharedProgressInfoData;
using Support::OwnName;
using Support::SecondProcess;
using System::Int64;
using System::UnicodeString;

/// Reads the record of this very name.
class Monitor : public CSharedProgressInfo
{
public:
    explicit Monitor(const UnicodeString& name) : CSharedProgressInfo(true, OwnName(u"nothing"), 0)
    {
        InitSharedMemory(true, name, 0);
    }
};

/// Of one letter each, so that a text that is written by halves shows.
UnicodeString TextOf(Int64 step, int length)
{
    return UnicodeString::StringOfChar(static_cast<System::WideChar>(u'A' + step % 26), length);
}

bool IsOf(const UnicodeString& text, int length)
{
    const std::u16string_view letters(text.c_str(), static_cast<std::size_t>(text.Length()));
    return letters.size() == static_cast<std::size_t>(length) &&
           letters.find_first_not_of(letters.front()) == std::u16string_view::npos;
}

/// Changes all texts, step by step, without a pause.
void WriteTexts(CSharedProgressInfo& info, Int64 step)
{
    info.setMax(step);
    info.setCaption(TextOf(step, 100));
    info.setText1(TextOf(step, 100));
    info.setMessage(TextOf(step, 512));
    info.IncPosition();
}

SecondProcess WriterWithoutAPause(const UnicodeString& name)
{
    return SecondProcess([&](int tell) {
        CSharedProgressInfo info(name);
        WriteTexts(info, 1);
        SecondProcess::Tell(tell);
        for (Int64 step = 2;; ++step) {
            WriteTexts(info, step);
        }
    });
}

/// Whether each text is whole.
testing::AssertionResult IsWhole(const CSharedProgressInfoData& data)
{
    if (IsOf(data.getCaption(), 100) && IsOf(data.getText1(), 100) && IsOf(data.getMessage(), 512)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << System::ToUtf8(data.getCaption()) << '\n'
                                       << System::ToUtf8(data.getText1()) << '\n'
                                       << System::ToUtf8(data.getMessage());
}

TEST(SharedProgressTest, TellsWhoReportsAndHowFarItIs)
{
    const System::TDateTime before = Sysutils::Now();
    CSharedProgressInfo info(OwnName(u"a"), 0);
    EXPECT_TRUE(info.IsOpen());
    info.Prepare(10, true, true, u"caption", u"one", u"two", u"lines", 100);
    info.Start(20);
    info.IncPosition();
    info.setMessage(u"message");
    EXPECT_FALSE(info.getUserCancel());

    CSharedProgressInfo reader(true, OwnName(u"a"), 0);
    ASSERT_TRUE(reader.IsOpen());
    EXPECT_TRUE(reader.IsWriterAlive());
    EXPECT_EQ(reader.getMax(), 20);
    EXPECT_EQ(reader.getPosition(), 1);
    EXPECT_EQ(reader.getCaption(), u"caption");
    EXPECT_EQ(reader.getText1(), u"one");
    EXPECT_EQ(reader.getText2(), u"two");
    EXPECT_EQ(reader.getText(2), u"two");
    EXPECT_EQ(reader.getTextLines(), u"lines");
    EXPECT_EQ(reader.getMessage(), u"message");
    EXPECT_EQ(reader.getData().getProcessId(), static_cast<unsigned long>(getpid()));
    EXPECT_EQ(reader.getData().getCommandLine(), UnicodeString(GetCommandLineW()).SubString(1, 1024));
    EXPECT_GE(reader.getData().getStartTime(), before);
    EXPECT_LE(reader.getData().getStartTime(), Sysutils::Now());

    info.setPosition(7);
    EXPECT_EQ(reader.getPosition(), 7);
    info.SetProgressEndPosition();
    EXPECT_EQ(reader.getPosition(), 20);
    CSharedProgressInfoData data;
    ASSERT_TRUE(reader.Snapshot(data));
    EXPECT_EQ(data.getPosition(), 20);
    EXPECT_EQ(data.getMessage(), u"message");
    EXPECT_EQ(data.getCommandLine(), reader.getData().getCommandLine());
}

TEST(SharedProgressTest, HasItsNameAsGivenOrWithTheProcess)
{
    const CSharedProgressInfo plain(OwnName(u"b"));
    const CSharedProgressInfo numbered(OwnName(u"b"), 0);
    const CSharedProgressInfo other(OwnName(u"b"), 77);
    const struct
    {
        UnicodeString name;
        unsigned long process;
    } rows[] = {
        {OwnName(u"b"), static_cast<unsigned long>(getpid())},
        {OwnName(u"b") + UnicodeString(getpid()), static_cast<unsigned long>(getpid())},
        {OwnName(u"b") + u"77", 77},
    };
    for (const auto& [name, process] : rows) {
        SCOPED_TRACE(name);
        WIN::CSharedMemory memory(name, 3920);
        ASSERT_TRUE(memory.Open(WIN::ESharedMemoryAccess::Read));
        EXPECT_EQ(static_cast<const CSharedProgressInfoData*>(memory.getView())->getProcessId(), process);
    }
}

TEST(SharedProgressTest, GoesOnWithTheRecordThatIsThere)
{
    CSharedProgressInfo first(OwnName(u"c"), 0);
    first.setCaption(u"first");
    first.setPosition(5);
    const System::TDateTime start = first.getData().getStartTime();
    CSharedProgressInfo second(OwnName(u"c"), 0);
    EXPECT_EQ(second.getCaption(), u"first");
    EXPECT_EQ(second.getData().getStartTime(), start);
    second.IncPosition();
    EXPECT_EQ(first.getPosition(), 6);
    first.InitSharedMemory(false, OwnName(u"c/other"), 12);
    EXPECT_EQ(first.getCaption(), u"");
    EXPECT_EQ(first.getData().getProcessId(), 12U);
    EXPECT_EQ(second.getCaption(), u"first");
}

TEST(SharedProgressTest, ChangesNothingWhereItOnlyReads)
{
    CSharedProgressInfo writer(OwnName(u"d"), 0);
    writer.Prepare(10, false, false, u"caption", u"", u"", u"", 0);
    CSharedProgressInfo reader(true, OwnName(u"d"), 0);
    CSharedProgressInfoData before;
    ASSERT_TRUE(writer.Snapshot(before));
    reader.Prepare(99, false, false, u"x", u"x", u"x", u"x", 0);
    reader.Start(99);
    reader.IncPosition();
    reader.setPosition(9);
    reader.SetProgressEndPosition();
    reader.setMessage(u"x");
    using Bytes = std::array<unsigned char, sizeof before>;
    EXPECT_EQ(std::bit_cast<Bytes>(before), std::bit_cast<Bytes>(writer.getData()));
}

TEST(SharedProgressTest, IsEmptyWithoutARecord)
{
    CSharedProgressInfo none(true, OwnName(u"e"), 0);
    CSharedProgressInfo nameless{UnicodeString()};
    for (CSharedProgressInfo* const info : {&none, &nameless}) {
        EXPECT_FALSE(info->IsOpen());
        EXPECT_FALSE(info->IsWriterAlive());
        info->Prepare(10, false, false, u"c", u"1", u"2", u"l", 0);
        info->Start(5);
        info->IncPosition();
        info->SetProgressEndPosition();
        EXPECT_EQ(info->getMax(), 0);
        EXPECT_EQ(info->getPosition(), 0);
        EXPECT_EQ(info->getCaption() + info->getText1() + info->getText2() + info->getTextLines(), u"");
        EXPECT_EQ(info->getMessage() + info->getData().getCommandLine(), u"");
        CSharedProgressInfoData data;
        data.setMax(3);
        EXPECT_FALSE(info->Snapshot(data));
        EXPECT_EQ(data.getMax(), 3);
    }
    const CSharedProgressInfo writer(OwnName(u"e"), 0);
    EXPECT_FALSE(none.IsOpen());
    none.InitSharedMemory(true, OwnName(u"e") + UnicodeString(getpid()), 0);
    EXPECT_TRUE(none.IsOpen());
    none.InitSharedMemory(true, OwnName(u"nothing"), 0);
    EXPECT_FALSE(none.IsOpen());
}

TEST(SharedProgressTest, RefusesWhatIsSmaller)
{
    WIN::CSharedMemory small(OwnName(u"f"), 100);
    small.CreateOrOpen();
    EXPECT_THROW(CSharedProgressInfo(OwnName(u"f")), WIN::XLastError);
    CSharedProgressInfo info(OwnName(u"f/other"));
    EXPECT_THROW(info.InitSharedMemory(true, OwnName(u"f"), 0), WIN::XLastError);
    EXPECT_FALSE(info.IsOpen());
}

TEST(SharedProgressTest, KnowsThatItsWriterDied)
{
    const UnicodeString name = OwnName(u"g");
    SecondProcess writer([&](int tell) {
        CSharedProgressInfo info(name);
        info.setCaption(u"theirs");
        SecondProcess::Tell(tell);
        pause();
    });
    ASSERT_TRUE(writer.Await());
    const Monitor monitor(name);
    ASSERT_TRUE(monitor.IsOpen());
    EXPECT_TRUE(monitor.IsWriterAlive());
    writer.Kill();
    EXPECT_FALSE(monitor.IsWriterAlive());
    EXPECT_EQ(monitor.getCaption(), u"theirs");
    CSharedProgressInfoData data;
    EXPECT_TRUE(monitor.Snapshot(data));
    EXPECT_EQ(data.getCaption(), u"theirs");
}

TEST(SharedProgressTest, TakesNoProcessThatWaitsToBeAwaitedForAlive)
{
    const UnicodeString name = OwnName(u"h");
    const SecondProcess writer([&](int tell) {
        const CSharedProgressInfo info(name);
        SecondProcess::Tell(tell);
        // Until the test has it, too.
        while (!WIN::CSharedMemory(name + u"/seen", 1).Open()) {
            std::this_thread::yield();
        }
    });
    ASSERT_TRUE(writer.Await());
    const Monitor monitor(name);
    EXPECT_TRUE(monitor.IsWriterAlive());
    WIN::CSharedMemory seen(name + u"/seen", 1);
    seen.CreateOrOpen();
    EXPECT_TRUE(Support::WaitUntil([&] { return !monitor.IsWriterAlive(); }));
}

TEST(SharedProgressTest, TakesNoLaterProcessForItsWriter)
{
    // A record of a program that knows nothing of us, whose number this process has now.
    WIN::CSharedMemory memory(OwnName(u"i"), 3920);
    memory.CreateOrOpen();
    auto& record = *static_cast<CSharedProgressInfoData*>(memory.getView());
    const Monitor reader(OwnName(u"i"));
    const auto isAliveFor = [&](unsigned long process, System::TDateTime start) {
        record.setProcessId(process);
        record.setStartTime(start);
        return reader.IsWriterAlive();
    };
    const auto self = static_cast<unsigned long>(getpid());
    EXPECT_TRUE(isAliveFor(self, Sysutils::Now()));
    EXPECT_FALSE(isAliveFor(self, Sysutils::Now() - 1));
    EXPECT_FALSE(isAliveFor(0, Sysutils::Now()));
    EXPECT_FALSE(isAliveFor(0xFFFFFFFF, Sysutils::Now()));
}

TEST(SharedProgressTest, LosesNoCountOfTwoWriters)
{
    constexpr Int64 counts = 5'000;
    const UnicodeString name = OwnName(u"j");
    CSharedProgressInfo first(name);
    const auto write = [&](CSharedProgressInfo& info) {
        for (Int64 step = 0; step < counts; ++step) {
            info.IncPosition();
            info.setText1(TextOf(step, 100));
        }
    };
    const SecondProcess second([&](int tell) {
        CSharedProgressInfo info(name);
        write(info);
        SecondProcess::Tell(tell);
    });
    write(first);
    ASSERT_TRUE(second.Await());
    EXPECT_EQ(first.getPosition(), 2 * counts);
    EXPECT_TRUE(IsOf(first.getText1(), 100));
}

/// How often a process is killed, and a record read a thousand times; all by `TRS8_BTL_KILLS=1000`.
int Rounds()
{
    const char* const kills = std::getenv("TRS8_BTL_KILLS");
    return kills == nullptr ? 10 : std::atoi(kills);
}

TEST(SharedProgressTest, IsWholeInEachSnapshotOfAWriterWithoutAPause)
{
    const UnicodeString name = OwnName(u"k");
    SecondProcess writer = WriterWithoutAPause(name);
    ASSERT_TRUE(writer.Await());
    const Monitor reader(name);
    ASSERT_TRUE(reader.IsOpen());
    CSharedProgressInfoData data;
    CSharedProgressInfoData former;
    for (int i = 0; i < 1000 * Rounds(); ++i) {
        ASSERT_TRUE(reader.Snapshot(data)) << i;
        ASSERT_TRUE(IsWhole(data)) << i;
        ASSERT_GE(data.getMax(), former.getMax()) << "an older state came later";
        ASSERT_GE(data.getPosition(), former.getPosition());
        former = data;
    }
    EXPECT_GT(former.getMax(), 1);
    // As long as somebody holds the record, so that no name is left behind.
    writer.Kill();
}

TEST(SharedProgressTest, IsWholeInEachSnapshotOfOtherThreads)
{
    CSharedProgressInfo info(OwnName(u"l"));
    WriteTexts(info, 0);
    std::atomic<bool> goesOn = true;
    const auto write = [&] {
        for (Int64 step = 1; goesOn; ++step) {
            WriteTexts(info, step);
        }
    };
    std::thread first(write);
    std::thread second(write);
    CSharedProgressInfoData data;
    for (int i = 0; i < 1000; ++i) {
        EXPECT_TRUE(info.Snapshot(data));
        EXPECT_TRUE(IsWhole(data));
    }
    goesOn = false;
    first.join();
    second.join();
}

TEST(SharedProgressTest, OutlivesAWriterInTheMiddleOfAChange)
{
    // Most of them are killed there.
    for (int round = 0; round < Rounds(); ++round) {
        const UnicodeString name = OwnName(u"m");
        SecondProcess writer = WriterWithoutAPause(name);
        ASSERT_TRUE(writer.Await());
        CSharedProgressInfo next(name);
        writer.Kill();
        CSharedProgressInfoData before;
        ASSERT_TRUE(next.Snapshot(before));
        EXPECT_TRUE(IsWhole(before));
        next.setText2(u"next");
        CSharedProgressInfoData data;
        ASSERT_TRUE(next.Snapshot(data));
        EXPECT_EQ(data.getText2(), u"next");
        // The change that was cut off is undone in the record itself.
        EXPECT_EQ(data.getCaption(), before.getCaption());
        EXPECT_EQ(data.getText1(), before.getText1());
        EXPECT_EQ(next.getMessage(), before.getMessage());
    }
    EXPECT_EQ(Support::CountOwnNames(), 0);
}

/// What the users of a record agree on beside its bytes.
class Agreement
{
public:
    /// Of the record with this name behind that of the test, which has plain characters alone.
    explicit Agreement(const std::string& name)
    {
        const std::string path = "/dev/shm/TRS8_BTL/n.test%002f" + std::to_string(getpid()) + "%002f" + name;
        const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
        void* const head = mmap(nullptr, HeadSize, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        close(file);
        if (head == MAP_FAILED) {
            throw std::runtime_error("There is no record " + path);
        }
        mWords = static_cast<std::uint64_t*>(head) + HeadSize / 4 / sizeof(std::uint64_t);
    }
    Agreement(const Agreement&) = delete;
    Agreement& operator=(const Agreement&) = delete;
    ~Agreement() { munmap(mWords - HeadSize / 4 / sizeof(std::uint64_t), HeadSize); }

    std::uint64_t& Sequence() const { return mWords[0]; }
    std::uint64_t& Changer() const { return mWords[3]; }
    std::uint64_t& FormerSequence() const { return mWords[4]; }

private:
    static constexpr std::size_t HeadSize = 4096;

    std::uint64_t* mWords;
};

TEST(SharedProgressTest, UndoesAChangeThoughWhoDidSoWasKilled)
{
    const struct
    {
        const char* where;
        std::uint64_t sequence;
        std::uint64_t former;
    } rows[] = {
        {"in the change", 0, 0},
        {"before the undoing has the sequence", 0, 2},
        {"in the undoing", 2, 2},
    };
    CSharedProgressInfo info(OwnName(u"n"));
    const Agreement agreement("n");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.where);
        info.setCaption(u"before");
        info.setCaption(u"half-written");
        const std::uint64_t change = agreement.Sequence() - 1;
        ASSERT_EQ(agreement.FormerSequence(), change);
        agreement.Sequence() = change + row.sequence;
        agreement.FormerSequence() = change + row.former;
        agreement.Changer() = 0;
        CSharedProgressInfoData data;
        ASSERT_TRUE(info.Snapshot(data));
        EXPECT_EQ(data.getCaption(), u"before");
        info.setText2(u"next");
        EXPECT_EQ(info.getCaption(), u"before");
        EXPECT_EQ(info.getText2(), u"next");
    }
}

} // namespace
