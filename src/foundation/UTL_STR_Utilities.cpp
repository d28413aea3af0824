// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Utilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

namespace UTL
{

namespace
{

using System::WideChar;
using System::Detail::AsciiLower;
using System::Detail::IsAsciiDigit;
using System::Detail::IsAsciiLetter;
using System::Detail::IsAsciiSpace;
using System::Detail::SafeView;

bool IsUnicodeLetter(WideChar c)
{
    return u_isalpha(c) != 0;
}

bool IsUnicodeLetterOrDigit(WideChar c)
{
    return u_isalnum(c) != 0;
}

/// The letters and digits of a parameter's name: those of ASCII in narrow text, all of the basic plane in
/// wide.
bool IsNameLetterOrDigit(char c)
{
    return IsAsciiLetter(c) || IsAsciiDigit(c);
}

bool IsNameLetterOrDigit(WideChar c)
{
    return IsUnicodeLetterOrDigit(c);
}

/// The start of `text`, one character for one, as far as it can belong to a number in ASCII.
template <class Char>
std::string NumberStart(const Char* text)
{
    const auto isNumberPart = [](Char c) {
        return IsAsciiDigit(c) || IsAsciiLetter(c) || c == '+' || c == '-' || c == '.' || c == '(' ||
               c == ')' || c == '_';
    };
    const Char* end = text;
    while (IsAsciiSpace(*end)) {
        ++end;
    }
    while (isNumberPart(*end)) {
        ++end;
    }
    std::string result(static_cast<std::size_t>(end - text), '\0');
    std::transform(text, end, result.begin(), [](Char c) { return static_cast<char>(c); });
    return result;
}

/// The number is 0 and nothing is consumed if there is none.
template <class Number>
struct TReading
{
    Number value;
    std::size_t length;
};

template <class Char>
TReading<long> ReadLong(const Char* text)
{
    const Char* at = text;
    while (IsAsciiSpace(*at)) {
        ++at;
    }
    const bool negative = *at == '-';
    if (*at == '-' || *at == '+') {
        ++at;
    }
    if (!IsAsciiDigit(*at)) {
        return {0, 0};
    }
    // Counted downwards, where there is room for the smallest number too.
    long value = 0;
    bool overflow = false;
    for (; IsAsciiDigit(*at); ++at) {
        overflow = overflow || __builtin_mul_overflow(value, 10L, &value) ||
                   __builtin_sub_overflow(value, static_cast<long>(*at - '0'), &value);
    }
    overflow = overflow || (!negative && value == LONG_MIN);
    if (overflow) {
        value = negative ? LONG_MIN : LONG_MAX;
    } else if (!negative) {
        value = -value;
    }
    return {value, static_cast<std::size_t>(at - text)};
}

locale_t PlainLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

TReading<double> ReadDouble(const char* text)
{
    char* end = nullptr;
    const double value = strtod_l(text, &end, PlainLocale());
    return {value, static_cast<std::size_t>(end - text)};
}

TReading<double> ReadDouble(const WideChar* text)
{
    return ReadDouble(NumberStart(text).c_str());
}

template <class Char, class Number>
bool ReadWhole(const Char* text, Number& value, TReading<Number> (*read)(const Char*))
{
    if (text == nullptr || *text == 0) {
        return false;
    }
    const TReading<Number> reading = read(text);
    value = reading.value;
    return text[reading.length] == 0;
}

template <class Char>
int ReadInt(const Char* text)
{
    const long value = text == nullptr ? 0 : ReadLong(text).value;
    return static_cast<int>(std::clamp<long>(value, INT_MIN, INT_MAX));
}

/// The float at the start of `text` in decimal form; an exponent without digits is no part of it.
template <class Char>
float ReadFloat(const Char* text)
{
    if (text == nullptr) {
        return 0;
    }
    // Without letters nothing is left of the other forms that the C library knows.
    std::string start = NumberStart(text);
    start.resize(std::min(start.find_first_not_of("0123456789+-.eE \t\n\v\f\r"), start.size()));
    const float value = strtof_l(start.c_str(), nullptr, PlainLocale());
    constexpr float largest = std::numeric_limits<float>::max();
    return std::clamp(value, -largest, largest);
}

template <class Char>
bool IsDigitStringOf(const Char* text, bool sign, bool blanks)
{
    if (text == nullptr || *text == 0) {
        return false;
    }
    const auto skipBlanks = [&text, blanks] {
        while (blanks && IsAsciiSpace(*text)) {
            ++text;
        }
    };
    skipBlanks();
    if (sign && (*text == '+' || *text == '-')) {
        ++text;
    }
    while (IsAsciiDigit(*text)) {
        ++text;
    }
    skipBlanks();
    return *text == 0;
}

/// What `SPrintf` gives at most.
constexpr int LongestPrinted = 511;

constexpr int WholeText = -1;

/// The order of the first `count` characters, as `strncmp` gives it.
template <class Char>
int Compare(const Char* a, const Char* b, int count, Char (*fold)(Char))
{
    using Code = std::make_unsigned_t<Char>;
    for (std::size_t i = 0; count < 0 || i < static_cast<std::size_t>(count); ++i) {
        const auto codeA = static_cast<Code>(fold(a[i]));
        const auto codeB = static_cast<Code>(fold(b[i]));
        if (codeA != codeB) {
            return codeA < codeB ? -1 : 1;
        }
        if (codeA == 0) {
            break;
        }
    }
    return 0;
}

template <class Char>
constexpr Char AsItIs(Char c)
{
    return c;
}

template <class Char>
bool AreEqual(const Char* a, const Char* b, int count, Char (*fold)(Char))
{
    if (a == nullptr || b == nullptr) {
        return a == b;
    }
    return Compare(a, b, count, fold) == 0;
}

template <class Char>
bool IsLessOf(const Char* a, const Char* b, int count)
{
    if (a == nullptr || b == nullptr) {
        return a == nullptr;
    }
    return Compare(a, b, count, &AsItIs<Char>) < 0;
}

template <class Char>
constexpr const char* Source = "UTL_STR_UtilitiesA.cpp";
template <>
constexpr const char* Source<WideChar> = "UTL_STR_UtilitiesW.cpp";

template <class Char>
constexpr CFaultPlace FindsOfFromNegative{Source<Char>, 158};
template <class Char>
constexpr CFaultPlace FindsNotOfFromNegative{Source<Char>, 173};
template <class Char>
constexpr CFaultPlace FindsOf2FromNegative{Source<Char>, 188};

/// The index of the first character at or behind `start` that `matches`; `place` names the check of `start`.
template <class Char, class Matches>
int FindFirst(const Char* text, int start, const CFaultPlace& place, Matches matches)
{
    if (start < 0) {
        THROW_XAssert(place);
        return -1;
    }
    if (text == nullptr) {
        return -1;
    }
    for (int i = 0; text[i] != 0; ++i) {
        if (i >= start && matches(text[i])) {
            return i;
        }
    }
    return -1;
}

template <class Char>
int FindFirstOf(Char c, const Char* text, int start)
{
    return FindFirst(text, start, FindsOfFromNegative<Char>, [c](Char other) { return other == c; });
}

template <class Char>
int FindFirstNotOf(Char c, const Char* text, int start)
{
    return FindFirst(text, start, FindsNotOfFromNegative<Char>, [c](Char other) { return other != c; });
}

template <class Char>
int FindFirstOf2(Char c1, Char c2, const Char* text, int start)
{
    return FindFirst(text, start, FindsOf2FromNegative<Char>,
                     [c1, c2](Char other) { return other == c1 || other == c2; });
}

template <class Char>
bool FindSQLParamOf(const Char* text, int& position, int& length)
{
    position = FindFirstOf(static_cast<Char>(':'), text, 0);
    length = 0;
    if (position < 0) {
        return false;
    }
    const Char* const name = text + position + 1;
    const Char* end = name;
    while (IsNameLetterOrDigit(*end) || *end == '_') {
        ++end;
    }
    length = 1 + static_cast<int>(end - name);
    return length >= 2;
}

template <class Char>
Char* NewDuplicate(const Char* text, unsigned minimum)
{
    const std::basic_string_view<Char> view = SafeView(text);
    auto* const result = new Char[std::max(view.size() + 1, static_cast<std::size_t>(minimum))]();
    std::copy(view.begin(), view.end(), result);
    return result;
}

using WordTable = std::array<unsigned char, 256>;

constexpr WordTable MakeWordTable(bool digits)
{
    WordTable table = {};
    for (unsigned code = 0; code < table.size(); ++code) {
        const bool isLetter = IsAsciiLetter(code) || code == '_';
        const bool isWestern = code == 142 || code == 158 || code == 159 || (code >= 192 && code != 247);
        const bool isDigit = IsAsciiDigit(code);
        table[code] = isLetter || isWestern || (digits && isDigit);
    }
    return table;
}

constexpr WordTable WordChars = MakeWordTable(false);
constexpr WordTable WordChars2 = MakeWordTable(true);

bool IsInTable(char c, const unsigned char* table)
{
    return table != nullptr && table[static_cast<unsigned char>(c)] != 0;
}

template <class Char, class Begins, class Continues>
bool FindWord(const Char* text, unsigned& offset, unsigned& length, Begins begins, Continues continues)
{
    const Char* first = text;
    while (first != nullptr && *first != 0 && !begins(*first)) {
        ++first;
    }
    const Char* end = first;
    while (end != nullptr && *end != 0 && (end == first || continues(*end))) {
        ++end;
    }
    offset = static_cast<unsigned>(first - text);
    length = static_cast<unsigned>(end - first);
    return length != 0;
}

template <class Char>
int FindWords(const Char* text, int count, unsigned& offset, unsigned& length)
{
    if (!GetWord(text, offset, length)) {
        return 0;
    }
    int found = 1;
    unsigned gap = 0;
    unsigned wordLength = 0;
    while (found < count && GetWord(text + offset + length, gap, wordLength)) {
        length += gap + wordLength;
        ++found;
    }
    return found;
}

} // namespace

bool GetLong(const char* text, long& value)
{
    return ReadWhole<char, long>(text, value, &ReadLong<char>);
}

bool GetLong(const WideChar* text, long& value)
{
    return ReadWhole<WideChar, long>(text, value, &ReadLong<WideChar>);
}

bool GetDouble(const char* text, double& value)
{
    return ReadWhole<char, double>(text, value, &ReadDouble);
}

bool GetDouble(const WideChar* text, double& value)
{
    return ReadWhole<WideChar, double>(text, value, &ReadDouble);
}

int ToInt(const char* text)
{
    return ReadInt(text);
}

int ToInt(const WideChar* text)
{
    return ReadInt(text);
}

float ToFloat(const char* text)
{
    return ReadFloat(text);
}

float ToFloat(const WideChar* text)
{
    return ReadFloat(text);
}

bool IsDigitString(const char* text, bool sign, bool blanks)
{
    return IsDigitStringOf(text, sign, blanks);
}

bool IsDigitString(const WideChar* text, bool sign, bool blanks)
{
    return IsDigitStringOf(text, sign, blanks);
}

bool IsEqual(const char* a, const char* b)
{
    return AreEqual(a, b, WholeText, &AsItIs<char>);
}

bool IsEqual(const WideChar* a, const WideChar* b)
{
    return AreEqual(a, b, WholeText, &AsItIs<WideChar>);
}

bool IsEqual(const char* a, const char* b, int count)
{
    return AreEqual(a, b, count, &AsItIs<char>);
}

bool IsEqual(const WideChar* a, const WideChar* b, int count)
{
    return AreEqual(a, b, count, &AsItIs<WideChar>);
}

bool IsIEqual(const char* a, const char* b, int count)
{
    return AreEqual(a, b, count, &AsciiLower<char>);
}

bool IsIEqual(const WideChar* a, const WideChar* b, int count)
{
    return AreEqual(a, b, count, &AsciiLower<WideChar>);
}

bool IsLess(const char* a, const char* b)
{
    return IsLessOf(a, b, WholeText);
}

bool IsLess(const WideChar* a, const WideChar* b)
{
    return IsLessOf(a, b, WholeText);
}

bool IsLess(const char* a, const char* b, int count)
{
    return IsLessOf(a, b, count);
}

bool IsLess(const WideChar* a, const WideChar* b, int count)
{
    return IsLessOf(a, b, count);
}

int find_first_of(char c, const char* text, int start)
{
    return FindFirstOf(c, text, start);
}

int find_first_of(WideChar c, const WideChar* text, int start)
{
    return FindFirstOf(c, text, start);
}

int find_first_not_of(char c, const char* text, int start)
{
    return FindFirstNotOf(c, text, start);
}

int find_first_not_of(WideChar c, const WideChar* text, int start)
{
    return FindFirstNotOf(c, text, start);
}

int find_first_of2(char c1, char c2, const char* text, int start)
{
    return FindFirstOf2(c1, c2, text, start);
}

int find_first_of2(WideChar c1, WideChar c2, const WideChar* text, int start)
{
    return FindFirstOf2(c1, c2, text, start);
}

bool FindSQLParam(const char* text, int& position, int& length)
{
    return FindSQLParamOf(text, position, length);
}

bool FindSQLParam(const WideChar* text, int& position, int& length)
{
    return FindSQLParamOf(text, position, length);
}

char* strnewdup(const char* text, unsigned minimum)
{
    return NewDuplicate(text, minimum);
}

WideChar* strnewdup(const WideChar* text, unsigned minimum)
{
    return NewDuplicate(text, minimum);
}

const unsigned char* GetWordCharsA()
{
    return WordChars.data();
}

const unsigned char* GetWordCharsW()
{
    return WordChars.data();
}

const unsigned char* GetWordChars2A()
{
    return WordChars2.data();
}

const unsigned char* GetWordChars2W()
{
    return WordChars2.data();
}

bool GetWord(const char* text, unsigned& offset, unsigned& length)
{
    return GetWord(text, offset, length, GetWordChars2A(), GetWordCharsA());
}

bool GetWord(const WideChar* text, unsigned& offset, unsigned& length)
{
    return FindWord(
        text, offset, length, [](WideChar c) { return IsUnicodeLetter(c); },
        [](WideChar c) { return IsUnicodeLetterOrDigit(c); });
}

bool GetWord(const char* text, unsigned& offset, unsigned& length, const unsigned char* table)
{
    return GetWord(text, offset, length, table, table);
}

bool GetWord(const char* text, unsigned& offset, unsigned& length, const unsigned char* following,
             const unsigned char* first)
{
    return FindWord(
        text, offset, length, [first](char c) { return IsInTable(c, first); },
        [following](char c) { return IsInTable(c, following); });
}

int GetWords(const char* text, int count, unsigned& offset, unsigned& length)
{
    return FindWords(text, count, offset, length);
}

int GetWords(const WideChar* text, int count, unsigned& offset, unsigned& length)
{
    return FindWords(text, count, offset, length);
}

CString IntToString(int value)
{
    return std::to_string(value);
}

CString FloatToString(float value)
{
    std::array<char, 32> buffer = {};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 6).ptr;
    return std::string(buffer.data(), end);
}

bool FileExists(const System::UnicodeString& file)
{
    return Sysutils::FileExists(file);
}

CString VSPrintf(const char* format, System::TVarArgs arguments)
{
    return System::PrintfA(format, arguments).SubString(1, LongestPrinted);
}

CString VSPrintf(const WideChar* format, System::TVarArgs arguments)
{
    return System::AnsiString(System::Printf(format, arguments)).SubString(1, LongestPrinted);
}

} // namespace UTL
