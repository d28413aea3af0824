// SPDX-License-Identifier: MIT
#include "About.h"
#include "Channels.h"
#include "Chart.h"
#include "FormDesk.h"
#include "Instrument.h"
#include "Language.h"
#include "Options.h"
#include "Progress.h"
#include "Report.h"
#include "Samples.h"
#include "SerialReader.h"
#include "Settings.h"
#include "Single.h"
#include "Watch.h"
#include "WindowRun.h"

#include <TRS8_BTL/environment/BTL_ENV_ApplicationIni.h>
#include <TRS8_BTL/environment/folders/BTL_ENV_Folders.h>
#include <TRS8_BTL/foundation/logs/UTL_LOG_Log.h>
#include <TRS8_BTL/platform/base/Sysutils_Exception.h>
#include <TRS8_BTL/platform/base/Sysutils_Locale.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_Calendar.h>
#include <TRS8_BTL/platform/host/system/Host_CommandLine.h>
#include <TRS8_BTL/platform/toolkit/Toolkit.h>
#include <TRS8_BTL/platform/visual/Forms.h>
#include <TRS8_BTL/progress/BTL_THRD_ActionThread.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <thread>

namespace
{

using namespace Station;
using System::UnicodeString;

constexpr int DefaultPort = 7;

constexpr double SecondsADay = 24 * 3600;

/// What is sampled, and what came of it.
struct TRun
{
    std::vector<CChannel> channels;
    BTL::CChartData chart;
    /// Between two turns, in seconds.
    double interval;
    System::TDateTime start;
    CRunEnd end{};
};

/// One turn: asks the instrument, if there is one, and reads all channels. Gives the last value that came.
UnicodeString Sample(TRun& run, CSerialReader* serial, CSampleWriter& writer)
{
    UnicodeString last;
    if (serial != nullptr) {
        serial->Ask();
    }
    const System::TDateTime time = Sysutils::Now();
    const double second = (time - run.start) * SecondsADay;
    for (std::size_t i = 0; i < run.channels.size(); ++i) {
        CChannel& channel = run.channels[i];
        if (const auto value = channel.Read()) {
            run.chart.getSeries(static_cast<int>(i))->AddXY(second, *value);
            last = (channel.getName() + u": " + UnicodeString(*value) + u' ' + channel.getUnit()).Trim();
            writer.Add(MakeSample(time, channel.getName(), *value, channel.getUnit()));
        } else {
            channel.AddMiss();
            BTL::Log(channel.getName() + u": no value");
        }
    }
    writer.Flush();
    return last;
}

/// Handles what comes to the main thread until the thread ends.
void AwaitEnd(BTL::TActionThread& thread)
{
    std::atomic<bool> hasEnded = false;
    thread.setOnTerminate([&](System::TObject*) {
        hasEnded = true;
        Toolkits::CurrentToolkit().Post([] {});
    });
    thread.Start2();
    while (!hasEnded) {
        Forms::Application->HandleMessage();
    }
    thread.WaitFor();
}

/// Samples in a thread of its own up to the end of the run. What ends it before comes out here.
void SampleToEnd(TRun& run, CSerialReader* serial, CSampleWriter& writer, CPublishedRun& published)
{
    using Clock = CRunEnd::Clock;
    const auto interval =
        std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(run.interval));
    auto next = Clock::now();
    BTL::TActionThread sampling(
        [&](BTL::TActionThread* thread) {
            const UnicodeString last = Sample(run, serial, writer);
            // Turns that a slow instrument took the time of are left out.
            next = std::max(next + interval, Clock::now());
            published.AddTurn(last, run.end.GetTurnsFrom(next, interval));
            if (run.end.EndsBefore(next)) {
                thread->Terminate();
                return;
            }
            std::this_thread::sleep_until(next);
        },
        true, false, false);
    AwaitEnd(sampling);
    if (const auto fault = sampling.getFatalException()) {
        std::rethrow_exception(fault);
    }
}

/// What a later station asks of this one; the answer is its exit code. None if the run has ended.
std::optional<int> Obey(TRun& run, const UnicodeString& commandLine)
{
    const UnicodeString asked =
        u"A station in " + BTL::CStartOnce::GetSenderFolder() + u" asks: " + commandLine;
    try {
        const double seconds =
            ReadHandedOver(commandLine, EStationKind::Terminal).seconds.value_or(DefaultSeconds);
        if (!run.end.PutOff(seconds)) {
            return std::nullopt;
        }
        BTL::Log(asked + u": goes on for " + UnicodeString(seconds) + u" s");
        return Done;
    } catch (const Sysutils::Exception& fault) {
        BTL::Log(asked + u": " + fault.getMessage());
        return BadInput;
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

/// Tells what the instrument did wrong.
EExitCode ReportInstrument(const CSerialReader* serial)
{
    if (serial == nullptr || serial->getFaultCount() == 0) {
        return Done;
    }
    std::cerr << "station: " << serial->getFaultText() << '\n';
    return InstrumentFailed;
}

/// For the port of the command line or else of the settings; null if neither names one.
std::unique_ptr<CSerialReader> MakeSerialReader(const TOptions& options, BTL::AIni& settings)
{
    const std::optional<int> port = options.serial ? options.serial : LoadPort(settings);
    return port ? std::make_unique<CSerialReader>(*port) : nullptr;
}

EExitCode Run(const TOptions& options, CSingleStation& single)
{
    const UnicodeString file = SamplesFile(options);
    const UnicodeString settingsFile = SettingsFile(options);
    const auto settings = OpenSettings(options.store, settingsFile);
    const auto serial = MakeSerialReader(options, *settings);
    const auto maker = serial ? serial->GetSourceMaker() : TSourceMaker();
    const UnicodeString lastRun = LoadLastRun(*settings);
    const UnicodeString title = BTL::CApplicationIni::Get()->Title;
    TRun run{options.channels ? LoadChannels(*options.channels, HostSources(), maker)
                              : LoadChannels(*settings, HostSources(), maker),
             {},
             LoadInterval(*settings),
             Sysutils::Now()};
    std::vector<CChannel>& channels = run.channels;
    run.chart = MakeChart(channels, title);
    const double seconds = options.seconds.value_or(DefaultSeconds);
    BTL::Log(u"Sampling " + UnicodeString(channels.size()) + u" channels for " + UnicodeString(seconds) +
             u" s");
    if (serial) {
        serial->Open();
    }
    CSampleWriter writer(file);
    CPublishedRun published(options.publish, title);
    run.end.PutOff(seconds);
    single.Serve([&run](const UnicodeString& commandLine) { return Obey(run, commandLine); });
    published.Start(static_cast<System::Int64>(seconds / run.interval) + 1);
    SampleToEnd(run, serial.get(), writer, published);
    ReadSamples(file, options.from ? 0 : writer.getStart(), options.from, [&](const UTL::CVariants& sample) {
        AddSample(channels, sample);
        if (options.sql) {
            WriteSql(std::cout, sample);
        }
    });
    LogLimits(channels);
    const UnicodeString chart = SaveChart(run.chart, BTL::GetRootPath() + u"Charts\\", run.start);
    if (!options.sql) {
        std::cout << title << "\nlast run: " << (lastRun.IsEmpty() ? UnicodeString(u"none") : lastRun)
                  << "\nchart: " << System::FromUtf8(Sysutils::HostPath(chart)) << "\n\n";
        WriteReport(std::cout, channels);
    }
    SaveSettings(*settings, settingsFile, Sysutils::Now());
    published.Finish();
    return ReportInstrument(serial.get());
}

/// Samples, unless another station does so into the same file: then that one gets the command line.
EExitCode RunOrHandOver(const TOptions& options)
{
    CSingleStation single(SamplesFile(options));
    const std::optional<int> answer = single.HandOver(GetCommandLineW());
    if (!answer) {
        return options.window && RunWindow(options, single) ? Done : Run(options, single);
    }
    if (*answer == BadInput) {
        std::cerr << "station: the one that samples already takes --seconds alone\n";
    } else if (*answer == Failed) {
        std::cerr << "station: the one that is there already can't begin a run, as its log tells\n";
    } else if (options.window) {
        std::cout << "The window that is there already shows.\n";
    } else {
        std::cout << "The station that samples already goes on.\n";
    }
    return static_cast<EExitCode>(*answer);
}

void OpenProgram(const BTL::CApplicationIni& application)
{
    if (application.ExternalAppExe.IsEmpty()) {
        throw XBadSettings(BTL::GetProductPath() + u"Application.ini names no ExternalAppExe to open");
    }
    application.OpenExternalApp();
}

EExitCode Start(const TOptions& options)
{
    if (options.help) {
        std::cout << HelpText();
        return Done;
    }
    if (!options.language.IsEmpty()) {
        UseLanguage(options.language);
    }
    if (options.about) {
        WriteAbout(std::cout, options.copy);
        return Done;
    }
    if (options.watch) {
        return WatchRun(*options.watch, std::cout) ? Done : Failed;
    }
    if (options.open) {
        OpenProgram(*BTL::CApplicationIni::Get());
        return Done;
    }
    if (!options.chart.IsEmpty()) {
        WriteChart(std::cout, LoadChart(options.chart));
        return Done;
    }
    if (options.form) {
        const auto settings = OpenSettings(options.store, SettingsFile(options));
        WriteForms(std::cout, *settings, options.language, options.changes);
        return Done;
    }
    if (options.design) {
        WriteDesigns(std::cout, options.language);
        return Done;
    }
    if (options.instrument) {
        PlayInstrument(options.serial.value_or(DefaultPort), options.faulty, options.seconds, std::cout);
        return Done;
    }
    if (options.decimal) {
        Sysutils::DecimalSeparator = *options.decimal;
    }
    if (!options.log.IsEmpty()) {
        BTL::SetLogFile(options.log);
    }
    return RunOrHandOver(options);
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
        const EExitCode code = Start(ReadOptions(argc, argv));
        return std::cout.flush() ? code : Failed;
    } catch (const BTL::XCommandLine& fault) {
        return Fail(BadInput, fault.getMessage());
    } catch (const XBadSettings& fault) {
        return Fail(BadInput, fault.getMessage());
    } catch (const Sysutils::Exception& fault) {
        return Fail(Failed, fault.getMessage());
    } catch (const std::exception& fault) {
        return Fail(Failed, Sysutils::MessageOf(fault));
    }
}
