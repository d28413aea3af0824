// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniFileEx.h"
#include "config/BTL_INI_IniStream.h"
#include "config/BTL_INI_WinIniFile.h"
#include "platform/host/profile/Host_Profile.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <unistd.h>

#ifdef TRS8_BTL_BENCHMARK_QT
#include <QCoreApplication>
#include <QSettings>
#endif
#ifdef TRS8_BTL_BENCHMARK_GLIB
#include <glib.h>
#endif
#ifdef TRS8_BTL_BENCHMARK_SIMPLEINI
#define SI_NO_CONVERSION
#include <SimpleIni.h>
#endif

namespace
{

using System::UnicodeString;

constexpr int SectionCount = 1000;
constexpr int KeysPerSection = 100;

/// A file of settings: integers, floats and texts by turns.
class CSample
{
public:
    explicit CSample(int sections) : mPath(std::filesystem::temp_directory_path() / MakeName())
    {
        std::ofstream file(mPath, std::ios::binary);
        for (int s = 0; s < sections; ++s) {
            file << "[Section" << s << "]\r\n";
            for (int k = 0; k < KeysPerSection; ++k) {
                file << "Key" << k << '=';
                if (k % 3 == 0) {
                    file << s * k;
                } else if (k % 3 == 1) {
                    file << s * k / 8.0;
                } else {
                    file << "channel " << k;
                }
                file << "\r\n";
            }
        }
    }
    CSample(const CSample&) = delete;
    CSample& operator=(const CSample&) = delete;
    ~CSample() { std::filesystem::remove(mPath); }

    const std::filesystem::path& Path() const { return mPath; }

    /// Gives the first key another digit, so that nobody takes the file for one that was read already.
    void Change()
    {
        std::fstream file(mPath, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(std::string_view("[Section0]\r\nKey0=").size());
        mDigit = mDigit == '0' ? '1' : '0';
        file.put(mDigit);
    }

private:
    static std::string MakeName()
    {
        static int count = 0;
        return "trs8_btl_bench_" + std::to_string(getpid()) + '_' + std::to_string(++count) + ".ini";
    }

    std::filesystem::path mPath;
    char mDigit = '0';
};

/// Files with all sections among them, one or, for the growth, ten with a tenth each.
class CSamples
{
public:
    explicit CSamples(int count) : mSectionCount(SectionCount / count)
    {
        for (int i = 0; i < count; ++i) {
            mSamples.push_back(std::make_unique<CSample>(mSectionCount));
        }
    }

    int getSectionCount() const { return mSectionCount; }
    UnicodeString File(std::size_t index) const { return UnicodeString(mSamples[index]->Path()); }
    std::size_t size() const { return mSamples.size(); }
    /// Also waits until the times of the files tell the next change from this one.
    void Change(benchmark::State& state)
    {
        state.PauseTiming();
        for (const auto& sample : mSamples) {
            sample->Change();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        state.ResumeTiming();
    }

private:
    int mSectionCount;
    std::vector<std::unique_ptr<CSample>> mSamples;
};

template <class Text>
std::vector<Text> Names(const char* prefix, int count)
{
    std::vector<Text> names;
    names.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        names.emplace_back((prefix + std::to_string(i)).c_str());
    }
    return names;
}

template <class Ini>
double SumOf(Ini& ini, const std::vector<UnicodeString>& sections, const std::vector<UnicodeString>& keys)
{
    double sum = 0;
    for (const UnicodeString& section : sections) {
        ini.setSection(section);
        for (int k = 0; k < KeysPerSection; ++k) {
            const UnicodeString& key = keys[static_cast<std::size_t>(k)];
            sum += k % 3 == 0   ? ini.ReadInt(key, 0)
                   : k % 3 == 1 ? ini.ReadFloat(key, 0)
                                : ini.ReadString(key, u"").Length();
        }
    }
    return sum;
}

template <class Ini>
void Load(benchmark::State& state, int files)
{
    CSamples samples(files);
    const auto sectionNames = Names<UnicodeString>("Section", samples.getSectionCount());
    const auto keys = Names<UnicodeString>("Key", KeysPerSection);
    for (auto run : state) {
        samples.Change(state);
        for (std::size_t i = 0; i < samples.size(); ++i) {
            Ini ini(samples.File(i));
            benchmark::DoNotOptimize(SumOf(ini, sectionNames, keys));
        }
    }
    state.SetItemsProcessed(state.iterations() * SectionCount * KeysPerSection);
}

void LoadMemory(benchmark::State& state, int files)
{
    Load<BTL::CMemIniFile>(state, files);
}
BENCHMARK_CAPTURE(LoadMemory, ours, 1)->Name("load_ini/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadMemory, tenth, 10)->Name("load_ini/tenth")->Unit(benchmark::kMillisecond);

void LoadProfile(benchmark::State& state, int files)
{
    Load<BTL::CWIN_IniFile>(state, files);
}
BENCHMARK_CAPTURE(LoadProfile, ours, 1)->Name("load_profile/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadProfile, tenth, 10)->Name("load_profile/tenth")->Unit(benchmark::kMillisecond);

class CStreamOfFile : public BTL::CIniStreamEx
{
public:
    explicit CStreamOfFile(const UnicodeString& file) : CIniStreamEx(file, Classes::fmOpenRead, true) {}
};

void LoadStream(benchmark::State& state)
{
    Load<CStreamOfFile>(state, 1);
}
BENCHMARK(LoadStream)->Name("load_stream/ours")->Unit(benchmark::kMillisecond);

/// One key, with which all of the file is written.
void SaveProfile(benchmark::State& state, int files)
{
    const CSamples samples(files);
    int number = 0;
    for (auto run : state) {
        for (std::size_t i = 0; i < samples.size(); ++i) {
            BTL::CWIN_IniFile ini(samples.File(i), u"Section1");
            ini.WriteInt(u"Key0", ++number);
        }
    }
}
BENCHMARK_CAPTURE(SaveProfile, ours, 1)->Name("save_profile/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SaveProfile, tenth, 10)->Name("save_profile/tenth")->Unit(benchmark::kMillisecond);

#ifdef TRS8_BTL_BENCHMARK_QT
void LoadQt(benchmark::State& state)
{
    CSamples samples(1);
    const auto sections = Names<QString>("Section", SectionCount);
    const auto keys = Names<QString>("Key", KeysPerSection);
    const QString file = QString::fromUtf16(samples.File(0).c_str());
    for (auto run : state) {
        samples.Change(state);
        QSettings ini(file, QSettings::IniFormat);
        double sum = 0;
        for (const QString& section : sections) {
            ini.beginGroup(section);
            for (int k = 0; k < KeysPerSection; ++k) {
                const QVariant value = ini.value(keys[static_cast<std::size_t>(k)]);
                sum += k % 3 == 0   ? value.toInt()
                       : k % 3 == 1 ? value.toDouble()
                                    : static_cast<double>(value.toString().size());
            }
            ini.endGroup();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(LoadQt)->Name("load_ini/QSettings")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadQt)->Name("load_stream/QSettings")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadQt)->Name("load_profile/QSettings")->Unit(benchmark::kMillisecond);
#endif

#ifdef TRS8_BTL_BENCHMARK_GLIB
void LoadGlib(benchmark::State& state)
{
    const CSample sample(SectionCount);
    const auto sections = Names<std::string>("Section", SectionCount);
    const auto keys = Names<std::string>("Key", KeysPerSection);
    for (auto run : state) {
        GKeyFile* const ini = g_key_file_new();
        g_key_file_load_from_file(ini, sample.Path().c_str(), G_KEY_FILE_NONE, nullptr);
        double sum = 0;
        for (const std::string& section : sections) {
            for (int k = 0; k < KeysPerSection; ++k) {
                const char* const key = keys[static_cast<std::size_t>(k)].c_str();
                if (k % 3 == 0) {
                    sum += g_key_file_get_integer(ini, section.c_str(), key, nullptr);
                } else if (k % 3 == 1) {
                    sum += g_key_file_get_double(ini, section.c_str(), key, nullptr);
                } else {
                    char* const text = g_key_file_get_string(ini, section.c_str(), key, nullptr);
                    sum += static_cast<double>(std::char_traits<char>::length(text));
                    g_free(text);
                }
            }
        }
        benchmark::DoNotOptimize(sum);
        g_key_file_free(ini);
    }
}
BENCHMARK(LoadGlib)->Name("load_ini/GKeyFile")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadGlib)->Name("load_stream/GKeyFile")->Unit(benchmark::kMillisecond);
#endif

#ifdef TRS8_BTL_BENCHMARK_SIMPLEINI
void LoadSimple(benchmark::State& state)
{
    const CSample sample(SectionCount);
    const auto sections = Names<std::string>("Section", SectionCount);
    const auto keys = Names<std::string>("Key", KeysPerSection);
    for (auto run : state) {
        CSimpleIniA ini;
        ini.LoadFile(sample.Path().c_str());
        double sum = 0;
        for (const std::string& section : sections) {
            for (int k = 0; k < KeysPerSection; ++k) {
                const char* const key = keys[static_cast<std::size_t>(k)].c_str();
                sum += k % 3 == 0 ? static_cast<double>(ini.GetLongValue(section.c_str(), key))
                       : k % 3 == 1
                           ? ini.GetDoubleValue(section.c_str(), key)
                           : static_cast<double>(std::string(ini.GetValue(section.c_str(), key)).size());
            }
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(LoadSimple)->Name("load_ini/SimpleIni")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadSimple)->Name("load_stream/SimpleIni")->Unit(benchmark::kMillisecond);
#endif

/// How many single keys are written into one file of 1,000; 10,000 by `TRS8_BTL_WRITES=10000`, which takes
/// minutes.
int WriteCount()
{
    const char* const count = std::getenv("TRS8_BTL_WRITES");
    return count == nullptr ? 1000 : std::atoi(count);
}

template <class Write>
void WriteKeys(benchmark::State& state, Write write)
{
    const CSample sample(10);
    for (auto run : state) {
        write(UnicodeString(sample.Path()), sample.Path().string());
    }
    state.SetItemsProcessed(state.iterations() * WriteCount());
}

void WriteSingly(BTL::AIni& ini)
{
    for (int i = 0; i < WriteCount(); ++i) {
        ini.setSection(u"Section" + UnicodeString(i % 10));
        ini.WriteInt(u"Key" + UnicodeString(i / 10 % KeysPerSection), std::rand());
    }
}

void WriteProfile(benchmark::State& state)
{
    WriteKeys(state, [](const UnicodeString& file, const std::string&) {
        BTL::CWIN_IniFile ini(file);
        WriteSingly(ini);
    });
}
BENCHMARK(WriteProfile)->Name("write_keys/ours")->UseRealTime()->Unit(benchmark::kMillisecond);

void WriteBundled(benchmark::State& state)
{
    WriteKeys(state, [](const UnicodeString& file, const std::string&) {
        BTL::CWIN_IniFile ini(file);
        Host::ProfileBundle bundle(file);
        WriteSingly(ini);
        if (!bundle.End()) {
            std::abort();
        }
    });
}
BENCHMARK(WriteBundled)->Name("write_keys/bundle")->UseRealTime()->Unit(benchmark::kMillisecond);

#ifdef TRS8_BTL_BENCHMARK_QT
void WriteQt(benchmark::State& state)
{
    WriteKeys(state, [](const UnicodeString&, const std::string& path) {
        QSettings ini(QString::fromStdString(path), QSettings::IniFormat);
        for (int i = 0; i < WriteCount(); ++i) {
            ini.setValue(QStringLiteral("Section%1/Key%2").arg(i % 10).arg(i / 10 % KeysPerSection),
                         std::rand());
            ini.sync();
        }
    });
}
BENCHMARK(WriteQt)->Name("write_keys/QSettings")->UseRealTime()->Unit(benchmark::kMillisecond);
#endif

} // namespace
