// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_FloatPicture.h"

#include "platform/base/numbers/internal/Sysutils_DecimalText.h"
#include "platform/base/numbers/internal/Sysutils_Scaled.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

namespace Sysutils
{

namespace
{

using System::Int64;
using System::UnicodeString;
using System::WideChar;
using namespace Detail;

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

/// Whether a negative number has its sign, or the section says it in its own way.
enum class EMinusSign
{
    Omit,
    Write
};

/// Writes a number by one section of a picture.
class CFloatPictureWriter
{
public:
    CFloatPictureWriter(const TPicture& picture, const TDecimal& value, const TFormatSettings& settings)
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

    UnicodeString Write(EMinusSign minus)
    {
        if (minus == EMinusSign::Write && mValue.negative) {
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
            AddExponent(mOut, mExponent, mPicture.exponentSign == u'+' ? EPlusSign::Write : EPlusSign::Omit,
                        mPicture.exponentDigits);
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

UnicodeString WriteSection(std::u16string_view section, const TDecimal& value, EMinusSign minus,
                           const TFormatSettings& settings, bool& isZero)
{
    const TPicture picture = ScanPicture(section);
    CFloatPictureWriter writer(picture, value, settings);
    isZero = writer.IsZero();
    return writer.Write(minus);
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
    const UnicodeString text =
        WriteSection(section, decimal, ownNegative ? EMinusSign::Omit : EMinusSign::Write, settings, isZero);
    if (isZero && sections.size() > 2 && !sections[2].empty()) {
        return WriteSection(sections[2], decimal, EMinusSign::Omit, settings, isZero);
    }
    // A negative number that rounds to zero is written as a positive one.
    return isZero && ownNegative ? WriteSection(sections[0], TDecimal(), EMinusSign::Omit, settings, isZero)
                                 : text;
}

template <class Float>
UnicodeString FormatValue(const UnicodeString& format, Float value, const TFormatSettings& settings)
{
    return std::isfinite(value) ? FormatDecimal(format, ToDecimal(value), settings)
                                : FromAscii(SpecialText(value));
}

} // namespace

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

UnicodeString FormatScaled(const UnicodeString& format, Int64 units, int decimals,
                           const TFormatSettings& settings)
{
    return FormatDecimal(format, ScaledToDecimal(units, decimals), settings);
}

} // namespace Sysutils
