// SPDX-License-Identifier: MIT
#include "Options.h"

#include <TRS8_BTL/platform/base/Sysutils_Locale.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_Date.h>
#include <TRS8_BTL/platform/host/Host_Path.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_Text.h>
#include <TRS8_BTL/text/dates/BTL_DT_Reading.h>
#include <TRS8_BTL/text/editing/BTL_STR_Cut.h>
#include <TRS8_BTL/text/editing/BTL_STR_Search.h>
#include <TRS8_BTL/text/grammar/BTL_CommandLineParser.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Numbers.h>

#include <algorithm>
#include <array>

namespace Station
{

namespace
{

using BTL::CCommandLineParser;
using System::UnicodeString;
using System::WideChar;

constexpr double MaxSeconds = 24 * 3600;
constexpr WideChar Quote = u'"';

constexpr std::array Flags = {u"--help", u"--sql"};
constexpr std::array NamesWithValue = {u"--seconds", u"--channels", u"--decimal",
                                       u"--samples", u"--from",     u"--log"};

template <class Names>
bool Contains(const Names& names, const UnicodeString& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The words as one line: values are quoted, names and the `=` behind them are not.
UnicodeString CommandLine(std::span<char* const> words)
{
    UnicodeString line;
    for (const char* const bytes : words) {
        UnicodeString word = System::FromUtf8(bytes);
        const int equalSign = BTL::Pos(word, u'=');
        const int nameLength = equalSign > 0 ? equalSign - 1 : word.Length();
        const UnicodeString name = word.SubString(1, nameLength);
        if (!Contains(Flags, name) && !Contains(NamesWithValue, name)) {
            line += Sysutils::AnsiQuotedStr(word, Quote);
        } else if (equalSign > 0) {
            line += name + u'=' + Sysutils::AnsiQuotedStr(word.Delete(1, equalSign), Quote);
        } else {
            line += name;
        }
        line += u' ';
    }
    return line;
}

/// Every token must be a name, the `=` behind one or its value.
void CheckTokens(const Classes::TStringList& tokens)
{
    const auto isAt = [&](int index, const UnicodeString& start) {
        return index < tokens.getCount() && BTL::BeginsWith(tokens[index], start, 1);
    };
    for (int i = 0; i < tokens.getCount(); ++i) {
        const UnicodeString name = tokens[i];
        const bool hasValue = Contains(NamesWithValue, name);
        if (!hasValue && !Contains(Flags, name)) {
            throw XBadOption(u"unknown option '" + BTL::ExtractQuotedStr(name, Quote) +
                             u"'; --help tells all");
        }
        if (!hasValue && isAt(i + 1, u"=")) {
            throw XBadOption(name + u" takes no value");
        }
        if (hasValue) {
            i += isAt(i + 1, u"=") ? 2 : 1;
            if (!isAt(i, Quote)) {
                throw XBadOption(name + u": the value is missing");
            }
        }
    }
}

double ReadSeconds(const UnicodeString& text)
{
    double seconds = 0;
    if (!BTL::ToDouble(text, seconds) || !(seconds > 0 && seconds <= MaxSeconds)) {
        throw XBadOption(u"--seconds: '" + text + u"' is not a time above 0 and up to a day");
    }
    return seconds;
}

WideChar ReadDecimal(const UnicodeString& text)
{
    if (text != u"." && text != u",") {
        throw XBadOption(u"--decimal: '" + text + u"' is neither '.' nor ','");
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
        throw XBadOption(u"--from: '" + text + u"' is not a time");
    }
}

} // namespace

const char* const HelpText = R"(Samples channels of this machine for some seconds and prints their statistics.

Usage: station [options]

  --seconds N      how long to sample; default 5
  --channels FILE  the channels with their units and limits; default channels.txt
  --decimal C      the decimal separator of the table, '.' or ','; default: that of the locale
  --samples FILE   the text file that keeps the samples; default Samples.txt beside the program
  --from TIME      also take the samples kept since then, "1.2.2026 10:00" or in the form of the locale
  --sql            print the samples, as SET lists of SQL statements, in place of the table
  --log FILE       where to log; default Log.txt beside the program
  --help           this text

Numbers may be written with either decimal separator. Exit code 0: all was printed;
1: something failed; 2: the command line or the channel file is bad.
)";

TOptions ReadOptions(std::span<char* const> words)
{
    CCommandLineParser line(true);
    line.Parse(CommandLine(words));
    CheckTokens(line.getTokens());

    TOptions options;
    UnicodeString value;
    if (line.Find(u"--seconds", value, true)) {
        options.seconds = ReadSeconds(value);
    }
    if (line.Find(u"--channels", value, true)) {
        options.channels = System::ToUtf8(value);
    }
    if (line.Find(u"--decimal", value, true)) {
        options.decimal = ReadDecimal(value);
    }
    if (line.Find(u"--from", value, true)) {
        options.from = ReadTime(value);
    }
    options.samples = Sysutils::FromHostPath(System::ToUtf8(line.GetString(u"--samples", UnicodeString())));
    options.log = Sysutils::FromHostPath(System::ToUtf8(line.GetString(u"--log", UnicodeString())));
    options.sql = line.Find(u"--sql");
    options.help = line.Find(u"--help");
    return options;
}

} // namespace Station
