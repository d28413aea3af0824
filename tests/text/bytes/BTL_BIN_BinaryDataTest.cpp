// SPDX-License-Identifier: MIT
#include "text/bytes/BTL_BIN_BinaryData.h"

#include "text/bytes/BytesSupport.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

using Support::AllBytes;
using System::AnsiString;
using System::UnicodeString;
using System::UTF8String;

namespace
{

TEST(BinaryDataTest, HexHasTwoLowerDigitsPerByte)
{
    EXPECT_EQ(BTL::BinaryDataToHexW("abc", 3), u"616263");
    EXPECT_EQ(BTL::BinaryDataToHexA(AnsiString("\xFF\0\x0A", 3)), "ff000a");
    EXPECT_EQ(BTL::BinaryDataToHexW("abc", -1), u"");
    EXPECT_EQ(BTL::BinaryDataToHexA(nullptr, 3), "");
    EXPECT_EQ(BTL::HexToBinaryData(BTL::BinaryDataToHexW(AllBytes())), AllBytes());
    EXPECT_EQ(BTL::HexToBinaryData(BTL::BinaryDataToHexA(AllBytes())), AllBytes());
}

TEST(BinaryDataTest, HexIsReadWithoutComplaint)
{
    const struct
    {
        const char16_t* hex;
        const char* bytes;
    } cases[] = {{u"616", "a"},
                 {u"6", ""},
                 {u"4A4a", "JJ"},
                 {u"z1 2", "\x01\x02"},
                 {u"\u0661\u01316G", "\0`"},
                 {u"/:", "\0"},
                 {u"@1g2", "\x01\x02"}};
    for (const auto& [hex, bytes] : cases) {
        const UnicodeString text(hex);
        const AnsiString expected(bytes, text.Length() / 2);
        EXPECT_EQ(BTL::HexToBinaryData(text), expected) << text;
        EXPECT_EQ(BTL::HexToBinaryData(AnsiString(text)), expected) << text;
    }
}

TEST(BinaryDataTest, HexFillsABufferAsFarAsItGoes)
{
    std::array<char, 4> buffer{'w', 'x', 'y', 'z'};
    BTL::HexToBinaryData(UnicodeString(u"41424"), buffer.data(), 4);
    EXPECT_EQ(std::string_view(buffer.data(), 4), "AByz");
    BTL::HexToBinaryData(AnsiString("434445"), buffer.data(), 1);
    EXPECT_EQ(std::string_view(buffer.data(), 4), "CByz");
    BTL::HexToBinaryData(AnsiString("434445"), buffer.data(), -1);
    BTL::HexToBinaryData(AnsiString("434445"), nullptr, 4);
    EXPECT_EQ(std::string_view(buffer.data(), 4), "CByz");
}

TEST(BinaryDataTest, TextSafeFormMarksControlBytes)
{
    const AnsiString bytes("\0\x1F \xFF", 4);
    EXPECT_EQ(BTL::BinaryDataToStringW(bytes), u"\u0001!\u0001@ \u00FF");
    EXPECT_EQ(BTL::BinaryDataToStringA(bytes), "\x01!\x01@ \xFF");
    EXPECT_EQ(BTL::BinaryDataToUTF8(bytes), UTF8String("\x01!\x01@ \xC3\xBF"));
    EXPECT_EQ(BTL::BinaryDataToStringW(AllBytes().SubString(33)).Length(), 256 - 32);
    EXPECT_EQ(BTL::StringToBinaryData(BTL::BinaryDataToStringW(AllBytes())), AllBytes());
    EXPECT_EQ(BTL::StringToBinaryData(BTL::BinaryDataToStringA(AllBytes())), AllBytes());
    EXPECT_EQ(BTL::UTF8ToBinaryData(BTL::BinaryDataToUTF8(AllBytes())), AllBytes());
}

TEST(BinaryDataTest, AnyTextIsReadAsTextSafe)
{
    EXPECT_EQ(BTL::StringToBinaryDataW(u"a\u0001"), "a");
    EXPECT_EQ(BTL::StringToBinaryDataA("a\x01"), "a");
    EXPECT_EQ(BTL::StringToBinaryDataW(u"\u0001\u0001a"), "\xE0"
                                                          "a");
    EXPECT_EQ(BTL::StringToBinaryDataW(u"\u4E2D\u0101"), "\x2D\x01");
}

TEST(BinaryDataTest, ArraysAreEqualByTheirBytes)
{
    using TBytes = System::DynamicArray<unsigned char>;
    const TBytes bytes{1, 0, 255};
    EXPECT_TRUE(BTL::IsEqual(TBytes(), TBytes()));
    EXPECT_TRUE(BTL::IsEqual(bytes, bytes));
    EXPECT_TRUE(BTL::IsEqual(bytes, bytes.Copy()));
    EXPECT_FALSE(BTL::IsEqual(bytes, TBytes{1, 0}));
    EXPECT_FALSE(BTL::IsEqual(bytes, TBytes{1, 0, 254}));
    EXPECT_FALSE(BTL::IsEqual(TBytes(), bytes));
}

} // namespace
