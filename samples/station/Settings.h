// SPDX-License-Identifier: MIT
#pragma once

#include "Channels.h"

#include <TRS8_BTL/config/BTL_INI_Ini.h>
#include <TRS8_BTL/platform/base/dates/System_DateTime.h>

#include <memory>
#include <optional>

namespace Station
{

/// What keeps the settings.
enum class EStore
{
    Ini,
    Mem,
    Stream,
    Json
};

/// The settings in `file`, loaded; a missing file is one without settings. The one place that knows which
/// store it is. `XBadSettings` if the file can't be read.
std::unique_ptr<BTL::AIni> OpenSettings(EStore store, const System::UnicodeString& file);

/// The time between two turns, in seconds. `XBadSettings` for one that isn't from 0.01 to 3600.
double LoadInterval(BTL::AIni& settings);

/// The end of the run before, as a text; empty if there was none. `XBadSettings` for what is no time.
System::UnicodeString LoadLastRun(BTL::AIni& settings);

/// The channels of the settings, by the rules of a channel file; those that are usual if there are none.
std::vector<CChannel> LoadChannels(BTL::AIni& settings, const std::vector<TSource>& sources,
                                   const TSourceMaker& serial);

/// The channels as lines of a channel file; those that are usual if there are none.
void LoadChannelLines(BTL::AIni& settings, Classes::TStrings& lines);

/// The port of the instrument that each run asks; nothing for none. `XBadSettings` for what is no port.
std::optional<int> LoadPort(BTL::AIni& settings);

/// Sets the interval and the channels, without saving them. `XBadSettings`, with nothing set, for what isn't
/// an interval and for a line without a channel.
void StoreSettings(BTL::AIni& settings, double interval, Classes::TStrings& channelLines);

/// The port by its name; nothing for an empty text. `XBadSettings` for what is no port.
std::optional<int> ReadPortName(const System::UnicodeString& name);
/// Sets the port, without saving it.
void StorePort(BTL::AIni& settings, std::optional<int> port);

/// The language that was chosen in the window; English if none was.
System::UnicodeString LoadLanguage(BTL::AIni& settings);
/// Sets the language, without saving it.
void StoreLanguage(BTL::AIni& settings, const System::UnicodeString& language);

/// Keeps the time as that of the last run, and beside it what else is missing, so that the user finds it to
/// edit. `Sysutils::Exception` for a file that is read-only or can't be written.
void SaveSettings(BTL::AIni& settings, const System::UnicodeString& file, const System::TDateTime& lastRun);

} // namespace Station
