// SPDX-License-Identifier: MIT
#include "platform/host/Host_Shell.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "support/DesktopHelpers.h"
#include "support/ScopedVariable.h"
#include "support/Script.h"
#include "support/TempFolder.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

using Support::WriteScript;
using System::UnicodeString;
using Sysutils::FromHostPath;

namespace
{

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
        EXPECT_EQ(Host::SplitArguments(Host::JoinArguments(test.arguments)), test.arguments);
    }
}

TEST(HostShellTest, QuotesArgumentsThatWouldBeParted)
{
    const struct
    {
        std::vector<UnicodeString> arguments;
        const char16_t* line;
    } cases[] = {{{}, u""},
                 {{u"a", u"/b=c", u"C:\\d\\"}, u"a /b=c C:\\d\\"},
                 {{u"", u" ", u""}, u"\"\" \" \" \"\""},
                 {{u"a b\\", u"c\td", u"e\nf"}, u"\"a b\\\\\" \"c\td\" \"e\nf\""},
                 {{u"x\"y", u"\\\"", u"\\\\ \\"}, u"\"x\\\"y\" \"\\\\\\\"\" \"\\\\ \\\\\""}};
    for (const auto& test : cases) {
        EXPECT_EQ(Host::JoinArguments(test.arguments), test.line);
        EXPECT_EQ(Host::SplitArguments(test.line), test.arguments);
    }
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

TEST(HostShellTest, NoErrorPassesForSuccess)
{
    const Support::TempFolder folder;
    WriteScript(folder.Path() / "program", "");
    WriteScript(folder.Path() / "ab:c", "echo x > out.part; mv out.part out\n");
    std::filesystem::create_symlink("loop", folder.Path() / "loop");
    const UnicodeString directory = FromHostPath(folder.Path().string());
    const UnicodeString tooMuch = UnicodeString::StringOfChar(u'x', 200'000);
    const struct
    {
        UnicodeString file, parameters;
        System::NativeInt result;
    } cases[] = {{UnicodeString::StringOfChar(u'n', 300), u"", ERROR_FILE_NOT_FOUND},
                 {u"a\xD800", u"", ERROR_FILE_NOT_FOUND},
                 {u"loop\\a", u"", ERROR_FILE_NOT_FOUND},
                 {u"program", tooMuch, ERROR_NOT_ENOUGH_MEMORY},
                 {u"mailto:" + tooMuch, u"", ERROR_NOT_ENOUGH_MEMORY}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.file.SubString(1, 20));
        const Support::DesktopHelpers helpers;
        EXPECT_EQ(
            ShellExecuteW(nullptr, nullptr, test.file.c_str(), test.parameters.c_str(), directory.c_str(), 1),
            test.result);
    }
    ASSERT_GT(ShellExecuteW(nullptr, nullptr, u"ab:c", nullptr, directory.c_str(), 1), 32);
    EXPECT_EQ(WaitForContent(folder.Path() / "out"), "x\n") << "no address: a file of the folder";
}

TEST(HostShellTest, StartedProgramsSeeWhatStreamsGathered)
{
    const Support::TempFolder folder;
    WriteScript(folder.Path() / "program", "cp data out.part; mv out.part out\n");
    Classes::TFileStream stream(FromHostPath((folder.Path() / "data").string()), Classes::fmCreate);
    stream.WriteBuffer("g", 1);
    stream.WriteBuffer("athered", 7);
    ASSERT_EQ(std::filesystem::file_size(folder.Path() / "data"), 1) << "nothing is gathered";
    const UnicodeString directory = FromHostPath(folder.Path().string());
    EXPECT_GT(ShellExecuteW(nullptr, u"open", u"program", nullptr, directory.c_str(), 1), 32);
    EXPECT_EQ(WaitForContent(folder.Path() / "out"), "gathered");
}

TEST(HostShellTest, HandsFilesToTheDesktop)
{
    const Support::TempFolder folder;
    // A stand-in for the desktop's opener, which refuses what has no association.
    WriteScript(folder.Path() / "xdg-open",
                "case \"$1\" in *.none) exit 3;; esac\n"
                "echo \"$#:$1\" > \"$OPENED.part\"; mv \"$OPENED.part\" \"$OPENED\"\n");
    const char* const former = std::getenv("PATH");
    const std::string formerPath = former == nullptr ? "" : former;
    const Support::ScopedVariable path("PATH", folder.Path().string() + ":" + formerPath);
    const Support::ScopedVariable out("OPENED", nullptr);
    const auto opened = [&](const std::string& name) {
        std::string result = (folder.Path() / name).string();
        out.Set(result.c_str());
        return result;
    };
    std::ofstream(folder.Path() / "-a b;c.txt") << "x";
    std::ofstream(folder.Path() / "a.none") << "x";
    const UnicodeString directory = FromHostPath(folder.Path().string());

    const std::string first = opened("first");
    EXPECT_GT(ShellExecuteW(nullptr, nullptr, u"-a b;c.txt", nullptr, directory.c_str(), 1), 32);
    EXPECT_EQ(WaitForContent(first), "1:" + folder.Path().string() + "/-a b;c.txt\n");
    const std::string third = opened("third");
    EXPECT_GT(ShellExecuteW(nullptr, u"Explore", directory.c_str(), nullptr, nullptr, 1), 32);
    EXPECT_EQ(WaitForContent(third), "1:" + folder.Path().string() + "\n");

    WriteScript(folder.Path() / "lp",
                "echo \"printed $#:$1\" > \"$OPENED.part\"; mv \"$OPENED.part\" \"$OPENED\"\n");
    const std::string fourth = opened("fourth");
    EXPECT_GT(ShellExecuteW(nullptr, u"print", u"-a b;c.txt", nullptr, directory.c_str(), 1), 32);
    EXPECT_EQ(WaitForContent(fourth), "printed 1:" + folder.Path().string() + "/-a b;c.txt\n");

    const UnicodeString inFolder = directory + u"\\";
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", (inFolder + u"a.none").c_str(), nullptr, nullptr, 1), 31);
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", (inFolder + u"gone").c_str(), nullptr, nullptr, 1), 2);
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", (inFolder + u"gone\\x").c_str(), nullptr, nullptr, 1), 3);
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", u"x", nullptr, (inFolder + u"gone").c_str(), 1), 3);
    EXPECT_EQ(ShellExecuteW(nullptr, u"print", directory.c_str(), nullptr, nullptr, 1), 31) << "a folder";
    EXPECT_EQ(ShellExecuteW(nullptr, u"print", u"http://x", nullptr, nullptr, 1), 3);
    EXPECT_EQ(ShellExecuteW(nullptr, u"edit", (inFolder + u"a.none").c_str(), nullptr, nullptr, 1), 31);
    EXPECT_EQ(ShellExecuteW(nullptr, nullptr, nullptr, nullptr, nullptr, 1), 2);
}

TEST(HostShellTest, HandsAddressesToTheHelpersAsTheyAre)
{
    const Support::DesktopHelpers helpers;
    const struct
    {
        const char16_t* address;
        std::vector<std::string> told;
    } cases[] = {{u"http://a.b/?x='\"$(touch x)`y`;&|\n\t\u00E4",
                  {"xdg-open", "http://a.b/?x='\"$(touch x)`y`;&|\n\t\u00E4"}},
                 {u"mailto:a@b?subject=x y&body=\u00DF\r\n'$(z)\"",
                  {"xdg-email", "mailto:a@b?subject=x y&body=\u00DF\r\n'$(z)\""}},
                 {u"MailTo:", {"xdg-email", "mailto:"}},
                 {u"mailtos:x", {"xdg-open", "mailtos:x"}}};
    for (const auto& test : cases) {
        EXPECT_GT(ShellExecuteW(nullptr, nullptr, test.address, nullptr, nullptr, 1), 32);
        EXPECT_EQ(helpers.Await(), test.told);
    }
}

TEST(HostShellTest, AwaitsNoHelperOfAnAddressAndLeavesNoneBehind)
{
    const Support::DesktopHelpers helpers;
    // It refuses, or would never end by itself.
    const Support::ScopedVariable gate("GATE", (helpers.Folder() / "gate").string());
    WriteScript(helpers.Folder() / "xdg-open", "exit 3");
    WriteScript(helpers.Folder() / "xdg-email", "while [ ! -e \"$GATE\" ]; do sleep 0.01; done");
    EXPECT_GT(ShellExecuteW(nullptr, u"open", u"http://x", nullptr, nullptr, 1), 32);
    EXPECT_GT(ShellExecuteW(nullptr, u"open", u"mailto:x", nullptr, nullptr, 1), 32);
    EXPECT_FALSE(Support::DesktopHelpers::HasNoChild());
    std::ofstream(helpers.Folder() / "gate") << "open";
    EXPECT_TRUE(Support::WaitUntil(Support::DesktopHelpers::HasNoChild));
}

TEST(HostShellTest, TellsThatAHelperIsMissing)
{
    const Support::DesktopHelpers helpers;
    std::filesystem::remove(helpers.Folder() / "xdg-open");
    std::filesystem::remove(helpers.Folder() / "xdg-email");
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", u"http://x", nullptr, nullptr, 1), SE_ERR_NOASSOC);
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", u"mailto:x", nullptr, nullptr, 1), SE_ERR_NOASSOC);
    std::ofstream(helpers.Folder() / "xdg-email") << "no program";
    EXPECT_EQ(ShellExecuteW(nullptr, u"open", u"mailto:x", nullptr, nullptr, 1), 5) << "may not be started";
}

} // namespace
