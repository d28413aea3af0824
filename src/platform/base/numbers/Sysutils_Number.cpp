// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_Number.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/internal/Sysutils_Scaled.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <clocale>
#include <cmath>
#include <concepts>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Sysutils
{

namespace
{

using System::Int64;
using System::UInt64;
using System::UnicodeString;
using System::WideChar;

constexpr int DoubleDigits = 15;
constexpr int LongDoubleDigits = 18;
constexpr int GeneralPrecision = 15;
constexpr int Int64Digits = 19;
constexpr int MaxDecimals = 18;
/// A general number below this power of ten is written with an exponent.
constexpr int SmallestFixedExponent = -4;

constexpr bool IsDigit(WideChar c)
{
    return c >= u'0' && c <= u'9';
}

UnicodeString FromAscii(std::string_view text)
{
    UnicodeString result;
    result.SetLength(static_cast<int>(text.size()));
    std::copy(text.begin(), text.end(), result.UniqueData());
    return result;
}

/// A number as decimal digits: 0.DIGITS times ten to the exponent. No digits mean zero.
struct TDecimal
{
    std::array<char, 24> digits = {};
    int count = 0;
    int exponent = 0;
    bool negative = false;

    char At(int index) const
    {
        return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
    }

    /// Rounds a half away from zero to `wanted` digits.
    void Round(int wanted)
    {
        if (wanted < count) {
            const bool up = wanted >= 0 && At(wanted) >= '5';
            count = std::max(wanted, 0);
            if (up) {
                Increment();
            }
        }
        while (count > 0 && digits[static_cast<std::size_t>(count) - 1] == '0') {
            --count;
        }
        if (count == 0) {
            exponent = 0;
            negative = false;
        }
    }

private:
    void Increment()
    {
        while (count > 0 && digits[static_cast<std::size_t>(count) - 1] == '9') {
            --count;
        }
        if (count == 0) {
            digits[0] = '1';
            count = 1;
            ++exponent;
            return;
        }
        ++digits[static_cast<std::size_t>(count) - 1];
    }
};

/// The digits of the scientific form that `to_chars` writes: the shortest one, or that of a precision.
template <class... Precision>
TDecimal ScientificDigits(std::floating_point auto value, Precision... precision)
{
    std::array<char, 40> buffer = {};
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::scientific, precision...)
                                .ptr;
    TDecimal result;
    result.negative = buffer[0] == '-';
    const char* const text = buffer.data() + (result.negative ? 1 : 0);
    // The exponent has at least two digits.
    const auto* const mark =
        std::find(std::reverse_iterator(end - 3), std::reverse_iterator(text), 'e').base() - 1;
    result.digits[0] = *text;
    result.count = std::max(static_cast<int>(mark - text) - 1, 1);
    // A fixed count, whatever stands there, costs less than a call for the few digits.
    std::copy_n(text + 2, result.digits.size() - 1, result.digits.begin() + 1);
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, result.exponent);
    ++result.exponent;
    return result;
}

TDecimal ToDecimal(double value)
{
    // The shortest form that reads back as the value: rounding it, and not the binary value, to 15 digits
    // spares a second conversion.
    TDecimal result = ScientificDigits(value);
    result.Round(DoubleDigits);
    return result;
}

TDecimal ToDecimal(long double value)
{
    TDecimal result = ScientificDigits(value, LongDoubleDigits - 1);
    result.Round(LongDoubleDigits);
    return result;
}

template <class Float>
constexpr int DigitsOf = std::is_same_v<Float, long double> ? LongDoubleDigits : DoubleDigits;

template <class Float>
std::string_view SpecialText(Float value)
{
    if (std::isnan(value)) {
        return "NAN";
    }
    return value < 0 ? "-INF" : "INF";
}

/// Collects a number's text.
template <class Char>
class GNumberText
{
public:
    explicit GNumberText(Char* out) : mBegin(out), mEnd(out) {}

    template <class Other>
    void Add(Other c)
    {
        *mEnd++ = static_cast<Char>(c);
    }
    std::size_t Length() const { return static_cast<std::size_t>(mEnd - mBegin); }

private:
    Char* mBegin;
    Char* mEnd;
};

/// The digits from one place to another, with zeros outside those that the number has.
template <class Out>
void AddDigits(Out& out, const TDecimal& value, int first, int last)
{
    for (; first < std::min(last, 0); ++first) {
        out.Add('0');
    }
    for (; first < std::min(last, value.count); ++first) {
        out.Add(value.digits[static_cast<std::size_t>(first)]);
    }
    for (; first < last; ++first) {
        out.Add('0');
    }
}

template <class Out>
void AddExponent(Out& out, int exponent, bool plus, int minimum)
{
    if (exponent < 0) {
        out.Add(u'-');
    } else if (plus) {
        out.Add(u'+');
    }
    const std::string digits = std::to_string(std::abs(exponent));
    for (int i = static_cast<int>(digits.size()); i < minimum; ++i) {
        out.Add(u'0');
    }
    for (const char digit : digits) {
        out.Add(digit);
    }
}

/// The general form of digits that are rounded already.
template <class Out, class Char>
void AddGeneral(Out& out, const TDecimal& value, int precision, int exponentDigits, Char separator)
{
    if (value.negative) {
        out.Add('-');
    }
    if (value.count == 0) {
        out.Add('0');
        return;
    }
    if (value.exponent > precision || value.exponent < SmallestFixedExponent) {
        AddDigits(out, value, 0, 1);
        if (value.count > 1) {
            out.Add(separator);
            AddDigits(out, value, 1, value.count);
        }
        out.Add('E');
        AddExponent(out, value.exponent - 1, false, exponentDigits);
        return;
    }
    if (value.exponent > 0) {
        AddDigits(out, value, 0, value.exponent);
    } else {
        out.Add('0');
    }
    if (value.count > value.exponent) {
        out.Add(separator);
        AddDigits(out, value, value.exponent, value.count);
    }
}

/// Appends to a string.
class CStringText
{
public:
    void Add(WideChar c) { mText += c; }
    void Add(char c) { mText += static_cast<WideChar>(c); }
    void Add(const UnicodeString& text) { mText += text; }
    UnicodeString Take() { return std::move(mText); }

private:
    UnicodeString mText;
};

/// The digits in front of the separator, with thousand separators unless `thousand` is 0.
void AddInteger(CStringText& out, const TDecimal& value, WideChar thousand)
{
    const int places = std::max(value.exponent, 1);
    for (int i = 0; i < places; ++i) {
        if (thousand != 0 && i > 0 && (places - i) % 3 == 0) {
            out.Add(thousand);
        }
        out.Add(value.exponent > 0 ? value.At(i) : '0');
    }
}

void AddFixed(CStringText& out, const TDecimal& value, int decimals, WideChar separator, WideChar thousand)
{
    AddInteger(out, value, thousand);
    if (decimals > 0) {
        out.Add(separator);
    }
    for (int i = 0; i < decimals; ++i) {
        out.Add(value.At(value.exponent + i));
    }
}

UnicodeString GeneralText(TDecimal value, int precision, int exponentDigits, const TFormatSettings& settings)
{
    value.Round(precision);
    CStringText out;
    AddGeneral(out, value, precision, exponentDigits, settings.DecimalSeparator);
    return out.Take();
}

UnicodeString ExponentText(TDecimal value, int precision, int exponentDigits, const TFormatSettings& settings)
{
    value.Round(precision);
    CStringText out;
    if (value.negative) {
        out.Add(u'-');
    }
    out.Add(value.At(0));
    out.Add(settings.DecimalSeparator);
    for (int i = 1; i < precision; ++i) {
        out.Add(value.At(i));
    }
    out.Add(u'E');
    AddExponent(out, value.count == 0 ? 0 : value.exponent - 1, true, exponentDigits);
    return out.Take();
}

/// Where the currency (`$`), the sign and the amount (`1`) of a negative amount stand.
constexpr std::array<const char16_t*, 16> NegativeMoney = {
    u"($1)", u"-$1",  u"$-1",  u"$1-",  u"(1$)", u"-1$",  u"1-$",   u"1$-",
    u"-1 $", u"-$ 1", u"1 $-", u"$ 1-", u"$ -1", u"1- $", u"($ 1)", u"(1 $)"};
constexpr std::array<const char16_t*, 4> PositiveMoney = {u"$1", u"1$", u"$ 1", u"1 $"};

UnicodeString MoneyText(const UnicodeString& amount, bool negative, const TFormatSettings& settings)
{
    const std::u16string_view pattern = negative
                                            ? NegativeMoney[settings.NegCurrFormat % NegativeMoney.size()]
                                            : PositiveMoney[settings.CurrencyFormat % PositiveMoney.size()];
    UnicodeString result;
    for (const WideChar c : pattern) {
        if (c == u'$') {
            result += settings.CurrencyString;
        } else if (c == u'1') {
            result += amount;
        } else {
            result += c;
        }
    }
    return result;
}

UnicodeString DecimalToStrF(TDecimal value, TFloatFormat format, int precision, int digits,
                            const TFormatSettings& settings)
{
    if (format == ffGeneral) {
        return GeneralText(value, precision, std::clamp(digits, 0, 4), settings);
    }
    if (format == ffExponent) {
        return ExponentText(value, precision, std::clamp(digits, 0, 4), settings);
    }
    const int decimals = std::clamp(digits, 0, MaxDecimals);
    TDecimal rounded = value;
    rounded.Round(std::min(precision, value.exponent + decimals));
    if (rounded.exponent > precision) {
        return GeneralText(value, precision, 0, settings);
    }
    CStringText out;
    const bool negative = std::exchange(rounded.negative, false);
    if (negative && format != ffCurrency) {
        out.Add(u'-');
    }
    AddFixed(out, rounded, decimals, settings.DecimalSeparator,
             format == ffFixed ? WideChar(0) : settings.ThousandSeparator);
    return format == ffCurrency ? MoneyText(out.Take(), negative, settings) : out.Take();
}

template <class Float>
UnicodeString ToStrF(Float value, TFloatFormat format, int precision, int digits,
                     const TFormatSettings& settings)
{
    if (!std::isfinite(value)) {
        return FromAscii(SpecialText(value));
    }
    return DecimalToStrF(ToDecimal(value), format, std::clamp(precision, 2, DigitsOf<Float>), digits,
                         settings);
}

/// One section of a picture.
struct TPicture
{
    std::u16string_view text;
    int integerZeros = 0;
    int decimals = 0;
    int decimalZeros = 0;
    int integerPlaces = 0;
    bool thousands = false;
    bool separator = false;
    /// 0 for no exponent.
    WideChar exponentSign = 0;
    int exponentDigits = 0;
};

/// The length of the quoted text that begins the view, with its quotes.
std::size_t QuotedLength(std::u16string_view text)
{
    const auto close = text.find(text[0], 1);
    return close == std::u16string_view::npos ? text.size() : close + 1;
}

bool IsExponent(std::u16string_view text)
{
    return text.size() > 1 && (text[0] == u'E' || text[0] == u'e') && (text[1] == u'+' || text[1] == u'-');
}

/// How many zeros follow the sign of an exponent.
std::size_t ExponentZeros(std::u16string_view text)
{
    const auto rest = text.substr(2);
    return std::min(rest.find_first_not_of(u'0'), rest.size());
}

/// Calls `visit` with each piece of a picture: a single character, a quoted text or an exponent.
template <class Visit>
void ForEachPiece(std::u16string_view text, Visit visit)
{
    while (!text.empty()) {
        std::size_t length = 1;
        if (text[0] == u'"' || text[0] == u'\'') {
            length = QuotedLength(text);
        } else if (IsExponent(text)) {
            length = 2 + ExponentZeros(text);
        }
        visit(text.substr(0, length));
        text.remove_prefix(length);
    }
}

std::vector<std::u16string_view> SplitSections(std::u16string_view format)
{
    std::vector<std::u16string_view> sections;
    std::size_t start = 0;
    std::size_t at = 0;
    ForEachPiece(format, [&](std::u16string_view piece) {
        if (piece == u";") {
            sections.push_back(format.substr(start, at - start));
            start = at + 1;
        }
        at += piece.size();
    });
    sections.push_back(format.substr(start));
    return sections;
}

TPicture ScanPicture(std::u16string_view text)
{
    TPicture picture;
    picture.text = text;
    int places = 0;
    int firstZero = -1;
    ForEachPiece(text, [&](std::u16string_view piece) {
        const WideChar c = piece[0];
        if (c == u'0' || c == u'#') {
            if (c == u'0') {
                firstZero = firstZero < 0 && !picture.separator ? places : firstZero;
                picture.decimalZeros = picture.separator ? picture.decimals + 1 : 0;
            }
            ++(picture.separator ? picture.decimals : places);
        } else if (c == u'.') {
            picture.separator = true;
        } else if (c == u',') {
            picture.thousands = true;
        } else if (IsExponent(piece)) {
            picture.exponentSign = piece[1];
            picture.exponentDigits = static_cast<int>(std::min<std::size_t>(piece.size() - 2, 4));
        }
    });
    picture.integerPlaces = places;
    picture.integerZeros = firstZero < 0 ? 0 : places - firstZero;
    return picture;
}

/// Writes a number by one section of a picture.
class CPictureWriter
{
public:
    CPictureWriter(const TPicture& picture, const TDecimal& value, const TFormatSettings& settings)
        : mPicture(picture), mSettings(settings), mValue(value)
    {
        if (picture.exponentSign != 0) {
            mValue.Round(picture.integerPlaces + picture.decimals);
            mExponent = mValue.count == 0 ? 0 : mValue.exponent - picture.integerPlaces;
            mValue.exponent = mValue.count == 0 ? 0 : picture.integerPlaces;
        } else {
            mValue.Round(mValue.exponent + picture.decimals);
        }
        mIntegerDigits = std::max(mValue.exponent, picture.integerZeros);
        mDecimals = std::max(picture.decimalZeros, mValue.count - mValue.exponent);
    }

    bool IsZero() const { return mValue.count == 0; }

    UnicodeString Write(bool sign)
    {
        if (sign && mValue.negative) {
            mOut.Add(u'-');
        }
        ForEachPiece(mPicture.text, [this](std::u16string_view piece) { WritePiece(piece); });
        if (!mIntegerDone) {
            WriteIntegerDownTo(0);
        }
        return mOut.Take();
    }

private:
    void WritePiece(std::u16string_view piece)
    {
        const WideChar c = piece[0];
        if (c == u'0' || c == u'#') {
            mAfterSeparator ? WriteDecimal() : WriteIntegerDownTo(mPicture.integerPlaces - 1 - mPlace++);
        } else if (c == u'.') {
            WriteSeparator();
        } else if (IsExponent(piece)) {
            mOut.Add(c);
            AddExponent(mOut, mExponent, mPicture.exponentSign == u'+', mPicture.exponentDigits);
        } else if (c == u'"' || c == u'\'') {
            const bool closed = piece.size() > 1 && piece.back() == c;
            mOut.Add(UnicodeString(piece.substr(1, piece.size() - (closed ? 2 : 1))));
        } else if (c != u',') {
            mOut.Add(c);
        }
    }

    /// Writes the digits of the integer part that are left, down to the one at `last` from the right.
    void WriteIntegerDownTo(int last)
    {
        for (; mIntegerDigits > last; --mIntegerDigits) {
            const int place = mIntegerDigits - 1;
            mOut.Add(mValue.exponent > 0 ? mValue.At(mValue.exponent - 1 - place) : '0');
            if (mPicture.thousands && place > 0 && place % 3 == 0) {
                mOut.Add(mSettings.ThousandSeparator);
            }
        }
        mIntegerDone = last == 0;
    }

    void WriteSeparator()
    {
        if (mAfterSeparator) {
            return;
        }
        WriteIntegerDownTo(0);
        mAfterSeparator = true;
        if (mDecimals > 0) {
            mOut.Add(mSettings.DecimalSeparator);
        }
    }

    void WriteDecimal()
    {
        if (mDecimalPlace < mDecimals) {
            mOut.Add(mValue.At(mValue.exponent + mDecimalPlace));
        }
        ++mDecimalPlace;
    }

    const TPicture& mPicture;
    const TFormatSettings& mSettings;
    TDecimal mValue;
    CStringText mOut;
    int mExponent = 0;
    int mIntegerDigits = 0;
    int mDecimals = 0;
    int mPlace = 0;
    int mDecimalPlace = 0;
    bool mIntegerDone = false;
    bool mAfterSeparator = false;
};

UnicodeString WriteSection(std::u16string_view section, const TDecimal& value, bool sign,
                           const TFormatSettings& settings, bool& isZero)
{
    const TPicture picture = ScanPicture(section);
    CPictureWriter writer(picture, value, settings);
    isZero = writer.IsZero();
    return writer.Write(sign);
}

UnicodeString FormatDecimal(const UnicodeString& format, const TDecimal& decimal,
                            const TFormatSettings& settings)
{
    const std::vector<std::u16string_view> sections = SplitSections(format.AsView());
    const bool ownNegative = decimal.negative && sections.size() > 1 && !sections[1].empty();
    const std::u16string_view section = ownNegative ? sections[1] : sections[0];
    const bool hasExponent = ScanPicture(section).exponentSign != 0;
    if (section.empty() || (decimal.exponent > LongDoubleDigits && !hasExponent)) {
        return GeneralText(decimal, GeneralPrecision, 0, settings);
    }
    bool isZero = false;
    const UnicodeString text = WriteSection(section, decimal, !ownNegative, settings, isZero);
    if (isZero && sections.size() > 2 && !sections[2].empty()) {
        return WriteSection(sections[2], decimal, false, settings, isZero);
    }
    // A negative number that rounds to zero is written as a positive one.
    return isZero && ownNegative ? WriteSection(sections[0], TDecimal(), false, settings, isZero) : text;
}

template <class Float>
UnicodeString FormatValue(const UnicodeString& format, Float value, const TFormatSettings& settings)
{
    return std::isfinite(value) ? FormatDecimal(format, ToDecimal(value), settings)
                                : FromAscii(SpecialText(value));
}

/// `units` divided by ten to `decimals`, exactly.
TDecimal ScaledToDecimal(Int64 units, int decimals)
{
    TDecimal result;
    std::array<char, 24> text;
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), units).ptr;
    result.negative = units < 0;
    const char* const begin = text.data() + (result.negative ? 1 : 0);
    std::copy(begin, end, result.digits.begin());
    result.count = static_cast<int>(end - begin);
    result.exponent = result.count - decimals;
    result.Round(result.count);
    return result;
}

template <class Char>
std::size_t WriteFloat(double value, Char decimalSeparator, Char* out)
{
    if (!std::isfinite(value)) {
        const std::string_view text = SpecialText(value);
        std::copy(text.begin(), text.end(), out);
        return text.size();
    }
    GNumberText<Char> text(out);
    AddGeneral(text, ToDecimal(value), GeneralPrecision, 0, decimalSeparator);
    return text.Length();
}

const WideChar* ScanDigits(const WideChar* first, const WideChar* last, UInt64& value)
{
    for (; first != last && IsDigit(*first); ++first) {
        value = value * 10 + static_cast<UInt64>(*first - u'0');
    }
    return first;
}

template <class Float>
bool ReadFloat(std::u16string_view text, WideChar decimalSeparator, Float& value)
{
    const auto isBlank = [](WideChar c) { return c == u' '; };
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    if (!text.empty() && text.front() == u'+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == u'-') {
            return false;
        }
    }
    Float read = 0;
    if constexpr (std::is_same_v<Float, double>) {
        const WideChar* const textEnd = text.data() + text.size();
        if (!text.empty() && ScanShortFloat(text.data(), textEnd, decimalSeparator, read) == textEnd) {
            value = read;
            return true;
        }
    }
    // Only a number's own characters are let through, so that no "inf" and no "nan" is read.
    constexpr std::size_t shortSize = 64;
    std::array<char, shortSize> shortText;
    std::string longText;
    if (text.size() > shortSize) {
        longText.resize(text.size());
    }
    char* const begin = longText.empty() ? shortText.data() : longText.data();
    char* end = begin;
    bool hasDigit = false;
    for (const WideChar c : text) {
        if (IsDigit(c)) {
            hasDigit = true;
            *end++ = static_cast<char>(c);
        } else if (c == decimalSeparator) {
            *end++ = '.';
        } else if (c == u'e' || c == u'E' || c == u'+' || c == u'-') {
            *end++ = static_cast<char>(c);
        } else {
            return false;
        }
    }
    const auto result = std::from_chars(begin, end, read);
    if (!hasDigit || result.ptr != end) {
        return false;
    }
    if (result.ec == std::errc::result_out_of_range) {
        // Too small for the type is zero, too large is no number.
        static const locale_t plainLocale = newlocale(LC_ALL_MASK, "C", nullptr);
        const std::string number(begin, end);
        if constexpr (std::is_same_v<Float, double>) {
            read = strtod_l(number.c_str(), nullptr, plainLocale);
        } else {
            read = strtold_l(number.c_str(), nullptr, plainLocale);
        }
        if (!(std::abs(read) <= 1)) {
            return false;
        }
    } else if (result.ec != std::errc()) {
        return false;
    }
    value = read;
    return true;
}

/// The text of an integer, read as far as it fits.
template <class Integer>
struct TReading
{
    Integer value = 0;
    /// 0-based; the length of the text if all of it fits.
    std::size_t end = 0;
    bool complete = false;
};

int HexDigit(WideChar c)
{
    if (IsDigit(c)) {
        return c - u'0';
    }
    const WideChar lower = c | 0x20U;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// The length of a prefix that announces hexadecimal digits.
std::size_t HexPrefix(std::u16string_view text)
{
    const auto isX = [](WideChar c) { return c == u'x' || c == u'X'; };
    if (!text.empty() && (text[0] == u'$' || isX(text[0]))) {
        return 1;
    }
    return text.size() > 1 && text[0] == u'0' && isX(text[1]) ? 2 : 0;
}

template <class Integer>
TReading<Integer> ReadInteger(std::u16string_view text)
{
    using Unsigned = std::make_unsigned_t<Integer>;
    std::size_t at = std::min(text.find_first_not_of(u' '), text.size());
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
        ++at;
    }
    const std::size_t prefix = HexPrefix(text.substr(at));
    at += prefix;
    const Unsigned base = prefix > 0 ? 16 : 10;
    // A hexadecimal number may fill all bits, a decimal one must leave room for the sign.
    const Unsigned limit =
        prefix > 0 ? std::numeric_limits<Unsigned>::max()
                   : static_cast<Unsigned>(std::numeric_limits<Integer>::max()) + (negative ? 1U : 0U);
    const std::size_t first = at;
    Unsigned value = 0;
    for (; at < text.size(); ++at) {
        const int digit = HexDigit(text[at]);
        if (digit < 0 || digit >= static_cast<int>(base)) {
            break;
        }
        const auto added = static_cast<Unsigned>(digit);
        if (value > (limit - added) / base) {
            break;
        }
        value = value * base + added;
    }
    return {static_cast<Integer>(negative ? Unsigned(0) - value : value), at,
            at == text.size() && at > first};
}

template <class Integer>
void ValOf(const UnicodeString& text, Integer& value, int& code)
{
    const TReading<Integer> reading = ReadInteger<Integer>(text.AsView());
    value = reading.value;
    code = reading.complete ? 0 : static_cast<int>(reading.end) + 1;
}

template <class Integer>
std::optional<Integer> ToInteger(const UnicodeString& text)
{
    const TReading<Integer> reading = ReadInteger<Integer>(text.AsView());
    return reading.complete ? std::optional(reading.value) : std::nullopt;
}

template <class Integer>
bool TryInto(const UnicodeString& text, Integer& value)
{
    const std::optional<Integer> read = ToInteger<Integer>(text);
    value = read.value_or(value);
    return read.has_value();
}

template <class Integer>
Integer IntegerOrThrow(const UnicodeString& text)
{
    if (const std::optional<Integer> value = ToInteger<Integer>(text)) {
        return *value;
    }
    throw EConvertError(u"'" + text + u"' is not a valid integer value");
}

template <class Unsigned>
UnicodeString HexText(Unsigned value, int digits)
{
    std::array<char, 20> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value, 16).ptr;
    std::transform(text.data(), const_cast<char*>(end), text.data(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    const auto length = static_cast<int>(end - text.data());
    constexpr int maxDigits = 64;
    return UnicodeString::StringOfChar(u'0', std::clamp(digits, 0, maxDigits) - length) +
           FromAscii({text.data(), static_cast<std::size_t>(length)});
}

} // namespace

UnicodeString IntToStr(Int64 value)
{
    return UnicodeString(value);
}

UnicodeString UIntToStr(UInt64 value)
{
    return UnicodeString(value);
}

UnicodeString IntToHex(int value, int digits)
{
    return HexText(static_cast<unsigned>(value), digits);
}

UnicodeString IntToHex(Int64 value, int digits)
{
    return HexText(static_cast<UInt64>(value), digits);
}

int StrToInt(const UnicodeString& text)
{
    return IntegerOrThrow<int>(text);
}

int StrToIntDef(const UnicodeString& text, int defaultValue)
{
    return ToInteger<int>(text).value_or(defaultValue);
}

bool TryStrToInt(const UnicodeString& text, int& value)
{
    return TryInto(text, value);
}

Int64 StrToInt64(const UnicodeString& text)
{
    return IntegerOrThrow<Int64>(text);
}

Int64 StrToInt64Def(const UnicodeString& text, Int64 defaultValue)
{
    return ToInteger<Int64>(text).value_or(defaultValue);
}

bool TryStrToInt64(const UnicodeString& text, Int64& value)
{
    return TryInto(text, value);
}

UnicodeString FloatToStr(double value)
{
    return FloatToStr(value, FormatSettings);
}

UnicodeString FloatToStr(long double value)
{
    return FloatToStr(value, FormatSettings);
}

UnicodeString FloatToStr(double value, const TFormatSettings& settings)
{
    std::array<WideChar, FloatBufferSize> buffer;
    const std::size_t length = FloatToBuffer(value, settings.DecimalSeparator, buffer.data());
    return UnicodeString(std::u16string_view(buffer.data(), length));
}

UnicodeString FloatToStr(long double value, const TFormatSettings& settings)
{
    return ToStrF(value, ffGeneral, GeneralPrecision, 0, settings);
}

UnicodeString FloatToStrF(double value, TFloatFormat format, int precision, int digits)
{
    return ToStrF(value, format, precision, digits, FormatSettings);
}

UnicodeString FloatToStrF(long double value, TFloatFormat format, int precision, int digits)
{
    return ToStrF(value, format, precision, digits, FormatSettings);
}

UnicodeString FloatToStrF(double value, TFloatFormat format, int precision, int digits,
                          const TFormatSettings& settings)
{
    return ToStrF(value, format, precision, digits, settings);
}

UnicodeString FloatToStrF(long double value, TFloatFormat format, int precision, int digits,
                          const TFormatSettings& settings)
{
    return ToStrF(value, format, precision, digits, settings);
}

UnicodeString FormatFloat(const UnicodeString& format, double value)
{
    return FormatValue(format, value, FormatSettings);
}

UnicodeString FormatFloat(const UnicodeString& format, long double value)
{
    return FormatValue(format, value, FormatSettings);
}

UnicodeString FormatFloat(const UnicodeString& format, double value, const TFormatSettings& settings)
{
    return FormatValue(format, value, settings);
}

UnicodeString FormatFloat(const UnicodeString& format, long double value, const TFormatSettings& settings)
{
    return FormatValue(format, value, settings);
}

UnicodeString ScaledToStrF(Int64 units, int decimals, TFloatFormat format, int digits,
                           const TFormatSettings& settings)
{
    return DecimalToStrF(ScaledToDecimal(units, decimals), format, Int64Digits, digits, settings);
}

UnicodeString FormatScaled(const UnicodeString& format, Int64 units, int decimals,
                           const TFormatSettings& settings)
{
    return FormatDecimal(format, ScaledToDecimal(units, decimals), settings);
}

double StrToFloat(const UnicodeString& text)
{
    return StrToFloat(text, FormatSettings);
}

double StrToFloat(const UnicodeString& text, const TFormatSettings& settings)
{
    double value = 0;
    if (!TryStrToFloat(text, value, settings)) {
        ThrowNoFloat(text.AsView());
    }
    return value;
}

void ThrowNoFloat(std::u16string_view text)
{
    throw EConvertError(u"'" + UnicodeString(text) + u"' is not a valid floating point value");
}

double StrToFloatDef(const UnicodeString& text, double defaultValue)
{
    TryStrToFloat(text, defaultValue);
    return defaultValue;
}

bool TryStrToFloat(const UnicodeString& text, double& value)
{
    return TryStrToFloat(text, value, FormatSettings);
}

bool TryStrToFloat(const UnicodeString& text, long double& value)
{
    return TryStrToFloat(text, value, FormatSettings);
}

bool TryStrToFloat(const UnicodeString& text, double& value, const TFormatSettings& settings)
{
    return BufferToFloat(text.AsView(), settings.DecimalSeparator, value);
}

bool TryStrToFloat(const UnicodeString& text, long double& value, const TFormatSettings& settings)
{
    return BufferToFloat(text.AsView(), settings.DecimalSeparator, value);
}

bool TextToFloat(const UnicodeString& text, double& value)
{
    return TryStrToFloat(text, value);
}

std::size_t FloatToBuffer(double value, WideChar decimalSeparator, WideChar* out)
{
    return WriteFloat(value, decimalSeparator, out);
}

std::size_t FloatToBuffer(double value, char decimalSeparator, char* out)
{
    return WriteFloat(value, decimalSeparator, out);
}

const WideChar* ScanShortFloat(const WideChar* first, const WideChar* last, WideChar decimalSeparator,
                               double& value)
{
    // The digits and the power of ten behind them are exact as floats: one division then rounds once, as the
    // standard asks for.
    constexpr std::array<double, 20> powers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
                                               1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};
    constexpr UInt64 maxExact = UInt64(1) << std::numeric_limits<double>::digits;
    const bool negative = first != last && *first == u'-';
    const WideChar* const digitsBegin = first + (negative ? 1 : 0);
    UInt64 digits = 0;
    const WideChar* end = ScanDigits(digitsBegin, last, digits);
    std::ptrdiff_t count = end - digitsBegin;
    std::ptrdiff_t decimals = 0;
    if (end != last && *end == decimalSeparator) {
        const WideChar* const decimalsBegin = end + 1;
        end = ScanDigits(decimalsBegin, last, digits);
        decimals = end - decimalsBegin;
        count += decimals;
    }
    if (FLT_EVAL_METHOD != 0 || count == 0 || count >= std::ssize(powers) || digits > maxExact) {
        return first;
    }
    const double read = static_cast<double>(digits) / powers[static_cast<std::size_t>(decimals)];
    value = negative ? -read : read;
    return end;
}

bool BufferToFloat(std::u16string_view text, WideChar decimalSeparator, double& value)
{
    return ReadFloat(text, decimalSeparator, value);
}

bool BufferToFloat(std::u16string_view text, WideChar decimalSeparator, long double& value)
{
    return ReadFloat(text, decimalSeparator, value);
}

} // namespace Sysutils

namespace System
{

void Val(const UnicodeString& text, int& value, int& code)
{
    Sysutils::ValOf(text, value, code);
}

void Val(const UnicodeString& text, Int64& value, int& code)
{
    Sysutils::ValOf(text, value, code);
}

namespace Detail
{

GSharedText<WideChar> FloatText(long double value)
{
    return GSharedText<WideChar>(Sysutils::FloatToStr(value).AsView());
}

} // namespace Detail

} // namespace System
