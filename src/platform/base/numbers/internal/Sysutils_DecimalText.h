// SPDX-License-Identifier: MIT
#pragma once

// Parts of the texts of decimal digits that plain forms and pictures share. `Out` is a `CStringText` or what
// collects characters as it does.

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/internal/System_TextBuffer.h"
#include "platform/base/numbers/internal/Sysutils_Decimal.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace Sysutils::Detail
{

/// A general number below this power of ten is written with an exponent.
inline constexpr int SmallestFixedExponent = -4;

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

/// Whether an exponent that isn't negative has a sign.
enum class EPlusSign
{
    Omit,
    Write
};

/// The sign of an exponent and at least `minimum` digits of it.
template <class Out>
void AddExponent(Out& out, int exponent, EPlusSign plus, int minimum)
{
    if (exponent < 0) {
        out.Add(u'-');
    } else if (plus == EPlusSign::Write) {
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
        AddExponent(out, value.exponent - 1, EPlusSign::Omit, exponentDigits);
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

/// Writes a number's text to where there is room for all of it.
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

/// Gathers a string.
class CStringText
{
public:
    void Add(System::WideChar c) { mText.Add(c); }
    void Add(char c) { mText.Add(static_cast<System::WideChar>(c)); }
    void Add(const System::UnicodeString& text) { mText.Add(text.AsView()); }
    System::UnicodeString Take() { return mText.Take(); }

private:
    System::Detail::GTextBuffer<System::UnicodeString> mText;
};

/// The general form of `precision` significant digits.
[[nodiscard]] System::UnicodeString GeneralText(TDecimal value, int precision, int exponentDigits,
                                                const TFormatSettings& settings);

} // namespace Sysutils::Detail
