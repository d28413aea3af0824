// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/base/internal/System_TextBuffer.h"
#include "platform/runtime/sysutils/System_VarArgs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace System::Detail
{

/// The largest width and precision of a conversion.
inline constexpr int MaxField = 65535;

/// The magnitude of an integer and its sign.
struct TMagnitude
{
    UInt64 value = 0;
    bool negative = false;
};

/// How a conversion places its text.
struct TField
{
    /// The text stands at the left, the blanks behind it.
    bool left = false;
    int width = 0;
    /// -1 if there is none.
    int precision = -1;
};

inline void ToUpperAscii(std::string& text)
{
    std::transform(text.begin(), text.end(), text.begin(), AsciiUpper<char>);
}

enum class EHexDigits
{
    Lower,
    Upper,
};

/// Digits without a sign; `hex` matters to bases above 10.
[[nodiscard]] inline std::string DigitText(UInt64 value, int base, EHexDigits hex)
{
    std::array<char, 64> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value, base).ptr;
    std::string result(static_cast<const char*>(text.data()), end);
    if (hex == EHexDigits::Upper) {
        ToUpperAscii(result);
    }
    return result;
}

/// What an argument is, for a message.
[[nodiscard]] inline const WideChar* KindOf(const TVarRec& argument)
{
    constexpr std::array<const WideChar*, std::variant_size_v<TVarRec::TValue>> kinds = {
        u"an integer", u"an integer", u"a float", u"a character", u"a text", u"a pointer"};
    return argument.IsBool() ? u"a truth value" : kinds[argument.getValue().index()];
}

/// What all languages of formats share: the walk over a format in one width, the arguments, and the padding.
/// A language derives from it and prints one conversion at a time.
template <class S>
class GFormatter
{
public:
    using Char = typename S::CharType;
    using View = typename S::View;

    GFormatter(const GFormatter&) = delete;
    GFormatter& operator=(const GFormatter&) = delete;

protected:
    GFormatter(View format, TVarArgs arguments) : mFormat(format), mRest(format), mArguments(arguments) {}
    ~GFormatter() = default;

    /// Calls `printConversion` behind each `%` but a doubled one.
    template <class PrintConversion>
    S PrintAll(PrintConversion printConversion)
    {
        while (!mRest.empty()) {
            const auto percent = std::min(mRest.find(Char('%')), mRest.size());
            mOut.Add(mRest.substr(0, percent));
            mRest.remove_prefix(percent);
            if (mRest.empty()) {
                break;
            }
            mConversion = mRest;
            mRest.remove_prefix(1);
            if (Accept('%')) {
                mOut.Add(Char('%'));
            } else {
                printConversion();
            }
        }
        return mOut.Take();
    }

    static bool IsOneOf(Char c, std::string_view set)
    {
        const auto code = static_cast<std::make_unsigned_t<Char>>(c);
        return code < 0x80 && set.find(static_cast<char>(code)) != std::string_view::npos;
    }

    bool Accept(char c)
    {
        if (mRest.empty() || mRest[0] != Char(c)) {
            return false;
        }
        mRest.remove_prefix(1);
        return true;
    }

    /// Digits, or `*` for the next argument; `otherwise` if there is neither.
    int ReadNumber(int otherwise)
    {
        if (Accept('*')) {
            return static_cast<int>(std::clamp<Int64>(NextAs<Int64>(), -MaxField, MaxField));
        }
        if (mRest.empty() || !IsAsciiDigit(mRest[0])) {
            return otherwise;
        }
        int number = 0;
        while (!mRest.empty() && IsAsciiDigit(mRest[0])) {
            number = std::min(number * 10 + static_cast<int>(mRest[0] - Char('0')), MaxField);
            mRest.remove_prefix(1);
        }
        return number;
    }

    /// What stands behind the width, which `field` holds already: a point and the precision. A negative
    /// width, which only an argument can give, means the left.
    void FinishField(TField& field)
    {
        if (field.width < 0) {
            field.left = true;
            field.width = -field.width;
        }
        if (Accept('.')) {
            field.precision = std::max(ReadNumber(0), -1);
        }
    }

    /// The letter of a conversion, which has to be one of `letters`.
    char TakeLetter(std::string_view letters)
    {
        if (mRest.empty() || !IsOneOf(mRest[0], letters)) {
            const auto place = static_cast<Int64>(mFormat.size() - mConversion.size()) + 1;
            Misfit(u"no conversion stands at character " + UnicodeString(place));
        }
        const char letter = static_cast<char>(mRest[0]);
        mRest.remove_prefix(1);
        return letter;
    }

    const TVarRec& Next()
    {
        if (mNext >= mArguments.size()) {
            throw Sysutils::EConvertError(u"No argument for format '" + UnicodeString(S(mFormat)) + u"': " +
                                          ConversionText() + u" takes argument " +
                                          UnicodeString(static_cast<UInt64>(mNext) + 1));
        }
        return mArguments[mNext++];
    }

    /// The next argument, which has to be of this type.
    template <class T>
    const T& NextAs()
    {
        const T* value = std::get_if<T>(&Next().getValue());
        if (value == nullptr) {
            ArgumentMisfit();
        }
        return *value;
    }

    [[noreturn]] void Misfit(const UnicodeString& why) const
    {
        throw Sysutils::EConvertError(u"Format '" + UnicodeString(S(mFormat)) +
                                      u"' invalid or incompatible with argument: " + why);
    }

    /// The argument that was taken last isn't what the conversion needs.
    [[noreturn]] void ArgumentMisfit() const
    {
        Misfit(u"argument " + UnicodeString(static_cast<UInt64>(mNext)) + u", " +
               KindOf(mArguments[mNext - 1]) + u", doesn't fit " + ConversionText());
    }

    enum class ESign
    {
        /// A negative number gives the bits of its type, at least those of an `int`.
        InTheBits,
        Apart,
    };

    /// An argument that has to be an integer.
    TMagnitude ToMagnitude(const TVarRec& argument, ESign sign) const
    {
        if (const auto* plain = std::get_if<UInt64>(&argument.getValue())) {
            return {*plain, false};
        }
        const auto* value = std::get_if<Int64>(&argument.getValue());
        if (value == nullptr) {
            ArgumentMisfit();
        }
        const auto bits = static_cast<UInt64>(*value);
        if (sign == ESign::Apart) {
            return {*value < 0 ? UInt64(0) - bits : bits, *value < 0};
        }
        return {argument.getSize() <= sizeof(int) ? static_cast<unsigned>(bits) : bits, false};
    }

    /// Writes `text` and the blanks that it lacks to the width of its field. Of a narrower width it is ASCII.
    template <class Other>
    void Pad(std::basic_string_view<Other> text, const TField& field)
    {
        const int padding = std::max(field.width - static_cast<int>(text.size()), 0);
        Charge(padding);
        const auto blanks = static_cast<std::size_t>(padding);
        mOut.Add(field.left ? 0 : blanks, Char(' '));
        if constexpr (std::is_same_v<Char, Other>) {
            mOut.Add(text);
        } else {
            for (const Other c : text) {
                mOut.Add(static_cast<Char>(c));
            }
        }
        mOut.Add(field.left ? blanks : 0, Char(' '));
    }

    /// As `Pad`, but only as much of `text` as the precision lets through.
    void PadCut(View text, const TField& field)
    {
        Pad(field.precision >= 0 ? text.substr(0, static_cast<std::size_t>(field.precision)) : text, field);
    }

    /// As `Pad`, but for a number, whose own characters a precision makes.
    template <class Other>
    void PadNumber(std::basic_string_view<Other> text, const TField& field)
    {
        Charge(static_cast<int>(text.size()));
        Pad(text, field);
    }

    /// Accounts for characters that only the format makes. Without an end a format of many wide fields would
    /// grow to thousands of times its size.
    void Charge(int made)
    {
        constexpr int mostMade = 1 << 24;
        if (made > mostMade - mMade) {
            Misfit(u"it makes more than " + UnicodeString(mostMade) + u" characters");
        }
        mMade += made;
    }

    View mFormat;
    View mRest;
    TVarArgs mArguments;
    std::size_t mNext = 0;

private:
    /// The conversion under way, as far as it is read.
    UnicodeString ConversionText() const
    {
        return UnicodeString(S(mConversion.substr(0, mConversion.size() - mRest.size())));
    }

    /// The format from the conversion under way on.
    View mConversion;
    int mMade = 0;
    GTextBuffer<S> mOut;
};

} // namespace System::Detail
