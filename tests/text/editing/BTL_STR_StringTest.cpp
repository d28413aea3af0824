// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_String.h"
#include "platform/runtime/classes/Classes.h"

#include <climits>
#include <iomanip>
#include <locale>
#include <sstream>
#include <type_traits>

#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using System::AnsiString;
using System::WideChar;

TEST(StringValueTest, KeepsAllCharactersInAStream)
{
    std::stringstream stream;
    const CUnicodeString wide(u"größer → 💡 end");
    wide.Write(stream);
    CUnicodeString().Write(stream);
    const CAnsiString narrow("a b\n\0c", 6);
    narrow.Write(stream);
    const std::string written = stream.str();
    EXPECT_EQ(written.substr(0, 3), "21 ") << "counted in bytes of UTF-8";
    EXPECT_EQ(written.substr(24), std::string("0 6 a b\n\0c", 10));

    CUnicodeString wideRead;
    wideRead.Read(stream);
    EXPECT_EQ(wideRead, wide);
    wideRead.Read(stream);
    EXPECT_EQ(wideRead.length(), 0);
    CAnsiString narrowRead;
    narrowRead.Read(stream);
    EXPECT_EQ(narrowRead, narrow);
}

TEST(StringValueTest, ReadsWhatIsThereOfADamagedStream)
{
    const struct
    {
        const char* bytes;
        const char* text;
        bool good;
    } cases[] = {
        {"3 abcd", "abc", true},  {"2147483647 abc", "abc", false},
        {"-5 abc", "", true},     {"99999999999 abc", "", false},
        {"x abc", "", false},     {"", "", false},
        {"2\nab", "ab", true},    {" \n2 ab", "ab", true},
        {"0002 ab", "ab", true},  {"2147483648 abc", "", false},
        {"- abc", "", false},     {"-99999999999999999999 abc", "", true},
        {"1,000 abc", "0", true}, {"0x2 ab", "", true},
    };
    for (const auto& test : cases) {
        std::istringstream stream(test.bytes);
        CAnsiString text("former");
        text.Read(stream);
        EXPECT_EQ(text, CAnsiString(test.text)) << test.bytes;
        EXPECT_EQ(stream.good(), test.good) << test.bytes;
    }
}

TEST(StringValueTest, KeepsItsFormInAnyStream)
{
    struct Groups : std::numpunct<char>
    {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const CAnsiString text(std::string(1234, 'x').c_str());
    for (const auto base : {std::ios::dec, std::ios::hex, std::ios::oct}) {
        std::stringstream stream;
        stream.imbue(std::locale(std::locale::classic(), new Groups));
        stream.setf(base, std::ios::basefield);
        stream.setf(std::ios::showpos | std::ios::showbase);
        stream << std::setfill('*') << std::setw(9);
        text.Write(stream);
        EXPECT_EQ(stream.str().substr(0, 6), "1234 x");
        stream << std::setw(3);
        CAnsiString read;
        read.Read(stream);
        EXPECT_EQ(read, text);
    }
}

TEST(StringValueTest, IsPlainTextToOperators)
{
    std::ostringstream out;
    out << CUnicodeString(u"ä") << '|' << CAnsiString("\xE4");
    EXPECT_EQ(out.str(), "\xC3\xA4|\xE4");
    std::istringstream in("  w\xC3\xB6rd two " + std::string(300, 'x'));
    CUnicodeString wide;
    CAnsiString narrow;
    in >> wide >> narrow;
    EXPECT_EQ(wide, CUnicodeString(u"wörd"));
    EXPECT_EQ(narrow, CAnsiString("two"));
    in >> narrow;
    EXPECT_EQ(narrow.size(), 255);
    in >> narrow;
    EXPECT_EQ(narrow.size(), 45);
    in >> narrow;
    EXPECT_EQ(narrow.size(), 0) << "nothing is left";
}

TEST(StringValueTest, HasTheOperationsOfItsText)
{
    const CUnicodeString wide(u"  aBc ");
    EXPECT_EQ(wide.Trim().UpperCase(), CUnicodeString(u"ABC"));
    EXPECT_EQ(wide.TrimLeft().LowerCase(), CUnicodeString(u"abc "));
    const struct
    {
        int index;
        int count;
        const WideChar* text;
    } parts[] = {
        {2, 2, u"aB"},           {-5, 3, u"  a"},   {INT_MIN, INT_MAX, u"  aBc "}, {5, 1, u" "}, {6, 1, u""},
        {INT_MAX, INT_MAX, u""}, {0, INT_MIN, u""},
    };
    for (const auto& part : parts) {
        EXPECT_EQ(wide.SubString(part.index, part.count), CUnicodeString(part.text)) << part.index;
    }
    EXPECT_EQ(CAnsiString("abc").SubString(1, 1), CAnsiString("b"));
    EXPECT_EQ(wide.find_first_of(u'B', 0), 3);
    EXPECT_EQ(wide.find_first_of2(u'c', u'B', 4), 4);
    EXPECT_EQ(wide.find_first_not_of(u' ', 0), 2);
    EXPECT_EQ(wide[0], u' ');
    EXPECT_EQ(wide[wide.find_first_of(u'B', 0)], u'B');
    EXPECT_EQ(wide[5], u' ');
    for (const int index : {-1, 6, INT_MIN, INT_MAX}) {
        EXPECT_THROW(wide[index], Sysutils::ERangeError) << index;
    }
    EXPECT_EQ(CUnicodeString(u"42").ToIntDef(1), 42);
    EXPECT_EQ(wide.ToIntDef(1), 1);
    EXPECT_EQ(CUnicodeString(System::UTF8String("\xC3\xA4")).vcl_str(), u"ä");
    static_assert(!std::is_convertible_v<const char*, CUnicodeString>);
    static_assert(!std::is_convertible_v<AnsiString, CUnicodeString>);
    EXPECT_EQ(CUnicodeString(u"abc", 2), CUnicodeString(u"ab"));
    EXPECT_EQ(CAnsiString("abc").find_first_of('c', 0), 2);
    EXPECT_EQ(CAnsiString(nullptr).size(), 0);
}

} // namespace
