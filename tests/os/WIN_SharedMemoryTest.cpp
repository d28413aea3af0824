// SPDX-License-Identifier: MIT
#include "os/WIN_SharedMemory.h"

#include "os/WIN_LastError.h"
#include "os/WIN_Mutex.h"
#include "platform/host/Host_Error.h"
#include "support/ObjectNames.h"
#include "support/SecondProcess.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{

using Support::OwnName;
using Support::SecondProcess;

char* BytesOf(const WIN::CSharedMemory& memory)
{
    return static_cast<char*>(memory.getView());
}

TEST(SharedMemoryTest, IsSeenByAllWhoOpenIt)
{
    WIN::CSharedMemory first(OwnName(u"a"), 100);
    WIN::CSharedMemory second(OwnName(u"a"), 100);
    EXPECT_FALSE(second.Open());
    EXPECT_EQ(second.getMapping(), nullptr);
    first.CreateOrOpen();
    EXPECT_FALSE(first.getAlreadyExists());
    std::strcpy(BytesOf(first), "data");
    second.CreateOrOpen();
    EXPECT_TRUE(second.getAlreadyExists());
    EXPECT_STREQ(BytesOf(second), "data");
    EXPECT_TRUE(second.Open());
    EXPECT_TRUE(second.getAlreadyExists()) << "it is open already";
    second.Close();
    EXPECT_FALSE(second.getAlreadyExists());
    EXPECT_EQ(second.getView(), nullptr);
    EXPECT_TRUE(second.Open(WIN::ESharedMemoryAccess::Read));
    EXPECT_FALSE(second.getAlreadyExists());
    first.Close();
    EXPECT_STREQ(BytesOf(second), "data");
    second.Close();
    EXPECT_FALSE(second.Open(4));
}

TEST(SharedMemoryTest, NeedsASizeAndAName)
{
    WIN::CSharedMemory empty(OwnName(u"empty"), 0);
    WIN::CSharedMemory nameless(System::UnicodeString(), 10);
    for (WIN::CSharedMemory* const memory : {&empty, &nameless}) {
        memory->CreateOrOpen();
        EXPECT_EQ(memory->getMapping(), nullptr);
        EXPECT_FALSE(memory->Open());
        EXPECT_NO_THROW(memory->Close());
    }
}

TEST(SharedMemoryTest, StaysClosedWhereItDoesNotFit)
{
    WIN::CSharedMemory small(OwnName(u"small"), 100);
    small.CreateOrOpen();
    WIN::CSharedMemory large(OwnName(u"small"), 101);
    EXPECT_THROW(large.CreateOrOpen(), WIN::XLastError);
    EXPECT_EQ(large.getMapping(), nullptr);
    EXPECT_FALSE(large.getAlreadyExists());
    EXPECT_THROW(large.Open(), WIN::XLastError);
    EXPECT_EQ(large.getMapping(), nullptr);
    EXPECT_EQ(large.getView(), nullptr);

    const WIN::CMutex mutex(OwnName(u"mutex"));
    WIN::CSharedMemory other(OwnName(u"mutex"), 10);
    try {
        other.CreateOrOpen();
        FAIL() << "nothing was raised";
    } catch (const WIN::XLastError& fault) {
        EXPECT_EQ(fault.getError(), ERROR_INVALID_HANDLE);
    }
}

TEST(SharedMemoryTest, EndsWithACrash)
{
    const System::UnicodeString name = OwnName(u"crash");
    SecondProcess writer([&](int tell) {
        WIN::CSharedMemory memory(name, 10);
        memory.CreateOrOpen();
        std::strcpy(BytesOf(memory), "theirs");
        SecondProcess::Tell(tell);
        pause();
    });
    ASSERT_TRUE(writer.Await());
    WIN::CSharedMemory memory(name, 10);
    EXPECT_TRUE(memory.Open());
    EXPECT_STREQ(BytesOf(memory), "theirs");
    memory.Close();
    writer.Kill();
    EXPECT_FALSE(memory.Open());
    memory.CreateOrOpen();
    EXPECT_FALSE(memory.getAlreadyExists());
    EXPECT_STREQ(BytesOf(memory), "");
}

} // namespace
