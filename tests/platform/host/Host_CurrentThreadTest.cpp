// SPDX-License-Identifier: MIT
#include "platform/host/Host_CurrentThread.h"

#include <gtest/gtest.h>

#include <thread>

#include <unistd.h>

namespace
{

TEST(CurrentThreadTest, HasANumberOfItsOwn)
{
    EXPECT_EQ(GetCurrentThreadId(), static_cast<unsigned long>(getpid()));
    unsigned long other = 0;
    std::thread([&] { other = GetCurrentThreadId(); }).join();
    EXPECT_NE(other, 0U);
    EXPECT_NE(other, GetCurrentThreadId());
}

} // namespace
