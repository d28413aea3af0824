// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_ProcessMemory.h"

#include "platform/host/Host_Error.h"
#include "platform/host/processes/Host_Process.h"
#include "support/SecondProcess.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include <sys/mman.h>

namespace
{

TEST(ProcessMemoryTest, CountsWhatLiesInMemory)
{
    _PROCESS_MEMORY_COUNTERS before;
    ASSERT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &before, before.cb));
    constexpr std::size_t size = 50'000'000;
    const std::vector<char> used(size, 'x');
    _PROCESS_MEMORY_COUNTERS after;
    ASSERT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &after, after.cb));
    EXPECT_GE(after.WorkingSetSize, before.WorkingSetSize + size / 2);
    EXPECT_GE(after.PeakWorkingSetSize, after.WorkingSetSize / 2);
    EXPECT_GT(after.PageFaultCount, before.PageFaultCount);
    EXPECT_FALSE(GetProcessMemoryInfo(nullptr, &after, after.cb));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(ProcessMemoryTest, CopiesFromAndToAnotherProcess)
{
    // As a fork, the other process has its memory at the same addresses.
    constexpr std::size_t page = 4096;
    char* const memory = static_cast<char*>(
        mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    // A page that were only given back might be taken anew.
    ASSERT_EQ(mprotect(memory + page, page, PROT_NONE), 0);
    std::strcpy(memory, "before");
    unsigned long otherId = 0;
    int ids[2];
    ASSERT_EQ(pipe(ids), 0);
    Support::SecondProcess other([&](int tell) {
        std::strcpy(memory, "theirs");
        const pid_t id = getpid();
        if (write(ids[1], &id, sizeof id) == sizeof id) {
            Support::SecondProcess::Tell(tell);
        }
        pause();
    });
    ASSERT_TRUE(other.Await());
    pid_t id = 0;
    ASSERT_EQ(read(ids[0], &id, sizeof id), static_cast<ssize_t>(sizeof id));
    close(ids[0]);
    close(ids[1]);
    otherId = static_cast<unsigned long>(id);

    const HANDLE process = OpenProcess(PROCESS_VM_READ | PROCESS_VM_WRITE, false, otherId);
    char buffer[2 * page] = {};
    unsigned long done = 5;
    if (!ReadProcessMemory(process, memory, buffer, 7, &done) && GetLastError() == ERROR_ACCESS_DENIED) {
        GTEST_SKIP() << "the host forbids it";
    }
    EXPECT_EQ(done, 7U);
    EXPECT_STREQ(buffer, "theirs");
    EXPECT_STREQ(memory, "before");
    EXPECT_TRUE(WriteProcessMemory(process, memory, "ours", 5, nullptr));
    EXPECT_TRUE(ReadProcessMemory(process, memory, buffer, 5, nullptr));
    EXPECT_STREQ(buffer, "ours");
    EXPECT_FALSE(ReadProcessMemory(process, memory, buffer, 2 * page, &done));
    EXPECT_EQ(GetLastError(), ERROR_PARTIAL_COPY);
    EXPECT_EQ(done, page);
    EXPECT_FALSE(ReadProcessMemory(process, nullptr, buffer, 1, &done));
    EXPECT_EQ(GetLastError(), ERROR_PARTIAL_COPY);
    other.Kill();
    EXPECT_FALSE(ReadProcessMemory(process, memory, buffer, 1, &done));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_TRUE(CloseHandle(process));
    munmap(memory, 2 * page);
}

} // namespace
