// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormText.h"

#include <benchmark/benchmark.h>
#include <json/json.h>

#include <cstdint>
#include <memory>
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

// What a user would keep a design in otherwise.

Json::Value FormJson(int count)
{
    Json::Value form;
    form["class"] = "TSheet";
    form["Caption"] = "Measuring";
    for (int i = 0; i < count; ++i) {
        Json::Value button;
        button["name"] = "Button" + std::to_string(i);
        button["class"] = "TButton";
        button["Left"] = i;
        button["Top"] = 1000;
        button["Width"] = 75;
        button["Caption"] = "Start of the measurement";
        button["Hint"] = "It's 5 \xC2\xB5m";
        button["Kind"] = "bkRound";
        button["Anchors"].append("akLeft");
        button["Anchors"].append("akTop");
        button["Ratio"] = 0.25;
        form["children"].append(std::move(button));
    }
    return form;
}

void ParseJson(benchmark::State& state)
{
    const std::string text =
        Json::writeString(Json::StreamWriterBuilder(), FormJson(static_cast<int>(state.range())));
    const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
    for (auto _ : state) {
        Json::Value form;
        reader->parse(text.data(), text.data() + text.size(), &form, nullptr);
        benchmark::DoNotOptimize(form.size());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ParseJson)->Name("form_to_binary/jsoncpp")->Arg(5'000)->Arg(50'000)->Unit(benchmark::kMillisecond);

void WriteJson(benchmark::State& state)
{
    const Json::Value form = FormJson(static_cast<int>(state.range()));
    std::size_t size = 0;
    for (auto _ : state) {
        const std::string text = Json::writeString(Json::StreamWriterBuilder(), form);
        size += text.size();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(size));
}
BENCHMARK(WriteJson)->Name("form_to_text/jsoncpp")->Arg(5'000)->Arg(50'000)->Unit(benchmark::kMillisecond);

} // namespace
