// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormText.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace
{

using namespace Classes;

/// A form of `count` buttons, as designs are.
std::string FormText(int count)
{
    std::string text = "object Main: TSheet\n  Caption = 'Measuring'\n";
    for (int i = 0; i < count; ++i) {
        text += "  object Button" + std::to_string(i) + ": TButton\n    Left = " + std::to_string(i) +
                "\n    Top = 1000\n    Width = 75\n    Caption = 'Start of the measurement'\n    Hint = "
                "'It''s 5 \xC2\xB5m'\n"
                "    Kind = bkRound\n    Anchors = [akLeft, akTop]\n    Ratio = 0.25\n  end\n";
    }
    return text + "end\n";
}

TMemoryStream& Filled(TMemoryStream& stream, std::string_view bytes)
{
    stream.WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
    stream.setPosition(0);
    return stream;
}

template <class Convert>
std::string Converted(std::string_view bytes, Convert convert)
{
    TMemoryStream input;
    TMemoryStream output;
    convert(&Filled(input, bytes), &output);
    return std::string(output.AsView());
}

/// Converts once for each turn; bytes per second are those of the text.
template <class Convert>
void Run(benchmark::State& state, const std::string& input, std::size_t textSize, Convert convert)
{
    for (auto _ : state) {
        TMemoryStream source;
        TMemoryStream target;
        convert(&Filled(source, input), &target);
        benchmark::DoNotOptimize(target.AsView().data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(textSize));
}

void ToBinary(benchmark::State& state)
{
    const std::string text = FormText(static_cast<int>(state.range()));
    Run(state, text, text.size(), ObjectTextToBinary);
}
BENCHMARK(ToBinary)->Name("form_to_binary/ours")->Arg(5'000)->Arg(50'000)->Unit(benchmark::kMillisecond);

void ToText(benchmark::State& state)
{
    const std::string text = FormText(static_cast<int>(state.range()));
    Run(state, Converted(text, ObjectTextToBinary), text.size(), ObjectBinaryToText);
}
BENCHMARK(ToText)->Name("form_to_text/ours")->Arg(5'000)->Arg(50'000)->Unit(benchmark::kMillisecond);

/// The time of 50 MB a second, in which the conversion is to be done.
void Bound(benchmark::State& state)
{
    const auto size = static_cast<double>(FormText(static_cast<int>(state.range())).size());
    for (auto _ : state) {
        state.SetIterationTime(size / 50e6);
    }
}
BENCHMARK(Bound)->Name("form_to_binary/50_mb_a_second")->Arg(5'000)->Arg(50'000)->UseManualTime();
BENCHMARK(Bound)->Name("form_to_text/50_mb_a_second")->Arg(5'000)->Arg(50'000)->UseManualTime();

} // namespace
