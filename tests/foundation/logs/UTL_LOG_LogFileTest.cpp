// SPDX-License-Identifier: MIT
#include "foundation/logs/UTL_LOG_LogFile.h"

#include "foundation/logs/LogSupport.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>

namespace
{

namespace fs = std::filesystem;
using Support::LibraryPath;
using Support::ReadFile;
using System::UnicodeString;

TEST(LogFileTest, ObjectsShareTheNameButNotTheFile)
{
    const Support::TempFolder folder;
    const UnicodeString path = LibraryPath(folder.Path()) + u"\\";
    UTL::CLogFile first;
    first.Log(u"lost", true);
    first.Init(path, u"first.txt");
    first.Log(u"ä", true);
    first.Log(u"b", false);
    EXPECT_EQ(ReadFile(folder.Path() / "first.txt"), "\xE4\r\nb");

    UTL::CLogFile second;
    second.Init("second.txt");
    second.Log(u"2", false);
    first.On();
    first.Log(u"c", false);
    EXPECT_EQ(ReadFile(folder.Path() / "first.txt"), "\xE4\r\nbc") << "an object that is on keeps its file";

    first.Off();
    first.Log(u"lost", false);
    second.Off();
    first.On();
    first.Log(u"new", false);
    EXPECT_EQ(ReadFile(folder.Path() / "second.txt"), "new") << "the name of the last start, emptied";

    first.Init("");
    first.Log(u"lost", false);
    EXPECT_EQ(ReadFile(folder.Path() / "second.txt"), "new");
}

TEST(LogFileTest, SwallowsWhatItCannotWrite)
{
    const Support::TempFolder folder;
    UTL::CLogFile log;
    log.Init(LibraryPath(folder.Path() / "missing") + u"\\", u"log.txt");
    EXPECT_NO_THROW(log.Log(u"lost", true));
    log.Off();
    EXPECT_FALSE(fs::exists(folder.Path() / "missing"));
}

TEST(LogFileTest, WritesItsFormAndWholeLines)
{
    const Support::TempFolder folder;
    const auto content = [&] { return Support::WithoutTimes(ReadFile(folder.Path() / "log.txt")); };
    UTL::CLogFile log;
    log.setForm({.encoding = UTL::ELogEncoding::Utf8, .time = UTL::ELogTime::Local});
    log.Init(LibraryPath(folder.Path()) + u"\\", u"log.txt");
    log.Log(u"\u2192", false);
    EXPECT_EQ(content(), "") << "the line isn't whole";
    log.Log(u" a", true);
    EXPECT_EQ(content(), "T \xE2\x86\x92 a\r\n");
    log.Log(u"b\nc", false);
    EXPECT_EQ(content(), "T \xE2\x86\x92 a\r\nT b\n");
    log.setForm({.time = UTL::ELogTime::Local});
    log.Log(u"\u00E4", false);
    log.Off();
    EXPECT_EQ(content(), "T \xE2\x86\x92 a\r\nT b\nT c\r\nT \xE4\r\n");
    log.On();
    log.setForm({});
    log.Log(u"\u00E4", false);
    EXPECT_EQ(content(), "\xE4");
}

TEST(LogFileTest, LinesOfThreadsDontMix)
{
    const Support::TempFolder folder;
    UTL::CLogFile log;
    log.setForm({.time = UTL::ELogTime::Local});
    log.Init(LibraryPath(folder.Path()) + u"\\", u"log.txt");
    Support::LogFromThreads([&](const std::string& name) {
        for (int i = 0; i < 100; ++i) {
            log.Log(System::FromUtf8(name + ' '), false);
            log.Log(System::FromUtf8(name), i < 99);
        }
    });
    log.Off();
    EXPECT_EQ(Support::SortedLines(ReadFile(folder.Path() / "log.txt")), Support::LinesOfThreads(100, "\r"));
}

TEST(CoutToFileTest, RedirectsOnlyWhenAskedFor)
{
    const Support::TempFolder folder;
    const fs::path file = folder.Path() / "cout.txt";
    std::streambuf* const former = std::cout.rdbuf();
    {
        const UTL::CCoutToFile redirection(nullptr, true);
        EXPECT_EQ(std::cout.rdbuf(), former);
    }
    std::ofstream(file) << "old";
    {
        const UTL::CCoutToFile redirection(file.c_str(), false);
        EXPECT_EQ(std::cout.rdbuf(), former);
    }
    EXPECT_EQ(ReadFile(file), "");
    {
        const UTL::CCoutToFile redirection(file.c_str(), true);
        std::cout << "redirected";
    }
    EXPECT_EQ(std::cout.rdbuf(), former);
    EXPECT_EQ(ReadFile(file), "redirected");
}

} // namespace
