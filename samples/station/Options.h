// SPDX-License-Identifier: MIT
#pragma once

#include "Settings.h"

#include <TRS8_BTL/platform/base/dates/System_DateTime.h>
#include <TRS8_BTL/text/grammar/BTL_CommandLineOptions.h>

#include <filesystem>
#include <optional>
#include <vector>

namespace Station
{

/// With what the program ends, and what a station answers to a later one.
enum EExitCode : int
{
    Done = 0,
    Failed = 1,
    BadInput = 2,
    InstrumentFailed = 3
};

/// How long a run samples that nobody sets a time for.
constexpr double DefaultSeconds = 5;

/// What the user asks for.
struct TOptions
{
    /// How long to sample, or to play an instrument; without it 5 seconds, or until the program is stopped.
    std::optional<double> seconds;
    /// A channel file in place of the channels of the settings.
    std::optional<std::filesystem::path> channels;
    EStore store = EStore::Ini;
    /// Where the settings are; empty for the file beside the program.
    System::UnicodeString settings;
    /// A chart to print, in place of a run.
    System::UnicodeString chart;
    /// The language of the library's texts; empty for that of the installation.
    System::UnicodeString language;
    /// Whether to start the program that the description names.
    bool open = false;
    /// The decimal separator of all numbers shown; without it that of the user's locale.
    std::optional<System::WideChar> decimal;
    /// Where the samples are kept; empty for the file beside the program.
    System::UnicodeString samples;
    /// Samples kept since then count too.
    std::optional<System::TDateTime> from;
    /// Whether the samples are printed, in place of their statistics.
    bool sql = false;
    /// Where to log; empty for the file beside the program.
    System::UnicodeString log;
    /// The port to read an instrument from, or to be one on.
    std::optional<int> serial;
    /// Whether to play an instrument, and one that misbehaves.
    bool instrument = false;
    bool faulty = false;
    /// Whether to print what the program is, and all that a bug report needs, for the clipboard.
    bool about = false;
    bool copy = false;
    /// Whether others may watch the run, and the process whose run to watch.
    bool publish = false;
    std::optional<unsigned long> watch;
    /// Whether to print the forms, and those as what differs from the forms that they derive from.
    bool form = false;
    bool design = false;
    /// What the user changes in the forms.
    std::vector<System::UnicodeString> changes;
    /// Whether to run in a window, and the file to paint that into in place of a screen.
    bool window = false;
    System::UnicodeString screenshot;
    bool help = false;
};

/// What the command line asks for; of an option that is given twice, the first counts, but for --set.
/// `BTL::XCommandLine` for an unknown word, a missing or a bad value.
TOptions ReadOptions(int argc, const char* const* argv);

/// The files that keep the settings and the samples: those that are asked for, or else those beside the
/// program.
System::UnicodeString SettingsFile(const TOptions& options);
System::UnicodeString SamplesFile(const TOptions& options);

/// How long a run takes, from a text in seconds. `XBadSettings` for what isn't a time above 0 and up to a
/// day.
double ReadRunSeconds(const System::UnicodeString& text);

/// Whether nothing is asked for but to sample for some time into some file.
bool IsForRunUnderWay(const TOptions& options);

/// How the program is called, with all options.
System::UnicodeString HelpText();

} // namespace Station
