// SPDX-License-Identifier: MIT
#include "platform/host/Host_Path.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Module.h"
#include "platform/host/Host_Shell.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include <sys/stat.h>

using System::UnicodeString;
using Sysutils::FromHostPath;
using Sysutils::HostPath;

namespace
{

TEST(HostPathTest, TurnsTheSeparators)
{
    const struct
    {
        const char16_t* path;
        const char* host;
    } cases[] = {{u"\\home\\u\\x", "/home/u/x"},
                 {u"a/b\\c", "a/b/c"},
                 {u"\\", "/"},
                 {u"C:\\home\\x", "/home/x"},
                 {u"c:/x", "/x"},
                 {u"C:\\", "/"},
                 {u"C:x", "x"},
                 {u"C:", "."},
                 {u"\\\\?\\C:\\x", "/x"},
                 {u"\u00E4\U0001F600", "\xC3\xA4\xF0\x9F\x98\x80"},
                 {u"1:b", "1:b"},
                 {u"\\a:b", "/a:b"}};
    for (const auto& test : cases) {
        EXPECT_EQ(HostPath(test.path), test.host);
    }
    EXPECT_EQ(FromHostPath("/home/u/\xC3\xA4"), u"\\home\\u\\\u00E4");
    EXPECT_EQ(FromHostPath("//home"), u"\\home");
}

TEST(HostPathTest, KeepsTheBytesOfAnyName)
{
    std::string name;
    for (int byte = 1; byte < 256; ++byte) {
        name += static_cast<char>(byte);
    }
    for (const std::string& host :
         {name, std::string("\xC3"), std::string("\xED\xA0\x80"), std::string("a\\b"), std::string("C:x"),
          std::string("\xF0\x9F\x98"), std::string("\xC0\xAF")}) {
        EXPECT_EQ(HostPath(FromHostPath(host)), host);
    }
    EXPECT_EQ(FromHostPath("a\\b"), u"a\xDC5C"
                                    u"b");
    EXPECT_EQ(FromHostPath("C:x"), u"C\xDC3A"
                                   u"x");
}

TEST(HostPathTest, TellsWhyThereIsNoPath)
{
    const struct
    {
        UnicodeString path;
        unsigned long error;
    } cases[] = {{UnicodeString(), ERROR_PATH_NOT_FOUND},
                 {UnicodeString(u"Q:\\x"), ERROR_PATH_NOT_FOUND},
                 {UnicodeString(u"a\0b", 3), ERROR_INVALID_NAME},
                 {UnicodeString(u"a\xD800"), ERROR_INVALID_NAME},
                 {UnicodeString(u"a\xDC2F"
                                u"b"),
                  ERROR_INVALID_NAME}};
    for (const auto& test : cases) {
        SetLastError(0);
        EXPECT_EQ(HostPath(test.path), "");
        EXPECT_EQ(GetLastError(), test.error);
    }
}

TEST(HostPathTest, LooksUpDrives)
{
    const Support::TempFolder folder;
    const std::string root = folder.Path().string();
    ASSERT_TRUE(Sysutils::SetDrive(u'x', root + "/"));
    EXPECT_EQ(Sysutils::GetDrive(u'X'), root);
    EXPECT_EQ(HostPath(u"X:\\a\\b"), root + "/a/b");
    EXPECT_EQ(HostPath(u"x:"), root);
    EXPECT_EQ(HostPath(u"x:a"), root + "/a");
    EXPECT_EQ(Sysutils::ExpandFileName(u"X:a\\..\\b"), u"X:\\b");
    EXPECT_GT(Sysutils::DiskFree('X' - 'A' + 1), 0);
    ASSERT_TRUE(Sysutils::SetDrive(u'X', ""));
    EXPECT_EQ(HostPath(u"X:\\a"), "");
    EXPECT_FALSE(Sysutils::SetDrive(u'X', "relative"));
    EXPECT_FALSE(Sysutils::SetDrive(u'1', "/"));
    EXPECT_EQ(Sysutils::DiskFree(200), -1);
}

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

TEST(HostShellTest, PartsArguments)
{
    const struct
    {
        const char16_t* text;
        std::vector<UnicodeString> arguments;
    } cases[] = {{u"", {}},
                 {u"  a\tb  ", {u"a", u"b"}},
                 {u"\"a b\" c", {u"a b", u"c"}},
                 {u"\"\"", {u""}},
                 {u"x\\\"y C:\\d\\ ", {u"x\"y", u"C:\\d\\"}},
                 {u"\"a\\\\\" b", {u"a\\", u"b"}},
                 {u"\"open end", {u"open end"}}};
    for (const auto& test : cases) {
        EXPECT_EQ(Host::SplitArguments(test.text), test.arguments);
    }
}

/// Writes a script that the user may start.
void WriteScript(const std::filesystem::path& path, const std::string& commands)
{
    std::ofstream(path) << "#!/bin/sh\n" << commands;
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

std::string WaitForContent(const std::filesystem::path& path)
{
    while (!std::filesystem::exists(path)) {
        std::this_thread::yield();
    }
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(HostShellTest, StartsProgramsWithTheirArguments)
{
    const Support::TempFolder folder;
    WriteScript(folder.Path() / "program",
                "for a; do echo \"[$a]\"; done > out.part; pwd >> out.part; mv out.part out\n");
    const UnicodeString directory = FromHostPath(folder.Path().string());
    // What a shell would take for a command is an argument as it stands.
    EXPECT_GT(ShellExecuteW(nullptr, u"open", u"program", u"a \"b c\" ;reboot $(x)", directory.c_str(), 1),
              32);
    EXPECT_EQ(WaitForContent(folder.Path() / "out"),
              "[a]\n[b c]\n[;reboot]\n[$(x)]\n" + folder.Path().string() + "\n");
}

TEST(HostShellTest, HandsFilesToTheDesktop)
{
    const Support::TempFolder folder;
    // A stand-in for the desktop's opener, which refuses what has no association.
    WriteScript(folder.Path() / "xdg-open",
                "case \"$1\" in *.none) exit 3;; esac\n"
                "echo \"$#:$1\" > \"$OPENED.part\"; mv \"$OPENED.part\" \"$OPENED\"\n");
    const std::string formerPath = std::getenv("PATH");
    ASSERT_EQ(setenv("PATH", (folder.Path().string() + ":" + formerPath).c_str(), 1), 0);
    const auto opened = [&](const std::string& name) {
        const std::string result = (folder.Path() / name).string();
        setenv("OPENED", result.c_str(), 1);
        return result;
    };
    std::ofstream(folder.Path() / "-a b;c.txt") << "x";
    std::ofstream(folder.Path() / "a.none") << "x";
    const UnicodeString directory = FromHostPath(folder.Path().string());

    const std::string first = opened("first");
    EXPECT_GT(ShellExecuteW(nullptr, nullptr, u"-a b;c.txt", nullptr, directory.c_str(), 1), 32);
    EXPECT_EQ(WaitForContent(first), "1:" + folder.Path().string() + "/-a b;c.txt\n");
    const std::string second = opened("second");
    EXPECT_GT(ShellExecuteW(nullptr, u"open", u"mailto:a@b?subject=x y&z", nullptr, nullptr, 1), 32);
    EXPECT_EQ(WaitForContent(second), "1:mailto:a@b?subject=x y&z\n");
    const std::string third = opened("third");
    EXPECT_GT(ShellExecuteW(nullptr, u"Explore", directory.c_str(), nullptr, nullptr, 1), 32);
    EXPECT_EQ(WaitForContent(third), "1:" + folder.Path().string() + "\n");

    const UnicodeString inFolder = directory + u"\\";
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", (inFolder + u"a.none").c_str(), nullptr, nullptr, 1), 31);
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", (inFolder + u"gone").c_str(), nullptr, nullptr, 1), 2);
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", (inFolder + u"gone\\x").c_str(), nullptr, nullptr, 1), 3);
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", u"x", nullptr, (inFolder + u"gone").c_str(), 1), 3);
    EXPECT_EQ(ShellExecuteW(nullptr, u"print", (inFolder + u"a.none").c_str(), nullptr, nullptr, 1), 31);
    EXPECT_EQ(ShellExecuteW(nullptr, nullptr, nullptr, nullptr, nullptr, 1), 2);
    setenv("PATH", formerPath.c_str(), 1);
}

} // namespace
