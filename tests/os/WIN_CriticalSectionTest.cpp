// SPDX-License-Identifier: MIT
#include "os/WIN_CriticalSection.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace
{

template <class Lock>
int CountInThreads(Lock lock)
{
    int count = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 3; ++i) {
            threads.emplace_back([&] {
                for (int turn = 0; turn < 5000; ++turn) {
                    lock([&] { ++count; });
                }
            });
        }
    }
    return count;
}

TEST(CriticalSectionTest, SerialisesAndIsEnteredAgain)
{
    WIN::CCriticalSectionObject section;
    EXPECT_EQ(CountInThreads([&](auto work) {
                  const WIN::CCriticalSection outer(section);
                  const WIN::CCriticalSection inner(section);
                  work();
              }),
              15'000);
    EXPECT_EQ(CountInThreads([](auto work) {
                  const WIN::CCriticalSection lock;
                  work();
              }),
              15'000);
}

} // namespace
