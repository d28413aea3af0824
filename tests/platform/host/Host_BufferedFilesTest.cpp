// SPDX-License-Identifier: MIT
#include "platform/host/Host_BufferedFiles.h"

#include "platform/host/Host_FileBufferSupport.h"
#include "platform/host/Host_FileMove.h"
#include "platform/runtime/classes/Classes.h"
#include "support/ChildProgram.h"

#include <array>
#include <thread>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

using namespace Classes;
using Support::OnTheHost;
using Support::ReadSome;
using Support::WriteText;
using System::Int64;

namespace
{

using BufferedFilesTest = Support::BufferedFileTest;

TEST_F(BufferedFilesTest, OthersSeeWhatIsGathered)
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

TEST_F(BufferedFilesTest, WritersKeepTheOrderOfTheirWrites)
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

TEST_F(BufferedFilesTest, OtherThreadsMayOpenWhatIsWritten)
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

TEST(BufferedFilesEndTest, DISABLED_ChildThatEnds)
{
    static TFileStream* stream = nullptr;
    stream = new TFileStream(Support::PathOfChild(), fmCreate);
    WriteText(*stream, "written before");
    Support::PrintResult("");
}

TEST_F(BufferedFilesTest, TheEndOfTheProgramWrites)
{
    Support::TellChildren(mFile);
    Support::RunChildTest("BufferedFilesEndTest.DISABLED_ChildThatEnds");
    EXPECT_EQ(OnTheHost(mFile), "written before");
}

TEST_F(BufferedFilesTest, AChildOfTheProcessWritesNothingTwice)
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
