// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <array>

namespace Sysutils
{

/// All that number, date and money texts follow.
///
///     TFormatSettings german;                                     // in place of the user's
///     german.DecimalSeparator = u',';
///     german.ThousandSeparator = u'.';
///     FloatToStr(1.5, german);                                    // "1,5"
struct TFormatSettings
{
    System::UnicodeString CurrencyString = u"€";
    /// Place of the currency: 0 "€1", 1 "1€", 2 "€ 1", 3 "1 €".
    System::Byte CurrencyFormat = 0;
    /// Form of a negative amount, 0 to 15.
    System::Byte NegCurrFormat = 1;
    System::Byte CurrencyDecimals = 2;
    System::WideChar ThousandSeparator = u',';
    System::WideChar DecimalSeparator = u'.';
    System::WideChar DateSeparator = u'-';
    System::WideChar TimeSeparator = u':';
    System::WideChar ListSeparator = u',';
    System::UnicodeString ShortDateFormat = u"yyyy-MM-dd";
    System::UnicodeString LongDateFormat = u"yyyy-MM-dd";
    System::UnicodeString TimeAMString = u"AM";
    System::UnicodeString TimePMString = u"PM";
    System::UnicodeString ShortTimeFormat = u"hh:nn";
    System::UnicodeString LongTimeFormat = u"hh:nn:ss";
    /// January first.
    std::array<System::UnicodeString, 12> ShortMonthNames;
    std::array<System::UnicodeString, 12> LongMonthNames;
    /// Sunday first.
    std::array<System::UnicodeString, 7> ShortDayNames;
    std::array<System::UnicodeString, 7> LongDayNames;
    /// A year of two digits lies in the hundred years that begin this many years ago; 0 means the current
    /// century.
    System::Word TwoDigitYearCenturyWindow = 50;
};

/// The settings of the user's `LC_NUMERIC`, `LC_TIME` and `LC_MONETARY`; those of the plain `C` locale are
/// the defaults of `TFormatSettings` with English names.
TRS8_BTL_API TFormatSettings GetUserFormatSettings();

/// The settings that all functions without settings of their own follow. Process-wide and unguarded.
TRS8_BTL_API extern TFormatSettings& FormatSettings;

// The members of `FormatSettings` under their old single names.
TRS8_BTL_API extern System::WideChar& DecimalSeparator;
TRS8_BTL_API extern System::WideChar& ThousandSeparator;
TRS8_BTL_API extern System::WideChar& DateSeparator;
TRS8_BTL_API extern System::WideChar& TimeSeparator;
TRS8_BTL_API extern System::WideChar& ListSeparator;
TRS8_BTL_API extern System::UnicodeString& CurrencyString;
TRS8_BTL_API extern System::UnicodeString& ShortDateFormat;
TRS8_BTL_API extern System::UnicodeString& LongDateFormat;
TRS8_BTL_API extern System::UnicodeString& ShortTimeFormat;
TRS8_BTL_API extern System::UnicodeString& LongTimeFormat;
TRS8_BTL_API extern System::UnicodeString& TimeAMString;
TRS8_BTL_API extern System::UnicodeString& TimePMString;

} // namespace Sysutils
