// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Locale.h"

#include "platform/base/internal/System_Ascii.h"

#include <climits>
#include <string_view>

#include <langinfo.h>
#include <locale.h>

namespace Sysutils
{

namespace
{

using System::UnicodeString;
using System::WideChar;

/// The user's locale, open for the time of the reading; the process's own locale isn't touched.
class CUserLocale
{
public:
    CUserLocale() : mLocale(newlocale(LC_ALL_MASK, "", nullptr))
    {
        if (mLocale == nullptr) {
            mLocale = newlocale(LC_ALL_MASK, "C", nullptr);
        }
    }
    CUserLocale(const CUserLocale&) = delete;
    CUserLocale& operator=(const CUserLocale&) = delete;
    ~CUserLocale() { freelocale(mLocale); }

    const char* Bytes(nl_item item) const { return nl_langinfo_l(item, mLocale); }
    char Number(nl_item item) const { return *Bytes(item); }

    /// The text of `item`; the locale's names come in its own character set, which is UTF-8 everywhere but in
    /// old installations, where names of plain letters still come out right.
    UnicodeString Text(nl_item item) const { return System::FromUtf8(Bytes(item)); }

    /// The first character, or `otherwise` where the locale has none.
    WideChar Character(nl_item item, WideChar otherwise) const
    {
        const UnicodeString text = Text(item);
        return text.IsEmpty() ? otherwise : text[1];
    }

    bool IsPlain(int category) const
    {
        const std::string_view name = nl_langinfo_l(NL_LOCALE_NAME(category), mLocale);
        return name == "C" || name == "POSIX" || name == "C.UTF-8" || name == "C.utf8";
    }

private:
    locale_t mLocale;
};

/// What a conversion of the host's date formats is in ours.
std::u16string_view PictureOf(char conversion)
{
    switch (conversion) {
    case 'd':
    case 'e':
        return u"dd";
    case 'm':
        return u"MM";
    case 'y':
        return u"yy";
    case 'Y':
        return u"yyyy";
    case 'b':
    case 'h':
        return u"mmm";
    case 'B':
        return u"mmmm";
    case 'a':
        return u"ddd";
    case 'A':
        return u"dddd";
    case 'D':
        return u"MM/dd/yy";
    case 'F':
        return u"yyyy-MM-dd";
    case 'H':
        return u"hh";
    case 'k':
        return u"h";
    case 'I':
        return u"hh";
    case 'l':
        return u"h";
    case 'M':
        return u"nn";
    case 'S':
        return u"ss";
    case 'p':
    case 'P':
        return u"ampm";
    case 'T':
        return u"hh:nn:ss";
    case 'R':
        return u"hh:nn";
    case 'r':
        return u"hh:nn:ss ampm";
    case '%':
        return u"%";
    default:
        return {};
    }
}

/// The host's format as a picture of ours.
UnicodeString TranslateFormat(const UnicodeString& format)
{
    UnicodeString result;
    const std::u16string_view text = format.AsView();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'%') {
            result += text[i];
            continue;
        }
        // Flags and modifiers change only the padding or the numerals.
        do {
            ++i;
        } while (i < text.size() &&
                 std::u16string_view(u"-_0^#EO").find(text[i]) != std::u16string_view::npos);
        if (i < text.size() && text[i] < 0x80) {
            result.Append(PictureOf(static_cast<char>(text[i])));
        }
    }
    return result.Trim();
}

/// The first character of a picture that is none of its letters.
WideChar SeparatorOf(const UnicodeString& picture, WideChar otherwise)
{
    for (const WideChar c : picture.AsView()) {
        if (c < 0x80 && !System::Detail::IsAsciiLetter(c) && c != u' ') {
            return c;
        }
    }
    return otherwise;
}

/// A picture of the time without its seconds.
UnicodeString WithoutSeconds(UnicodeString picture, WideChar separator)
{
    const int seconds = picture.Pos(UnicodeString(separator) + u"ss");
    return seconds == 0 ? picture : picture.Delete(seconds, 3);
}

template <std::size_t Count>
void ReadNames(const CUserLocale& locale, nl_item first, std::array<UnicodeString, Count>& names)
{
    for (std::size_t i = 0; i < Count; ++i) {
        names[i] = locale.Text(first + static_cast<nl_item>(i));
    }
}

void ReadNumbers(const CUserLocale& locale, TFormatSettings& settings)
{
    settings.DecimalSeparator = locale.Character(RADIXCHAR, u'.');
    settings.ThousandSeparator = locale.Character(THOUSEP, settings.DecimalSeparator == u',' ? u'.' : u',');
    settings.ListSeparator = settings.DecimalSeparator == u',' ? u';' : u',';
}

void ReadTimes(const CUserLocale& locale, TFormatSettings& settings)
{
    ReadNames(locale, ABMON_1, settings.ShortMonthNames);
    ReadNames(locale, MON_1, settings.LongMonthNames);
    ReadNames(locale, ABDAY_1, settings.ShortDayNames);
    ReadNames(locale, DAY_1, settings.LongDayNames);
    if (const UnicodeString am = locale.Text(AM_STR); !am.IsEmpty()) {
        settings.TimeAMString = am;
        settings.TimePMString = locale.Text(PM_STR);
    }
    // The plain locale's own forms, month first, are nobody's.
    if (locale.IsPlain(LC_TIME)) {
        return;
    }
    settings.ShortDateFormat = TranslateFormat(locale.Text(D_FMT));
    settings.LongDateFormat = settings.ShortDateFormat;
    settings.DateSeparator = SeparatorOf(settings.ShortDateFormat, settings.DateSeparator);
    settings.LongTimeFormat = TranslateFormat(locale.Text(T_FMT));
    settings.TimeSeparator = SeparatorOf(settings.LongTimeFormat, settings.TimeSeparator);
    settings.ShortTimeFormat = WithoutSeconds(settings.LongTimeFormat, settings.TimeSeparator);
}

System::Byte CurrencyPlace(const CUserLocale& locale)
{
    const bool before = locale.Number(__P_CS_PRECEDES) != 0;
    const bool space = locale.Number(__P_SEP_BY_SPACE) != 0;
    return static_cast<System::Byte>((before ? 0 : 1) + (space ? 2 : 0));
}

void ReadMoney(const CUserLocale& locale, TFormatSettings& settings)
{
    if (locale.IsPlain(LC_MONETARY)) {
        return;
    }
    // The host puts a sign in front of the currency: "-" for a currency that follows, " " as "+" or ".".
    const UnicodeString currency = locale.Text(CRNCYSTR);
    if (currency.Length() > 1) {
        settings.CurrencyString = currency.SubString(2);
    }
    settings.CurrencyFormat = CurrencyPlace(locale);
    constexpr std::array<System::Byte, 4> negative = {1, 5, 9, 8};
    settings.NegCurrFormat = negative[settings.CurrencyFormat];
    const char decimals = locale.Number(__FRAC_DIGITS);
    settings.CurrencyDecimals = static_cast<System::Byte>(decimals == CHAR_MAX ? 2 : decimals);
}

} // namespace

TFormatSettings GetUserFormatSettings()
{
    const CUserLocale locale;
    TFormatSettings settings;
    ReadNumbers(locale, settings);
    ReadTimes(locale, settings);
    ReadMoney(locale, settings);
    return settings;
}

namespace
{

/// The user's settings outlive the global objects of every program, which format numbers in their destructors
/// too: this has a destructor that leaves them as they are.
union UUserSettings {
    UUserSettings() : value(GetUserFormatSettings()) {}
    ~UUserSettings() {} // NOLINT(modernize-use-equals-default): the default one would be deleted.

    TFormatSettings value;
};

// Before all units with static objects of their own, which may format numbers while they start.
[[gnu::init_priority(150)]] UUserSettings userSettings;

} // namespace

constinit TFormatSettings& FormatSettings = userSettings.value;
constinit WideChar& DecimalSeparator = FormatSettings.DecimalSeparator;
constinit WideChar& ThousandSeparator = FormatSettings.ThousandSeparator;
constinit WideChar& DateSeparator = FormatSettings.DateSeparator;
constinit WideChar& TimeSeparator = FormatSettings.TimeSeparator;
constinit WideChar& ListSeparator = FormatSettings.ListSeparator;
constinit UnicodeString& CurrencyString = FormatSettings.CurrencyString;
constinit UnicodeString& ShortDateFormat = FormatSettings.ShortDateFormat;
constinit UnicodeString& LongDateFormat = FormatSettings.LongDateFormat;
constinit UnicodeString& ShortTimeFormat = FormatSettings.ShortTimeFormat;
constinit UnicodeString& LongTimeFormat = FormatSettings.LongTimeFormat;
constinit UnicodeString& TimeAMString = FormatSettings.TimeAMString;
constinit UnicodeString& TimePMString = FormatSettings.TimePMString;

} // namespace Sysutils
