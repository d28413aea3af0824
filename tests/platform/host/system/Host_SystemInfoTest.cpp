// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_SystemInfo.h"

#include "platform/base/System_String.h"
#include "platform/host/Host_Error.h"

#include <gtest/gtest.h>

#include <pwd.h>
#include <unistd.h>

namespace
{

using System::UnicodeString;

TEST(HostSystemInfoTest, TellsTheUser)
{
    const passwd* const entry = getpwuid(geteuid());
    ASSERT_NE(entry, nullptr);
    const UnicodeString expected = System::FromUtf8(entry->pw_name);
    System::WideChar name[256] = u"?";
    unsigned long size = static_cast<unsigned long>(expected.Length());
    EXPECT_FALSE(GetUserNameW(name, &size));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(name[0], u'?');
    EXPECT_EQ(size, static_cast<unsigned long>(expected.Length()) + 1);
    EXPECT_TRUE(GetUserNameW(name, &size));
    EXPECT_EQ(UnicodeString(name), expected);
    EXPECT_EQ(size, static_cast<unsigned long>(expected.Length()) + 1);
}

UnicodeString NameOf(COMPUTER_NAME_FORMAT format)
{
    System::WideChar name[256];
    unsigned long size = 256;
    EXPECT_TRUE(GetComputerNameExW(format, name, &size));
    EXPECT_EQ(size, static_cast<unsigned long>(UnicodeString(name).Length()));
    return name;
}

TEST(HostSystemInfoTest, TellsTheComputer)
{
    char host[256] = {};
    ASSERT_EQ(gethostname(host, 255), 0);
    const UnicodeString full = System::FromUtf8(host);
    const UnicodeString first = NameOf(ComputerNameDnsHostname);
    const UnicodeString domain = NameOf(ComputerNameDnsDomain);
    EXPECT_EQ(NameOf(ComputerNameDnsFullyQualified), full);
    EXPECT_EQ(domain.IsEmpty() ? first : first + u'.' + domain, full);
    EXPECT_EQ(first.Pos(u"."), 0);
    EXPECT_EQ(NameOf(ComputerNameNetBIOS), first.SubString(1, 15).UpperCase());

    unsigned long size = 0;
    EXPECT_FALSE(GetComputerNameExW(ComputerNameDnsHostname, nullptr, &size));
    EXPECT_EQ(GetLastError(), ERROR_MORE_DATA);
    EXPECT_EQ(size, static_cast<unsigned long>(first.Length()) + 1);
    EXPECT_FALSE(GetComputerNameExW(static_cast<COMPUTER_NAME_FORMAT>(99), nullptr, &size));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(HostSystemInfoTest, ChecksTheSizesOfItsStructures)
{
    OSVERSIONINFOW version;
    version.dwOSVersionInfoSize = 275;
    EXPECT_FALSE(GetVersionExW(&version));
    EXPECT_EQ(version.dwMajorVersion, 0U);
    MEMORYSTATUSEX status;
    status.dwLength = 63;
    EXPECT_FALSE(GlobalMemoryStatusEx(&status));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(HostSystemInfoTest, TellsTheMemory)
{
    MEMORYSTATUSEX status;
    ASSERT_TRUE(GlobalMemoryStatusEx(&status));
    const auto pages = static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES));
    EXPECT_EQ(status.ullTotalPhys, pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)));
    EXPECT_GT(status.ullAvailPhys, 0U);
    EXPECT_LE(status.ullAvailPhys, status.ullTotalPhys);
    EXPECT_GE(status.ullTotalPageFile, status.ullTotalPhys);
    EXPECT_LE(status.ullAvailPageFile, status.ullTotalPageFile);
    EXPECT_LT(status.ullAvailVirtual, status.ullTotalVirtual);
    EXPECT_LE(status.dwMemoryLoad, 100U);
    const double used = 100. * static_cast<double>(status.ullTotalPhys - status.ullAvailPhys) /
                        static_cast<double>(status.ullTotalPhys);
    EXPECT_NEAR(status.dwMemoryLoad, used, 1.5);
}

} // namespace
