// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniStream.h"
#include "config/BTL_INI_JsonIni.h"
#include "support/BenchmarkFile.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <json/reader.h>
#include <json/value.h>
#include <json/writer.h>

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

// The stream store, and a tenth of it ten times, for the growth.

AnsiString IniText(std::size_t sections)
{
    BTL::CIniStream ini;
    for (const TSample& sample : std::span(Samples()).first(sections)) {
        ini.setSection(UnicodeString(sample.name.c_str()));
        for (const auto& [key, value] : sample.entries) {
            ini.WriteString(key.c_str(), value.c_str());
        }
    }
    Classes::TMemoryStream stream;
    ini.SaveToStream(&stream);
    return AnsiString(stream.AsView());
}

void LoadStream(benchmark::State& state, int parts)
{
    const AnsiString text = IniText(Samples().size() / static_cast<std::size_t>(parts));
    for (auto _ : state) {
        for (int i = 0; i < parts; ++i) {
            const BTL::CIniStringStream ini(text);
            benchmark::DoNotOptimize(ini.GetItemCount());
        }
    }
}
BENCHMARK_CAPTURE(LoadStream, ours, 1)->Name("stream_load/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadStream, tenth, 10)->Name("stream_load/tenth")->Unit(benchmark::kMillisecond);

void SaveStream(benchmark::State& state, int parts)
{
    BTL::CIniStringStream ini(IniText(Samples().size() / static_cast<std::size_t>(parts)));
    Classes::TMemoryStream stream;
    for (auto _ : state) {
        for (int i = 0; i < parts; ++i) {
            ini.SaveToStream(&stream);
        }
    }
}
BENCHMARK_CAPTURE(SaveStream, ours, 1)->Name("stream_save/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SaveStream, tenth, 10)->Name("stream_save/tenth")->Unit(benchmark::kMillisecond);

} // namespace
