// SPDX-License-Identifier: MIT
#include "About.h"

#include <TRS8_BTL/environment/BTL_RSRC_VersionInfo.h>
#include <TRS8_BTL/environment/folders/BTL_ENV_Folders.h>
#include <TRS8_BTL/os/Win_sys_utilitiesw.h>
#include <TRS8_BTL/platform/Version.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_Calendar.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_IsoDate.h>
#include <TRS8_BTL/platform/host/Host_Module.h>
#include <TRS8_BTL/platform/host/Host_Path.h>
#include <TRS8_BTL/platform/host/devices/Host_PortMap.h>
#include <TRS8_BTL/platform/host/system/Host_CommandLine.h>
#include <TRS8_BTL/platform/toolkit/Toolkit.h>
#include <TRS8_BTL/platform/visual/Forms.h>
#include <TRS8_BTL/text/editing/BTL_STR_Replace.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>

#include <sys/utsname.h>

namespace Station
{

namespace
{

using System::UnicodeString;

/// A line of the report; none for an empty text.
UnicodeString Line(const char16_t* name, const UnicodeString& text)
{
    return text.IsEmpty() ? UnicodeString() : UnicodeString(name) + u": " + text + u'\n';
}

/// As a console shows it: in a label a single `&` would underline a letter.
UnicodeString Plain(const UnicodeString& label)
{
    return BTL::ExchangeAll(label, u"&&", u"&");
}

UnicodeString ReadModulePath(const void* module)
{
    System::WideChar path[4096];
    return {path, static_cast<int>(GetModuleFileNameW(module, path, 4096))};
}

UnicodeString HostName(const UnicodeString& path)
{
    return System::FromUtf8(Sysutils::HostPath(path));
}

UnicodeString DescribeProgram()
{
    BTL::CVersionInfo info;
    if (!BTL::ReadVersionInfo(Forms::Application->getExeName(), info)) {
        return u"This program tells no version.\n";
    }
    return Plain(info.Product) + u' ' + info.ProductVersion + u'\n' + Line(u"file", info.OriginalFilename) +
           Line(u"version", info.FileVersion) + Line(u"what it does", info.Description) +
           Line(u"company", Plain(info.Company)) + Line(u"copyright", Plain(info.Copyright)) +
           Line(u"comments", Plain(info.Comments)) + Line(u"built by", info.Builder);
}

UnicodeString DescribeLibrary()
{
    const UnicodeString file = ReadModulePath(reinterpret_cast<const void*>(&System::LibraryVersion));
    BTL::CVersionInfo info;
    const bool isRead = BTL::ReadVersionInfo(file, info);
    return Line(u"library", UnicodeString(System::LibraryVersion()) + u", " + HostName(file)) +
           Line(u"library built by", isRead ? info.Builder : UnicodeString());
}

/// The name that a distribution gives itself.
UnicodeString ReadDistribution()
{
    std::ifstream file("/etc/os-release");
    const std::string key = "PRETTY_NAME=";
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(key)) {
            return BTL::ExchangeAll(System::FromUtf8(line.substr(key.size())), u"\"", u"");
        }
    }
    return u"unknown";
}

UnicodeString DescribeSystem()
{
    utsname system{};
    uname(&system);
    _MEMORYSTATUSEX memory;
    WIN::GlobalMemoryStatus(memory);
    constexpr std::uint64_t megabyte = 1 << 20;
    return Line(u"system",
                ReadDistribution() + u", " + system.sysname + u' ' + system.release + u' ' + system.machine) +
           Line(u"processors", UnicodeString(std::thread::hardware_concurrency())) +
           Line(u"memory", UnicodeString(memory.ullAvailPhys / megabyte) + u" of " +
                               UnicodeString(memory.ullTotalPhys / megabyte) + u" MB are free");
}

UnicodeString DescribeSurroundings()
{
    UnicodeString text;
    for (const char* name : {"LANG", "LC_ALL", "LC_NUMERIC", "LC_TIME", "XDG_CURRENT_DESKTOP",
                             "XDG_SESSION_TYPE", "TRS8_BTL_TOOLKIT"}) {
        const char* const value = std::getenv(name);
        text +=
            Line(UnicodeString(name).c_str(), value == nullptr ? UnicodeString() : System::FromUtf8(value));
    }
    for (const Host::PortInfo& port : Host::ListPorts()) {
        text += Line(u"port", u"COM" + UnicodeString(port.number) + u", " + System::FromUtf8(port.device));
    }
    return text + Line(u"folder", HostName(BTL::GetRootPath())) + Line(u"command line", GetCommandLineW()) +
           Line(u"time", Sysutils::DateTimeToIso(Sysutils::Now()));
}

} // namespace

void WriteAbout(std::ostream& stream, bool copy)
{
    UnicodeString text = DescribeProgram();
    if (copy) {
        text += DescribeLibrary() + DescribeSystem() + DescribeSurroundings();
    }
    stream << text;
    if (copy && !Toolkits::CurrentToolkit().SetClipboardText(text)) {
        stream.flush();
        std::cerr << "station: without windows there is no clipboard to share; please copy the lines above\n";
    }
}

} // namespace Station
