// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniStream.h"
#include "config/BTL_INI_JsonIni.h"
#include "platform/host/Host_Path.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <json/reader.h>
#include <json/value.h>
#include <json/writer.h>
#include <unistd.h>

#ifdef TRS8_BTL_BENCHMARK_QT
#include <QtCore/QSettings>
#endif
#ifdef TRS8_BTL_BENCHMARK_GLIB
#include <glib.h>
#endif
#ifdef TRS8_BTL_BENCHMARK_SIMPLEINI
#include <SimpleIni.h>
#endif

namespace
{

using System::AnsiString;
using System::UnicodeString;

constexpr int KeysPerSection = 100;

/// The kinds of values, in turns.
enum class EKind
{
    Int,
    Float,
    Bool,
    Text
};

constexpr EKind KindOf(int key)
{
    return static_cast<EKind>(key % 4);
}

struct TSample
{
    std::string name;
    std::vector<std::pair<std::string, std::string>> entries;
};

/// Sections as programs have them: keys by name, in no order of their characters.
std::vector<TSample> MakeSamples(int sections)
{
    std::vector<TSample> samples;
    for (int i = 0; i < sections; ++i) {
        TSample sample{"Channel" + std::to_string(i), {}};
        for (int k = 0; k < KeysPerSection; ++k) {
            const std::string key = "Setting" + std::to_string((k * 37) % KeysPerSection);
            const std::string number = std::to_string(i * KeysPerSection + k);
            const std::string values[] = {number, number + ".25", std::to_string(i % 2), "text of " + number};
            sample.entries.emplace_back(key, values[k % 4]);
        }
        samples.push_back(std::move(sample));
    }
    return samples;
}

const std::vector<TSample>& Samples()
{
    static const std::vector<TSample> samples = MakeSamples(1000);
    return samples;
}

std::string IniText(const std::vector<TSample>& samples, std::string_view lineEnd)
{
    std::string text;
    for (const TSample& sample : samples) {
        text.append("[").append(sample.name).append("]").append(lineEnd);
        for (const auto& [key, value] : sample.entries) {
            text.append(key).append("=").append(value).append(lineEnd);
        }
        text.append(lineEnd);
    }
    return text;
}

const std::string& IniText()
{
    static const std::string text = IniText(Samples(), "\r\n");
    return text;
}

/// The same values in their types.
Json::Value JsonOf(const std::vector<TSample>& samples)
{
    Json::Value root;
    for (const TSample& sample : samples) {
        Json::Value& section = root["bench"][sample.name];
        for (int k = 0; k < KeysPerSection; ++k) {
            const auto& [key, value] = sample.entries[static_cast<std::size_t>(k)];
            switch (KindOf(k)) {
            case EKind::Int:
                section[key] = std::atoi(value.c_str());
                break;
            case EKind::Float:
                section[key] = std::atof(value.c_str());
                break;
            case EKind::Bool:
                section[key] = value == "1";
                break;
            case EKind::Text:
                section[key] = value;
                break;
            }
        }
    }
    return root;
}

std::string JsonText(const Json::Value& root)
{
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "\t";
    return Json::writeString(builder, root);
}

/// A file that goes with the program.
class BenchmarkFile
{
public:
    explicit BenchmarkFile(const std::string& content)
        : mPath(std::filesystem::temp_directory_path() / ("bench_config_" + std::to_string(getpid())))
    {
        std::ofstream(mPath, std::ios::binary) << content;
    }
    BenchmarkFile(const BenchmarkFile&) = delete;
    BenchmarkFile& operator=(const BenchmarkFile&) = delete;
    ~BenchmarkFile()
    {
        std::error_code ignored;
        std::filesystem::remove(mPath, ignored);
    }

    std::string HostName() const { return mPath.string(); }
    UnicodeString Name() const { return Sysutils::FromHostPath(mPath.string()); }

private:
    std::filesystem::path mPath;
};

/// Names as a program of ours has them.
struct TWideSample
{
    UnicodeString name;
    std::vector<UnicodeString> keys;
};

const std::vector<TWideSample>& WideSamples()
{
    static const std::vector<TWideSample> samples = [] {
        std::vector<TWideSample> result;
        for (const TSample& sample : Samples()) {
            TWideSample wide{UnicodeString(sample.name.c_str()), {}};
            for (const auto& [key, value] : sample.entries) {
                wide.keys.emplace_back(key.c_str());
            }
            result.push_back(std::move(wide));
        }
        return result;
    }();
    return samples;
}

/// What was read, so that all do the same work.
struct TSum
{
    double numbers = 0;
    std::size_t characters = 0;

    void Check(benchmark::State& state) const
    {
        if (numbers < 1 || characters < 1) {
            state.SkipWithError("the values were not read");
        }
    }
};

/// Reads every key in its type through the interface of all stores.
TSum ReadAll(BTL::AIni& ini)
{
    TSum sum;
    for (const TWideSample& sample : WideSamples()) {
        ini.setSection(sample.name);
        for (int k = 0; k < KeysPerSection; ++k) {
            const UnicodeString& key = sample.keys[static_cast<std::size_t>(k)];
            switch (KindOf(k)) {
            case EKind::Int:
                sum.numbers += ini.ReadInt(key, 0);
                break;
            case EKind::Float:
                sum.numbers += ini.ReadFloat(key, 0);
                break;
            case EKind::Bool:
                sum.numbers += ini.ReadBool(key, false) ? 1 : 0;
                break;
            case EKind::Text:
                sum.characters += ini.ReadString(key, UnicodeString()).size();
                break;
            }
        }
    }
    return sum;
}

/// Reads every key by `readInt` to `readText`, which get a section and a key.
template <class ReadInt, class ReadFloat, class ReadBool, class ReadText>
TSum ReadAll(ReadInt readInt, ReadFloat readFloat, ReadBool readBool, ReadText readText)
{
    TSum sum;
    for (const TSample& sample : Samples()) {
        const char* section = sample.name.c_str();
        for (int k = 0; k < KeysPerSection; ++k) {
            const char* key = sample.entries[static_cast<std::size_t>(k)].first.c_str();
            switch (KindOf(k)) {
            case EKind::Int:
                sum.numbers += static_cast<double>(readInt(section, key));
                break;
            case EKind::Float:
                sum.numbers += readFloat(section, key);
                break;
            case EKind::Bool:
                sum.numbers += readBool(section, key) ? 1 : 0;
                break;
            case EKind::Text:
                sum.characters += readText(section, key);
                break;
            }
        }
    }
    return sum;
}

// Loading 100,000 keys in 1,000 sections and reading each: the stream store.

void LoadAndReadStream(benchmark::State& state)
{
    const BenchmarkFile file(IniText());
    for (auto _ : state) {
        BTL::CIniStreamEx ini(file.Name(), Classes::fmOpenRead, true);
        ReadAll(ini).Check(state);
    }
}
BENCHMARK(LoadAndReadStream)->Name("stream_load_and_read/ours")->Unit(benchmark::kMillisecond);

#ifdef TRS8_BTL_BENCHMARK_QT
void LoadAndReadQt(benchmark::State& state)
{
    const BenchmarkFile file(IniText());
    const auto path = [](const char* section, const char* key) {
        return QString::fromLatin1(section) + QLatin1Char('/') + QString::fromLatin1(key);
    };
    for (auto _ : state) {
        const QSettings ini(QString::fromStdString(file.HostName()), QSettings::IniFormat);
        ReadAll([&](auto section, auto key) { return ini.value(path(section, key)).toInt(); },
                [&](auto section, auto key) { return ini.value(path(section, key)).toDouble(); },
                [&](auto section, auto key) { return ini.value(path(section, key)).toBool(); },
                [&](auto section, auto key) {
                    return static_cast<std::size_t>(ini.value(path(section, key)).toString().size());
                })
            .Check(state);
    }
}
BENCHMARK(LoadAndReadQt)->Name("stream_load_and_read/qsettings")->Unit(benchmark::kMillisecond);
#endif

#ifdef TRS8_BTL_BENCHMARK_GLIB
void LoadAndReadGlib(benchmark::State& state)
{
    // It takes the CR for a part of the value.
    const BenchmarkFile file(IniText(Samples(), "\n"));
    for (auto _ : state) {
        GKeyFile* ini = g_key_file_new();
        g_key_file_load_from_file(ini, file.HostName().c_str(), G_KEY_FILE_NONE, nullptr);
        ReadAll([&](auto section, auto key) { return g_key_file_get_integer(ini, section, key, nullptr); },
                [&](auto section, auto key) { return g_key_file_get_double(ini, section, key, nullptr); },
                [&](auto section, auto key) { return g_key_file_get_boolean(ini, section, key, nullptr); },
                [&](auto section, auto key) {
                    gchar* text = g_key_file_get_string(ini, section, key, nullptr);
                    const std::size_t length = text == nullptr ? 0 : std::string_view(text).size();
                    g_free(text);
                    return length;
                })
            .Check(state);
        g_key_file_free(ini);
    }
}
BENCHMARK(LoadAndReadGlib)->Name("stream_load_and_read/gkeyfile")->Unit(benchmark::kMillisecond);
#endif

#ifdef TRS8_BTL_BENCHMARK_SIMPLEINI
void LoadAndReadSimpleIni(benchmark::State& state)
{
    const BenchmarkFile file(IniText());
    for (auto _ : state) {
        CSimpleIniA ini;
        ini.LoadFile(file.HostName().c_str());
        ReadAll([&](auto section, auto key) { return ini.GetLongValue(section, key); },
                [&](auto section, auto key) { return ini.GetDoubleValue(section, key); },
                [&](auto section, auto key) { return ini.GetBoolValue(section, key); },
                [&](auto section, auto key) { return std::string(ini.GetValue(section, key, "")).size(); })
            .Check(state);
    }
}
BENCHMARK(LoadAndReadSimpleIni)->Name("stream_load_and_read/simpleini")->Unit(benchmark::kMillisecond);
#endif

// The same values in one JSON document.

const std::string& JsonText()
{
    static const std::string text = JsonText(JsonOf(Samples()));
    return text;
}

void LoadAndReadJson(benchmark::State& state)
{
    const BenchmarkFile file(JsonText());
    for (auto _ : state) {
        BTL::CJsonIni ini(file.Name(), u"bench.ini");
        ini.Load();
        ReadAll(ini).Check(state);
    }
}
BENCHMARK(LoadAndReadJson)->Name("json_load_and_read/ours")->Unit(benchmark::kMillisecond);

void LoadAndReadPlainJson(benchmark::State& state)
{
    const BenchmarkFile file(JsonText());
    for (auto _ : state) {
        std::ifstream stream(file.HostName(), std::ios::binary);
        Json::CharReaderBuilder builder;
        builder["collectComments"] = false;
        Json::Value root;
        if (!Json::parseFromStream(builder, stream, &root, nullptr)) {
            state.SkipWithError("the document was not read");
        }
        const Json::Value& ini = root["bench"];
        ReadAll([&](auto section, auto key) { return ini[section][key].asInt(); },
                [&](auto section, auto key) { return ini[section][key].asDouble(); },
                [&](auto section, auto key) { return ini[section][key].asBool(); },
                [&](auto section, auto key) { return ini[section][key].asString().size(); })
            .Check(state);
    }
}
BENCHMARK(LoadAndReadPlainJson)->Name("json_load_and_read/jsoncpp")->Unit(benchmark::kMillisecond);

// Saving them.

void SaveStream(benchmark::State& state)
{
    BTL::CIniStringStream ini{AnsiString(std::string_view(IniText()))};
    Classes::TMemoryStream stream;
    for (auto _ : state) {
        ini.SaveToStream(&stream);
    }
}
BENCHMARK(SaveStream)->Name("stream_save/ours")->Unit(benchmark::kMillisecond);

#ifdef TRS8_BTL_BENCHMARK_SIMPLEINI
void SaveSimpleIni(benchmark::State& state)
{
    CSimpleIniA ini;
    ini.LoadData(IniText());
    for (auto _ : state) {
        std::string text;
        ini.Save(text);
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(SaveSimpleIni)->Name("stream_save/simpleini")->Unit(benchmark::kMillisecond);
#endif

void SaveJson(benchmark::State& state)
{
    const BenchmarkFile file(JsonText());
    BTL::CJsonIni ini(file.Name(), u"bench.ini");
    ini.Load();
    for (auto _ : state) {
        ini.Save();
    }
}
BENCHMARK(SaveJson)->Name("json_save/ours")->Unit(benchmark::kMillisecond);

/// Without the promise that the file is whole and on the disk.
void SavePlainJson(benchmark::State& state)
{
    const BenchmarkFile file(JsonText());
    const Json::Value root = JsonOf(Samples());
    for (auto _ : state) {
        Json::StreamWriterBuilder builder;
        builder["commentStyle"] = "None";
        builder["indentation"] = "\t";
        std::ofstream(file.HostName(), std::ios::binary) << Json::writeString(builder, root) << '\n';
    }
}
BENCHMARK(SavePlainJson)->Name("json_save/jsoncpp")->Unit(benchmark::kMillisecond);

} // namespace
