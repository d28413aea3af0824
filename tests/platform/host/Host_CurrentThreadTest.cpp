// SPDX-License-Identifier: MIT
#include "platform/host/Host_CurrentThread.h"

#include "support/SecondProcess.h"

#include <gtest/gtest.h>

#include <thread>

#include <unistd.h>

namespace
{

TEST(CurrentThreadTest, HasANumberOfItsOwn)
{
    EXPECT_EQ(GetCurrentThreadId(), static_cast<unsigned long>(getpid()));
    EXPECT_EQ(GetCurrentThreadId(), Host::FirstThreadId());
    unsigned long other = 0;
    std::thread([&] { other = GetCurrentThreadId(); }).join();
    EXPECT_NE(other, 0U);
    EXPECT_NE(other, GetCurrentThreadId());
}

/// The copy of a thread is another one.
TEST(CurrentThreadTest, AForkHasANumberOfItsOwn)
{
    const unsigned long own = GetCurrentThreadId();
    const Support::SecondProcess fork([own](int tell) {
        if (GetCurrentThreadId() == static_cast<unsigned long>(getpid()) && GetCurrentThreadId() != own) {
            Support::SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(fork.Await());
}

TEST(CurrentThreadTest, NamesThreadsOfThisProcessAlone)
{
    std::thread([] { EXPECT_TRUE(Host::NameThread(GetCurrentThreadId(), u"named")); }).join();
    EXPECT_FALSE(Host::NameThread(0, u"nobody"));
    EXPECT_FALSE(Host::NameThread(1, u"init"));
}

} // namespace
