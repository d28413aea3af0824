// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_StdIOStream.h"
#include "streams/BTL_STRM_StdStreamUtilities.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/ChildProgram.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <climits>
#include <csignal>
#include <sstream>

#include <gtest/gtest.h>

#include <sys/resource.h>

using BTL::CStdInStream;
using BTL::CStdOutStream;
using Classes::TMemoryStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

namespace
{

/// Counts how often bytes are read.
class CountingStream : public TMemoryStream
{
public:
    explicit CountingStream(int size)
    {
        for (int i = 0; i < size; ++i) {
            const char byte = static_cast<char>('a' + i % 26);
            WriteBuffer(&byte, 1);
        }
        setPosition(0);
    }
    ~CountingStream() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        ++reads;
        return TMemoryStream::Read(buffer, count);
    }

    int reads = 0;
};

char At(int position)
{
    return static_cast<char>('a' + position % 26);
}

TEST(StdInStreamTest, FillsItsBufferAsNeeded)
{
    CountingStream bytes(300);
    CStdInStream stream(&bytes, BTL::ssSync);
    for (int i = 0; i < 256; ++i) {
        ASSERT_EQ(stream.get(), At(i));
    }
    EXPECT_EQ(bytes.getPosition(), 256);
    EXPECT_EQ(bytes.reads, 1);
    EXPECT_EQ(stream.get(), At(256));
    EXPECT_EQ(stream.tellg(), 257);
    EXPECT_EQ(bytes.getPosition(), 300);
    std::string rest(60, ' ');
    stream.read(rest.data(), 60);
    EXPECT_EQ(stream.gcount(), 43);
    EXPECT_TRUE(stream.eof());
    const int reads = bytes.reads;
    stream.clear();
    EXPECT_EQ(stream.get(), std::char_traits<char>::eof());
    EXPECT_EQ(bytes.reads, reads) << "nothing is left to read";
}

TEST(StdInStreamTest, PutsBackWhatItRead)
{
    CountingStream bytes(600);
    CStdInStream stream(&bytes, BTL::ssSync);
    stream.ignore(256);
    EXPECT_EQ(stream.get(), At(256));
    for (int i = 0; i < 5; ++i) {
        stream.unget();
    }
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(bytes.reads, 2);
    EXPECT_EQ(stream.get(), At(252));
    stream.unget();
    EXPECT_FALSE(stream.unget().good());
    stream.clear();
    // A large read passes the buffer by.
    std::string block(300, ' ');
    stream.read(block.data(), 300);
    EXPECT_EQ(block[299], At(252 + 299));
    EXPECT_EQ(stream.tellg(), 552);
    stream.unget().unget();
    EXPECT_EQ(stream.get(), At(550));
    EXPECT_EQ(stream.tellg(), 551);
    EXPECT_EQ(stream.get(), At(551));
    EXPECT_EQ(stream.get(), At(552));
}

TEST(StdInStreamTest, SeeksWithinItsBuffer)
{
    CountingStream bytes(300);
    CStdInStream stream(&bytes, BTL::ssSync);
    stream.ignore(20);
    stream.seekg(5);
    EXPECT_EQ(stream.get(), At(5));
    stream.seekg(-1, std::ios_base::cur);
    EXPECT_EQ(stream.get(), At(5));
    EXPECT_EQ(bytes.reads, 1);
    EXPECT_EQ(bytes.getPosition(), 256);
    stream.seekg(280);
    EXPECT_EQ(bytes.getPosition(), 280);
    EXPECT_EQ(stream.get(), At(280));
    EXPECT_EQ(bytes.reads, 2);
    stream.seekg(0, std::ios_base::end);
    EXPECT_EQ(stream.tellg(), 300);
    stream.seekg(3);
    EXPECT_EQ(stream.get(), At(3));
}

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

TEST(StdInStreamTest, ExtremeTargetsStayWithinTheNumbers)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::SaveStringToFile(path, "0123456789");
    Classes::TFileStream file(path, Classes::fmOpenRead);
    CountingStream memory(10);
    for (Classes::TStream* const bytes :
         {static_cast<Classes::TStream*>(&file), static_cast<Classes::TStream*>(&memory)}) {
        for (const auto direction : {std::ios_base::beg, std::ios_base::cur, std::ios_base::end}) {
            for (const Int64 offset : {INT64_MAX, INT64_MIN, INT64_MIN + 1}) {
                CStdInStream stream(bytes, BTL::ssKeep);
                // In the middle of the buffer.
                stream.seekg(1).get();
                stream.seekg(offset, direction);
                EXPECT_EQ(stream.tellg(), bytes->getPosition());
                EXPECT_GE(stream.tellg(), 0) << offset;
                stream.clear();
                stream.seekg(3);
                EXPECT_EQ(stream.get(), bytes == &file ? '3' : At(3));
            }
        }
    }
}

/// Gives up to 100 bytes with each read, and raises from byte 300 on.
class BrokenStream : public CountingStream
{
public:
    BrokenStream() : CountingStream(600) {}
    ~BrokenStream() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        if (getPosition() >= 300) {
            throw Classes::EReadError(u"broken");
        }
        return CountingStream::Read(buffer, std::min<Int64>(count, 100));
    }
};

TEST(StdInStreamTest, AStreamThatRaisesLeavesTheBufferInOrder)
{
    std::string bytes(600, ' ');
    {
        BrokenStream broken;
        BTL::CStdInStreambuf buffer(&broken);
        EXPECT_EQ(buffer.sgetn(bytes.data(), 10), 10);
        EXPECT_THROW(buffer.sgetn(bytes.data(), 590), Classes::EReadError);
        EXPECT_EQ(buffer.GetPosition(), 310);
        EXPECT_EQ(buffer.sungetc(), At(309));
    }
    BrokenStream broken;
    BTL::CStdInStreambuf buffer(&broken);
    EXPECT_EQ(buffer.sgetc(), At(0));
    EXPECT_EQ(buffer.sgetn(bytes.data(), 256), 256);
    // The next filling reads 44 bytes and raises then.
    EXPECT_THROW(buffer.sgetc(), Classes::EReadError);
    EXPECT_EQ(buffer.sungetc(), At(255));
    EXPECT_EQ(buffer.sbumpc(), At(255));
}

/// The place of the fault that `action` raises.
template <class Action>
std::string FaultOf(Action action)
{
    try {
        action();
    } catch (const UTL::XAssert& fault) {
        return std::string(fault.getFile().c_str()) + " " + std::to_string(fault.getLine());
    }
    return "";
}

TEST(StdInStreamTest, MisuseIsAnInternalFault)
{
    Support::ScriptedBoxes boxes{IDYES, IDYES, IDYES};
    const std::string source = "BTL_STRM_StdIOStreambuf ";
    EXPECT_EQ(FaultOf([] { CStdInStream(nullptr, BTL::ssKeep); }), source + "48");
    CountingStream bytes(300);
    BTL::CStdInStreambuf buffer(&bytes);
    BTL::CStdInStreambuf other(buffer);
    EXPECT_EQ(FaultOf([&] { other = buffer; }), source + "55");
    buffer.Release();
    EXPECT_EQ(FaultOf([&] { buffer.Release(); }), source + "63");
    EXPECT_EQ(boxes.TakeShown().size(), 3U);
    auto* const counted = new BTL::CStdInStreambuf(&bytes);
    counted->AddRef();
    counted->AddRef();
    counted->Release();
    EXPECT_EQ(counted->getStream(), &bytes);
    counted->Release();
}

TEST(StdInStreamTest, AStreamMovedBehindItsBackIsAnInternalFault)
{
    Support::ScriptedBoxes boxes{IDOK, IDOK, IDOK, IDYES};
    CountingStream bytes(300);
    BTL::CStdInStreambuf buffer(&bytes);
    EXPECT_EQ(buffer.sgetc(), At(0));
    bytes.setPosition(0);
    EXPECT_EQ(buffer.GetPosition(), 0);
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text,
              UTL::XAssert::Msg("Unexpected Stream-Position", "BTL_STRM_StdIOStreambuf", 305));
    EXPECT_EQ(FaultOf([&] { buffer.SetPosition(3); }), "BTL_STRM_StdIOStreambuf 268");
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
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100, 100};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    const Support::TempFolder folder;
    BTL::CStdOutFileStream stream(System::FromUtf8((folder.Path() / "file").string()), BTL::fomCreate,
                                  BTL::fsmDenyNone);
    stream << std::string(110, 'x');
    const bool wasGood = stream.good();
    stream << std::flush;
    Support::PrintResult(wasGood && stream.bad() ? "told" : "lost");
}

TEST(StdFileStreamTest, AFlushTellsOfAFullDisk)
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

TEST(StdStreamUtilitiesTest, ReadPieces)
{
    std::istringstream stream("ab;cd,x\n12;-7x-y;99999999999 word");
    EXPECT_EQ(BTL::ReadStringUntil(stream, ",;"), "ab");
    EXPECT_EQ(stream.peek(), 'c');
    EXPECT_EQ(BTL::ReadStringUntil(stream, ','), "cd");
    BTL::SkipLine(stream);
    EXPECT_EQ(BTL::ReadInteger(stream), 12);
    EXPECT_EQ(BTL::ReadIntegerUnget(stream, 1), -7);
    EXPECT_EQ(BTL::ReadIntegerUnget(stream, 1), 1) << "only a sign";
    EXPECT_EQ(stream.get(), 'y');
    EXPECT_EQ(BTL::ReadIntegerDef(stream, 5), 5);
    EXPECT_EQ(BTL::ReadInt64(stream), 99'999'999'999);
    AnsiString word;
    BTL::operator>>(stream, word);
    EXPECT_EQ(word, "word");
    EXPECT_EQ(BTL::ReadInt64Def(stream, 8), 8);
    EXPECT_EQ(BTL::ReadInt64Unget(stream, 9), 9);
    EXPECT_THROW(BTL::ReadInteger(stream), Sysutils::EConvertError);

    std::istringstream bytes("abcdef");
    EXPECT_EQ(BTL::ReadBytes(bytes, 3), AnsiString("abc\0", 4));
    EXPECT_EQ(BTL::ReadBytes(bytes, 0), "");
    BTL::SkipBytes(bytes, 1);
    EXPECT_EQ(BTL::ReadBytes(bytes, 4), AnsiString("ef\0\0\0", 5));
    std::istringstream longWord(std::string(600, 'x') + " y");
    BTL::operator>>(longWord, word);
    EXPECT_EQ(word.Length(), 511);
    BTL::operator>>(longWord, word);
    EXPECT_EQ(word.Length(), 89);
}

TEST(StdStreamUtilitiesTest, KnowPlacesAndLines)
{
    std::istringstream stream("one\n\n" + std::string(3000, 'x') + "\nlast");
    EXPECT_EQ(BTL::CountLines(stream, -1), 3);
    EXPECT_EQ(BTL::CountLines(stream, 5), 2);
    EXPECT_EQ(BTL::GetReadPosition(stream), 6) << "the byte behind the limit is read too";
    EXPECT_EQ(BTL::GetSize(stream), 3010);
    EXPECT_EQ(stream.tellg(), 6);
    const struct
    {
        int position;
        AnsiString line;
    } cases[] = {{0, "one"},     {3, "one"},     {4, ""},
                 {3006, "last"}, {3010, "last"}, {2000, AnsiString::StringOfChar('x', 1023)}};
    for (const auto& [position, line] : cases) {
        stream.clear();
        stream.seekg(position);
        EXPECT_EQ(BTL::GetCurrStrLine(stream), line) << position;
        EXPECT_EQ(stream.tellg(), position);
    }
    stream.seekg(0);
    BTL::SkipUntil(stream, '\n');
    BTL::SkipWhitespaces(stream);
    EXPECT_EQ(stream.tellg(), 5);
}

TEST(StdStreamUtilitiesTest, ReadADataFile)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::CStdFileInStreamEx missing(path);
    EXPECT_TRUE(missing.fail());
    EXPECT_EQ(missing.getCurrLine(), 0);
    EXPECT_EQ(missing.getCurrStrLine(), "");
    EXPECT_TRUE(missing.fail()) << "stays so";
    EXPECT_TRUE(BTL::CStdFileInStreamEx(System::FromUtf8(folder.Path().string())).fail());
    {
        BTL::CStdFileOutStreamEx out(path);
        out << "head\nT;*N;12;7 text a,b;\n";
    }
    Classes::TFileStream append(path, Classes::fmOpenReadWrite | Classes::fmShareDenyNone);
    append.Seek(0, Classes::soEnd);
    append.WriteBuffer("end", 3);
    BTL::CStdFileInStreamEx file(path);
    EXPECT_EQ(file.getSize(), 28) << "what is written is there to read";
    file.SkipLine();
    EXPECT_EQ(file.getCurrLine(), 1);
    EXPECT_EQ(file.ReadTypeChar(), 'T');
    char type = 0;
    EXPECT_TRUE(file.ReadTypeCharEx(type, '*'));
    EXPECT_EQ(type, 'N');
    EXPECT_EQ(file.ReadInteger(';'), 12);
    EXPECT_EQ(file.ReadInt64(), 7);
    EXPECT_EQ(file.ReadString(), "text");
    EXPECT_EQ(file.getCurrStrLine(), "T;*N;12;7 text a,b;");
    EXPECT_EQ(file.ReadUntil(",;"), " a");
    EXPECT_EQ(file.ReadUntil('\n'), "b;");
    EXPECT_EQ(file.ReadBytes(2), AnsiString("en\0", 3));
    EXPECT_EQ(file.getPosition(), 27);
    EXPECT_EQ(file.ReadOpChar(), 'd');
    EXPECT_TRUE(file.eof());
    EXPECT_EQ(file.getCurrLine(), 2);
    EXPECT_EQ(file.tellg(), 28);
    EXPECT_EQ(file.get(), std::char_traits<char>::eof());
    EXPECT_EQ(file.getCurrStrLine(), "end");
    EXPECT_EQ(file.tellg(), 28);
}

TEST(StdStreamUtilitiesTest, WhatTheyWriteIsReadAnew)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::SaveStringToFile(path, "old content");
    BTL::CFileStream reader(path);
    EXPECT_EQ(reader.ReadAll(), "old content");
    BTL::CStdFileOutStreamEx(path) << "new";
    EXPECT_EQ(reader.ReadAll(), "new");
}

TEST(StdStreamUtilitiesTest, AFileThatGoesBadRaises)
{
    BTL::CStdFileOutStreamEx out(u"\\dev\\full");
    EXPECT_THROW(out << "x" << std::flush, std::ios_base::failure);
}

} // namespace
