// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_AStream.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_InStream.h"
#include "streams/BTL_STRM_OutStream.h"
#include "streams/StreamStateSupport.h"
#include "support/ScriptedBoxes.h"

#include <algorithm>
#include <span>

#include <gtest/gtest.h>

using BTL::CInStream;
using BTL::COutStream;
using System::AnsiString;
using System::Int64;

namespace
{

/// Raises behind some bytes.
class BrokenStream : public Classes::TMemoryStream
{
public:
    ~BrokenStream() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        if (getPosition() >= 3) {
            throw Classes::EReadError(u"broken");
        }
        return TMemoryStream::Read(buffer, std::min<Int64>(count, 3 - getPosition()));
    }
    Int64 Write(const void* buffer, Int64 count) override
    {
        if (getPosition() + count > 5) {
            throw Classes::EWriteError(u"broken");
        }
        return TMemoryStream::Write(buffer, count);
    }
};

/// Raises at the question whether it is at its end.
class SizelessStream : public Classes::TMemoryStream
{
public:
    ~SizelessStream() override = default;
    Int64 getSize() const override { throw Classes::EStreamError(u"no size"); }
};

TEST(AStreamTest, ExceptionsOfTheStreamSetBad)
{
    const auto reads = {+[](CInStream& stream) { stream.get(); },
                        +[](CInStream& stream) {
                            int value = 0;
                            stream >> value;
                        },
                        +[](CInStream& stream) {
                            AnsiString value;
                            stream >> value;
                        },
                        +[](CInStream& stream) {
                            char buffer[8];
                            stream.getline(buffer, 8);
                        },
                        +[](CInStream& stream) {
                            char buffer[8];
                            stream.read(buffer, 8);
                        }};
    for (const auto& read : reads) {
        BrokenStream broken;
        broken.WriteBuffer("12345", 5);
        CInStream stream(&broken, BTL::ssRewind);
        stream.seekg(3);
        EXPECT_THROW(read(stream), Classes::EReadError);
        EXPECT_EQ(Support::StateOf(stream), "b3");
    }
    // A single character needs no size.
    for (const auto& read : std::span(reads.begin(), reads.end()).subspan(1)) {
        SizelessStream sizeless;
        CInStream stream(&sizeless, BTL::ssKeep);
        EXPECT_THROW(read(stream), Classes::EStreamError);
        EXPECT_TRUE(stream.bad());
    }
    BrokenStream broken;
    COutStream stream(&broken, BTL::ssKeep);
    EXPECT_THROW(stream << "123456", Classes::EWriteError);
    EXPECT_TRUE(stream.bad());
}

TEST(AStreamTest, SurplusReleasesAreInternalFaults)
{
    const Support::ScriptedBoxes boxes{IDYES, IDYES, IDNO};
    COutStream stream;
    stream.Release();
    try {
        stream.Release();
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getExpression(), u"Unexpected AStream release.");
        EXPECT_EQ(fault.getFile(), "BTL_STRM_AStream.cpp");
        EXPECT_EQ(fault.getLine(), 140);
    }
    EXPECT_THROW(CInStream(nullptr, BTL::ssKeep), UTL::XAssert);
    EXPECT_EQ(CInStream(nullptr, BTL::ssKeep).get(), '\0');
}

} // namespace
