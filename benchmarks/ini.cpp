// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniFileEx.h"
#include "config/BTL_INI_IniStream.h"
#include "config/BTL_INI_WinIniFile.h"
#include "platform/host/profile/Host_Profile.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
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
    explicit CSample(int sections) : mPath(std::filesystem::temp_directory_path() / Name(sections))
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

private:
    static std::string Name(int sections)
    {
        return "trs8_btl_bench_" + std::to_string(getpid()) + '_' + std::to_string(sections) + ".ini";
    }

    std::filesystem::path mPath;
};

template <class Text>
std::vector<Text> Names(const char* prefix, int count)
{
    std::vector<Text> names;
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
void Load(benchmark::State& state, int sections)
{
    const CSample sample(sections);
    const auto sectionNames = Names<UnicodeString>("Section", sections);
    const auto keys = Names<UnicodeString>("Key", KeysPerSection);
    const UnicodeString file(sample.Path());
    for (auto run : state) {
        Ini ini(file);
        benchmark::DoNotOptimize(SumOf(ini, sectionNames, keys));
    }
    state.SetItemsProcessed(state.iterations() * sections * KeysPerSection);
}

void LoadMemory(benchmark::State& state)
{
    Load<BTL::CMemIniFile>(state, SectionCount);
}
BENCHMARK(LoadMemory)->Name("load_ini/ours")->Unit(benchmark::kMillisecond);

void LoadProfile(benchmark::State& state)
{
    Load<BTL::CWIN_IniFile>(state, SectionCount);
}
BENCHMARK(LoadProfile)->Name("load_profile/ours")->Unit(benchmark::kMillisecond);

class CStreamOfFile : public BTL::CIniStreamEx
{
public:
    explicit CStreamOfFile(const UnicodeString& file) : CIniStreamEx(file, Classes::fmOpenRead, true) {}
};

void LoadStream(benchmark::State& state)
{
    Load<CStreamOfFile>(state, SectionCount);
}
BENCHMARK(LoadStream)->Name("load_stream/ours")->Unit(benchmark::kMillisecond);

/// A tenth ten times, for the growth.
void LoadTenth(benchmark::State& state)
{
    const CSample sample(SectionCount / 10);
    const auto sections = Names<UnicodeString>("Section", SectionCount / 10);
    const auto keys = Names<UnicodeString>("Key", KeysPerSection);
    const UnicodeString file(sample.Path());
    for (auto run : state) {
        for (int i = 0; i < 10; ++i) {
            BTL::CMemIniFile ini(file);
            benchmark::DoNotOptimize(SumOf(ini, sections, keys));
        }
    }
}
BENCHMARK(LoadTenth)->Name("load_ini/tenth")->Unit(benchmark::kMillisecond);

#ifdef TRS8_BTL_BENCHMARK_QT
void LoadQt(benchmark::State& state)
{
    const CSample sample(SectionCount);
    const auto sections = Names<QString>("Section", SectionCount);
    const auto keys = Names<QString>("Key", KeysPerSection);
    const QString file = QString::fromStdString(sample.Path().string());
    for (auto run : state) {
        // The class keeps parsed files; a changed time has it read anew.
        std::filesystem::last_write_time(sample.Path(), std::filesystem::file_time_type::clock::now());
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

/// 1,000 writes of single keys into one file of as many.
template <class Write>
void WriteKeys(benchmark::State& state, Write write)
{
    const CSample sample(10);
    for (auto run : state) {
        write(UnicodeString(sample.Path()), sample.Path().string());
    }
    state.SetItemsProcessed(state.iterations() * 1000);
}

void WriteSingly(BTL::AIni& ini)
{
    for (int i = 0; i < 1000; ++i) {
        ini.setSection(u"Section" + UnicodeString(i % 10));
        ini.WriteInt(u"Key" + UnicodeString(i / 10), std::rand());
    }
}

void WriteProfile(benchmark::State& state)
{
    WriteKeys(state, [](const UnicodeString& file, const std::string&) {
        BTL::CWIN_IniFile ini(file);
        WriteSingly(ini);
    });
}
BENCHMARK(WriteProfile)->Name("write_keys/ours")->Unit(benchmark::kMillisecond);

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
BENCHMARK(WriteBundled)->Name("write_keys/bundle")->Unit(benchmark::kMillisecond);

#ifdef TRS8_BTL_BENCHMARK_QT
void WriteQt(benchmark::State& state)
{
    WriteKeys(state, [](const UnicodeString&, const std::string& path) {
        QSettings ini(QString::fromStdString(path), QSettings::IniFormat);
        for (int i = 0; i < 1000; ++i) {
            ini.setValue(QStringLiteral("Section%1/Key%2").arg(i % 10).arg(i / 10), std::rand());
            ini.sync();
        }
    });
}
BENCHMARK(WriteQt)->Name("write_keys/QSettings")->Unit(benchmark::kMillisecond);
#endif

} // namespace
