// SPDX-License-Identifier: MIT
#include "Options.h"

#include <TRS8_BTL/environment/folders/BTL_ENV_Folders.h>
#include <TRS8_BTL/platform/base/Sysutils_Locale.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_DateReading.h>
#include <TRS8_BTL/platform/base/numbers/Sysutils_Integer.h>
#include <TRS8_BTL/platform/host/Host_Path.h>
#include <TRS8_BTL/platform/host/devices/Host_PortMap.h>
#include <TRS8_BTL/text/dates/BTL_DT_Reading.h>
#include <TRS8_BTL/text/grammar/BTL_CommandLineOptions.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Floats.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace Station
{

namespace
{

using System::UnicodeString;
using System::WideChar;

constexpr double MaxSeconds = 24 * 3600;

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

int ReadPort(const UnicodeString& text)
{
    const int number = Host::PortNumber(System::ToUtf8(text));
    if (number == 0) {
        throw XBadValue(u"is no port, COM1 to COM256");
    }
    return number;
}

unsigned long ReadProcess(const UnicodeString& text)
{
    int process = 0;
    if (!Sysutils::TryStrToInt(text, process) || process <= 0) {
        throw XBadValue(u"is no process number");
    }
    return static_cast<unsigned long>(process);
}

EStore ReadStore(const UnicodeString& text)
{
    constexpr std::array<const WideChar*, 4> names = {u"ini", u"mem", u"stream", u"json"};
    const auto name = std::find(names.begin(), names.end(), text);
    if (name == names.end()) {
        throw XBadValue(u"is none of ini, mem, stream and json");
    }
    return static_cast<EStore>(name - names.begin());
}

UnicodeString ReadLanguage(const UnicodeString& text)
{
    if (text != u"German" && text != u"English") {
        throw XBadValue(u"is neither German nor English");
    }
    return text;
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

void AddChange(TOptions& options, const UnicodeString& value)
{
    options.changes.push_back(value);
}

struct TOption
{
    const WideChar* name;
    /// What the help calls the value; null for an option that takes none.
    const WideChar* valueName;
    const WideChar* help;
    void (*set)(TOptions& options, const UnicodeString& value);
    /// Whether each value counts, where the option is given several times.
    bool repeats = false;
};

constexpr std::array Table = {
    TOption{u"--seconds", u"N", u"how long to sample; default 5", Set<&TOptions::seconds, ReadSeconds>},
    TOption{u"--channels", u"FILE",
            u"the channels with their units and limits; default: those of the settings",
            Set<&TOptions::channels, ReadHostPath>},
    TOption{u"--store", u"STORE", u"what keeps the settings: ini, mem, stream or json; default ini",
            Set<&TOptions::store, ReadStore>},
    TOption{u"--settings", u"FILE",
            u"the settings; default Station.ini, or Station.json for json, beside the program",
            Set<&TOptions::settings, ReadPath>},
    TOption{u"--chart", u"FILE", u"print the chart of an earlier run, as a table and as plots",
            Set<&TOptions::chart, ReadPath>},
    TOption{u"--language", u"NAME", u"the language of the library's texts, German or English",
            Set<&TOptions::language, ReadLanguage>},
    TOption{u"--open", nullptr, u"start the program that the description names, in its own folder",
            SwitchOn<&TOptions::open>},
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
    TOption{u"--serial", u"PORT",
            u"also ask the instrument on this port, COM7 say, for the channels serial.NAME",
            Set<&TOptions::serial, ReadPort>},
    TOption{u"--instrument", nullptr,
            u"be such an instrument, on a pseudo-terminal that is COM7 or the port of --serial, until it is "
            u"stopped or for --seconds",
            SwitchOn<&TOptions::instrument>},
    TOption{u"--faulty", nullptr,
            u"be one that is late, cuts, garbles and floods, and whose plug is pulled in the end",
            SwitchOn<&TOptions::faulty>},
    TOption{u"--publish", nullptr, u"let other programs watch this run", SwitchOn<&TOptions::publish>},
    TOption{u"--watch", u"PID", u"show the run of the station with this process number until it ends",
            Set<&TOptions::watch, ReadProcess>},
    TOption{u"--log", u"FILE", u"where to log; default Log.txt beside the program",
            Set<&TOptions::log, ReadPath>},
    TOption{u"--about", nullptr, u"print the version of the program", SwitchOn<&TOptions::about>},
    TOption{u"--copy", nullptr, u"also print what a bug report needs, and put it on the clipboard",
            SwitchOn<&TOptions::copy>},
    TOption{u"--form", nullptr,
            u"print the forms of the settings, in the texts of --language and as their user left them",
            SwitchOn<&TOptions::form>},
    TOption{
        u"--set", u"CHANGE",
        u"with --form: change something first, \"SettingsForm.fEdit_Interval.Text=0.5\" say; any number of "
        u"times",
        AddChange, true},
    TOption{u"--design", nullptr, u"print each form as what differs from the one that it derives from",
            SwitchOn<&TOptions::design>},
    TOption{u"--window", nullptr,
            u"run in a window, where there is a screen and Qt; otherwise on the terminal",
            SwitchOn<&TOptions::window>},
    TOption{u"--screenshot", u"FILE",
            u"with --window: paint it during a run into this PNG file, for which no screen is needed",
            Set<&TOptions::screenshot, ReadPath>},
    TOption{u"--help", nullptr, u"this text", SwitchOn<&TOptions::help>},
};

/// The table as the library reads it.
BTL::CCommandLineOptions KnownOptions()
{
    BTL::CCommandLineOptions options(BTL::EOtherWords::Refused);
    for (const TOption& option : Table) {
        options.Add({option.name, option.valueName, option.help});
    }
    return options;
}

// The help around the table.

constexpr auto Introduction =
    uR"(Samples channels of this machine for some seconds and prints their statistics.

Usage: station [options]

)";

constexpr auto Conclusion = uR"(
Numbers may be written with either decimal separator. Exit code 0: all was printed;
1: something failed; 2: the command line, a setting or a file is bad; 3: all was printed,
but the instrument failed at times, as the log tells.

A second station for the same samples hands its command line to the first, which goes on
for its --seconds, and ends with the answer; other options are refused then, by code 2.
A first one with a window begins a run if there is none, and comes to the front for --window.

To try the instrument, start "station --instrument" in one terminal, which tells the
others by the registry file of the user, and "station --serial COM7" in another one.
)";

} // namespace

UnicodeString HelpText()
{
    return Introduction + KnownOptions().GetHelpText() + Conclusion;
}

namespace
{

void SetOption(TOptions& options, const TOption& option, const UnicodeString& value)
{
    try {
        option.set(options, value);
    } catch (const XBadValue& fault) {
        throw BTL::XCommandLine(UnicodeString(option.name) + u": '" + value + u"' " + fault.getMessage());
    }
}

} // namespace

TOptions ReadOptions(int argc, const char* const* argv)
{
    BTL::CCommandLineOptions line = KnownOptions();
    line.Parse(argc, argv);

    TOptions options;
    for (const TOption& option : Table) {
        const std::vector<UnicodeString>& values = line.GetValues(option.name);
        if (values.empty()) {
            continue;
        }
        const auto end = option.repeats ? values.end() : values.begin() + 1;
        std::for_each(values.begin(), end,
                      [&](const UnicodeString& value) { SetOption(options, option, value); });
    }
    if (options.faulty && !options.instrument) {
        throw BTL::XCommandLine(u"--faulty goes with --instrument");
    }
    if (!options.changes.empty() && !options.form) {
        throw BTL::XCommandLine(u"--set goes with --form");
    }
    if (!options.screenshot.IsEmpty() && !options.window) {
        throw BTL::XCommandLine(u"--screenshot goes with --window");
    }
    if (options.copy && !options.about) {
        throw BTL::XCommandLine(u"--copy goes with --about");
    }
    return options;
}

UnicodeString SettingsFile(const TOptions& options)
{
    const auto name = options.store == EStore::Json ? u"Station.json" : u"Station.ini";
    return options.settings.IsEmpty() ? BTL::GetBinPath() + name : options.settings;
}

UnicodeString SamplesFile(const TOptions& options)
{
    return options.samples.IsEmpty() ? BTL::GetBinPath() + u"Samples.txt" : options.samples;
}

double ReadRunSeconds(const UnicodeString& text)
{
    try {
        return ReadSeconds(text);
    } catch (const XBadValue& fault) {
        throw XBadSettings(u"'" + text + u"' " + fault.getMessage());
    }
}

bool IsForRunUnderWay(const TOptions& options)
{
    return !options.channels && options.store == EStore::Ini && options.settings.IsEmpty() &&
           options.chart.IsEmpty() && options.language.IsEmpty() && !options.open && !options.decimal &&
           !options.from && !options.sql && options.log.IsEmpty() && !options.serial && !options.instrument &&
           !options.publish && !options.form && !options.design && !options.window &&
           options.screenshot.IsEmpty() && !options.help;
}

} // namespace Station
