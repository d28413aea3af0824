// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Numbers.h"

#include "platform/base/internal/System_Ascii.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <string>

namespace UTL
{

namespace
{

using System::WideChar;
using System::Detail::IsAsciiDigit;
using System::Detail::IsAsciiLetter;
using System::Detail::IsAsciiSpace;

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

} // namespace UTL
