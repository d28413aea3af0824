// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_DateText.h"

#include "platform/base/dates/internal/Sysutils_DateFields.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/base/internal/System_Digits.h"
#include "platform/base/internal/System_TextBuffer.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace Sysutils
{

using System::TDateTime;
using System::UnicodeString;
using System::WideChar;
using System::Word;
using System::Detail::AsciiLower;

namespace
{

using View = std::u16string_view;

/// `word` is in lower case.
bool BeginsWith(View text, View word)
{
    return text.size() >= word.size() &&
           std::equal(word.begin(), word.end(), text.begin(),
                      [](WideChar a, WideChar b) { return a == AsciiLower(b); });
}

/// The length of the mark of the half of the day that `picture` begins with, or 0.
std::size_t HalfDayLength(View picture)
{
    if (!BeginsWith(picture, u"a")) {
        return 0;
    }
    for (const View mark : {View(u"am/pm"), View(u"ampm"), View(u"a/p")}) {
        if (BeginsWith(picture, mark)) {
            return mark.size();
        }
    }
    return 0;
}

constexpr bool IsQuote(WideChar c)
{
    return c == u'\'' || c == u'"';
}

/// The index of the quote that closes the one at `at`, or the end.
std::size_t QuoteEnd(View picture, std::size_t at)
{
    return std::min(picture.find(picture[at], at + 1), picture.size());
}

/// Whether a mark of the half of the day belongs to the hour in front of `picture`.
bool HasHalfDay(View picture)
{
    for (std::size_t at = 0; at < picture.size() && AsciiLower(picture[at]) != u'h'; ++at) {
        if (IsQuote(picture[at])) {
            at = QuoteEnd(picture, at);
        } else if (HalfDayLength(picture.substr(at)) != 0) {
            return true;
        }
    }
    return false;
}

/// Whether a picture writes a field for the letter, which is a small one.
constexpr bool IsFieldLetter(WideChar letter)
{
    constexpr unsigned fields = [] {
        unsigned bits = 0;
        for (const WideChar field : View(u"cdhmnstyz")) {
            bits |= 1U << (field - u'a');
        }
        return bits;
    }();
    return letter >= u'a' && letter <= u'z' && (fields >> (letter - u'a') & 1) != 0;
}

class CDatePictureWriter
{
public:
    CDatePictureWriter(const TDateTime& value, const TFormatSettings& settings)
        : mFields(Detail::FieldsOf(value)), mSettings(settings)
    {
    }

    void Write(View picture)
    {
        WideChar lastLetter = 0;
        for (std::size_t at = 0; at < picture.size();) {
            const WideChar c = picture[at];
            const View rest = picture.substr(at);
            if (IsQuote(c)) {
                const std::size_t end = QuoteEnd(picture, at);
                mText.Add(picture.substr(at + 1, end - at - 1));
                at = end + 1;
            } else if (const std::size_t length = HalfDayLength(rest); length != 0) {
                WriteHalfDay(rest.substr(0, length));
                lastLetter = u'a';
                at += length;
            } else if (const WideChar letter = AsciiLower(c); IsFieldLetter(letter)) {
                const auto end = std::find_if(rest.begin(), rest.end(),
                                              [letter](WideChar next) { return AsciiLower(next) != letter; });
                const auto count = static_cast<std::size_t>(end - rest.begin());
                const bool isMinute = letter == u'm' && count <= 2 && lastLetter == u'h';
                WriteField(isMinute ? u'n' : letter, count, rest.substr(count));
                lastLetter = letter;
                at += count;
            } else {
                WriteCharacter(c);
                ++at;
            }
        }
    }

    void WriteDateTime()
    {
        WriteStored(mSettings.ShortDateFormat);
        if (!mFields.IsMidnight()) {
            mText.Add(u' ');
            WriteStored(mSettings.LongTimeFormat);
        }
    }

    UnicodeString TakeText() { return mText.Take(); }

private:
    /// A picture of the settings. One that names itself would have no end, so a second level isn't followed.
    void WriteStored(const UnicodeString& picture)
    {
        if (!mInStored) {
            mInStored = true;
            Write(picture.AsView());
            mInStored = false;
        }
    }

    void WriteField(WideChar letter, std::size_t count, View rest)
    {
        switch (letter) {
        case u'c':
            return WriteDateTime();
        case u'd':
            return WriteDay(count);
        case u'h':
            return WriteNumber(HasHalfDay(rest) ? (mFields.hour + 11) % 12 + 1 : mFields.hour,
                               std::min<std::size_t>(count, 2));
        case u'm':
            return WriteMonth(count);
        case u'n':
            return WriteNumber(mFields.minute, std::min<std::size_t>(count, 2));
        case u's':
            return WriteNumber(mFields.second, std::min<std::size_t>(count, 2));
        case u't':
            return WriteStored(count == 1 ? mSettings.ShortTimeFormat : mSettings.LongTimeFormat);
        case u'y':
            return count <= 2 ? WriteNumber(mFields.year % 100, 2) : WriteNumber(mFields.year, 4);
        default:
            return WriteNumber(mFields.milliSecond, std::min<std::size_t>(count, 3));
        }
    }

    void WriteDay(std::size_t count)
    {
        switch (count) {
        case 1:
        case 2:
            return WriteNumber(mFields.day, count);
        case 3:
            return WriteName(mSettings.ShortDayNames, mFields.dayOfWeek);
        case 4:
            return WriteName(mSettings.LongDayNames, mFields.dayOfWeek);
        case 5:
            return WriteStored(mSettings.ShortDateFormat);
        default:
            return WriteStored(mSettings.LongDateFormat);
        }
    }

    void WriteMonth(std::size_t count)
    {
        if (count <= 2) {
            return WriteNumber(mFields.month, count);
        }
        WriteName(count == 3 ? mSettings.ShortMonthNames : mSettings.LongMonthNames, mFields.month);
    }

    /// At least `digits` digits, of which no field has more than four, of a number that isn't negative.
    void WriteNumber(int number, std::size_t digits)
    {
        const auto value = static_cast<System::UInt64>(number);
        const std::size_t count = std::max(digits, System::Detail::CountDigits(value));
        WideChar* const begin = mText.AddPlaces(count);
        std::fill_n(begin, count, u'0');
        System::Detail::WriteDigits(value, begin + count);
    }

    /// `number` counts from 1; 0 is none.
    template <std::size_t Count>
    void WriteName(const std::array<UnicodeString, Count>& names, Word number)
    {
        if (number > 0) {
            mText.Add(names[number - 1U].AsView());
        }
    }

    void WriteHalfDay(View mark)
    {
        const bool afternoon = mFields.hour >= 12;
        const std::size_t slash = mark.find(u'/');
        if (slash == View::npos) {
            mText.Add((afternoon ? mSettings.TimePMString : mSettings.TimeAMString).AsView());
        } else {
            mText.Add(afternoon ? mark.substr(slash + 1) : mark.substr(0, slash));
        }
    }

    void WriteCharacter(WideChar c)
    {
        const WideChar shown = c == u'/' ? mSettings.DateSeparator : c == u':' ? mSettings.TimeSeparator : c;
        // The settings may have no separator.
        if (shown != 0 || c == 0) {
            mText.Add(shown);
        }
    }

    Detail::TDateFields mFields;
    const TFormatSettings& mSettings;
    System::Detail::GTextBuffer<UnicodeString> mText;
    bool mInStored = false;
};

} // namespace

namespace Detail
{

std::u16string DateOrder(View picture)
{
    std::u16string order;
    for (std::size_t at = 0; at < picture.size(); ++at) {
        if (IsQuote(picture[at])) {
            at = QuoteEnd(picture, at);
            continue;
        }
        const WideChar letter = AsciiLower(picture[at]);
        const bool isPart = letter == u'd' || letter == u'm' || letter == u'y';
        if (isPart && order.find(letter) == View::npos) {
            order += letter;
        }
    }
    return order;
}

} // namespace Detail

UnicodeString DateToStr(const TDateTime& value)
{
    return DateToStr(value, FormatSettings);
}

UnicodeString DateToStr(const TDateTime& value, const TFormatSettings& settings)
{
    CDatePictureWriter writer(value, settings);
    writer.Write(settings.ShortDateFormat.AsView());
    return writer.TakeText();
}

UnicodeString TimeToStr(const TDateTime& value)
{
    return TimeToStr(value, FormatSettings);
}

UnicodeString TimeToStr(const TDateTime& value, const TFormatSettings& settings)
{
    CDatePictureWriter writer(value, settings);
    writer.Write(settings.LongTimeFormat.AsView());
    return writer.TakeText();
}

UnicodeString DateTimeToStr(const TDateTime& value)
{
    return DateTimeToStr(value, FormatSettings);
}

UnicodeString DateTimeToStr(const TDateTime& value, const TFormatSettings& settings)
{
    CDatePictureWriter writer(value, settings);
    writer.WriteDateTime();
    return writer.TakeText();
}

UnicodeString FormatDateTime(const UnicodeString& format, const TDateTime& value)
{
    return FormatDateTime(format, value, FormatSettings);
}

UnicodeString FormatDateTime(const UnicodeString& format, const TDateTime& value,
                             const TFormatSettings& settings)
{
    CDatePictureWriter writer(value, settings);
    writer.Write(format.IsEmpty() ? View(u"c") : format.AsView());
    return writer.TakeText();
}

void DateTimeToString(UnicodeString& result, const UnicodeString& format, const TDateTime& value)
{
    result = FormatDateTime(format, value);
}

void DateTimeToString(UnicodeString& result, const UnicodeString& format, const TDateTime& value,
                      const TFormatSettings& settings)
{
    result = FormatDateTime(format, value, settings);
}

} // namespace Sysutils
