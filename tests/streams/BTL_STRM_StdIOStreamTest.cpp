// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StdIOStream.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/CountingStreamSupport.h"
#include "streams/ForwardOnlySupport.h"
#include "support/ChildProgram.h"
#include "support/FileSizeLimit.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <fstream>

#include <gtest/gtest.h>

using BTL::CStdInStream;
using BTL::CStdOutStream;
using Classes::TMemoryStream;
using Support::At;
using Support::CountingStream;
using System::UnicodeString;

namespace
{

TEST(StdInStreamTest, StartsWhereItIsToldTo)
{
    const struct
    {
        BTL::EStreamSync sync;
        int first;
    } cases[] = {{BTL::ssKeep, 10}, {BTL::ssSync, 10}, {BTL::ssRewind, 0}};
    for (const auto& [sync, first] : cases) {
        CountingStream bytes(300);
        bytes.setPosition(10);
        CStdInStream stream(&bytes, sync);
        EXPECT_EQ(stream.tellg(), first);
        EXPECT_EQ(stream.get(), At(first));
    }
}

TEST(StdInStreamTest, EachNullStreamIsAnEmptyOneOfItsOwn)
{
    const Support::ScriptedBoxes boxes{IDNO, IDNO};
    CStdOutStream out(nullptr, BTL::ssKeep);
    out << "text";
    CStdInStream in(nullptr, BTL::ssKeep);
    EXPECT_EQ(in.get(), std::char_traits<char>::eof());
}

TEST(StdOutStreamTest, WritesAtOnce)
{
    TMemoryStream bytes;
    bytes.WriteBuffer("0123456789", 10);
    bytes.setPosition(4);
    CStdOutStream stream(&bytes, BTL::ssSync);
    stream << "ab" << 5;
    EXPECT_EQ(bytes.AsView(), "0123ab5789");
    EXPECT_EQ(stream.tellp(), 7);
    stream.seekp(-1, std::ios_base::end).put('x');
    EXPECT_EQ(bytes.AsView(), "0123ab578x");
    CStdOutStream(&bytes, BTL::ssRewind).write("XY", 2);
    EXPECT_EQ(bytes.AsView(), "XY23ab578x");
    CStdOutStream(&bytes, BTL::ssKeep) << "z";
    EXPECT_EQ(bytes.AsView(), "XYz3ab578x");
}

TEST(StdOutStreamTest, FailedWritesPassThrough)
{
    Classes::TFileStream full(u"\\dev\\full", Classes::fmOpenWrite | Classes::fmShareDenyNone);
    BTL::CStdOutStreambuf buffer(&full);
    EXPECT_THROW(buffer.sputn("ab", 2), Classes::EWriteError);
    EXPECT_THROW(buffer.sputc('a'), Classes::EWriteError);
    CStdOutStream stream(&full, BTL::ssKeep);
    stream << "ab";
    EXPECT_TRUE(stream.bad());
}

std::string OnTheHost(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(StdFileStreamTest, AFlushHandsTheBytesToTheHost)
{
    const Support::TempFolder folder;
    const std::filesystem::path file = folder.Path() / "file";
    BTL::CStdOutFileStream stream(System::FromUtf8(file.string()), BTL::fomCreate, BTL::fsmDenyNone);
    stream << "ab" << std::flush;
    EXPECT_EQ(OnTheHost(file), "ab");
    stream << "cd" << std::endl;
    EXPECT_EQ(OnTheHost(file), "abcd\n");
}

TEST(StdFileStreamTest, DISABLED_ChildThatFillsTheDisk)
{
    Support::LimitFileSize(100);
    const Support::TempFolder folder;
    BTL::CStdOutFileStream stream(System::FromUtf8((folder.Path() / "file").string()), BTL::fomCreate,
                                  BTL::fsmDenyNone);
    stream << std::string(110, 'x');
    Support::PrintResult(stream.bad() ? "told" : "lost");
}

TEST(StdFileStreamTest, AFullDiskShowsAtOnce)
{
    EXPECT_EQ(Support::RunChildTest("StdFileStreamTest.DISABLED_ChildThatFillsTheDisk"), "told");
}

TEST(StdFileStreamTest, OwnTheirFiles)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    EXPECT_THROW(BTL::CStdOutFileStream{path}, Classes::EFOpenError);
    EXPECT_THROW(BTL::CStdInFileStream{path}, Classes::EFOpenError);
    BTL::CStdOutFileStream(path, BTL::fomCreate, BTL::fsmDenyNone) << "one two";
    BTL::CStdOutFileStream(path, BTL::fomAppend, BTL::fsmDenyNone) << " three";
    BTL::CStdOutFileStream(path) << "ONE";
    std::string word;
    BTL::CStdInFileStream in(path);
    in >> word >> word >> word;
    EXPECT_EQ(word, "three");
    EXPECT_EQ(BTL::LoadStringFromFile(path), "ONE two three");
    EXPECT_THROW(BTL::CStdInFileStream(path, Classes::fmOpenRead | Classes::fmShareExclusive),
                 Classes::EFOpenError);
}

class StdOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, StdOfForwardOnlyTest, Support::EveryForwardKind);

TEST_P(StdOfForwardOnlyTest, LinesAreRead)
{
    std::string content;
    for (int i = 0; i < 5000; ++i) {
        content += "line " + std::to_string(i) + "\n";
    }
    for (const auto sync : {BTL::ssKeep, BTL::ssSync, BTL::ssRewind}) {
        BTL::CStdInStream stream(With(content), sync);
        int count = 0;
        for (std::string line; std::getline(stream, line); ++count) {
            ASSERT_EQ(line, "line " + std::to_string(count));
        }
        EXPECT_EQ(count, 5000);
        EXPECT_TRUE(stream.eof());
    }
}

TEST_P(StdOfForwardOnlyTest, SeeksFailAndLoseNothing)
{
    BTL::CStdInStream stream(With("abcdef"), BTL::ssSync);
    EXPECT_EQ(stream.get(), 'a');
    EXPECT_EQ(stream.tellg(), std::streampos(-1));
    for (const auto direction : {std::ios_base::beg, std::ios_base::cur, std::ios_base::end}) {
        EXPECT_TRUE(stream.seekg(1, direction).fail());
        EXPECT_FALSE(stream.bad());
        stream.clear();
    }
    EXPECT_EQ(stream.get(), 'b');
    EXPECT_EQ(stream.unget().get(), 'b');
    std::string rest(10, '.');
    stream.read(rest.data(), 10);
    EXPECT_EQ(rest.substr(0, 4), "cdef");
    EXPECT_EQ(stream.gcount(), 4);
}

class StdFileOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(NamedPipe, StdFileOfForwardOnlyTest,
                         testing::Values(Support::EForwardKind::NamedPipe));

TEST_P(StdFileOfForwardOnlyTest, AFileMayBeANamedPipe)
{
    BTL::CStdInFileStream stream(NamedPipe("one\ntwo\n"));
    std::string first;
    std::string second;
    EXPECT_TRUE(std::getline(std::getline(stream, first), second));
    EXPECT_EQ(first + second, "onetwo");
    EXPECT_FALSE(std::getline(stream, first));
}

} // namespace
