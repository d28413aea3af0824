// SPDX-License-Identifier: MIT
#include "platform/host/Host_Module.h"

#include "platform/host/Host_Path.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <unistd.h>

using System::UnicodeString;
using Sysutils::HostPath;

namespace
{

TEST(HostModuleTest, TellsTheProgramsPath)
{
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    EXPECT_EQ(HostPath(Host::ProgramPath()), program);
    EXPECT_EQ(GetCurrentProcessId(), static_cast<unsigned long>(getpid()));

    System::WideChar buffer[4096];
    EXPECT_EQ(GetModuleFileNameW(nullptr, buffer, 4096),
              static_cast<unsigned long>(Host::ProgramPath().Length()));
    EXPECT_EQ(UnicodeString(buffer), Host::ProgramPath());
    EXPECT_EQ(GetModuleFileNameW(nullptr, buffer, 5), 5U);
    EXPECT_EQ(UnicodeString(buffer), Host::ProgramPath().SubString(1, 4));
    ASSERT_GT(GetModuleFileNameW(reinterpret_cast<const void*>(&GetCurrentProcessId), buffer, 4096), 0U);
    EXPECT_NE(UnicodeString(buffer).Pos(u"libTRS8_BTL"), 0);
    EXPECT_EQ(GetModuleFileNameW(buffer, buffer, 4096), 0U);
}

} // namespace
