// SPDX-License-Identifier: MIT
#include "platform/runtime/syncobjs/Syncobjs_Mutex.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Error.h"
#include "platform/host/objects/Host_Mutex.h"
#include "support/ObjectNames.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

using Support::OwnName;

TEST(SyncobjsMutexTest, TellsWhetherItWasThere)
{
    Syncobjs::TMutex first(nullptr, true, OwnName(u"there"));
    EXPECT_EQ(first.getLastError(), ERROR_SUCCESS);
    Syncobjs::TMutex second(nullptr, true, OwnName(u"there"));
    EXPECT_EQ(second.getLastError(), ERROR_ALREADY_EXISTS);
    Syncobjs::TMutex opened(MUTEX_ALL_ACCESS, false, OwnName(u"there"));
    EXPECT_EQ(opened.getLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_NE(opened.getHandle(), nullptr);
    Syncobjs::TMutex missing(MUTEX_ALL_ACCESS, false, OwnName(u"missing"));
    EXPECT_EQ(missing.getLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(missing.getHandle(), nullptr);
    EXPECT_EQ(missing.WaitFor(0), Syncobjs::wrError);
    EXPECT_THROW(missing.Acquire(), Sysutils::EOSError);
}

TEST(SyncobjsMutexTest, WaitsAndIsGivenBack)
{
    Syncobjs::TMutex mutex(nullptr, false, OwnName(u"wait"));
    mutex.Acquire();
    std::thread([&] {
        EXPECT_EQ(mutex.WaitFor(10), Syncobjs::wrTimeout);
        EXPECT_THROW(mutex.Release(), Sysutils::EOSError);
    }).join();
    mutex.Release();
    std::thread([&] { EXPECT_EQ(mutex.WaitFor(0), Syncobjs::wrSignaled); }).join();
    EXPECT_EQ(mutex.WaitFor(0), Syncobjs::wrAbandoned);
}

} // namespace
