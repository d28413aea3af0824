// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileBuffer.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileBufferSupport.h"
#include "platform/runtime/classes/Classes.h"
#include "support/ChildProgram.h"

#include <csignal>
#include <fstream>
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include <sys/resource.h>

using namespace Classes;
using Support::OnTheHost;
using Support::ReadSome;
using Support::WriteText;
using System::Int64;

namespace
{

using FileBufferTest = Support::BufferedFileTest;

TEST_F(FileBufferTest, BehavesAsMemoryDoes)
{
    TFileStream file(mPath, fmCreate);
    TMemoryStream memory;
    std::mt19937 random(7);
    const auto upTo = [&](int limit) { return static_cast<Int64>(random() % static_cast<unsigned>(limit)); };
    for (int step = 0; step < 4000; ++step) {
        const int limit = step % 100 == 0 ? 200'000 : 40;
        switch (random() % 6) {
        case 0:
        case 1: {
            const std::string text(static_cast<std::size_t>(upTo(limit)), static_cast<char>('a' + step % 26));
            WriteText(file, text);
            WriteText(memory, text);
            break;
        }
        case 2:
        case 3: {
            const Int64 count = upTo(limit);
            ASSERT_EQ(ReadSome(file, count), ReadSome(memory, count)) << step;
            break;
        }
        case 4: {
            const auto origin = static_cast<TSeekOrigin>(random() % 3);
            const Int64 offset = origin == soBeginning ? upTo(100'000)
                                 : origin == soCurrent ? upTo(9)
                                                       : -upTo(9);
            if (origin != soEnd || memory.getSize() > 9) {
                ASSERT_EQ(file.Seek(offset, origin), memory.Seek(offset, origin)) << step;
            }
            break;
        }
        default:
            if (step % 10 == 0) {
                const Int64 size = upTo(100'000);
                file.setSize(size);
                memory.setSize(size);
                memory.setPosition(size);
            }
            ASSERT_EQ(file.getSize(), memory.getSize()) << step;
        }
        ASSERT_EQ(file.getPosition(), memory.getPosition()) << step;
    }
    file.getSize();
    EXPECT_EQ(OnTheHost(mFile), memory.AsView());
}

TEST_F(FileBufferTest, SmallWritesAreGathered)
{
    TFileStream stream(mPath, fmCreate);
    WriteText(stream, "abc");
    EXPECT_EQ(stream.getPosition(), 3);
    EXPECT_EQ(OnTheHost(mFile), "");
    EXPECT_EQ(stream.getSize(), 3);
    EXPECT_EQ(OnTheHost(mFile), "abc");
    WriteText(stream, "def");
    stream.setPosition(1);
    EXPECT_EQ(OnTheHost(mFile), "abc");
    EXPECT_EQ(ReadSome(stream, 3), "bcd");
    EXPECT_EQ(OnTheHost(mFile), "abcdef");
    WriteText(stream, "X");
    stream.setSize(6);
    EXPECT_EQ(OnTheHost(mFile), "abcdXf");
    WriteText(stream, std::string(100'000, 'z'));
    EXPECT_EQ(OnTheHost(mFile).size(), 100'006U);
}

TEST_F(FileBufferTest, TheHandleIsAtThePosition)
{
    TFileStream stream(mPath, fmCreate);
    WriteText(stream, "0123456789");
    stream.setPosition(2);
    EXPECT_EQ(ReadSome(stream, 2), "23");
    WriteText(stream, "xy");
    const System::NativeInt handle = stream.getHandle();
    EXPECT_EQ(OnTheHost(mFile), "0123xy6789");
    EXPECT_EQ(Sysutils::FileSeek(handle, 0, 1), 6);
    // From now on both move the same position.
    EXPECT_EQ(Sysutils::FileWrite(handle, "ab", 2), 2);
    EXPECT_EQ(stream.getPosition(), 8);
    EXPECT_EQ(ReadSome(stream, 9), "89");
    WriteText(stream, "!");
    EXPECT_EQ(OnTheHost(mFile), "0123xyab89!");

    THandleStream second(handle);
    second.setPosition(4);
    EXPECT_EQ(ReadSome(stream, 2), "xy");
}

TEST_F(FileBufferTest, WhatOthersWroteShowsBehindASeek)
{
    const auto writeElsewhere = [&](std::string_view text) {
        std::ofstream(mFile, std::ios::binary) << text;
    };
    writeElsewhere("old content");
    TFileStream stream(mPath, fmOpenRead | fmShareDenyNone);
    EXPECT_EQ(ReadSome(stream, 3), "old");
    writeElsewhere("new CONTENT");
    stream.setPosition(0);
    EXPECT_EQ(ReadSome(stream, 11), "new CONTENT");
    writeElsewhere("abc");
    stream.Seek(-3, soEnd);
    EXPECT_EQ(ReadSome(stream, 9), "abc");
    writeElsewhere("");
    stream.setPosition(0);
    EXPECT_EQ(ReadSome(stream, 9), "");
    writeElsewhere("longer");
    EXPECT_EQ(ReadSome(stream, 9), "longer") << "nothing was read ahead there";
}

TEST_F(FileBufferTest, AFlushHandsOverWhatIsGathered)
{
    TFileStream stream(mPath, fmCreate);
    WriteText(stream, "abc");
    stream.Flush();
    EXPECT_EQ(OnTheHost(mFile), "abc");
    WriteText(stream, "d");
    EXPECT_EQ(OnTheHost(mFile), "abc") << "it is gathered again";
    stream.Flush();
    stream.Flush();
    EXPECT_EQ(OnTheHost(mFile), "abcd");
    THandleStream unbuffered(stream.getHandle());
    EXPECT_NO_THROW(unbuffered.Flush());
    EXPECT_EQ(unbuffered.getPosition(), 4);
}

TEST_F(FileBufferTest, WithoutThePermissionToWriteNothingIsGathered)
{
    WriteText(*std::make_unique<TFileStream>(mPath, fmCreate), "abc");
    TFileStream reader(mPath, fmOpenRead);
    EXPECT_EQ(reader.Write("x", 1), 0);
    EXPECT_EQ(ReadSome(reader, 9), "abc");
    TFileStream pipe(u"\\dev\\null", fmOpenReadWrite);
    EXPECT_EQ(pipe.Write("x", 1), 1);
    EXPECT_EQ(ReadSome(pipe, 1), "");
}

TEST_F(FileBufferTest, PositionsAreThoseOfTheHost)
{
    TFileStream stream(mPath, fmCreate);
    EXPECT_EQ(stream.Seek(-1, soBeginning), -1);
    EXPECT_EQ(GetLastError(), ERROR_NEGATIVE_SEEK);
    EXPECT_EQ(stream.Seek(5, soBeginning), 5);
    EXPECT_EQ(stream.Seek(INT64_MAX, soCurrent), -1);
    EXPECT_EQ(stream.Seek(INT64_MIN, soEnd), -1);
    EXPECT_EQ(stream.getPosition(), 5);
    WriteText(stream, "x");
    EXPECT_EQ(stream.getSize(), 6);
    EXPECT_EQ(OnTheHost(mFile), std::string("\0\0\0\0\0x", 6));
}

// A child in which no file can grow beyond 100 bytes.

void LimitFiles()
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100, 100};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

TEST_F(FileBufferTest, DISABLED_ChildThatFillsTheDisk)
{
    LimitFiles();
    std::string told;
    {
        TFileStream stream(mPath, fmCreate | fmShareDenyNone);
        WriteText(stream, std::string(90, 'x'));
        WriteText(stream, std::string(20, 'y'));
        try {
            stream.getSize();
        } catch (const EWriteError&) {
            told += "size ";
        }
        EXPECT_EQ(stream.getPosition(), 100);
        EXPECT_EQ(stream.getSize(), 100);
        WriteText(stream, "z");
        // Somebody else's look at the file writes, the stream is told.
        Int64 ignored = 0;
        EXPECT_TRUE(Sysutils::FileModified(mPath, ignored));
        try {
            stream.Write("z", 1);
        } catch (const EWriteError&) {
            told += "write ";
        }
        WriteText(stream, "z");
        try {
            stream.Flush();
        } catch (const EWriteError&) {
            told += "flush ";
        }
        EXPECT_NO_THROW(stream.Write("z", 1));
        SetLastError(0);
    }
    told += GetLastError() == 0 ? "" : "end";
    Support::PrintResult(HasFailure() ? "failure" : told);
}

TEST_F(FileBufferTest, LostWritesAreTold)
{
    EXPECT_EQ(Support::RunChildTest("FileBufferTest.DISABLED_ChildThatFillsTheDisk"), "size write flush end");
}

} // namespace
