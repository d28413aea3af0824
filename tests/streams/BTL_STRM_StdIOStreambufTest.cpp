// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StdIOStreambuf.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_StdIOStream.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/CountingStreamSupport.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

using BTL::CStdInStream;
using Support::At;
using Support::CountingStream;
using System::Int64;
using System::UnicodeString;

namespace
{

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

} // namespace
