// SPDX-License-Identifier: MIT
#include "Settings.h"

#include <TRS8_BTL/config/BTL_INI_IniFileEx.h>
#include <TRS8_BTL/config/BTL_INI_IniStream.h>
#include <TRS8_BTL/config/BTL_INI_JsonIni.h>
#include <TRS8_BTL/config/BTL_INI_WinIniFile.h>
#include <TRS8_BTL/environment/folders/BTL_ENV_Folders.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_DateText.h>
#include <TRS8_BTL/platform/host/devices/Host_PortMap.h>
#include <TRS8_BTL/platform/runtime/classes/Classes_StringList.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_File.h>

#include <array>
#include <cmath>
#include <exception>
#include <limits>
#include <utility>

namespace Station
{

namespace
{

using System::UnicodeString;

constexpr auto RunSection = u"Run";
constexpr auto ChannelSection = u"Channels";
constexpr auto WindowSection = u"Window";
constexpr auto LanguageKey = u"Language";
constexpr auto IntervalKey = u"Interval";
constexpr auto LastRunKey = u"LastRun";
constexpr auto PortKey = u"Port";
constexpr double DefaultInterval = 0.25;

constexpr std::array<std::pair<const System::WideChar*, const System::WideChar*>, 6> UsualChannels = {{
    {u"load.1", u"; upper 8"},
    {u"memory.available", u"MB; lower 500 MB"},
    {u"processes", u"; upper 2000"},
    {u"temperature.*", u"°C; lower 5; upper 90"},
    {u"serial.U", u"mV; lower -40; upper -30"},
    {u"serial.I", u"mA; lower 10; upper 15"},
}};

constexpr auto BadInterval = u"the value is not a number of seconds from 0.01 to 3600";

bool IsInterval(double seconds)
{
    return seconds >= 0.01 && seconds <= 3600;
}

UnicodeString PlaceOf(const BTL::AIni& settings, const UnicodeString& section, const UnicodeString& key)
{
    return settings.getFile() + u" [" + section + u"] " + key + u": ";
}

std::unique_ptr<BTL::AIni> OpenStream(const UnicodeString& file)
{
    if (!Sysutils::FileExists(file)) {
        return std::make_unique<BTL::CIniStreamEx>(file, RunSection);
    }
    const auto mode = BTL::FileReadOnly(file) ? Classes::fmOpenRead : Classes::fmOpenReadWrite;
    return std::make_unique<BTL::CIniStreamEx>(
        file, static_cast<unsigned short>(mode | Classes::fmShareDenyWrite), true);
}

std::unique_ptr<BTL::AIni> Open(EStore store, const UnicodeString& file)
{
    switch (store) {
    case EStore::Mem:
        return std::make_unique<BTL::CMemIniFile>(file);
    case EStore::Stream:
        return OpenStream(file);
    case EStore::Json: {
        auto document = std::make_unique<BTL::CJsonIni>(file, u"station.ini");
        document->Load();
        return document;
    }
    case EStore::Ini:
        break;
    }
    return std::make_unique<BTL::CWIN_IniFile>(file);
}

} // namespace

std::unique_ptr<BTL::AIni> OpenSettings(EStore store, const UnicodeString& file)
{
    try {
        return Open(store, file);
    } catch (const Sysutils::Exception& fault) {
        throw XBadSettings(fault.getMessage());
    }
}

double LoadInterval(BTL::AIni& settings)
{
    const BTL::CSetIniSection section(&settings, RunSection);
    if (!settings.KeyExists(IntervalKey)) {
        return DefaultInterval;
    }
    double interval = std::numeric_limits<double>::quiet_NaN();
    try {
        interval = settings.ReadFloat(IntervalKey, interval);
    } catch (const std::exception&) {
        // A value of another type, which the range tells.
    }
    if (!IsInterval(interval)) {
        throw XBadSettings(PlaceOf(settings, RunSection, IntervalKey) + BadInterval);
    }
    return interval;
}

UnicodeString LoadLastRun(BTL::AIni& settings)
{
    const BTL::CSetIniSection section(&settings, RunSection);
    try {
        settings.ReadSqlDateTime(LastRunKey);
    } catch (const std::exception&) {
        throw XBadSettings(PlaceOf(settings, RunSection, LastRunKey) + u"the value is not a time");
    }
    return settings.ReadString(LastRunKey, UnicodeString());
}

std::vector<CChannel> LoadChannels(BTL::AIni& settings, const std::vector<TSource>& sources,
                                   const TSourceMaker& serial)
{
    Classes::TStringList keys;
    settings.ReadKeys(ChannelSection, &keys);
    const BTL::CSetIniSection section(&settings, ChannelSection);
    std::vector<CChannel> channels;
    for (int i = 0; i < keys.getCount(); ++i) {
        const UnicodeString key = keys.getStrings(i);
        try {
            AddChannels(channels, key, settings.ReadString(key, UnicodeString()), sources, serial);
        } catch (const XBadSettings& fault) {
            throw XBadSettings(PlaceOf(settings, ChannelSection, key) + fault.getMessage());
        }
    }
    if (keys.getCount() == 0) {
        for (const auto& [name, rest] : UsualChannels) {
            AddChannels(channels, name, rest, sources, serial);
        }
    }
    CheckInstrument(channels, serial, settings.getFile());
    return channels;
}

void LoadChannelLines(BTL::AIni& settings, Classes::TStrings& lines)
{
    settings.ReadSectionValues(ChannelSection, &lines);
    if (lines.getCount() == 0) {
        for (const auto& [name, rest] : UsualChannels) {
            lines.Add(UnicodeString(name) + u"=" + rest);
        }
    }
}

std::optional<int> LoadPort(BTL::AIni& settings)
{
    const BTL::CSetIniSection section(&settings, RunSection);
    try {
        return ReadPortName(settings.ReadString(PortKey, UnicodeString()));
    } catch (const XBadSettings& fault) {
        throw XBadSettings(PlaceOf(settings, RunSection, PortKey) + fault.getMessage());
    }
}

void StoreSettings(BTL::AIni& settings, double interval, Classes::TStrings& channelLines)
{
    if (!IsInterval(interval)) {
        throw XBadSettings(PlaceOf(settings, RunSection, IntervalKey) + BadInterval);
    }
    for (const UnicodeString& line : channelLines) {
        if (line.Pos(u'=') < 2) {
            throw XBadSettings(PlaceOf(settings, ChannelSection, line) + u"'=' is missing");
        }
    }
    settings.SetSectionValues(ChannelSection, &channelLines);
    const BTL::CSetIniSection section(&settings, RunSection);
    settings.WriteFloat(IntervalKey, interval);
}

std::optional<int> ReadPortName(const UnicodeString& name)
{
    if (name.IsEmpty()) {
        return std::nullopt;
    }
    const int port = Host::PortNumber(System::ToUtf8(name));
    if (port == 0) {
        throw XBadSettings(u"'" + name + u"' is no port, COM1 to COM256");
    }
    return port;
}

void StorePort(BTL::AIni& settings, std::optional<int> port)
{
    const BTL::CSetIniSection section(&settings, RunSection);
    if (port) {
        settings.WriteString(PortKey, u"COM" + UnicodeString(*port));
    } else {
        settings.DeleteKey(PortKey);
    }
}

UnicodeString LoadLanguage(BTL::AIni& settings)
{
    const BTL::CSetIniSection section(&settings, WindowSection);
    return settings.ReadString(LanguageKey, u"English");
}

void StoreLanguage(BTL::AIni& settings, const UnicodeString& language)
{
    const BTL::CSetIniSection section(&settings, WindowSection);
    settings.WriteString(LanguageKey, language);
}

void SaveSettings(BTL::AIni& settings, const UnicodeString& file, const System::TDateTime& lastRun)
{
    if (BTL::FileReadOnly(file)) {
        throw Sysutils::Exception(file + u" is read-only: the time of this run isn't kept");
    }
    // Not by the section: a store may have it, without keys, once it was the current one.
    Classes::TStringList keys;
    settings.ReadKeys(ChannelSection, &keys);
    if (keys.getCount() == 0) {
        const BTL::CSetIniSection section(&settings, ChannelSection);
        for (const auto& [name, rest] : UsualChannels) {
            settings.WriteString(name, rest);
        }
    }
    const BTL::CSetIniSection section(&settings, RunSection);
    if (!settings.KeyExists(IntervalKey)) {
        settings.WriteFloat(IntervalKey, DefaultInterval);
    }
    settings.WriteString(LastRunKey, Sysutils::FormatDateTime(u"yyyy-mm-dd hh':'nn':'ss'.'zzz", lastRun));
    settings.Save();
}

} // namespace Station
