// SPDX-License-Identifier: MIT
#include "platform/base/System_String.h"

#include "platform/base/Sysutils_Exception.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <random>
#include <ranges>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{

using System::AnsiString;
using System::RawByteString;
using System::UnicodeString;
using System::UTF8String;
using System::WideChar;

template <class S>
class StringTest : public testing::Test
{
protected:
    /// A text of plain characters in the width under test.
    static S T(const char* text) { return S(text); }
};

using Widths = testing::Types<UnicodeString, AnsiString>;
TYPED_TEST_SUITE(StringTest, Widths);

TYPED_TEST(StringTest, IsOnePointerWideAndNullWhenEmpty)
{
    static_assert(sizeof(TypeParam) == sizeof(void*));
    TypeParam s;
    EXPECT_TRUE(s.IsEmpty());
    ASSERT_NE(s.c_str(), nullptr);
    EXPECT_EQ(*s.c_str(), 0);
    s = this->T("abc");
    s.Delete(1, 3);
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(TypeParam(static_cast<const typename TypeParam::CharType*>(nullptr)).Length(), 0);
    EXPECT_EQ(TypeParam(this->T("x").c_str(), -1).Length(), 0);
}

TYPED_TEST(StringTest, CopiesShareUntilOneIsWritten)
{
    const TypeParam original = this->T("abc");
    TypeParam copy = original;
    EXPECT_EQ(copy.c_str(), original.c_str());
    copy[2] = 'X';
    EXPECT_EQ(copy, this->T("aXc"));
    EXPECT_EQ(original, this->T("abc"));

    TypeParam appended = original;
    appended += this->T("d");
    EXPECT_EQ(original, this->T("abc"));
    TypeParam cut = original;
    cut.SetLength(1);
    EXPECT_EQ(original, this->T("abc"));
    EXPECT_EQ(cut, this->T("a"));
}

TYPED_TEST(StringTest, IndexIsOneBasedAndChecked)
{
    TypeParam s = this->T("abc");
    EXPECT_EQ(s[1], 'a');
    EXPECT_EQ(std::as_const(s)[3], 'c');
    for (const int bad : {INT_MIN, -1, 0, 4, INT_MAX}) {
        EXPECT_THROW(s[bad], Sysutils::ERangeError) << bad;
        EXPECT_THROW(std::as_const(s)[bad], Sysutils::ERangeError) << bad;
    }
    EXPECT_THROW(TypeParam().LastChar(), Sysutils::ERangeError);
}

TYPED_TEST(StringTest, SubStringClipsItsRange)
{
    const struct
    {
        int index;
        int count;
        const char* expected;
    } cases[] = {{1, 6, "abcdef"}, {2, 3, "bcd"},   {0, 2, "ab"},          {INT_MIN, INT_MAX, "abcdef"},
                 {6, 99, "f"},     {7, 1, ""},      {2, INT_MAX, "bcdef"}, {2, 0, ""},
                 {2, INT_MIN, ""}, {INT_MAX, 1, ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(this->T("abcdef").SubString(c.index, c.count), this->T(c.expected))
            << c.index << ' ' << c.count;
    }
}

TYPED_TEST(StringTest, DeleteAndInsertClipTheirPlaces)
{
    const auto deleted = [&](int index, int count) { return this->T("abcdef").Delete(index, count); };
    EXPECT_EQ(deleted(2, 2), this->T("adef"));
    EXPECT_EQ(deleted(5, INT_MAX), this->T("abcd"));
    EXPECT_EQ(deleted(0, 2), this->T("abcdef"));
    EXPECT_EQ(deleted(7, 1), this->T("abcdef"));
    EXPECT_EQ(deleted(1, -1), this->T("abcdef"));
    const auto inserted = [&](int index) { return this->T("ab").Insert(this->T("XY"), index); };
    EXPECT_EQ(inserted(2), this->T("aXYb"));
    EXPECT_EQ(inserted(INT_MIN), this->T("XYab"));
    EXPECT_EQ(inserted(INT_MAX), this->T("abXY"));
    TypeParam self = this->T("ab");
    EXPECT_EQ(self.Insert(self, 2), this->T("aabb"));
}

TYPED_TEST(StringTest, LosesItsBeginInAnyStepsAmongOtherChanges)
{
    using Char = typename TypeParam::CharType;
    std::mt19937 random(1);
    std::vector<std::pair<TypeParam, std::basic_string<Char>>> texts(4);
    for (int step = 0; step < 20'000; ++step) {
        auto& [text, model] = texts[random() % texts.size()];
        const auto length = random() % 40;
        switch (random() % 6) {
        case 0:
            text = TypeParam(texts[length % texts.size()].first);
            model = std::basic_string<Char>(text.AsView());
            break;
        case 1:
            text.SetLength(static_cast<int>(length));
            model.resize(length);
            break;
        case 2:
            text.Append(std::basic_string<Char>(length, 'a' + static_cast<Char>(length % 20)));
            model.append(length, 'a' + static_cast<Char>(length % 20));
            break;
        case 3:
            text.Reserve(static_cast<int>(4 * length));
            break;
        default:
            text.Delete(1, static_cast<int>(length % 9));
            model.erase(0, length % 9);
        }
        ASSERT_EQ(text.AsView(), model);
        ASSERT_EQ(text.c_str()[model.size()], 0);
    }
}

TYPED_TEST(StringTest, LosesItsBeginWithoutMovingTheRest)
{
    // 4 MB a thousand thousand times would outlast any patience.
    constexpr int count = 1'000'000;
    TypeParam text = TypeParam::StringOfChar('x', 4 * count);
    for (int i = 0; i < count; ++i) {
        text.Delete(1, 3);
    }
    EXPECT_EQ(text, TypeParam::StringOfChar('x', count));
}

TYPED_TEST(StringTest, AppendsToItself)
{
    TypeParam s = this->T("ab");
    for (int i = 0; i < 10; ++i) {
        s += s;
    }
    EXPECT_EQ(s.Length(), 2048);
    s += s.c_str();
    EXPECT_EQ(s.Length(), 4096);
    EXPECT_EQ(s.SubString(4095, 2), this->T("ab"));
}

TYPED_TEST(StringTest, KeepsEmbeddedZeros)
{
    TypeParam s = this->T("a");
    s += typename TypeParam::CharType(0);
    s += this->T("b");
    EXPECT_EQ(s.Length(), 3);
    EXPECT_EQ(s.Pos(this->T("b")), 3);
    EXPECT_NE(s, this->T("a"));
    EXPECT_LT(this->T("a"), s);
}

TYPED_TEST(StringTest, FindsAndTrims)
{
    EXPECT_EQ(this->T("abcabc").Pos(this->T("ca")), 3);
    EXPECT_EQ(this->T("abc").Pos(TypeParam()), 0);
    EXPECT_EQ(this->T("abc").Pos(this->T("abcd")), 0);
    EXPECT_EQ(this->T("a\\b/c").LastDelimiter(this->T("/\\")), 4);
    EXPECT_EQ(this->T("abc").LastDelimiter(this->T("/\\")), 0);
    EXPECT_EQ(this->T("\t x\x01").Trim(), this->T("x"));
    EXPECT_EQ(this->T(" x ").TrimLeft(), this->T("x "));
    EXPECT_EQ(this->T(" x ").TrimRight(), this->T(" x"));
    EXPECT_TRUE(this->T(" \r\n ").Trim().IsEmpty());
    EXPECT_EQ(this->T("\xA0x\xFF").Trim().Length(), 3) << "characters above 127 are no blanks";
}

TYPED_TEST(StringTest, ComparesByOrdinals)
{
    EXPECT_LT(this->T("Z"), this->T("a"));
    EXPECT_LT(this->T("z"), this->T("\xE4"));
    EXPECT_LT(this->T("ab"), this->T("abc"));
    EXPECT_GT(this->T("b").Compare(this->T("abc")), 0);
    EXPECT_EQ(this->T("\xC4"
                      "b")
                  .CompareIC(this->T("\xE4"
                                     "B")),
              0);

    // A difference at any place of a long text decides, whatever follows it.
    for (int length = 1; length <= 20; ++length) {
        for (int at = 1; at <= length; ++at) {
            TypeParam low = this->T("aaaaaaaaaaaaaaaaaaaa").SubString(1, length);
            TypeParam high = low;
            high.Delete(at, 1).Insert(this->T("\xE4"), at);
            low = low.SubString(1, at) + this->T("zzzz");
            EXPECT_LT(low, high) << length << " " << at;
            EXPECT_GT(high.Compare(low), 0) << length << " " << at;
            EXPECT_NE(high, this->T("aaaaaaaaaaaaaaaaaaaa").SubString(1, length)) << length << " " << at;
        }
    }
}

TYPED_TEST(StringTest, GrowsByAppendingWithoutQuadraticCost)
{
    TypeParam s;
    for (int i = 0; i < 5'000'000; ++i) {
        s += typename TypeParam::CharType('x');
    }
    EXPECT_EQ(s.Length(), 5'000'000);
}

TEST(UnicodeStringTest, IsMadeFromNumbersAndCharacters)
{
    EXPECT_EQ(UnicodeString(0), u"0");
    EXPECT_EQ(UnicodeString(LLONG_MIN), u"-9223372036854775808");
    EXPECT_EQ(UnicodeString(ULLONG_MAX), u"18446744073709551615");
    EXPECT_EQ(UnicodeString(static_cast<short>(-7)), u"-7");
    EXPECT_EQ(UnicodeString(u'x'), u"x");
    EXPECT_EQ(UnicodeString('\x80'), u"€");
    EXPECT_EQ(UnicodeString(L"ä💡"), u"ä💡");
    const wchar_t tooLarge[] = {static_cast<wchar_t>(0x110000), 0};
    EXPECT_EQ(UnicodeString(tooLarge), u"\uFFFD");
}

TEST(UnicodeStringTest, MapsCaseByUnicode)
{
    for (int c = 1; c < 256; ++c) {
        // The way of a text that holds other letters as well knows nothing of Latin-1.
        const UnicodeString letter(static_cast<char16_t>(c));
        EXPECT_EQ((letter + u"Я").UpperCase(), letter.UpperCase() + u"Я") << c;
        EXPECT_EQ((letter + u"я").LowerCase(), letter.LowerCase() + u"я") << c;
    }
    EXPECT_EQ(UnicodeString(u"straße").UpperCase(), u"STRASSE");
    EXPECT_EQ(UnicodeString(u"ÄΣ").LowerCase(), u"äς");
    EXPECT_EQ(AnsiString("\xE4\xDF").UpperCase(), AnsiString("\xC4SS"));
    EXPECT_TRUE(UnicodeString().UpperCase().IsEmpty());
    const WideChar lone[] = {u'a', 0xD800, 0};
    EXPECT_EQ(UnicodeString(lone).UpperCase().Length(), 2);
}

TEST(AnsiStringTest, KeepsLettersWhoseOtherCaseItsCodePageLacks)
{
    EXPECT_EQ(AnsiString("5 \xB5m").UpperCase(), "5 \xB5M");
    EXPECT_EQ(AnsiString("\x83\xFF\x9A?").UpperCase(), "\x83\x9F\x8A?");
    EXPECT_EQ(AnsiString("\x81 \x9F\xB5").LowerCase(), "\x81 \xFF\xB5");
    EXPECT_EQ(System::AnsiStringT<437>("\xE2\x8E-\xE6").LowerCase(), "\xE2\x84-\xE6");
    EXPECT_EQ(System::AnsiStringT<437>("\x84\x98\xE6x").UpperCase(), "\x8E\x98\xE6X");
    EXPECT_EQ(System::UTF8String("5 \xC2\xB5m").UpperCase(), "5 \xCE\x9CM");
    EXPECT_EQ(System::RawByteString("\xB5\xE4").UpperCase(), "\xB5\xC4");
    EXPECT_EQ(AnsiString().UpperCase(), "");
    for (int code = 0; code < 256; ++code) {
        const AnsiString letter(static_cast<char>(code));
        const UnicodeString wide(letter);
        for (const auto& [mapped, wanted] : {std::pair(letter.UpperCase(), wide.UpperCase()),
                                             std::pair(letter.LowerCase(), wide.LowerCase())}) {
            EXPECT_TRUE(mapped == wanted || (mapped == letter && AnsiString(wanted) == "?")) << code;
        }
    }
}

TEST(UnicodeStringTest, MixesWithNarrowTextAsWideText)
{
    const UnicodeString wide = u"€";
    const AnsiString narrow = "\x80";
    EXPECT_EQ(wide, narrow);
    EXPECT_EQ(wide, "\x80");
    EXPECT_EQ(wide + narrow, u"€€");
    EXPECT_EQ(narrow + wide, u"€€");
    EXPECT_EQ(AnsiString("1") + UnicodeString(u"→"), u"1→");
    EXPECT_EQ(UTF8String(narrow).AsView(), "\xE2\x82\xAC");
    EXPECT_EQ(RawByteString(UTF8String(wide)).AsView(), "\xE2\x82\xAC") << "raw bytes are not converted";
}

TEST(UnicodeStringTest, CopiesCrossThreads)
{
    const UnicodeString shared = u"shared text";
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&shared, &wrong] {
            for (int i = 0; i < 20'000; ++i) {
                UnicodeString copy = shared;
                const UnicodeString second = copy;
                copy[1] = u'S';
                wrong += copy != u"Shared text" || second != u"shared text";
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(shared, u"shared text");
}

template <class A, class B>
concept Joins = requires(A a, B b)
{
    a + b;
};

template <class A, class B>
concept Appends = requires(A a, B b)
{
    a += b;
};

// A number must not become the character of its code.
template <class S, class... Numbers>
constexpr bool TakesNone =
    !(Joins<S, Numbers> || ...) && !(Joins<Numbers, S> || ...) && !(Appends<S&, Numbers> || ...);
static_assert(TakesNone<UnicodeString, bool, int, unsigned, short, long long, double, signed char, wchar_t>);
static_assert(TakesNone<AnsiString, bool, int, unsigned, short, long long, double, unsigned char, wchar_t>);
static_assert(Joins<UnicodeString, WideChar> && Joins<WideChar, UnicodeString> &&
              Joins<UnicodeString, char> && Joins<char, UnicodeString> && Appends<UnicodeString&, WideChar> &&
              Appends<UnicodeString&, char>);
static_assert(Joins<AnsiString, char> && Joins<char, AnsiString> && Appends<AnsiString&, char>);
static_assert(!Appends<AnsiString&, WideChar>, "it would lose characters");

TEST(StringCharacterTest, JoinsCharactersOfBothWidths)
{
    EXPECT_EQ(UnicodeString(u"n=") + u'x' + 'y', u"n=xy");
    EXPECT_EQ('y' + (u'x' + UnicodeString(u"=n")), u"yx=n");
    EXPECT_EQ(UnicodeString(u"n=") + '\x80', u"n=€") << "a narrow character is one of the code page";
    UnicodeString text;
    text += '\x80';
    text += u'→';
    EXPECT_EQ(text, u"€→");
    EXPECT_EQ(AnsiString("a") + 'b', "ab");
    EXPECT_EQ(UnicodeString(u"n=") + UnicodeString(66), u"n=66");
}

TYPED_TEST(StringTest, IsARangeAndAView)
{
    using View = typename TypeParam::View;
    static_assert(std::ranges::contiguous_range<const TypeParam> && std::ranges::sized_range<TypeParam>);
    static_assert(std::is_convertible_v<TypeParam, View>);
    const TypeParam text = this->T("b\x41"
                                   "c");
    EXPECT_EQ(text.size(), 3U);
    EXPECT_FALSE(text.empty());
    EXPECT_TRUE(TypeParam().empty());
    EXPECT_EQ(TypeParam().begin(), TypeParam().end() - 0);
    std::vector<typename TypeParam::CharType> sorted(text.begin(), text.end());
    std::ranges::sort(sorted);
    EXPECT_EQ(TypeParam(View(sorted.data(), sorted.size())), this->T("Abc"));
    const View view = text;
    EXPECT_EQ(view.data(), text.c_str());
    EXPECT_EQ(std::span(text).size(), 3U);
}

TYPED_TEST(StringTest, ComparesWithTheTextsOfTheStandard)
{
    using View = typename TypeParam::View;
    const TypeParam text = this->T("abc");
    const std::basic_string<typename TypeParam::CharType> same(text.begin(), text.end());
    EXPECT_TRUE(text == View(same) && View(same) == text && text == same && same == text);
    EXPECT_TRUE(text < same + same && same + same > text && text >= View(same));
}

TYPED_TEST(StringTest, JoinsViews)
{
    using View = typename TypeParam::View;
    const TypeParam text = this->T("abc");
    const View piece = text.AsView().substr(1);
    EXPECT_EQ(text + piece, this->T("abcbc"));
    EXPECT_EQ(piece + text, this->T("bcabc"));
    EXPECT_EQ(TypeParam(text) + piece, this->T("abcbc"));
    EXPECT_EQ(text + View(), text);
    TypeParam grown = text;
    grown += View(grown).substr(2);
    EXPECT_EQ(grown, this->T("abcc")) << "a view of the text itself";
    for (int i = 0; i < 8; ++i) {
        grown += View(grown);
    }
    EXPECT_EQ(grown.Length(), 1024);
    EXPECT_EQ(text, this->T("abc")) << "the copy has left it alone";
}

TEST(StringViewTest, EntersWideTextsByItself)
{
    static_assert(std::is_convertible_v<std::u16string_view, UnicodeString>);
    static_assert(!std::is_convertible_v<std::string_view, UnicodeString> &&
                      !std::is_convertible_v<std::string_view, AnsiString>,
                  "it would have to tell UTF-8 from text of the code page");
    const std::u16string_view view = u"größer";
    EXPECT_EQ(System::ToUtf8(view), "größer");
    EXPECT_EQ(System::ToUtf8(view.data()), "größer");
    EXPECT_EQ(System::ToUtf8(std::u16string(view)), "größer");
    EXPECT_EQ(System::ToUtf8(static_cast<const char16_t*>(nullptr)), "");
    EXPECT_EQ(AnsiString("n ") + view, u"n größer");
}

TEST(StringComparisonTest, GoesByTheCodePageOfNarrowLiterals)
{
    const struct
    {
        const char16_t* wide;
        const char* narrow;
        int expected;
    } cases[] = {
        {u"", "", 0},
        {u"", nullptr, 0},
        {u"a", "", 1},
        {u"", "a", -1},
        {u"abc", "abc", 0},
        {u"abc", "abcd", -1},
        {u"abcd", "abc", 1},
        {u"abd", "abc", 1},
        {u"\u20AC", "\x80", 0},
        {u"\u0081", "\x81", 0},
        {u"\u00FF", "\xFF", 0},
        {u"\u2122", "\x80", 1},
        {u"\u0080", "\x80", -1},
    };
    for (const auto& [wide, narrow, expected] : cases) {
        SCOPED_TRACE(UnicodeString(wide));
        const UnicodeString text(wide);
        EXPECT_EQ(text == narrow, expected == 0);
        EXPECT_EQ(text < narrow, expected < 0);
        EXPECT_EQ(narrow<text, expected> 0);
        EXPECT_EQ(text <=> narrow, text <=> UnicodeString(narrow));
    }
    EXPECT_NE(UnicodeString(u"a\0b", 3), "a");
}

TEST(StringSourceTest, TakesTheTextsOfTheStandard)
{
    EXPECT_EQ(System::ToUnicodeString(std::string("gr\xC3\xB6\xC3\x9F"
                                                  "er")),
              u"größer");
    EXPECT_EQ(System::ToUnicodeString(std::string_view("\xFF")), u"\uFFFD");
    EXPECT_EQ(System::ToUnicodeString(std::u16string(u"größer")), u"größer");
    EXPECT_EQ(System::ToUnicodeString(std::u16string_view()), u"");
    EXPECT_EQ(System::ToUnicodeString(AnsiString("\x80")), u"€");
    EXPECT_EQ(System::ToUnicodeString("\x80"), u"€");
}

} // namespace
