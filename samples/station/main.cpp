// SPDX-License-Identifier: MIT
#include "Channels.h"
#include "Options.h"
#include "Report.h"

#include <TRS8_BTL/foundation/UTL_LOG_LogStream.h>
#include <TRS8_BTL/platform/host/Host_Path.h>
#include <TRS8_BTL/platform/runtime/Sysutils_Locale.h>

#include <chrono>
#include <iostream>
#include <thread>

namespace
{

using namespace Station;
using System::UnicodeString;

constexpr std::chrono::milliseconds Interval(250);

enum ExitCode : int
{
    Done = 0,
    Failed = 1,
    BadInput = 2
};

void SampleFor(std::vector<CChannel>& channels, double seconds)
{
    using Clock = std::chrono::steady_clock;
    const auto end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    for (auto next = Clock::now(); next <= end; next += Interval) {
        std::this_thread::sleep_until(next);
        for (CChannel& channel : channels) {
            if (!channel.Sample()) {
                BTL::Log(channel.getName() + u": no value");
            }
        }
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
        Sysutils::DecimalSeparator = static_cast<System::WideChar>(*options.decimal);
    }
    if (!options.log.empty()) {
        BTL::SetLogFile(Sysutils::FromHostPath(options.log.string()));
    }
    std::vector<CChannel> channels = LoadChannels(options.channels, HostSources());
    BTL::Log(u"Sampling " + UnicodeString(channels.size()) + u" channels for " +
             UnicodeString(options.seconds) + u" s");
    SampleFor(channels, options.seconds);
    LogLimits(channels);
    WriteReport(std::cout, channels);
}

int Fail(ExitCode code, const UnicodeString& message)
{
    std::cerr << "station: " << message << '\n';
    return code;
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        const TOptions options = ReadOptions({argv + 1, static_cast<std::size_t>(argc - 1)});
        if (options.help) {
            std::cout << HelpText;
        } else {
            Run(options);
        }
        return std::cout.flush() ? Done : Failed;
    } catch (const XBadOption& fault) {
        return Fail(BadInput, fault.getMessage());
    } catch (const XBadChannelFile& fault) {
        return Fail(BadInput, fault.getMessage());
    } catch (const Sysutils::Exception& fault) {
        return Fail(Failed, fault.getMessage());
    } catch (const std::exception& fault) {
        return Fail(Failed, System::FromUtf8(fault.what()));
    }
}
