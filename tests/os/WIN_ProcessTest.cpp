// SPDX-License-Identifier: MIT
#include "os/WIN_Process.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "os/WIN_LastError.h"
#include "os/WIN_SelfProcess.h"
#include "platform/host/Host_Error.h"
#include "platform/host/processes/Host_ProcessPriority.h"
#include "platform/visual/Forms.h"

#include <gtest/gtest.h>

#include <cstring>

#include <sys/resource.h>
#include <unistd.h>

namespace
{

TEST(ProcessTest, StartsAwaitsAndEndsAProgram)
{
    WIN::CProcess process(u"sh", 0);
    EXPECT_EQ(process.getProcess(), nullptr);
    process.Create(u"-c \"exit 3\"", 5, 0);
    EXPECT_EQ(process.getParameters(), u"-c \"exit 3\"");
    EXPECT_EQ(process.getStartInfo().cb, 68U);
    EXPECT_EQ(process.getStartInfo().wShowWindow, 5);
    EXPECT_EQ(process.WaitForSingleObject(20'000), WAIT_OBJECT_0);
    EXPECT_EQ(process.GetExitCodeProcess(), 3U);
    const unsigned long former = process.getProcessId();
    process.Create(u"-c \"exec sleep 100\"", 0, 0);
    EXPECT_NE(process.getProcessId(), former);
    EXPECT_EQ(process.WaitForSingleObject(0), WAIT_TIMEOUT);
    EXPECT_EQ(process.GetExitCodeProcess(), STILL_ACTIVE);
    EXPECT_EQ(process.GetPriorityClass(), WIN::CSelfProcess::GetPriorityClass()) << "it is handed down";
    EXPECT_GT(process.GetProcessMemoryInfo(), 0U);

    WIN::CProcess opened(u"", process.getProcessId());
    opened.Open(PROCESS_ALL_ACCESS, false);
    process.Create(u"-c \"exit 0\"", 0, 0);
    EXPECT_EQ(opened.WaitForSingleObject(0), WAIT_TIMEOUT) << "the first one runs on";
    opened.Terminate(300);
    EXPECT_EQ(opened.WaitForSingleObject(20'000), WAIT_OBJECT_0);
    unsigned long code = 0;
    EXPECT_TRUE(opened.GetExitCodeProcess(code));
    EXPECT_EQ(code, 300U);
}

TEST(ProcessTest, NeedsAProcess)
{
    WIN::CProcess process;
    EXPECT_EQ(process.getFile(), Forms::Application->getExeName());
    EXPECT_EQ(process.getProcessId(), 0U);
    unsigned long code = 0;
    testing::internal::CaptureStderr();
    EXPECT_THROW(process.WaitForSingleObject(0), UTL::XAssert);
    EXPECT_THROW(process.Terminate(0), UTL::XAssert);
    EXPECT_THROW(process.GetExitCodeProcess(), UTL::XAssert);
    try {
        process.GetExitCodeProcess(code);
        ADD_FAILURE() << "nothing was raised";
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "WIN_CProcess");
    }
    testing::internal::GetCapturedStderr();
    EXPECT_THROW(process.SetPriorityClass(NORMAL_PRIORITY_CLASS), WIN::XLastError);
    EXPECT_THROW(process.GetPriorityClass(), WIN::XLastError);
    EXPECT_THROW(process.Open(PROCESS_TERMINATE, false), WIN::XLastError);
    EXPECT_NO_THROW(process.CloseHandle());
}

TEST(ProcessTest, RaisesForAProgramThatIsMissing)
{
    WIN::CProcess process(u"\\no\\such\\program", 0);
    try {
        process.Create(u"", 0, 0);
        FAIL() << "nothing was raised";
    } catch (const WIN::XLastError& fault) {
        EXPECT_EQ(fault.getError(), ERROR_PATH_NOT_FOUND);
    }
    EXPECT_EQ(process.getProcess(), nullptr);
}

TEST(ProcessTest, ReadsAndWritesMemory)
{
    char text[] = "memory";
    char buffer[sizeof text] = {};
    unsigned long done = 0;
    WIN::CProcess self(u"", static_cast<unsigned long>(getpid()));
    self.Open(PROCESS_ALL_ACCESS, false);
    ASSERT_NO_THROW(self.ReadProcessMemory(text, buffer, sizeof text, &done));
    EXPECT_STREQ(buffer, text);
    EXPECT_EQ(done, sizeof text);
    self.WriteProcessMemory(text, "other.", sizeof text, nullptr);
    EXPECT_STREQ(text, "other.");
    EXPECT_THROW(self.ReadProcessMemory(nullptr, buffer, 1, &done), WIN::XLastError);
    EXPECT_EQ(done, 0U);
}

TEST(SelfProcessTest, KnowsItself)
{
    EXPECT_EQ(WIN::CSelfProcess::GetProcessId(), static_cast<unsigned long>(getpid()));
    EXPECT_EQ(WIN::CSelfProcess::GetProcessFileName(), Forms::Application->getExeName());
    EXPECT_EQ(WIN::CSelfProcess::GetPriorityClass(), Host::PriorityClassOf(getpriority(PRIO_PROCESS, 0)));
    EXPECT_EQ(WIN::CSelfProcess::GetPriority(), THREAD_PRIORITY_NORMAL);
    EXPECT_NO_THROW(WIN::CSelfProcess::SetPriority(THREAD_PRIORITY_NORMAL));
    EXPECT_THROW(WIN::CSelfProcess::SetPriority(99), WIN::XLastError);
    EXPECT_THROW(WIN::CSelfProcess::SetPriorityClass(0), WIN::XLastError);
}

} // namespace
