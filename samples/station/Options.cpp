// SPDX-License-Identifier: MIT
#include "Options.h"

#include <TRS8_BTL/platform/base/Sysutils_Locale.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_DateReading.h>
#include <TRS8_BTL/platform/host/Host_Path.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_Text.h>
#include <TRS8_BTL/text/dates/BTL_DT_Reading.h>
#include <TRS8_BTL/text/editing/BTL_STR_Cut.h>
#include <TRS8_BTL/text/editing/BTL_STR_Join.h>
#include <TRS8_BTL/text/editing/BTL_STR_Search.h>
#include <TRS8_BTL/text/grammar/BTL_CommandLineParser.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Floats.h>

#include <algorithm>
#include <array>
#include <string>

namespace Station
{

namespace
{

using System::UnicodeString;
using System::WideChar;

constexpr double MaxSeconds = 24 * 3600;
constexpr WideChar Quote = u'"';
constexpr WideChar EqualSign = u'=';

// The values of the options.

/// What is wrong with a value, without the option and the value.
class XBadValue : public Sysutils::Exception
{
public:
    using Exception::Exception;
};

double ReadSeconds(const UnicodeString& text)
{
    double seconds = 0;
    if (!BTL::ToDouble(text, seconds) || !(seconds > 0 && seconds <= MaxSeconds)) {
        throw XBadValue(u"is not a time above 0 and up to a day");
    }
    return seconds;
}

WideChar ReadDecimal(const UnicodeString& text)
{
    if (text != u"." && text != u",") {
        throw XBadValue(u"is neither '.' nor ','");
    }
    return text[1];
}

/// A time with points as day, month and year, else in the form of the user's locale.
System::TDateTime ReadTime(const UnicodeString& text)
{
    auto settings = Sysutils::FormatSettings;
    settings.DateSeparator = u'.';
    settings.ShortDateFormat = u"d.m.yyyy";
    System::TDateTime time;
    if (Sysutils::TryStrToDateTime(text, time, settings)) {
        return time;
    }
    try {
        return BTL::StrToDateTime(text);
    } catch (const Sysutils::EConvertError&) {
        throw XBadValue(u"is not a time");
    }
}

/// A path for the calls of the host.
std::string ReadHostPath(const UnicodeString& text)
{
    return System::ToUtf8(text);
}

/// A path for the calls of the library.
UnicodeString ReadPath(const UnicodeString& text)
{
    return Sysutils::FromHostPath(System::ToUtf8(text));
}

// The table of the options. All that is known of one stands in its row.

/// Puts the value of an option, as `Read` understands it, into the field.
template <auto Field, auto Read>
void Set(TOptions& options, const UnicodeString& value)
{
    options.*Field = Read(value);
}

/// For an option that takes no value.
template <bool TOptions::*Field>
void SwitchOn(TOptions& options, const UnicodeString&)
{
    options.*Field = true;
}

struct TOption
{
    const WideChar* name;
    /// What the help calls the value; null for an option that takes none.
    const WideChar* valueName;
    const WideChar* help;
    void (*set)(TOptions& options, const UnicodeString& value);

    bool TakesValue() const { return valueName != nullptr; }
};

constexpr std::array Table = {
    TOption{u"--seconds", u"N", u"how long to sample; default 5", Set<&TOptions::seconds, ReadSeconds>},
    TOption{u"--channels", u"FILE", u"the channels with their units and limits; default channels.txt",
            Set<&TOptions::channels, ReadHostPath>},
    TOption{u"--decimal", u"C",
            u"the decimal separator of the table, '.' or ','; default: that of the locale",
            Set<&TOptions::decimal, ReadDecimal>},
    TOption{u"--samples", u"FILE",
            u"the text file that keeps the samples; default Samples.txt beside the program",
            Set<&TOptions::samples, ReadPath>},
    TOption{u"--from", u"TIME",
            u"also take the samples kept since then, \"1.2.2026 10:00\" or in the form of the locale",
            Set<&TOptions::from, ReadTime>},
    TOption{u"--sql", nullptr, u"print the samples, as SET lists of SQL statements, in place of the table",
            SwitchOn<&TOptions::sql>},
    TOption{u"--log", u"FILE", u"where to log; default Log.txt beside the program",
            Set<&TOptions::log, ReadPath>},
    TOption{u"--help", nullptr, u"this text", SwitchOn<&TOptions::help>},
};

/// Null if there is no option of this name.
const TOption* FindOption(const UnicodeString& name)
{
    const auto* const found =
        std::find_if(Table.begin(), Table.end(), [&](const TOption& option) { return name == option.name; });
    return found == Table.end() ? nullptr : found;
}

/// The words as one line: values are quoted, names and the `=` behind them are not.
UnicodeString CommandLine(std::span<char* const> words)
{
    UnicodeString line;
    for (const char* const bytes : words) {
        const UnicodeString word = System::FromUtf8(bytes);
        UnicodeString name;
        UnicodeString value;
        BTL::GetSubStrings(word, EqualSign, name, value);
        if (FindOption(name) == nullptr) {
            line += Sysutils::AnsiQuotedStr(word, Quote);
        } else if (name == word) {
            line += name;
        } else {
            line += name + EqualSign + Sysutils::AnsiQuotedStr(value, Quote);
        }
        line += u' ';
    }
    return line;
}

/// Every token must be a name, the `=` behind one or its value.
void CheckTokens(const Classes::TStringList& tokens)
{
    const auto beginsAt = [&](int index, const UnicodeString& start) {
        return index < tokens.getCount() && BTL::BeginsWith(tokens[index], start, 1);
    };
    for (int i = 0; i < tokens.getCount(); ++i) {
        const UnicodeString name = tokens[i];
        const TOption* const option = FindOption(name);
        if (option == nullptr) {
            throw XBadOption(u"unknown option '" + BTL::ExtractQuotedStr(name, Quote) +
                             u"'; --help tells all");
        }
        const bool hasEqualSign = beginsAt(i + 1, EqualSign);
        if (option->TakesValue()) {
            i += hasEqualSign ? 2 : 1;
            if (!beginsAt(i, Quote)) {
                throw XBadOption(name + u": the value is missing");
            }
        } else if (hasEqualSign) {
            throw XBadOption(name + u" takes no value");
        }
    }
}

// The help around the table.

constexpr auto Introduction =
    uR"(Samples channels of this machine for some seconds and prints their statistics.

Usage: station [options]

)";

constexpr auto Conclusion = uR"(
Numbers may be written with either decimal separator. Exit code 0: all was printed;
1: something failed; 2: the command line or the channel file is bad.
)";

/// How an option is written, with the name of its value.
UnicodeString Usage(const TOption& option)
{
    return BTL::StrCat(option.name, option.valueName, u" ");
}

} // namespace

UnicodeString HelpText()
{
    int width = 0;
    for (const TOption& option : Table) {
        width = std::max(width, Usage(option).Length());
    }
    UnicodeString text = Introduction;
    for (const TOption& option : Table) {
        text += u"  " + BTL::FillString(Usage(option), width, u' ') + u"  " + option.help + u'\n';
    }
    return text + Conclusion;
}

TOptions ReadOptions(std::span<char* const> words)
{
    BTL::CCommandLineParser line(true);
    line.Parse(CommandLine(words));
    CheckTokens(line.getTokens());

    TOptions options;
    for (const TOption& option : Table) {
        UnicodeString value;
        if (!line.Find(option.name, value, true)) {
            continue;
        }
        try {
            option.set(options, value);
        } catch (const XBadValue& fault) {
            throw XBadOption(UnicodeString(option.name) + u": '" + value + u"' " + fault.getMessage());
        }
    }
    return options;
}

} // namespace Station
