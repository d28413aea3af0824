// SPDX-License-Identifier: MIT
#include "platform/host/Host_Error.h"

#include "platform/base/System_String.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <thread>

using System::UnicodeString;

namespace
{

UnicodeString TextOf(unsigned long code)
{
    System::WideChar buffer[2048];
    const unsigned long length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, 1024, buffer, std::size(buffer), nullptr);
    EXPECT_EQ(buffer[length], u'\0');
    return {buffer, static_cast<int>(length)};
}

TEST(HostErrorTest, LastErrorBelongsToTheThread)
{
    SetLastError(ERROR_ACCESS_DENIED);
    unsigned long other = 1;
    std::thread([&] {
        other = GetLastError();
        SetLastError(ERROR_DISK_FULL);
    }).join();
    EXPECT_EQ(other, 0U);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST(HostErrorTest, TextsAreTheHostsOwn)
{
    const struct
    {
        unsigned long code;
        int hostError;
    } cases[] = {{0, 0},
                 {2, ENOENT},
                 {3, ENOENT},
                 {5, EACCES},
                 {8, ENOMEM},
                 {17, EXDEV},
                 {19, EROFS},
                 {80, EEXIST},
                 {87, EINVAL},
                 {109, EPIPE},
                 {112, ENOSPC},
                 {183, EEXIST},
                 {145, ENOTEMPTY},
                 {267, ENOTDIR},
                 {995, ECANCELED},
                 {997, EINPROGRESS},
                 {206, ENAMETOOLONG}};
    for (const auto& test : cases) {
        EXPECT_EQ(TextOf(test.code), System::FromUtf8(std::strerror(test.hostError))) << test.code;
    }
    for (const unsigned long code : {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, WAIT_TIMEOUT}) {
        EXPECT_GT(TextOf(code).Length(), 0) << code;
    }
}

TEST(HostErrorTest, EachErrnoHasACodeThatLeadsBackToAText)
{
    for (int hostError = 1; hostError < 134; ++hostError) {
        const unsigned long code = Host::ErrorFromErrno(hostError);
        EXPECT_NE(code, 0U);
        EXPECT_GT(TextOf(code).Length(), 0) << hostError;
    }
    EXPECT_EQ(Host::ErrorFromErrno(ENOENT), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Host::ErrorFromErrno(EBADF), ERROR_INVALID_HANDLE);
    // Without a number of its own nothing of the reason is lost.
    EXPECT_EQ(TextOf(Host::ErrorFromErrno(ECONNREFUSED)), System::FromUtf8(std::strerror(ECONNREFUSED)));
}

TEST(HostErrorTest, RefusesWhatItCantFormat)
{
    System::WideChar buffer[64] = u"kept";
    const auto format = [&](unsigned long flags, unsigned long code, System::WideChar* target,
                            unsigned long size) {
        SetLastError(0);
        return FormatMessageW(flags, nullptr, code, 0, target, size, nullptr);
    };
    EXPECT_EQ(format(FORMAT_MESSAGE_FROM_SYSTEM, 60000, buffer, 64), 0U);
    EXPECT_EQ(GetLastError(), ERROR_MR_MID_NOT_FOUND);

    const auto length = static_cast<unsigned long>(TextOf(2).Length());
    EXPECT_EQ(format(FORMAT_MESSAGE_FROM_SYSTEM, 2, buffer, length), 0U);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(UnicodeString(buffer), u"kept");
    EXPECT_EQ(format(FORMAT_MESSAGE_FROM_SYSTEM, 2, buffer, length + 1), length);

    EXPECT_EQ(format(FORMAT_MESSAGE_FROM_SYSTEM, 2, nullptr, 64), 0U);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(format(0, 2, buffer, 64), 0U);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

} // namespace
