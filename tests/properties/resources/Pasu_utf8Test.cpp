// SPDX-License-Identifier: MIT
#include "properties/resources/Pasu_utf8.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

namespace
{

using namespace std::string_view_literals;
using Pasu_utf8::UTF8ToWideString;
using Pasu_utf8::WideStringToUTF8;
using System::UnicodeString;
using System::UTF8String;

TEST(PasuUtf8Test, EachUnitGoesOutByItself)
{
    for (const auto& [text, bytes] : {std::pair(u""sv, ""sv),
                                      {u"aZ\u007F"sv, "aZ\x7F"sv},
                                      {u"\u0080\u07FF"sv, "\xC2\x80\xDF\xBF"sv},
                                      {u"\u0800\uFFFF"sv, "\xE0\xA0\x80\xEF\xBF\xBF"sv},
                                      {u"a\0b"sv, "a\0b"sv},
                                      {u"\U0001F600"sv, "\xED\xA0\xBD\xED\xB8\x80"sv}}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(WideStringToUTF8(UnicodeString(text)).AsView(), bytes);
        EXPECT_EQ(UTF8ToWideString(UTF8String(bytes)).AsView(), text);
    }
}

TEST(PasuUtf8Test, LongSequencesAreRead)
{
    for (const auto& [bytes, text] : {std::pair("\xF0\x9F\x98\x80"sv, u"\U0001F600"sv),
                                      {"\xF4\x8F\xBF\xBF"sv, u"\U0010FFFF"sv},
                                      {"\xF4\x90\x80\x80"sv, u"\uFFFD"sv},
                                      {"\xF8\x88\x80\x80\x80"
                                       "a"sv,
                                       u"\uFFFDa"sv},
                                      {"\xFD\xBF\xBF\xBF\xBF\xBF"
                                       "a"sv,
                                       u"\uFFFDa"sv},
                                      {"\xF8\x80\x80\x81\x81"sv, u"A"sv},
                                      {"\xFC\x80\x80\x80\x81\x81"sv, u"A"sv}}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(UTF8ToWideString(UTF8String(bytes)).AsView(), text);
    }
}

TEST(PasuUtf8Test, ABrokenSequenceCostsItsBytesAlone)
{
    for (const auto& [bytes, text] : {std::pair("\x80z"sv, u"\uFFFDz"sv),
                                      {"\xC3"sv, u"\uFFFD"sv},
                                      {"\xE2\x82"sv, u"\uFFFD\uFFFD"sv},
                                      {"\xE2\x82z"sv, u"\uFFFD\uFFFDz"sv},
                                      {"\xFE\xFF"sv, u"\uFFFD\uFFFD"sv},
                                      {"\xC3\xC3\xA4"sv, u"\uFFFD\u00E4"sv}}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(UTF8ToWideString(UTF8String(bytes)).AsView(), text);
    }
}

} // namespace
