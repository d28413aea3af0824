// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileBuffer.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileBufferSupport.h"
#include "platform/runtime/classes/Classes.h"
#include "support/ChildProgram.h"
#include "support/FileSizeLimit.h"

#include <fstream>
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

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
    WriteText(stream, "a");
    EXPECT_EQ(OnTheHost(mFile), "a") << "nothing goes on yet";
    WriteText(stream, "bc");
    EXPECT_EQ(stream.getPosition(), 3);
    EXPECT_EQ(OnTheHost(mFile), "a");
    EXPECT_EQ(stream.getSize(), 3);
    EXPECT_EQ(OnTheHost(mFile), "abc");
    WriteText(stream, "def");
    stream.setPosition(1);
    EXPECT_EQ(OnTheHost(mFile), "abc");
    EXPECT_EQ(ReadSome(stream, 3), "bcd");
    EXPECT_EQ(OnTheHost(mFile), "abcdef");
    WriteText(stream, "X");
    EXPECT_EQ(OnTheHost(mFile), "abcdXf");
    WriteText(stream, "Y");
    EXPECT_EQ(OnTheHost(mFile), "abcdXf");
    stream.setSize(6);
    EXPECT_EQ(OnTheHost(mFile), "abcdXY");
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

// Children in which no file can grow beyond some size, as if the disk were full.

TEST_F(FileBufferTest, DISABLED_ChildThatFillsTheDisk)
{
    constexpr Int64 edge = 65536;
    for (const Int64 limit : {Int64{0}, Int64{1}, Int64{100}, Int64{4095}, Int64{4096}, Int64{4097}, edge - 1,
                              edge, edge + 1, edge + 4097, 2 * edge}) {
        Support::LimitFileSize(static_cast<rlim_t>(limit));
        for (const Int64 piece :
             {Int64{1}, Int64{7}, Int64{4095}, Int64{4096}, Int64{4097}, edge - 1, edge, edge + 1}) {
            SCOPED_TRACE(std::to_string(limit) + " bytes in pieces of " + std::to_string(piece));
            const std::string bytes(static_cast<std::size_t>(piece), 'x');
            TFileStream stream(mPath, fmCreate);
            Int64 sum = 0;
            Int64 done = piece;
            while (done == piece) {
                done = stream.Write(bytes.data(), piece);
                sum += done;
            }
            EXPECT_EQ(sum, limit);
            EXPECT_EQ(stream.getPosition(), limit);
            EXPECT_EQ(stream.Write("x", 1), 0);
            EXPECT_NO_THROW(stream.Close());
            EXPECT_EQ(std::filesystem::file_size(mFile), static_cast<std::uintmax_t>(limit));
        }
    }
    Support::PrintResult(HasFailure() ? "failure" : "told at once");
}

TEST_F(FileBufferTest, AFullDiskShowsAtOnce)
{
    EXPECT_EQ(Support::RunChildTest("FileBufferTest.DISABLED_ChildThatFillsTheDisk"), "told at once");
}

TEST_F(FileBufferTest, DISABLED_ChildThatLosesTheRoomItHad)
{
    std::string told;
    const auto loseRoom = [](TFileStream& stream) {
        Support::LimitFileSize(RLIM_INFINITY);
        stream.setSize(90);
        WriteText(stream, std::string(5, 'x'));
        WriteText(stream, std::string(15, 'y'));
        Support::LimitFileSize(100);
    };
    TFileStream stream(mPath, fmCreate | fmShareDenyNone);
    loseRoom(stream);
    try {
        stream.getSize();
    } catch (const EWriteError&) {
        told += "size ";
    }
    EXPECT_EQ(stream.getPosition(), 100);
    EXPECT_EQ(stream.getSize(), 100);

    loseRoom(stream);
    // Somebody else's look at the file writes, the stream is told.
    Int64 ignored = 0;
    EXPECT_TRUE(Sysutils::FileModified(mPath, ignored));
    try {
        stream.Write("z", 1);
    } catch (const EWriteError&) {
        told += "write ";
    }
    loseRoom(stream);
    try {
        stream.Close();
    } catch (const EWriteError&) {
        told += "close ";
    }
    EXPECT_NO_THROW(stream.Close());

    auto last = std::make_unique<TFileStream>(mPath, fmOpenReadWrite);
    loseRoom(*last);
    SetLastError(0);
    last.reset();
    told += GetLastError() == 0 ? "" : "end";
    Support::PrintResult(HasFailure() ? "failure" : told);
}

TEST_F(FileBufferTest, LostWritesAreTold)
{
    EXPECT_EQ(Support::RunChildTest("FileBufferTest.DISABLED_ChildThatLosesTheRoomItHad"),
              "size write close end");
}

/// A file that may not grow, as for a user whose quota is used up, whoever runs the test.
TEST_F(FileBufferTest, AQuotaShowsAtOnce)
{
    const int file = memfd_create("quota", MFD_ALLOW_SEALING | MFD_CLOEXEC);
    ASSERT_GE(file, 0);
    ASSERT_EQ(ftruncate(file, 8192), 0);
    ASSERT_EQ(fcntl(file, F_ADD_SEALS, F_SEAL_GROW), 0);
    {
        TFileStream stream(System::FromUtf8("/proc/self/fd/" + std::to_string(file)), fmOpenReadWrite);
        Int64 sum = 0;
        for (int i = 0; i < 1000; ++i) {
            sum += stream.Write("0123456789", 10);
        }
        EXPECT_LE(sum, 8192);
        EXPECT_GE(sum, 8180);
        EXPECT_EQ(stream.getPosition(), sum);
        EXPECT_NO_THROW(stream.Close());
    }
    close(file);
}

TEST_F(FileBufferTest, ASmallDiskShowsAtOnce)
{
    const std::filesystem::path disk = Host("disk");
    std::filesystem::create_directory(disk);
    if (mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=80k") != 0) {
        GTEST_SKIP() << "Only the host's administrator may mount a disk.";
    }
    {
        TFileStream stream(System::FromUtf8((disk / "file").string()), fmCreate);
        Int64 sum = 0;
        Int64 done = 1000;
        const std::string bytes(1000, 'x');
        while (done == 1000) {
            done = stream.Write(bytes.data(), 1000);
            sum += done;
        }
        EXPECT_EQ(sum, 80 * 1024);
        EXPECT_NO_THROW(stream.Close());
    }
    TStringList lines;
    lines.setText(System::UnicodeString::StringOfChar(u'x', 90'000));
    EXPECT_THROW(lines.SaveToFile(System::FromUtf8((disk / "file").string())), EWriteError);
    umount(disk.c_str());
}

TEST_F(FileBufferTest, APipeWhoseReaderLeftIsAFailedWrite)
{
    const std::filesystem::path pipe = Host("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    TFileStream stream(System::FromUtf8(pipe.string()), fmOpenWrite);
    EXPECT_EQ(stream.Write("x", 1), 1);
    close(reader);
    EXPECT_EQ(stream.Write("x", 1), 0);
    EXPECT_THROW(WriteText(stream, "x"), EWriteError);
}

} // namespace
