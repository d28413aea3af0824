// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_CriticalSection.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace
{

TEST(HostCriticalSectionTest, IsEnteredAgainByItsOwnerAlone)
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    EnterCriticalSection(&section);
    ASSERT_TRUE(TryEnterCriticalSection(&section));
    EnterCriticalSection(&section);
    LeaveCriticalSection(&section);
    LeaveCriticalSection(&section);
    std::thread([&] {
        EXPECT_FALSE(TryEnterCriticalSection(&section));
        LeaveCriticalSection(&section);
        EXPECT_FALSE(TryEnterCriticalSection(&section));
    }).join();
    LeaveCriticalSection(&section);
    std::thread([&] {
        EXPECT_TRUE(TryEnterCriticalSection(&section));
        LeaveCriticalSection(&section);
    }).join();
    DeleteCriticalSection(&section);
}

TEST(HostCriticalSectionTest, KeepsThreadsApart)
{
    constexpr int turns = 20'000;
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    int count = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int turn = 0; turn < turns; ++turn) {
                    EnterCriticalSection(&section);
                    ++count;
                    LeaveCriticalSection(&section);
                }
            });
        }
    }
    EXPECT_EQ(count, 4 * turns);
    DeleteCriticalSection(&section);
}

} // namespace
