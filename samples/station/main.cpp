// SPDX-License-Identifier: MIT
#include "Channels.h"
#include "Options.h"
#include "Report.h"
#include "Samples.h"

#include <TRS8_BTL/environment/folders/BTL_ENV_Folders.h>
#include <TRS8_BTL/foundation/logs/UTL_LOG_Log.h>
#include <TRS8_BTL/platform/base/Sysutils_Exception.h>
#include <TRS8_BTL/platform/base/Sysutils_Locale.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_Calendar.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <thread>

namespace
{

using namespace Station;
using System::UnicodeString;

constexpr std::chrono::milliseconds Interval(250);

enum EExitCode : int
{
    Done = 0,
    Failed = 1,
    BadInput = 2
};

void SampleFor(double seconds, const std::vector<CChannel>& channels, CSampleWriter& writer)
{
    using Clock = std::chrono::steady_clock;
    const auto end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    for (auto next = Clock::now(); next <= end; next += Interval) {
        std::this_thread::sleep_until(next);
        const System::TDateTime time = Sysutils::Now();
        for (const CChannel& channel : channels) {
            if (const auto value = channel.Read()) {
                writer.Add(MakeSample(time, channel.getName(), *value, channel.getUnit()));
            } else {
                BTL::Log(channel.getName() + u": no value");
            }
        }
        writer.Flush();
    }
}

/// Gives the sample to its channel. The file may also hold channels that are not asked for now.
void AddSample(std::vector<CChannel>& channels, const UTL::CVariants& sample)
{
    const UnicodeString name = sample.getItem(siChannel).ToString();
    const UnicodeString unit = sample.getItem(siUnit).ToString();
    const auto channel = std::find_if(channels.begin(), channels.end(), [&](const CChannel& candidate) {
        return candidate.getName() == name && candidate.getUnit() == unit;
    });
    if (channel != channels.end()) {
        channel->Add(sample.getItem(siValue).ToDouble());
    }
}

void LogLimits(const std::vector<CChannel>& channels)
{
    for (const CChannel& channel : channels) {
        if (!channel.IsWithinLimits()) {
            BTL::Log(channel.getName() + u": out of limits, " + channel.getLimitText());
        }
    }
}

void Run(const TOptions& options)
{
    if (options.decimal) {
        Sysutils::DecimalSeparator = *options.decimal;
    }
    if (!options.log.IsEmpty()) {
        BTL::SetLogFile(options.log);
    }
    const UnicodeString file =
        options.samples.IsEmpty() ? BTL::GetBinPath() + u"Samples.txt" : options.samples;
    std::vector<CChannel> channels = LoadChannels(options.channels, HostSources());
    BTL::Log(u"Sampling " + UnicodeString(channels.size()) + u" channels for " +
             UnicodeString(options.seconds) + u" s");
    CSampleWriter writer(file);
    SampleFor(options.seconds, channels, writer);
    ReadSamples(file, options.from ? 0 : writer.getStart(), options.from, [&](const UTL::CVariants& sample) {
        AddSample(channels, sample);
        if (options.sql) {
            WriteSql(std::cout, sample);
        }
    });
    LogLimits(channels);
    if (!options.sql) {
        WriteReport(std::cout, channels);
    }
}

int Fail(EExitCode code, const UnicodeString& message)
{
    std::cerr << "station: " << message << '\n';
    return code;
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        const TOptions options = ReadOptions(argc, argv);
        if (options.help) {
            std::cout << HelpText();
        } else {
            Run(options);
        }
        return std::cout.flush() ? Done : Failed;
    } catch (const BTL::XCommandLine& fault) {
        return Fail(BadInput, fault.getMessage());
    } catch (const XBadChannelFile& fault) {
        return Fail(BadInput, fault.getMessage());
    } catch (const Sysutils::Exception& fault) {
        return Fail(Failed, fault.getMessage());
    } catch (const std::exception& fault) {
        return Fail(Failed, Sysutils::MessageOf(fault));
    }
}
