// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_Process.h"

#include "platform/base/System_String.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Module.h"
#include "platform/host/processes/Host_CreateProcess.h"
#include "support/ObjectNames.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace
{

using System::UnicodeString;

PROCESS_INFORMATION Start(const UnicodeString& command)
{
    PROCESS_INFORMATION info;
    EXPECT_TRUE(CreateProcessW(nullptr, command.c_str(), nullptr, nullptr, false, 0, nullptr, nullptr,
                               nullptr, &info));
    return info;
}

void Close(const PROCESS_INFORMATION& info)
{
    EXPECT_TRUE(CloseHandle(info.hThread));
    EXPECT_TRUE(CloseHandle(info.hProcess));
}

/// The letter for the state of a process; 0 if there is none.
char StateOf(unsigned long id)
{
    std::ifstream file("/proc/" + std::to_string(id) + "/stat");
    std::string text;
    std::getline(file, text);
    const std::size_t end = text.rfind(')');
    return end == std::string::npos ? '\0' : text[end + 2];
}

bool IsGoneSoon(unsigned long id)
{
    for (int i = 0; i < 2000; ++i) {
        if (StateOf(id) == '\0') {
            return true;
        }
        usleep(5000);
    }
    return false;
}

TEST(HostProcessTest, TellsExitCodes)
{
    for (const auto& [command, expected] : {std::pair(u"sh -c \"exit 0\"", 0UL),
                                            {u"sh -c \"exit 7\"", 7UL},
                                            {u"sh -c \"exit 300\"", 44UL},
                                            {u"sh -c \"kill -15 $$\"", 128UL + 15},
                                            {u"sh -c \"kill -9 $$\"", 128UL + 9}}) {
        SCOPED_TRACE(System::ToUtf8(UnicodeString(command)));
        const PROCESS_INFORMATION info = Start(command);
        EXPECT_EQ(WaitForSingleObject(info.hProcess, 20'000), WAIT_OBJECT_0);
        unsigned long code = 1;
        EXPECT_TRUE(GetExitCodeProcess(info.hProcess, &code));
        EXPECT_EQ(code, expected);
        EXPECT_EQ(WaitForSingleObject(info.hProcess, 0), WAIT_OBJECT_0);
        Close(info);
    }
}

TEST(HostProcessTest, TellsTheCodeOfAChildThatEndsWhileItIsAskedFor)
{
    // The end falls between two calls of the host again and again.
    for (int i = 0; i < 50; ++i) {
        const PROCESS_INFORMATION info = Start(u"sh -c \"exit 7\"");
        unsigned long code = STILL_ACTIVE;
        bool isTold = true;
        while (isTold && code == STILL_ACTIVE) {
            isTold = GetExitCodeProcess(info.hProcess, &code);
        }
        EXPECT_TRUE(isTold) << i << ": " << GetLastError();
        EXPECT_EQ(code, 7U);
        Close(info);
    }
}

TEST(HostProcessTest, EndsWithTheCodeThatWasAskedFor)
{
    const PROCESS_INFORMATION info = Start(u"sleep 100");
    const HANDLE second = OpenProcess(PROCESS_TERMINATE, false, info.dwProcessId);
    unsigned long code = 0;
    EXPECT_EQ(WaitForSingleObject(info.hProcess, 0), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForSingleObject(info.hProcess, 20), WAIT_TIMEOUT);
    EXPECT_TRUE(GetExitCodeProcess(info.hProcess, &code));
    EXPECT_EQ(code, STILL_ACTIVE);
    EXPECT_TRUE(TerminateProcess(second, 70'000));
    EXPECT_EQ(WaitForSingleObject(info.hProcess, INFINITE), WAIT_OBJECT_0);
    for (const HANDLE handle : {info.hProcess, second}) {
        EXPECT_TRUE(GetExitCodeProcess(handle, &code));
        EXPECT_EQ(code, 70'000U);
        EXPECT_FALSE(TerminateProcess(handle, 1));
        EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    }
    EXPECT_TRUE(CloseHandle(second));
    Close(info);
}

TEST(HostProcessTest, KeepsCodesOfOthersToThem)
{
    unsigned long code = 5;
    const HANDLE parent =
        OpenProcess(PROCESS_QUERY_INFORMATION, false, static_cast<unsigned long>(getppid()));
    ASSERT_NE(parent, nullptr);
    EXPECT_FALSE(GetExitCodeProcess(parent, &code));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(WaitForSingleObject(parent, 0), WAIT_TIMEOUT);
    EXPECT_TRUE(CloseHandle(parent));
    EXPECT_TRUE(GetExitCodeProcess(GetCurrentProcess(), &code));
    EXPECT_EQ(code, STILL_ACTIVE);
    for (const unsigned long id : {0UL, 0x7FFFFFFFUL, 0xFFFFFFFFUL}) {
        EXPECT_EQ(OpenProcess(PROCESS_TERMINATE, false, id), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER) << id;
    }
}

TEST(HostProcessTest, LeavesNoChildBehindWhoseHandlesAreClosed)
{
    std::vector<unsigned long> ids;
    for (const UnicodeString command : {u"true", u"sleep 0.1", u"sleep 0.2"}) {
        const PROCESS_INFORMATION info = Start(command);
        ids.push_back(info.dwProcessId);
        Close(info);
    }
    for (const unsigned long id : ids) {
        EXPECT_TRUE(IsGoneSoon(id)) << id << ' ' << StateOf(id);
    }
}

TEST(HostProcessTest, TakesNoOtherChildOfTheProgram)
{
    const pid_t own = fork();
    if (own == 0) {
        _exit(9);
    }
    const PROCESS_INFORMATION info = Start(u"sleep 0.05");
    EXPECT_EQ(WaitForSingleObject(info.hProcess, 20'000), WAIT_OBJECT_0);
    Close(info);
    int status = 0;
    EXPECT_EQ(waitpid(own, &status, 0), own);
    EXPECT_EQ(WEXITSTATUS(status), 9);
}

TEST(HostProcessTest, OutlivesAChildThatSomebodyElseTook)
{
    const PROCESS_INFORMATION info = Start(u"true");
    waitpid(static_cast<pid_t>(info.dwProcessId), nullptr, 0);
    EXPECT_EQ(WaitForSingleObject(info.hProcess, 20'000), WAIT_OBJECT_0);
    unsigned long code = 0;
    EXPECT_FALSE(GetExitCodeProcess(info.hProcess, &code));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    Close(info);
}

TEST(HostProcessTest, LeavesNoDescriptorBehind)
{
    Close(Start(u"true"));
    const PROCESS_INFORMATION first = Start(u"sleep 0.1");
    Close(first);
    ASSERT_TRUE(IsGoneSoon(first.dwProcessId));
    const auto descriptors = Support::CountEntries("/proc/self/fd");
    for (int i = 0; i < 50; ++i) {
        const PROCESS_INFORMATION info = Start(u"true");
        EXPECT_EQ(WaitForSingleObject(info.hProcess, 20'000), WAIT_OBJECT_0);
        Close(info);
    }
    EXPECT_EQ(Support::CountEntries("/proc/self/fd"), descriptors);
}

} // namespace
