// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Date.h"
#include "support/Fuzz.h"
#include "text/dates/BTL_DT_Utilities.h"

#include <cstdint>

namespace
{

using Fuzz::Require;
using Fuzz::Try;
using System::AnsiString;
using System::TDateTime;
using System::UnicodeString;
using System::Word;
using Sysutils::EConvertError;

void UseSettings(unsigned choice)
{
    Sysutils::FormatSettings = Sysutils::TFormatSettings();
    constexpr const char16_t* orders[] = {u"dd/MM/yyyy", u"M/d/yyyy", u"yyyy/MM/dd"};
    Sysutils::ShortDateFormat = orders[choice % 3];
    Sysutils::DateSeparator = choice / 3 % 2 == 0 ? u'.' : u'-';
    Sysutils::LongTimeFormat = choice / 6 % 2 == 0 ? u"hh:nn:ss.zzz" : u"h:nn:ss.zzz ampm";
}

/// Any value has fields that exist, or none.
void CheckValue(const TDateTime& value)
{
    Word year = 0;
    Word month = 0;
    Word day = 0;
    Word hour = 0;
    Word minute = 0;
    Word second = 0;
    Word milliSecond = 0;
    Sysutils::DecodeDate(value, year, month, day);
    Sysutils::DecodeTime(value, hour, minute, second, milliSecond);
    const TDateTime time = Sysutils::EncodeTime(hour, minute, second, milliSecond);
    if (year == 0) {
        Require(month == 0 && day == 0 && time == 0);
        return;
    }
    // What is written is read back to the millisecond.
    TDateTime whole = Sysutils::EncodeDate(year, month, day);
    Sysutils::ReplaceTime(whole, time);
    TDateTime read;
    Require(Sysutils::TryStrToDateTime(Sysutils::DateTimeToStr(value), read) && read == whole);
    Require(BTL::GetValidDate(Sysutils::DateToStr(value)) == Sysutils::EncodeDate(year, month, day));
    Try<EConvertError>([&] { Sysutils::IncMonth(value, milliSecond - 500); });
    BTL::To4DigitYear(value);
    BTL::GetValidFileName(value);
    BTL::GetSQLDateTimeString(value, true);
    static_cast<void>(BTL::GetDateTimeStringWithMSec(value));
    for (int unit = 1; unit <= 6; ++unit) {
        Try<EConvertError>(
            [&] { BTL::CalcNextDate(value, 1 - minute, static_cast<BTL::EDateIntervalUnit>(unit)); });
    }
    Sysutils::DateTimeToFileDate(value);
}

void CheckText(const UnicodeString& text)
{
    TDateTime value;
    if (Sysutils::TryStrToDate(text, value)) {
        Require(Sysutils::TryStrToDateTime(text, value));
    }
    if (Sysutils::TryStrToDateTime(text, value)) {
        CheckValue(value);
    }
    if (Sysutils::TryStrToTime(text, value)) {
        Require(value >= 0 && value < 1);
    }
    Try<EConvertError>([&] { CheckValue(BTL::StrToDateTime(text)); });
    Try<EConvertError>([&] { BTL::StrToDate(text); });
    Try<EConvertError>([&] { BTL::StrToTime(text); });
    Try<EConvertError>([&] { BTL::StrToDateTime(text, u"yyyy-mm-dd hh:nn:ss.ccc"); });
    Try<EConvertError>([&] { BTL::StrToDateTime(u"9876543210987654321", text); });
    CheckValue(BTL::GetValidDate(text));
    Try<EConvertError>([&] { BTL::GetValidDateTimeString(text); });
    const UnicodeString sql = BTL::GetSQLDateTimeString(text, true);
    Require(sql.Length() >= 3 && sql[1] == u'\'' && *sql.LastChar() == u'\'');
    BTL::GetSQLDateString(text, false);
    if (text.Length() >= 6 && text.Length() <= 10) {
        const int length = BTL::GetShortDate(text, text).Length();
        Require(length == 0 || length == 4);
    }
}

} // namespace

/// The first byte chooses the settings, eight more are a value; the rest is a text and a picture.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1 + sizeof(double)) {
        return 0;
    }
    Fuzz::Input input(data, size);
    UseSettings(input.Take<std::uint8_t>());
    const auto value = input.Take<double>();
    const UnicodeString text(AnsiString(input.getText()));
    CheckValue(value);
    CheckText(text);
    Sysutils::FormatDateTime(text, value);
    // A picture that the settings hold may name itself.
    Sysutils::LongDateFormat = text;
    Sysutils::FormatDateTime(u"dddddd", value);
    return 0;
}
