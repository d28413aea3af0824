// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_StrictEncoding.h"

#include "platform/base/Sysutils_Exception.h"

#include <gtest/gtest.h>

#include <iterator>

namespace
{

using namespace std::string_view_literals;
using System::CodePage;
using System::CP_UTF8;
using System::RawByteString;
using System::UnicodeString;
using Sysutils::TEncoding;
using Sysutils::TryDecode;
using Sysutils::TryEncode;

constexpr CodePage Western = System::DefaultSystemCodePage;
constexpr CodePage Japanese = 932;

TEST(StrictEncodingTest, DecodesWhatIsText)
{
    const struct
    {
        CodePage codePage;
        std::string_view bytes;
        UnicodeString text;
    } cases[] = {
        {CP_UTF8, "", u""},
        {CP_UTF8, "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x92\xA1\0z"sv, UnicodeString(u"aä€💡\0z"sv)},
        {CP_UTF8, "\xEF\xBF\xBD", u"\uFFFD"},
        {Western, "a\x80\xFF?", u"a€ÿ?"},
        {TEncoding::Utf16, "a\0=\xD8\xA1\xDC"sv, u"a💡"},
        {TEncoding::Utf16BigEndian, "\0a\xD8=\xDC\xA1"sv, u"a💡"},
        {Japanese, "a\x83\x65\xB1", u"aテｱ"},
    };
    for (const auto& [codePage, bytes, expected] : cases) {
        SCOPED_TRACE(testing::Message() << codePage << ' ' << expected);
        UnicodeString text;
        int fault = -1;
        EXPECT_TRUE(TryDecode(codePage, bytes, text, &fault));
        EXPECT_EQ(text, expected);
        EXPECT_EQ(fault, 0);
        RawByteString back;
        fault = -1;
        EXPECT_TRUE(TryEncode(codePage, expected, back, &fault));
        EXPECT_EQ(back.AsView(), bytes);
        EXPECT_EQ(fault, 0);
    }
}

TEST(StrictEncodingTest, TellsTheFirstBytesThatAreNoText)
{
    const struct
    {
        CodePage codePage;
        std::string_view bytes;
        int fault;
    } cases[] = {
        {CP_UTF8, "\xFF", 1},
        {CP_UTF8, "\xC3\xA4\xC3", 3},        // cut at the end
        {CP_UTF8, "ab\xE2\x82z", 3},         // cut in the middle
        {CP_UTF8, "a\x80", 2},               // without a lead
        {CP_UTF8, "\xC0\xAF", 1},            // overlong
        {CP_UTF8, "a\xED\xA0\x80", 2},       // a surrogate
        {CP_UTF8, "abc\xF4\x90\x80\x80", 4}, // beyond U+10FFFF
        {Western, "ab\x81", 3},
        {Western, "\x9D\x81", 1},
        {TEncoding::Utf16, "a\0b"sv, 3},
        {TEncoding::Utf16, "a\0\xA1\xDC"sv, 3}, // the second half of a pair alone
        {TEncoding::Utf16BigEndian, "\xD8=\0a"sv, 1},
        {Japanese, "ab\x83", 3}, // the second byte is missing
        {Japanese, "ab\x83\x20z", 3},
    };
    for (const auto& [codePage, bytes, expected] : cases) {
        SCOPED_TRACE(testing::Message() << codePage << " at " << expected);
        UnicodeString text = u"kept";
        int fault = 0;
        EXPECT_FALSE(TryDecode(codePage, bytes, text, &fault));
        EXPECT_EQ(fault, expected);
        EXPECT_EQ(text, u"kept");
        EXPECT_FALSE(TryDecode(codePage, bytes, text));
    }
}

TEST(StrictEncodingTest, TellsAFaultBehindManyGoodCharacters)
{
    std::string bytes(5000, 'x');
    bytes += "\x83\x65\x83";
    UnicodeString text;
    int fault = 0;
    EXPECT_FALSE(TryDecode(Japanese, bytes, text, &fault));
    EXPECT_EQ(fault, 5003);
    RawByteString encoded;
    EXPECT_FALSE(TryEncode(Japanese, std::u16string(5000, u'x') + u"テ💡", encoded, &fault));
    EXPECT_EQ(fault, 5002);
}

TEST(StrictEncodingTest, TellsTheFirstCharacterThatTheCodePageLacks)
{
    const struct
    {
        CodePage codePage;
        std::u16string_view text;
        int fault;
    } cases[] = {
        {Western, u"a?→", 3},
        {Western, u"💡", 1},
        {Western, u"\u0081", 1},
        {CP_UTF8, u"ab\xD800z", 3},
        {TEncoding::Utf16, u"\xDC00", 1},
        {Japanese, u"ä", 1},
        {Japanese, u"\u65E5\uFE00", 2},
        {Japanese, u"a\u200Db", 2},
    };
    for (const auto& [codePage, text, expected] : cases) {
        SCOPED_TRACE(testing::Message() << codePage << " at " << expected);
        RawByteString bytes = "kept";
        int fault = 0;
        EXPECT_FALSE(TryEncode(codePage, text, bytes, &fault));
        EXPECT_EQ(fault, expected);
        EXPECT_EQ(bytes, "kept");
    }
}

TEST(StrictEncodingTest, GoesByEncodingsToo)
{
    UnicodeString text;
    EXPECT_TRUE(TryDecode(TEncoding::getUTF8(), "\xC3\xA4", text));
    EXPECT_EQ(text, u"ä");
    EXPECT_TRUE(TryDecode(static_cast<TEncoding*>(nullptr), "\xE4", text)) << "the system's code page";
    EXPECT_EQ(text, u"ä");
    RawByteString bytes;
    EXPECT_FALSE(TryEncode(static_cast<TEncoding*>(nullptr), u"→", bytes));
    EXPECT_TRUE(TryEncode(TEncoding::getUTF8(), u"→", bytes));
    EXPECT_EQ(bytes, "\xE2\x86\x92");
    EXPECT_THROW(TryDecode(CodePage{12345}, "x", text), Sysutils::EArgumentException);
    EXPECT_THROW(TryEncode(CodePage{12345}, u"x", bytes), Sysutils::EArgumentException);
}

} // namespace
