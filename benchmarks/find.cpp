// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils.h"
#include "text/editing/BTL_STR_Search.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

#ifdef TRS8_BTL_BENCHMARK_QT
#include <QByteArray>
#include <QString>
#endif

namespace
{

using System::AnsiString;
using System::UnicodeString;

// A short text in a long one: words, and the one that is sought at the end.

constexpr int Length = 64 * 1024;
constexpr std::u16string_view Sought = u"overload";

const std::u16string& LongText()
{
    static const std::u16string text = [] {
        std::u16string result;
        while (result.size() < Length) {
            result += u"channel left, over the limit; overlong values of load cells. ";
        }
        return result += Sought;
    }();
    return text;
}

std::u16string InUpperCase(std::u16string_view text)
{
    return std::u16string(UnicodeString(text).UpperCase().AsView());
}

void SetBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * Length);
}

template <class Find>
void FindOurs(benchmark::State& state, Find find)
{
    const UnicodeString text{std::u16string_view(LongText())};
    const UnicodeString sought{Sought};
    for (auto _ : state) {
        benchmark::DoNotOptimize(find(text, sought));
    }
    SetBytes(state);
}
BENCHMARK_CAPTURE(FindOurs, pos, [](const UnicodeString& text, const UnicodeString& sought) {
    return text.Pos(sought);
})->Name("find_text/ours");
BENCHMARK_CAPTURE(FindOurs, pos_ic,
                  [upper = UnicodeString(std::u16string_view(InUpperCase(Sought)))](const UnicodeString& text,
                                                                                    const UnicodeString&) {
                      return BTL::PosIC(text, upper);
                  })
    ->Name("find_text_without_case/ours");

void FindStd(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(LongText().find(Sought));
    }
    SetBytes(state);
}
BENCHMARK(FindStd)->Name("find_text/std_u16string");

// Upper case of a long 8-bit text and of a caption.

constexpr std::u16string_view CaptionText = u"Temperatur Kühlwasser Rücklauf links °C";

void UpperWesternOurs(benchmark::State& state)
{
    const AnsiString text{std::u16string_view(LongText())};
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.UpperCase());
    }
    SetBytes(state);
}
BENCHMARK(UpperWesternOurs)->Name("upper_case_of_bytes/ours");

void UpperWesternTable(benchmark::State& state)
{
    std::string table(256, '\0');
    for (int i = 0; i < 256; ++i) {
        table[static_cast<std::size_t>(i)] = static_cast<char>(std::toupper(i));
    }
    const std::string text(AnsiString(std::u16string_view(LongText())).AsView());
    for (auto _ : state) {
        std::string upper(text.size(), '\0');
        std::transform(text.begin(), text.end(), upper.begin(),
                       [&](char c) { return table[static_cast<unsigned char>(c)]; });
        benchmark::DoNotOptimize(upper);
    }
    SetBytes(state);
}
BENCHMARK(UpperWesternTable)->Name("upper_case_of_bytes/table_walk");

void UpperCaptionOurs(benchmark::State& state)
{
    const UnicodeString text{CaptionText};
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.UpperCase());
    }
}
BENCHMARK(UpperCaptionOurs)->Name("upper_case_of_caption/ours");

#ifdef TRS8_BTL_BENCHMARK_QT

QString ToQt(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

void FindQt(benchmark::State& state, Qt::CaseSensitivity sensitivity)
{
    const QString text = ToQt(LongText());
    const QString sought =
        ToQt(sensitivity == Qt::CaseSensitive ? std::u16string(Sought) : InUpperCase(Sought));
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.indexOf(sought, 0, sensitivity));
    }
    SetBytes(state);
}
BENCHMARK_CAPTURE(FindQt, with_case, Qt::CaseSensitive)->Name("find_text/qstring");
BENCHMARK_CAPTURE(FindQt, without_case, Qt::CaseInsensitive)->Name("find_text_without_case/qstring");

void UpperWesternQt(benchmark::State& state)
{
    const QByteArray text = ToQt(LongText()).toLatin1();
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.toUpper());
    }
    SetBytes(state);
}
BENCHMARK(UpperWesternQt)->Name("upper_case_of_bytes/qbytearray");

void UpperCaptionQt(benchmark::State& state)
{
    const QString text = ToQt(CaptionText);
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.toUpper());
    }
}
BENCHMARK(UpperCaptionQt)->Name("upper_case_of_caption/qstring");

#endif

} // namespace
