// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/editing/BTL_STR_Split.h"
#include "text/grammar/BTL_STR_Delimited.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <charconv>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#ifdef TRS8_BTL_BENCHMARK_QT
#include <QString>
#include <QStringList>
#endif

namespace
{

using Classes::TStringList;
using System::UnicodeString;

constexpr int Megabyte = 1024 * 1024;

/// Each case runs on 1 MB and on 10 MB: ten times the text must not take much more than ten times as long.
void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(Megabyte)->Arg(10 * Megabyte)->Unit(benchmark::kMillisecond);
}

/// Text of the bytes that the case asks for, made of pieces.
UnicodeString Repeated(const benchmark::State& state, std::u16string_view piece)
{
    std::u16string result;
    while (result.size() * 2 < static_cast<std::size_t>(state.range(0))) {
        result += piece;
    }
    return UnicodeString(std::u16string_view(result));
}

void Report(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

// Replacing.

constexpr std::u16string_view Sentence = u"The %unit of the %channel stands here; ";
constexpr const char16_t* OldText = u"%channel";
constexpr const char16_t* NewText = u"temperature";

std::u16string PlainReplace(std::u16string_view text, std::u16string_view from, std::u16string_view to)
{
    std::u16string result;
    std::size_t start = 0;
    for (auto at = text.find(from); at != std::u16string_view::npos; at = text.find(from, start)) {
        result += text.substr(start, at - start);
        result += to;
        start = at + from.size();
    }
    return result += text.substr(start);
}

void ExchangeAllOurs(benchmark::State& state)
{
    const UnicodeString text = Repeated(state, Sentence);
    for (auto _ : state) {
        benchmark::DoNotOptimize(BTL::ExchangeAll(text, UnicodeString(OldText), UnicodeString(NewText)));
    }
    Report(state);
}
BENCHMARK(ExchangeAllOurs)->Name("exchange_all/ours")->Apply(Sizes);

void StringReplaceOurs(benchmark::State& state)
{
    const UnicodeString text = Repeated(state, Sentence);
    const auto flags = Sysutils::TReplaceFlags() << Sysutils::rfReplaceAll;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Sysutils::StringReplace(text, UnicodeString(OldText), NewText, flags));
    }
    Report(state);
}
BENCHMARK(StringReplaceOurs)->Name("string_replace/ours")->Apply(Sizes);

void ReplacePlain(benchmark::State& state)
{
    const UnicodeString text = Repeated(state, Sentence);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainReplace(text.AsView(), OldText, NewText));
    }
    Report(state);
}
BENCHMARK(ReplacePlain)->Name("exchange_all/std_u16string")->Apply(Sizes);
BENCHMARK(ReplacePlain)->Name("string_replace/std_u16string")->Apply(Sizes);

// Lists as one text.

constexpr std::u16string_view Items = u"channel_1;\"a name; with \"\"quotes\"\"\";channel_2;42;";

/// What one would write for this text alone: quotes, doubled quotes and delimiters, and nothing else.
std::vector<std::u16string> PlainSplit(std::u16string_view text, char16_t delim)
{
    std::vector<std::u16string> items(1);
    bool inQuotes = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'"') {
            if (inQuotes && i + 1 < text.size() && text[i + 1] == u'"') {
                items.back() += text[i++];
            } else {
                inQuotes = !inQuotes;
            }
        } else if (text[i] == delim && !inQuotes) {
            items.emplace_back();
        } else {
            items.back() += text[i];
        }
    }
    return items;
}

std::u16string PlainJoin(const std::vector<std::u16string>& items, char16_t delim)
{
    std::u16string result;
    for (const std::u16string& item : items) {
        if (!result.empty()) {
            result += delim;
        }
        if (item.find_first_of(std::u16string{delim, u'"'}) == std::u16string::npos) {
            result += item;
            continue;
        }
        result += u'"';
        for (const char16_t c : item) {
            if (c == u'"') {
                result += c;
            }
            result += c;
        }
        result += u'"';
    }
    return result;
}

/// The same items with commas between.
UnicodeString CommaItems(const benchmark::State& state)
{
    return BTL::CharReplace(Repeated(state, Items), u';', u',');
}

void ReadCommaOurs(benchmark::State& state)
{
    const UnicodeString text = CommaItems(state);
    for (auto _ : state) {
        TStringList list;
        list.setCommaText(text);
        benchmark::DoNotOptimize(list.getCount());
    }
    Report(state);
}
BENCHMARK(ReadCommaOurs)->Name("read_comma_text/ours")->Apply(Sizes);

void WriteCommaOurs(benchmark::State& state)
{
    TStringList list;
    list.setCommaText(CommaItems(state));
    for (auto _ : state) {
        benchmark::DoNotOptimize(list.getCommaText());
    }
    Report(state);
}
BENCHMARK(WriteCommaOurs)->Name("write_comma_text/ours")->Apply(Sizes);

void ReadDelimitedOurs(benchmark::State& state)
{
    const UnicodeString text = Repeated(state, Items);
    for (auto _ : state) {
        TStringList list;
        BTL::SetDelimitedTextEx(&list, text, u';', u'"');
        benchmark::DoNotOptimize(list.getCount());
    }
    Report(state);
}
BENCHMARK(ReadDelimitedOurs)->Name("read_delimited_text/ours")->Apply(Sizes);

void WriteDelimitedOurs(benchmark::State& state)
{
    TStringList list;
    BTL::SetDelimitedTextEx(&list, Repeated(state, Items), u';', u'"');
    for (auto _ : state) {
        benchmark::DoNotOptimize(BTL::GetDelimitedTextEx(&list, u';', u'"'));
    }
    Report(state);
}
BENCHMARK(WriteDelimitedOurs)->Name("write_delimited_text/ours")->Apply(Sizes);

void ReadPlain(benchmark::State& state)
{
    const UnicodeString text = Repeated(state, Items);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainSplit(text.AsView(), u';'));
    }
    Report(state);
}
BENCHMARK(ReadPlain)->Name("read_comma_text/plain_loop")->Apply(Sizes);
BENCHMARK(ReadPlain)->Name("read_delimited_text/plain_loop")->Apply(Sizes);

void WritePlain(benchmark::State& state)
{
    const auto items = PlainSplit(Repeated(state, Items).AsView(), u';');
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlainJoin(items, u';'));
    }
    Report(state);
}
BENCHMARK(WritePlain)->Name("write_comma_text/plain_loop")->Apply(Sizes);
BENCHMARK(WritePlain)->Name("write_delimited_text/plain_loop")->Apply(Sizes);

// Splitting one long line.

constexpr std::u16string_view Fields = u"4711;channel;12,5;;V;2026-02-01 10:00:00;";

/// What each field gives to do.
std::size_t LengthsPlain(std::u16string_view text, char16_t delim)
{
    std::size_t sum = 0;
    std::size_t start = 0;
    for (auto at = text.find(delim); at != text.npos; at = text.find(delim, start)) {
        sum += text.substr(start, at - start).size();
        start = at + 1;
    }
    return sum + text.substr(start).size();
}

std::vector<std::u16string> FieldsPlain(std::u16string_view text, char16_t delim)
{
    std::vector<std::u16string> fields;
    std::size_t start = 0;
    for (auto at = text.find(delim); at != text.npos; at = text.find(delim, start)) {
        fields.emplace_back(text.substr(start, at - start));
        start = at + 1;
    }
    fields.emplace_back(text.substr(start));
    return fields;
}

/// A line of 600 KB and one of ten times that.
void LineSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(600 * 1024)->Arg(6000 * 1024)->Unit(benchmark::kMillisecond);
}

void SplitOurs(benchmark::State& state)
{
    const UnicodeString text = Repeated(state, Fields);
    for (auto _ : state) {
        std::size_t sum = 0;
        for (const std::u16string_view field : BTL::Split(text, u';')) {
            sum += field.size();
        }
        benchmark::DoNotOptimize(sum);
    }
    Report(state);
}
BENCHMARK(SplitOurs)->Name("split_view/ours")->Apply(LineSizes);

void SplitPlain(benchmark::State& state)
{
    const UnicodeString text = Repeated(state, Fields);
    for (auto _ : state) {
        benchmark::DoNotOptimize(LengthsPlain(text.AsView(), u';'));
    }
    Report(state);
}
BENCHMARK(SplitPlain)->Name("split_view/plain_loop")->Apply(LineSizes);

/// Else most of what is measured is how the memory of the fields goes back to the host and comes again.
void KeepFreedMemory()
{
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
}

void SplitToVectorOurs(benchmark::State& state)
{
    KeepFreedMemory();
    const UnicodeString text = Repeated(state, Fields);
    for (auto _ : state) {
        benchmark::DoNotOptimize(BTL::SplitToVector(text, u';'));
    }
    Report(state);
}
BENCHMARK(SplitToVectorOurs)->Name("split_to_vector/ours")->Apply(LineSizes);

void SplitToVectorPlain(benchmark::State& state)
{
    KeepFreedMemory();
    const UnicodeString text = Repeated(state, Fields);
    for (auto _ : state) {
        benchmark::DoNotOptimize(FieldsPlain(text.AsView(), u';'));
    }
    Report(state);
}
BENCHMARK(SplitToVectorPlain)->Name("split_to_vector/plain_loop")->Apply(LineSizes);

// Fields of a line taken one by one from the left.

void FieldCounts(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(8)->Arg(1000)->Arg(10000);
}

std::u16string LineOfFields(const benchmark::State& state)
{
    std::u16string line;
    for (int i = 0; i < state.range(0); ++i) {
        line += u"12.345;";
    }
    return line;
}

void ConsumeOurs(benchmark::State& state)
{
    const UnicodeString line{std::u16string_view(LineOfFields(state))};
    for (auto _ : state) {
        int sum = 0;
        for (UnicodeString rest = line; !rest.IsEmpty();) {
            sum += BTL::ConsumeLeftSubString(rest, u';', true).Length();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(ConsumeOurs)->Name("fields_from_left/ours")->Apply(FieldCounts);

#ifdef TRS8_BTL_BENCHMARK_QT

void ConsumeQt(benchmark::State& state)
{
    const QString line = QString::fromStdU16String(LineOfFields(state));
    for (auto _ : state) {
        qsizetype sum = 0;
        for (const QString& field : line.split(u';')) {
            sum += field.size();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(ConsumeQt)->Name("fields_from_left/qstring_split")->Apply(FieldCounts);

#endif

// Numbers.

const std::vector<double>& SampleValues()
{
    static const std::vector<double> values = [] {
        std::mt19937 random(4711);
        std::uniform_real_distribution<double> wide(-1000, 1000);
        std::vector<double> result(10000);
        for (std::size_t i = 0; i < result.size(); ++i) {
            result[i] = i % 2 == 0 ? static_cast<double>(i) / 8 : wide(random);
        }
        return result;
    }();
    return values;
}

/// Writes each of the values by itself.
template <class Write>
void WriteValues(benchmark::State& state, Write write)
{
    for (auto _ : state) {
        for (const double value : SampleValues()) {
            benchmark::DoNotOptimize(write(value));
        }
    }
}

void FloatToStrOurs(benchmark::State& state)
{
    WriteValues(state, [](double value) { return Sysutils::FloatToStr(value); });
}
BENCHMARK(FloatToStrOurs)->Name("float_to_str/ours");

void FloatToStrChars(benchmark::State& state)
{
    WriteValues(state, [](double value) {
        char buffer[40];
        const char* const end =
            std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15).ptr;
        return std::string(static_cast<const char*>(buffer), end);
    });
}
BENCHMARK(FloatToStrChars)->Name("float_to_str/to_chars");

void FloatToStrStream(benchmark::State& state)
{
    WriteValues(state, [](double value) {
        std::ostringstream out;
        out.precision(15);
        out << value;
        return out.str();
    });
}
BENCHMARK(FloatToStrStream)->Name("float_to_str/ostringstream");

/// Reads the texts of the values.
template <class Text, class Read>
void ReadValues(benchmark::State& state, Read read)
{
    std::vector<Text> texts;
    for (const double value : SampleValues()) {
        texts.emplace_back(Sysutils::FloatToStr(value));
    }
    for (auto _ : state) {
        for (const Text& text : texts) {
            benchmark::DoNotOptimize(read(text));
        }
    }
}

void StrToFloatOurs(benchmark::State& state)
{
    ReadValues<UnicodeString>(state, [](const UnicodeString& text) { return Sysutils::StrToFloat(text); });
}
BENCHMARK(StrToFloatOurs)->Name("str_to_float/ours");

void StrToFloatChars(benchmark::State& state)
{
    ReadValues<System::AnsiString>(state, [](const System::AnsiString& text) {
        double value = 0;
        std::from_chars(text.c_str(), text.c_str() + text.Length(), value);
        return value;
    });
}
BENCHMARK(StrToFloatChars)->Name("str_to_float/from_chars");

void StrToFloatStream(benchmark::State& state)
{
    ReadValues<System::AnsiString>(state, [](const System::AnsiString& text) {
        std::istringstream in(text.c_str());
        double value = 0;
        in >> value;
        return value;
    });
}
BENCHMARK(StrToFloatStream)->Name("str_to_float/istringstream");

} // namespace
