// SPDX-License-Identifier: MIT
#include "os/WIN_Mutex.h"

#include "os/WIN_LastError.h"
#include "platform/host/Host_Error.h"
#include "support/ObjectNames.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

using Support::OwnName;

TEST(MutexTest, TellsThatAnotherHasIt)
{
    WIN::CMutex first(OwnName(u"a"));
    EXPECT_FALSE(first.getAlreadyExists());
    WIN::CMutex second(OwnName(u"a"));
    EXPECT_TRUE(second.getAlreadyExists());
    std::thread([&] { EXPECT_EQ(second.getMutex()->WaitFor(0), Syncobjs::wrTimeout); }).join();
    second.Close();
    EXPECT_FALSE(second.getAlreadyExists());
    EXPECT_EQ(second.getMutex(), nullptr);
    second.Open();
    EXPECT_TRUE(second.getAlreadyExists());
    second.Close();
    first.Close();
    first.Create();
    EXPECT_FALSE(first.getAlreadyExists()) << "the name can be made anew";
    const auto* const mutex = first.getMutex();
    first.Create();
    first.Open();
    EXPECT_EQ(first.getMutex(), mutex);
}

TEST(MutexTest, RaisesForAMissingOne)
{
    WIN::CMutex mutex(OwnName(u"missing"));
    mutex.Close();
    try {
        mutex.Open();
        FAIL() << "nothing was raised";
    } catch (const WIN::XLastError& fault) {
        EXPECT_EQ(fault.getError(), ERROR_FILE_NOT_FOUND);
    }
    EXPECT_EQ(mutex.getMutex(), nullptr);
}

} // namespace
