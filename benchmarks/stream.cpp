// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_CsvReader.h"
#include "streams/BTL_STRM_InStream.h"
#include "streams/BTL_STRM_OutStream.h"
#include "streams/BTL_STRM_StdIOStream.h"
#include "streams/BTL_STRM_StdStreamUtilities.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/BTL_STRM_TextReader.h"
#include "support/BenchmarkFile.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using System::AnsiString;
using System::Int64;
using System::UnicodeString;

constexpr int ValueCount = 1'000'000;

const std::vector<double>& Values()
{
    static const std::vector<double> values = [] {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> measured(-1000, 1000);
        std::vector<double> result(ValueCount);
        // What an instrument gives: a few digits.
        std::generate(result.begin(), result.end(), [&] { return std::round(measured(random) * 1e4) / 1e4; });
        return result;
    }();
    return values;
}

const std::string& ValueText()
{
    static const std::string text = [] {
        std::ostringstream stream;
        stream.precision(15);
        for (const double value : Values()) {
            stream << value << '\n';
        }
        return stream.str();
    }();
    return text;
}

template <class Stream>
void ReadValues(benchmark::State& state, Stream& stream)
{
    double sum = 0;
    for (int i = 0; i < ValueCount; ++i) {
        double value = 0;
        stream >> value;
        sum += value;
    }
    if (!stream.good() && !stream.eof()) {
        state.SkipWithError("not all values were read");
    }
    benchmark::DoNotOptimize(sum);
}

template <class Stream>
void WriteValues(Stream& stream)
{
    for (const double value : Values()) {
        stream << value << '\n';
    }
}

void ReadMemoryOurs(benchmark::State& state)
{
    const AnsiString text{std::string_view(ValueText())};
    for (auto _ : state) {
        BTL::CInStream stream(text);
        ReadValues(state, stream);
    }
}
BENCHMARK(ReadMemoryOurs)->Name("read_double_memory/ours");

void ReadMemoryStd(benchmark::State& state)
{
    for (auto _ : state) {
        std::istringstream stream(ValueText());
        ReadValues(state, stream);
    }
}
BENCHMARK(ReadMemoryStd)->Name("read_double_memory/istringstream");

void ReadFileOurs(benchmark::State& state)
{
    const BenchmarkFile file;
    file.Write(ValueText());
    for (auto _ : state) {
        BTL::CInStream stream(file.Name(), BTL::fomRead, BTL::fsmDenyNone);
        ReadValues(state, stream);
    }
}
BENCHMARK(ReadFileOurs)->Name("read_double_file/ours");

void ReadFileStd(benchmark::State& state)
{
    const BenchmarkFile file;
    file.Write(ValueText());
    for (auto _ : state) {
        std::fstream stream(file.HostName(), std::ios::in | std::ios::binary);
        ReadValues(state, stream);
    }
}
BENCHMARK(ReadFileStd)->Name("read_double_file/fstream");

void WriteMemoryOurs(benchmark::State& state)
{
    for (auto _ : state) {
        BTL::COutStream stream;
        WriteValues(stream);
        benchmark::DoNotOptimize(stream.tellp());
    }
}
BENCHMARK(WriteMemoryOurs)->Name("write_double_memory/ours");

void WriteMemoryStd(benchmark::State& state)
{
    for (auto _ : state) {
        std::ostringstream stream;
        stream.precision(15);
        WriteValues(stream);
        benchmark::DoNotOptimize(stream.tellp());
    }
}
BENCHMARK(WriteMemoryStd)->Name("write_double_memory/ostringstream");

void WriteFileOurs(benchmark::State& state)
{
    const BenchmarkFile file;
    for (auto _ : state) {
        BTL::COutStream stream(file.Name(), BTL::fomCreate, BTL::fsmDenyNone);
        WriteValues(stream);
    }
}
BENCHMARK(WriteFileOurs)->Name("write_double_file/ours");

void WriteFileStd(benchmark::State& state)
{
    const BenchmarkFile file;
    for (auto _ : state) {
        std::fstream stream(file.HostName(), std::ios::out | std::ios::trunc | std::ios::binary);
        stream.precision(15);
        WriteValues(stream);
    }
}
BENCHMARK(WriteFileStd)->Name("write_double_file/fstream");

// Lines and searches over a file of as many megabytes as the argument tells.

std::string Lines(benchmark::State& state)
{
    const auto size = static_cast<std::size_t>(state.range(0)) << 20;
    std::string text;
    text.reserve(size + 100);
    for (int i = 0; text.size() < size; ++i) {
        text += "channel " + std::to_string(i % 997) + "; 12.5; 13.75; measured and stored\r\n";
    }
    return text;
}

/// Runs `read` on a file of lines and checks what it found.
template <class Read>
void OverFile(benchmark::State& state, Read read)
{
    const BenchmarkFile file;
    const std::string content = Lines(state);
    file.Write(content + "the needle");
    const auto expected = read(file);
    if (expected == 0) {
        state.SkipWithError("nothing was read");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(read(file));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<Int64>(content.size()));
}

void ReadStringUntilOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        Classes::TFileStream stream(file.Name(), Classes::fmOpenRead);
        Int64 sum = 0;
        while (!BTL::Eof(&stream)) {
            sum += BTL::ReadStringUntil(&stream, ';').Length();
        }
        return sum;
    });
}

void BridgeUntilOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        BTL::CStdInFileStream stream(file.Name());
        Int64 sum = 0;
        while (stream.good()) {
            sum += BTL::ReadStringUntil(stream, ';').Length();
        }
        return sum;
    });
}

void ReadLineOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        BTL::CFileStream stream(file.Name());
        Int64 sum = 0;
        while (!BTL::Eof(stream.getStream())) {
            sum += stream.ReadLine().Length();
        }
        return sum;
    });
}

void ReadCrLfOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        Classes::TFileStream stream(file.Name(), Classes::fmOpenRead);
        Int64 sum = 0;
        while (!BTL::Eof(&stream)) {
            sum += BTL::ReadLine(&stream).Length();
        }
        return sum;
    });
}

void ReadPiecesStd(benchmark::State& state, char delimiter)
{
    OverFile(state, [delimiter](const BenchmarkFile& file) {
        std::ifstream stream(file.HostName(), std::ios::binary);
        std::size_t sum = 0;
        for (std::string piece; std::getline(stream, piece, delimiter);) {
            sum += piece.size();
        }
        return sum;
    });
}

void GetLineOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        BTL::CStdInFileStream stream(file.Name());
        std::size_t sum = 0;
        for (std::string piece; std::getline(stream, piece);) {
            sum += piece.size();
        }
        return sum;
    });
}

void TextReaderOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        BTL::CTextReader reader(file.Name());
        Int64 sum = 0;
        for (UnicodeString line; reader.ReadLine(line);) {
            sum += line.Length();
        }
        return sum;
    });
}

void CsvReaderOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        BTL::CCsvReader reader(file.Name());
        Int64 sum = 0;
        for (std::vector<UnicodeString> fields; reader.ReadRecord(fields);) {
            sum += fields.back().Length();
        }
        return sum;
    });
}

/// By hand, for fields that are never quoted.
void ReadFieldsStd(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        std::ifstream stream(file.HostName(), std::ios::binary);
        std::size_t sum = 0;
        std::vector<std::string> fields;
        for (std::string line; std::getline(stream, line);) {
            fields.clear();
            std::size_t begin = 0;
            for (std::size_t end = line.find(';'); end != std::string::npos; end = line.find(';', begin)) {
                fields.push_back(line.substr(begin, end - begin));
                begin = end + 1;
            }
            fields.push_back(line.substr(begin));
            sum += fields.back().size();
        }
        return sum;
    });
}

void ReadWholeOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        Classes::TFileStream stream(file.Name(), Classes::fmOpenRead);
        return BTL::ReadStringUntil(&stream, '\0').Length();
    });
}

void ReadWholeStd(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        std::ifstream stream(file.HostName(), std::ios::binary);
        std::string piece;
        std::getline(stream, piece, '\0');
        return piece.size();
    });
}

void SearchOurs(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        Classes::TFileStream stream(file.Name(), Classes::fmOpenRead);
        return BTL::Search("the needle", &stream, 0);
    });
}

void SearchStd(benchmark::State& state)
{
    OverFile(state, [](const BenchmarkFile& file) {
        std::ifstream stream(file.HostName(), std::ios::binary);
        std::string content(std::filesystem::file_size(file.HostName()), '\0');
        stream.read(content.data(), static_cast<std::streamsize>(content.size()));
        const std::string_view needle = "the needle";
        return std::search(content.begin(), content.end(), needle.begin(), needle.end()) - content.begin();
    });
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
}

BENCHMARK(ReadStringUntilOurs)->Name("read_string_until/ours")->Apply(&Sizes);
BENCHMARK_CAPTURE(ReadPiecesStd, semicolon, ';')->Name("read_string_until/getline")->Apply(&Sizes);
BENCHMARK(BridgeUntilOurs)->Name("bridge_until/ours")->Apply(&Sizes);
BENCHMARK_CAPTURE(ReadPiecesStd, bridge, ';')->Name("bridge_until/getline")->Apply(&Sizes);
BENCHMARK(ReadLineOurs)->Name("read_line/ours")->Apply(&Sizes);
BENCHMARK_CAPTURE(ReadPiecesStd, line, '\n')->Name("read_line/getline")->Apply(&Sizes);
BENCHMARK(ReadCrLfOurs)->Name("read_cr_lf/ours")->Apply(&Sizes);
BENCHMARK_CAPTURE(ReadPiecesStd, cr_lf, '\n')->Name("read_cr_lf/getline")->Apply(&Sizes);
BENCHMARK(GetLineOurs)->Name("getline/ours")->Apply(&Sizes);
BENCHMARK_CAPTURE(ReadPiecesStd, getline, '\n')->Name("getline/ifstream")->Apply(&Sizes);
BENCHMARK(TextReaderOurs)->Name("text_reader/ours")->Apply(&Sizes);
BENCHMARK_CAPTURE(ReadPiecesStd, text, '\n')->Name("text_reader/getline")->Apply(&Sizes);
BENCHMARK(CsvReaderOurs)->Name("csv/ours")->Apply(&Sizes);
BENCHMARK(ReadFieldsStd)->Name("csv/find")->Apply(&Sizes);
BENCHMARK(ReadWholeOurs)->Name("read_whole/ours")->Apply(&Sizes);
BENCHMARK(ReadWholeStd)->Name("read_whole/getline")->Apply(&Sizes);
BENCHMARK(SearchOurs)->Name("search/ours")->Apply(&Sizes);
BENCHMARK(SearchStd)->Name("search/std_search")->Apply(&Sizes);

} // namespace
