// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_OutStream.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/StreamStateSupport.h"
#include "support/TempFolder.h"

#include <limits>

#include <gtest/gtest.h>

using BTL::COutStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

namespace
{

TEST(OutStreamTest, WritesEachType)
{
    COutStream out;
    out << 'c' << true << static_cast<short>(-3) << static_cast<unsigned short>(4) << -5 << 6U << -7L << 8UL
        << Int64{-9} << System::UInt64{10} << ' ' << reinterpret_cast<const void*>(255) << ' '
        << static_cast<const char*>(nullptr) << "text" << u"ä€\u4E2D" << AnsiString("narrow")
        << UnicodeString(u"wide");
    EXPECT_EQ(out.str(0), "c1-34-56-78-910 255 text\xE4\x80?narrowwide");
    COutStream numbers;
    numbers << 0.1 << ' ' << 1e300 << ' ' << std::numeric_limits<Int64>::min() << ' ' << 0.1F;
    EXPECT_EQ(numbers.str(0), "0.1 1E300 -9223372036854775808 0.100000001490116");
}

TEST(OutStreamTest, WritesFormatsAndGivesTheTextBack)
{
    COutStream out;
    out.Write_VA("%d-%s", 5, "x").Write_VA(u"|%3d", 7).put('!').write("ab", 2).write("ab", -1);
    EXPECT_EQ(out.str(0), "5-x|  7!ab");
    EXPECT_EQ(out.str(8), "ab");
    EXPECT_EQ(out.str(10), "");
    EXPECT_EQ(out.str(-4), "5-x|  7!ab");
    EXPECT_EQ(out.tellp(), 10);
    out.seekp(1).put('+');
    out.seekp(0, std::ios_base::end) << AnsiString("a\4b", 3) << '\xFF';
    EXPECT_EQ(out.str(0), "5+x|  7!aba");
    EXPECT_EQ(out.str(12), "b\xFF");
    EXPECT_EQ(COutStream().str(0), "");
}

TEST(OutStreamTest, ShortWritesFail)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::SaveStringToFile(path, "abc");
    COutStream out(path, BTL::fomRead, BTL::fsmDenyNone);
    out << 5;
    EXPECT_EQ(Support::StateOf(out), "f0");
}

} // namespace
