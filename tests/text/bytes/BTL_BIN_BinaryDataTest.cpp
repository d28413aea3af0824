// SPDX-License-Identifier: MIT
#include "text/bytes/BTL_BIN_BinaryData.h"
#include "text/bytes/BTL_CRYPT_Crypt.h"

#include <array>

#include <gtest/gtest.h>

using System::AnsiString;
using System::UnicodeString;
using System::UTF8String;

namespace
{

AnsiString AllBytes()
{
    AnsiString bytes;
    for (int i = 0; i < 256; ++i) {
        bytes += static_cast<char>(i);
    }
    return bytes;
}

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

TEST(CryptTest, ScrambledTextComesBack)
{
    const UnicodeString all(AllBytes());
    for (const UnicodeString& text : {UnicodeString(u"a"), UnicodeString(u"Kennwort €"), all}) {
        const UnicodeString hex = BTL::Encrypt(text);
        EXPECT_EQ(hex.Length(), 2 * (text.Length() + 4));
        EXPECT_EQ(hex, hex.LowerCase());
        EXPECT_EQ(BTL::Decrypt(hex), text);
        EXPECT_EQ(BTL::Decrypt(hex.UpperCase()), text);
        EXPECT_NE(BTL::Encrypt(text), hex);
    }
    EXPECT_EQ(BTL::Encrypt(u""), u"");
    EXPECT_EQ(BTL::Decrypt(u""), u"");
    EXPECT_EQ(BTL::Decrypt(BTL::Encrypt(u"\u4E2D")), u"?");
}

TEST(CryptTest, AnyHexGivesAText)
{
    for (const char16_t* hex : {u"0", u"00", u"0011", u"001122", u"no hex"}) {
        EXPECT_EQ(BTL::Decrypt(hex), u"") << UnicodeString(hex);
    }
    EXPECT_EQ(BTL::Decrypt(u"0011223344").Length(), 1);
}

TEST(CryptTest, ByteStringsKeepTheirLengthAndComeBack)
{
    AnsiString bytes;
    for (int length = 0; length <= 600; ++length) {
        const AnsiString scrambled = BTL::EncryptCLA(bytes);
        ASSERT_EQ(scrambled.Length(), length);
        ASSERT_EQ(BTL::DecryptCLA(scrambled), bytes);
        bytes += static_cast<char>(length * 7 % 255 + 1);
    }
    EXPECT_NE(BTL::EncryptCLA("secret"), "secret");
}

/// Values once written must stay readable: a change of the tables would lose them.
TEST(CryptTest, StoredValuesStayReadable)
{
    EXPECT_EQ(BTL::Decrypt(u"bc2797763869254bcc682b34298a32"), u"Größe 4,7 €");
    EXPECT_EQ(BTL::BinaryDataToHexA(BTL::EncryptCLA("Measure for measure")),
              "e4187ee5cae3325bf95195f6eac6eb622fe296");
    EXPECT_EQ(BTL::BinaryDataToHexA(BTL::EncryptCLA(AllBytes())).SubString(1, 64),
              "f3c280f19b7ae6df9e8047054b787ed39fe6a06ab24ce21ecf1906b36272d83c");
}

} // namespace
