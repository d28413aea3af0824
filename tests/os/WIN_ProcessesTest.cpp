// SPDX-License-Identifier: MIT
#include "os/WIN_Processes.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "os/WIN_LastError.h"
#include "os/WIN_Process.h"
#include "platform/host/Host_Error.h"
#include "support/ObjectNames.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include <unistd.h>

namespace
{

using System::UnicodeString;

/// Copies of a program under a name that nobody else has.
class ProcessesTest : public testing::Test
{
protected:
    ProcessesTest() { std::filesystem::copy_file("/bin/sleep", mProgram); }

    void Start(WIN::CProcess& process) const
    {
        process.Create(u"100", 0, 0);
        EXPECT_EQ(process.WaitForSingleObject(0), WAIT_TIMEOUT);
    }

    Support::TempFolder mFolder;
    std::filesystem::path mProgram = mFolder.Path() / ("Trs8_Sleep_" + std::to_string(getpid()));
    UnicodeString mName = UnicodeString(mProgram);
};

TEST_F(ProcessesTest, CountsAndEndsThoseOfAProgram)
{
    EXPECT_EQ(WIN::CountProcesses(mName), 0);
    EXPECT_FALSE(WIN::IsExeRunning(mName));
    EXPECT_FALSE(WIN::KillProcess(mName, true));
    WIN::CProcess first(mName, 0);
    WIN::CProcess second(mName, 0);
    WIN::CProcess third(mName, 0);
    Start(first);
    Start(second);
    Start(third);
    EXPECT_EQ(WIN::CountProcesses(mName.UpperCase()), 3);
    EXPECT_TRUE(WIN::IsExeRunning(u"X:\\" + mName.LowerCase()));
    EXPECT_TRUE(WIN::KillProcess(mName, false));
    const auto countRunning = [&] {
        int running = 0;
        for (const WIN::CProcess* process : {&first, &second, &third}) {
            running += process->WaitForSingleObject(200) == WAIT_TIMEOUT ? 1 : 0;
        }
        return running;
    };
    EXPECT_EQ(countRunning(), 2);
    EXPECT_EQ(WIN::CountProcesses(mName), 2);
    EXPECT_TRUE(WIN::KillProcess(mName, true));
    EXPECT_EQ(countRunning(), 0);
    EXPECT_EQ(first.GetExitCodeProcess(), 0U);
    EXPECT_FALSE(WIN::IsExeRunning(mName));
}

TEST_F(ProcessesTest, WalksUntilItIsTold)
{
    int count = 0;
    bool isSelfThere = false;
    WIN::ForEachProcess([&](const tagPROCESSENTRY32W& entry) {
        ++count;
        isSelfThere = isSelfThere || entry.th32ProcessID == static_cast<unsigned long>(getpid());
        return true;
    });
    EXPECT_GT(count, 1);
    EXPECT_TRUE(isSelfThere);
    count = 0;
    WIN::ForEachProcess([&](const tagPROCESSENTRY32W&) { return ++count < 2; });
    EXPECT_EQ(count, 2);
    EXPECT_THROW(
        WIN::ForEachProcess([](const tagPROCESSENTRY32W&) -> bool { throw std::runtime_error("x"); }),
        std::runtime_error);
    testing::internal::CaptureStderr();
    EXPECT_THROW(WIN::ForEachProcess(nullptr), UTL::XAssert);
    EXPECT_THROW(WIN::ForEachProcess(mName, nullptr), UTL::XAssert);
    testing::internal::GetCapturedStderr();
}

TEST_F(ProcessesTest, TellsMemoryByNumber)
{
    const auto self = static_cast<unsigned long>(getpid());
    const auto descriptors = Support::CountEntries("/proc/self/fd");
    EXPECT_GT(WIN::GetProcessMemoryInfo(self), 0U);
    EXPECT_GT(WIN::GetProcessMemoryInfoWithoutException(self), 0U);
    EXPECT_EQ(WIN::GetProcessMemoryInfoWithoutException(0x7FFFFFFF), 0U);
    EXPECT_THROW(WIN::GetProcessMemoryInfo(0x7FFFFFFFUL), WIN::XLastError);
    EXPECT_THROW(WIN::OpenProcess(PROCESS_TERMINATE, false, 0x7FFFFFFF), WIN::XLastError);
    EXPECT_THROW(WIN::CreateToolhelp32Snapshot(0, 0), WIN::XLastError);
    EXPECT_EQ(Support::CountEntries("/proc/self/fd"), descriptors);
}

} // namespace
