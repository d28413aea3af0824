// SPDX-License-Identifier: MIT
#include "platform/runtime/System_Printf.h"

#include "platform/runtime/Sysutils_Exception.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace System
{

namespace
{

constexpr int MaxField = 65535;

/// One conversion of a format.
struct TConversion
{
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zeros = false;
    int width = 0;
    /// -1 if there is none.
    int precision = -1;
    char type = 0;
};

constexpr bool IsOneOf(std::uint32_t c, std::string_view set)
{
    return c < 0x80 && set.find(static_cast<char>(c)) != std::string_view::npos;
}

/// Digits in a base that has no sign, upper case if wanted.
std::string DigitText(UInt64 value, int base, bool upper)
{
    std::array<char, 32> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value, base).ptr;
    std::string result(static_cast<const char*>(text.data()), end);
    if (upper) {
        std::transform(result.begin(), result.end(), result.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    }
    return result;
}

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

TNumberText IntegerText(UInt64 magnitude, bool negative, const TConversion& conversion)
{
    TNumberText text;
    const bool isHex = conversion.type == 'x' || conversion.type == 'X';
    const int base = isHex ? 16 : conversion.type == 'o' ? 8 : 10;
    if (magnitude != 0 || conversion.precision != 0) {
        text.digits = DigitText(magnitude, base, conversion.type == 'X');
    }
    const auto digitCount = static_cast<int>(text.digits.size());
    if (conversion.precision > digitCount) {
        text.digits.insert(0, static_cast<std::size_t>(conversion.precision - digitCount), '0');
    }
    if (conversion.alternate && base == 8 && (text.digits.empty() || text.digits[0] != '0')) {
        text.digits.insert(0, 1, '0');
    }
    if (conversion.type == 'd') {
        text.prefix = SignText(negative, conversion);
    } else if (conversion.alternate && isHex && magnitude != 0) {
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
std::string PlainFloatText(Float value, char type, int precision)
{
    constexpr std::size_t mostDigits = std::numeric_limits<Float>::max_exponent10 + 32;
    std::string text(mostDigits + static_cast<std::size_t>(std::max(precision, 0)), '\0');
    char* const begin = text.data();
    char* const end = begin + text.size();
    const auto result = precision < 0 ? std::to_chars(begin, end, value, FloatFormat(type))
                                      : std::to_chars(begin, end, value, FloatFormat(type), precision);
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

TNumberText FloatText(long double value, const TConversion& conversion)
{
    constexpr int defaultPrecision = 6;
    const char type = static_cast<char>(conversion.type | 0x20);
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
            std::transform(part->begin(), part->end(), part->begin(), [](char c) {
                return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
            });
        }
    }
    return text;
}

/// Writes a format with its arguments, in one width.
template <class S>
class CPrinter
{
    using Char = typename S::CharType;
    using View = typename S::View;

public:
    CPrinter(View format, TVarArgs arguments) : mFormat(format), mRest(format), mArguments(arguments) {}

    S Print()
    {
        while (!mRest.empty()) {
            const auto percent = std::min(mRest.find(Char('%')), mRest.size());
            mOut.Append(mRest.substr(0, percent));
            mRest.remove_prefix(percent);
            if (!mRest.empty()) {
                mRest.remove_prefix(1);
                PrintConversion();
            }
        }
        return std::move(mOut);
    }

private:
    void PrintConversion()
    {
        if (Accept('%')) {
            mOut += Char('%');
            return;
        }
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
        if (conversion.width < 0) {
            conversion.left = true;
            conversion.width = -conversion.width;
        }
        if (Accept('.')) {
            conversion.precision = std::max(ReadNumber(0), -1);
        }
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
        while (!mRest.empty() && IsOneOf(Code(mRest[0]), "hlLqjztw")) {
            mRest.remove_prefix(1);
        }
    }

    char ReadType()
    {
        if (mRest.empty() || !IsOneOf(Code(mRest[0]), "diuoxXcCsSeEfFgGaAp")) {
            Misfit();
        }
        const char type = static_cast<char>(mRest[0]);
        mRest.remove_prefix(1);
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

    bool Accept(char c)
    {
        if (mRest.empty() || mRest[0] != Char(c)) {
            return false;
        }
        mRest.remove_prefix(1);
        return true;
    }

    bool Flag(char c, bool& flag)
    {
        const bool found = Accept(c);
        flag = flag || found;
        return found;
    }

    /// Digits, or `*` for the next argument; `otherwise` if there is neither.
    int ReadNumber(int otherwise)
    {
        if (Accept('*')) {
            const auto* value = std::get_if<Int64>(&Next().getValue());
            if (value == nullptr) {
                Misfit();
            }
            return static_cast<int>(std::clamp<Int64>(*value, -MaxField, MaxField));
        }
        int number = otherwise;
        while (!mRest.empty() && mRest[0] >= Char('0') && mRest[0] <= Char('9')) {
            number = std::min(number * 10 + static_cast<int>(mRest[0] - Char('0')), MaxField);
            mRest.remove_prefix(1);
        }
        return number;
    }

    void PrintInteger(const TConversion& conversion)
    {
        const TVarRec& argument = Next();
        if (const auto* character = std::get_if<WideChar>(&argument.getValue())) {
            return PrintNumber(IntegerText(*character, false, conversion), conversion);
        }
        if (const auto* plain = std::get_if<UInt64>(&argument.getValue())) {
            return PrintNumber(IntegerText(*plain, false, conversion), conversion);
        }
        const auto* value = std::get_if<Int64>(&argument.getValue());
        if (value == nullptr) {
            Misfit();
        }
        auto bits = static_cast<UInt64>(*value);
        if (conversion.type == 'd') {
            return PrintNumber(IntegerText(*value < 0 ? UInt64(0) - bits : bits, *value < 0, conversion),
                               conversion);
        }
        // Without a sign a negative number shows the bits of its type, at least those of an `int`.
        if (argument.getSize() <= sizeof(int)) {
            bits = static_cast<unsigned>(bits);
        }
        PrintNumber(IntegerText(bits, false, conversion), conversion);
    }

    void PrintFloat(const TConversion& conversion)
    {
        const auto* value = std::get_if<long double>(&Next().getValue());
        if (value == nullptr) {
            Misfit();
        }
        PrintNumber(FloatText(*value, conversion), conversion);
    }

    void PrintPointer(TConversion conversion)
    {
        const auto* value = std::get_if<const void*>(&Next().getValue());
        if (value == nullptr) {
            Misfit();
        }
        conversion.type = 'X';
        conversion.precision = 2 * sizeof(void*);
        PrintNumber(IntegerText(reinterpret_cast<std::uintptr_t>(*value), false, conversion), conversion);
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
            Misfit();
        }
        Pad(S(UnicodeString(character)), conversion);
    }

    void PrintText(const TConversion& conversion)
    {
        const auto* text = std::get_if<UnicodeString>(&Next().getValue());
        if (text == nullptr) {
            Misfit();
        }
        S own(*text);
        if (conversion.precision >= 0 && own.Length() > conversion.precision) {
            own.SetLength(conversion.precision);
        }
        Pad(own, conversion);
    }

    void PrintNumber(const TNumberText& text, const TConversion& conversion)
    {
        S digits = Widen(text.digits);
        if (conversion.zeros && !conversion.left && text.padWithZeros) {
            const auto length = static_cast<int>(text.prefix.size() + text.digits.size());
            digits = S::StringOfChar(Char('0'), conversion.width - length) + digits;
        }
        Pad(Widen(text.prefix) + digits, conversion);
    }

    void Pad(const S& text, const TConversion& conversion)
    {
        const S padding = S::StringOfChar(Char(' '), conversion.width - text.Length());
        mOut += conversion.left ? text + padding : padding + text;
    }

    static S Widen(std::string_view text)
    {
        S result;
        result.SetLength(static_cast<int>(text.size()));
        std::copy(text.begin(), text.end(), result.UniqueData());
        return result;
    }

    static std::uint32_t Code(Char c) { return static_cast<std::make_unsigned_t<Char>>(c); }

    const TVarRec& Next()
    {
        if (mNext == mArguments.size()) {
            throw Sysutils::EConvertError(u"No argument for format '" + UnicodeString(S(mFormat)) + u"'");
        }
        return mArguments[mNext++];
    }

    [[noreturn]] void Misfit() const
    {
        throw Sysutils::EConvertError(u"Format '" + UnicodeString(S(mFormat)) +
                                      u"' invalid or incompatible with argument");
    }

    static constexpr Char Digits64[] = {'6', '4', 0};
    static constexpr Char Digits32[] = {'3', '2', 0};

    View mFormat;
    View mRest;
    TVarArgs mArguments;
    std::size_t mNext = 0;
    S mOut;
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
