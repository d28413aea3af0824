// SPDX-License-Identifier: MIT
#include "text/bytes/BTL_CRYPT_Crypt.h"

#include "text/bytes/BTL_BIN_BinaryData.h"
#include "text/bytes/BytesSupport.h"

#include <gtest/gtest.h>

using Support::AllBytes;
using System::AnsiString;
using System::UnicodeString;

namespace
{

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
