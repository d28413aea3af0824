// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/System_Printf.h"

#include "platform/runtime/sysutils/internal/System_Conversion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace System
{

namespace
{

/// One conversion of a format.
struct TConversion : Detail::TField
{
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zeros = false;
    char type = 0;
};

/// A number without its padding.
struct TNumberText
{
    /// Sign or base prefix, in front of padding zeros.
    std::string prefix;
    std::string digits;
    bool padWithZeros = true;
};

std::string SignText(bool negative, const TConversion& conversion)
{
    return negative ? "-" : conversion.plus ? "+" : conversion.blank ? " " : "";
}

TNumberText IntegerText(Detail::TMagnitude number, const TConversion& conversion)
{
    TNumberText text;
    const bool isHex = conversion.type == 'x' || conversion.type == 'X';
    const int base = isHex ? 16 : conversion.type == 'o' ? 8 : 10;
    if (number.value != 0 || conversion.precision != 0) {
        const auto hex = conversion.type == 'X' ? Detail::EHexDigits::Upper : Detail::EHexDigits::Lower;
        text.digits = Detail::DigitText(number.value, base, hex);
    }
    const auto digitCount = static_cast<int>(text.digits.size());
    if (conversion.precision > digitCount) {
        text.digits.insert(0, static_cast<std::size_t>(conversion.precision - digitCount), '0');
    }
    if (conversion.alternate && base == 8 && (text.digits.empty() || text.digits[0] != '0')) {
        text.digits.insert(0, 1, '0');
    }
    if (conversion.type == 'd') {
        text.prefix = SignText(number.negative, conversion);
    } else if (conversion.alternate && isHex && number.value != 0) {
        text.prefix = conversion.type == 'X' ? "0X" : "0x";
    }
    text.padWithZeros = conversion.precision < 0;
    return text;
}

std::chars_format FloatFormat(char type)
{
    switch (type) {
    case 'e':
        return std::chars_format::scientific;
    case 'g':
        return std::chars_format::general;
    case 'a':
        return std::chars_format::hex;
    default:
        return std::chars_format::fixed;
    }
}

template <class Float>
std::to_chars_result WriteFloat(char* begin, char* end, Float value, char type, int precision)
{
    return precision < 0 ? std::to_chars(begin, end, value, FloatFormat(type))
                         : std::to_chars(begin, end, value, FloatFormat(type), precision);
}

template <class Float>
std::string PlainFloatText(Float value, char type, int precision)
{
    // Few numbers need the room that the largest one does.
    std::array<char, 64> shortText;
    char* const shortBegin = shortText.data();
    const auto written = WriteFloat(shortBegin, shortBegin + shortText.size(), value, type, precision);
    if (written.ec == std::errc()) {
        return {shortBegin, written.ptr};
    }
    constexpr std::size_t mostDigits = std::numeric_limits<Float>::max_exponent10 + 32;
    std::string text(mostDigits + static_cast<std::size_t>(std::max(precision, 0)), '\0');
    char* const begin = text.data();
    const auto result = WriteFloat(begin, begin + text.size(), value, type, precision);
    text.resize(static_cast<std::size_t>(result.ptr - begin));
    return text;
}

/// The sign of the alternate form: a point, and with `%g` all the zeros behind it.
void AddPoint(std::string& text, char type, int precision)
{
    const auto exponent = std::min(text.find_first_of("ep"), text.size());
    auto mantissaEnd = exponent;
    if (text.find('.') == std::string::npos) {
        text.insert(mantissaEnd++, 1, '.');
    }
    if (type != 'g') {
        return;
    }
    const auto first = std::min(text.find_first_of("123456789"), mantissaEnd);
    const auto digits = std::count_if(text.begin() + static_cast<std::ptrdiff_t>(first),
                                      text.begin() + static_cast<std::ptrdiff_t>(mantissaEnd),
                                      [](char c) { return c != '.'; });
    const auto wanted = std::max(precision, 1) - std::max<std::ptrdiff_t>(digits, 1);
    text.insert(mantissaEnd, static_cast<std::size_t>(std::max<std::ptrdiff_t>(wanted, 0)), '0');
}

TNumberText PrintfFloatText(long double value, const TConversion& conversion)
{
    constexpr int defaultPrecision = 6;
    const char type = Detail::AsciiLower(conversion.type);
    const bool upper = conversion.type != type;
    TNumberText text;
    text.prefix = SignText(std::signbit(value), conversion);
    const long double magnitude = std::fabs(value);
    if (!std::isfinite(magnitude)) {
        text.digits = std::isnan(magnitude) ? "nan" : "inf";
        text.padWithZeros = false;
    } else {
        const int precision =
            conversion.precision < 0 && type != 'a' ? defaultPrecision : conversion.precision;
        const auto asDouble = static_cast<double>(magnitude);
        const bool fitsDouble = static_cast<long double>(asDouble) == magnitude;
        text.digits = fitsDouble ? PlainFloatText(asDouble, type, precision)
                                 : PlainFloatText(magnitude, type, precision);
        if (conversion.alternate) {
            AddPoint(text.digits, type, precision);
        }
        if (type == 'a') {
            text.prefix += "0x";
        }
    }
    if (upper) {
        for (std::string* part : {&text.prefix, &text.digits}) {
            Detail::ToUpperAscii(*part);
        }
    }
    return text;
}

/// Writes a format with its arguments, in one width.
template <class S>
class CPrinter : private Detail::GFormatter<S>
{
    using Base = Detail::GFormatter<S>;
    using typename Base::Char;
    using typename Base::View;

public:
    CPrinter(View format, TVarArgs arguments) : Base(format, arguments) {}

    S Print()
    {
        return Base::PrintAll([this] { PrintConversion(); });
    }

private:
    using Base::Accept;
    using Base::mRest;
    using Base::Next;
    using Base::ReadNumber;

    void PrintConversion()
    {
        const TConversion conversion = ReadConversion();
        switch (conversion.type) {
        case 'd':
        case 'u':
        case 'o':
        case 'x':
        case 'X':
            return PrintInteger(conversion);
        case 'c':
            return PrintCharacter(conversion);
        case 's':
            return PrintText(conversion);
        case 'p':
            return PrintPointer(conversion);
        default:
            return PrintFloat(conversion);
        }
    }

    TConversion ReadConversion()
    {
        TConversion conversion;
        for (bool more = true; more;) {
            more = Flag('-', conversion.left) || Flag('+', conversion.plus) || Flag(' ', conversion.blank) ||
                   Flag('#', conversion.alternate) || Flag('0', conversion.zeros);
        }
        conversion.width = ReadNumber(0);
        Base::FinishField(conversion);
        SkipSize();
        conversion.type = ReadType();
        return conversion;
    }

    void SkipSize()
    {
        if (mRest.size() >= 3 && mRest[0] == 'I' &&
            (mRest.substr(1, 2) == View(Digits64) || mRest.substr(1, 2) == View(Digits32))) {
            mRest.remove_prefix(3);
        }
        while (!mRest.empty() && Base::IsOneOf(mRest[0], "hlLqjztw")) {
            mRest.remove_prefix(1);
        }
    }

    char ReadType()
    {
        const char type = Base::TakeLetter("diuoxXcCsSeEfFgGaAp");
        switch (type) {
        case 'i':
            return 'd';
        case 'C':
            return 'c';
        case 'S':
            return 's';
        default:
            return type;
        }
    }

    bool Flag(char c, bool& flag)
    {
        const bool found = Accept(c);
        flag = flag || found;
        return found;
    }

    void PrintInteger(const TConversion& conversion)
    {
        const TVarRec& argument = Next();
        if (const auto* character = std::get_if<WideChar>(&argument.getValue())) {
            return PrintNumber(IntegerText({*character, false}, conversion), conversion);
        }
        const auto sign = conversion.type == 'd' ? Base::ESign::Apart : Base::ESign::InTheBits;
        PrintNumber(IntegerText(Base::ToMagnitude(argument, sign), conversion), conversion);
    }

    void PrintFloat(const TConversion& conversion)
    {
        PrintNumber(PrintfFloatText(Base::template NextAs<long double>(), conversion), conversion);
    }

    void PrintPointer(TConversion conversion)
    {
        const void* value = Base::template NextAs<const void*>();
        conversion.type = 'X';
        conversion.precision = 2 * sizeof(void*);
        PrintNumber(IntegerText({reinterpret_cast<std::uintptr_t>(value), false}, conversion), conversion);
    }

    void PrintCharacter(const TConversion& conversion)
    {
        const TVarRec::TValue& value = Next().getValue();
        WideChar character = 0;
        if (const auto* wide = std::get_if<WideChar>(&value)) {
            character = *wide;
        } else if (const auto* code = std::get_if<Int64>(&value)) {
            character = static_cast<WideChar>(*code);
        } else if (const auto* plain = std::get_if<UInt64>(&value)) {
            character = static_cast<WideChar>(*plain);
        } else {
            Base::ArgumentMisfit();
        }
        Base::Pad(S(UnicodeString(character)).AsView(), conversion);
    }

    void PrintText(const TConversion& conversion)
    {
        const auto& text = Base::template NextAs<UnicodeString>();
        if constexpr (std::is_same_v<S, UnicodeString>) {
            Base::PadCut(text.AsView(), conversion);
        } else {
            Base::PadCut(S(text).AsView(), conversion);
        }
    }

    void PrintNumber(const TNumberText& text, const TConversion& conversion)
    {
        std::string digits = text.digits;
        if (conversion.zeros && !conversion.left && text.padWithZeros) {
            const auto length = static_cast<int>(text.prefix.size() + text.digits.size());
            digits.insert(0, static_cast<std::size_t>(std::max(conversion.width - length, 0)), '0');
        }
        Base::PadNumber(std::string_view(text.prefix + digits), conversion);
    }

    static constexpr Char Digits64[] = {'6', '4', 0};
    static constexpr Char Digits32[] = {'3', '2', 0};
};

} // namespace

UnicodeString Printf(const UnicodeString& format, TVarArgs arguments)
{
    return CPrinter<UnicodeString>(format.AsView(), arguments).Print();
}

AnsiString PrintfA(const AnsiString& format, TVarArgs arguments)
{
    return CPrinter<AnsiString>(format.AsView(), arguments).Print();
}

} // namespace System
