// SPDX-License-Identifier: MIT
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileMove.h"
#include "platform/runtime/classes/Classes.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Classes;
using System::Int64;
using System::UnicodeString;

namespace
{

/// What others than this library see.
std::string OnTheHost(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string ReadSome(TStream& stream, Int64 count)
{
    std::string bytes(static_cast<std::size_t>(count), '\0');
    bytes.resize(static_cast<std::size_t>(stream.Read(bytes.data(), count)));
    return bytes;
}

void WriteText(TStream& stream, std::string_view text)
{
    stream.WriteBuffer(text.data(), static_cast<Int64>(text.size()));
}

class FileBufferTest : public testing::Test
{
protected:
    Support::TempFolder mFolder;
    const std::filesystem::path mFile = mFolder.Path() / "data";
    const UnicodeString mPath = System::FromUtf8(mFile.string());
};

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

TEST_F(FileBufferTest, OthersSeeWhatIsGathered)
{
    TFileStream writer(mPath, fmCreate | fmShareDenyNone);
    WriteText(writer, "one ");
    TFileStream reader(mPath, fmOpenRead | fmShareDenyNone);
    EXPECT_EQ(ReadSome(reader, 100), "one ");
    EXPECT_EQ(ReadSome(reader, 100), "");
    WriteText(writer, "two ");
    EXPECT_EQ(ReadSome(reader, 100), "two ");
    WriteText(writer, "three");
    EXPECT_EQ(reader.getSize(), 13);
    // What the reader has in memory gets old.
    reader.setPosition(0);
    EXPECT_EQ(ReadSome(reader, 1), "o");
    writer.setPosition(1);
    WriteText(writer, "NE");
    EXPECT_EQ(ReadSome(reader, 3), "NE ");

    const System::NativeInt handle = Sysutils::FileOpen(mPath, fmOpenReadWrite | fmShareDenyNone);
    std::array<char, 8> bytes{};
    WriteText(writer, "/");
    EXPECT_EQ(Sysutils::FileRead(handle, bytes.data(), 4), 4);
    EXPECT_EQ(std::string_view(bytes.data(), 4), "oNE/");
    EXPECT_EQ(Sysutils::FileWrite(handle, "TWO", 3), 3);
    EXPECT_EQ(ReadSome(reader, 100), "TWO three");
    writer.Seek(0, soEnd);
    WriteText(writer, "+");
    EXPECT_EQ(Sysutils::FileSeek(handle, 0, 2), 14);
    Sysutils::FileClose(handle);

    WriteText(writer, "++");
    Sysutils::TSearchRec found;
    ASSERT_EQ(Sysutils::FindFirst(mPath, Sysutils::faAnyFile, found), 0);
    EXPECT_EQ(found.Size, 16);
    WriteText(writer, "+");
    ASSERT_TRUE(CopyFileW(mPath, mPath + u"2", true));
    EXPECT_EQ(OnTheHost(mFile.string() + "2"), "oNE/TWO three++++");
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

TEST_F(FileBufferTest, WritersKeepTheOrderOfTheirWrites)
{
    TFileStream first(mPath, fmCreate | fmShareDenyNone);
    TFileStream second(mPath, fmOpenWrite | fmShareDenyNone);
    WriteText(first, "aaaa");
    WriteText(second, "bb");
    first.setPosition(1);
    WriteText(first, "c");
    EXPECT_EQ(second.getSize(), 4);
    EXPECT_EQ(OnTheHost(mFile), "bcaa");
    WriteText(first, "d");
    const TFileStream third(mPath, fmCreate | fmShareDenyNone);
    EXPECT_EQ(third.getSize(), 0);
    EXPECT_EQ(first.getSize(), 0);
}

TEST_F(FileBufferTest, OtherThreadsMayOpenWhatIsWritten)
{
    TFileStream writer(mPath, fmCreate | fmShareDenyNone);
    std::thread reader([&] {
        Int64 size = 0;
        while (size < 10'000) {
            const Int64 now = TFileStream(mPath, fmOpenRead | fmShareDenyNone).getSize();
            EXPECT_GE(now, size);
            size = now;
        }
    });
    for (int i = 0; i < 10'000; ++i) {
        WriteText(writer, "x");
    }
    reader.join();
    EXPECT_EQ(writer.getSize(), 10'000);
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

/// The file that the parent tells a child.
UnicodeString PathOfChild()
{
    const char* const path = std::getenv("FILE_BUFFER_TEST");
    return path == nullptr ? UnicodeString() : System::FromUtf8(path);
}

TEST(FileBufferEndTest, DISABLED_ChildThatEnds)
{
    static TFileStream* stream = nullptr;
    stream = new TFileStream(PathOfChild(), fmCreate);
    WriteText(*stream, "written before");
    Support::PrintResult("");
}

TEST_F(FileBufferTest, TheEndOfTheProgramWrites)
{
    setenv("FILE_BUFFER_TEST", mFile.c_str(), 1);
    Support::RunChildTest("FileBufferEndTest.DISABLED_ChildThatEnds");
    EXPECT_EQ(OnTheHost(mFile), "written before");
}

TEST(FileBufferEndTest, DISABLED_ChildThatOpens)
{
    const UnicodeString path = PathOfChild();
    std::string told;
    for (const System::Word mode : {fmOpenRead, fmOpenWrite, fmOpenReadWrite}) {
        try {
            const TFileStream stream(path, static_cast<System::Word>(mode | fmShareDenyNone));
            told += "opened ";
        } catch (const EFOpenError&) {
            told += std::to_string(GetLastError()) + " ";
        }
    }
    Support::PrintResult(told);
}

TEST_F(FileBufferTest, ExclusiveFilesAreRefusedToAnotherProcess)
{
    setenv("FILE_BUFFER_TEST", mFile.c_str(), 1);
    auto stream = std::make_unique<TFileStream>(mPath, fmCreate | fmShareExclusive);
    EXPECT_THROW(TFileStream(mPath, fmOpenRead | fmShareDenyNone), EFOpenError);
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(Support::RunChildTest("FileBufferEndTest.DISABLED_ChildThatOpens"), "32 32 32 ");
    stream.reset();
    EXPECT_EQ(Support::RunChildTest("FileBufferEndTest.DISABLED_ChildThatOpens"), "opened opened opened ");
}

TEST_F(FileBufferTest, AChildOfTheProcessWritesNothingTwice)
{
    TFileStream stream(mPath, fmCreate);
    WriteText(stream, "once");
    const pid_t child = fork();
    if (child == 0) {
        stream.setSize(4);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(OnTheHost(mFile), "once");
}

} // namespace
