// SPDX-License-Identifier: MIT
#include "platform/base/System_String.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#ifdef TRS8_BTL_BENCHMARK_QT
#include <QByteArray>
#include <QString>
#endif

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::UTF8String;

constexpr int Length = 64 * 1024;

/// Western text as it stands in files: mostly plain letters, an umlaut now and then.
const std::u16string& SampleText()
{
    static const std::u16string text = [] {
        std::u16string result;
        for (int i = 0; i < Length; ++i) {
            result += i % 23 == 0 ? u'ä' : static_cast<char16_t>(u'a' + i % 26);
        }
        return result;
    }();
    return text;
}

const std::string& SampleUtf8()
{
    static const std::string text = System::ToUtf8(SampleText());
    return text;
}

const std::string& SampleWestern()
{
    static const std::string text(AnsiString(std::u16string_view(SampleText())).AsView());
    return text;
}

void SetBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * Length);
}

void WideToUtf8Ours(benchmark::State& state)
{
    const UnicodeString text{std::u16string_view(SampleText())};
    for (auto _ : state) {
        benchmark::DoNotOptimize(UTF8String(text));
    }
    SetBytes(state);
}
BENCHMARK(WideToUtf8Ours)->Name("wide_to_utf8/ours");

void WideToUtf8Icu(benchmark::State& state)
{
    const icu::UnicodeString text(SampleText().data(), Length);
    for (auto _ : state) {
        std::string bytes;
        benchmark::DoNotOptimize(text.toUTF8String(bytes));
    }
    SetBytes(state);
}
BENCHMARK(WideToUtf8Icu)->Name("wide_to_utf8/icu");

void Utf8ToWideOurs(benchmark::State& state)
{
    const std::string& bytes = SampleUtf8();
    for (auto _ : state) {
        benchmark::DoNotOptimize(System::FromUtf8(bytes));
    }
    SetBytes(state);
}
BENCHMARK(Utf8ToWideOurs)->Name("utf8_to_wide/ours");

void Utf8ToWideIcu(benchmark::State& state)
{
    const std::string& bytes = SampleUtf8();
    for (auto _ : state) {
        benchmark::DoNotOptimize(icu::UnicodeString::fromUTF8(bytes));
    }
    SetBytes(state);
}
BENCHMARK(Utf8ToWideIcu)->Name("utf8_to_wide/icu");

void WideToWesternOurs(benchmark::State& state)
{
    const UnicodeString text{std::u16string_view(SampleText())};
    for (auto _ : state) {
        benchmark::DoNotOptimize(AnsiString(text));
    }
    SetBytes(state);
}
BENCHMARK(WideToWesternOurs)->Name("wide_to_western/ours");

void WideToWesternIcu(benchmark::State& state)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-1252", &status);
    for (auto _ : state) {
        std::string bytes(Length, '\0');
        ucnv_fromUChars(converter, bytes.data(), Length, SampleText().data(), Length, &status);
        benchmark::DoNotOptimize(bytes);
    }
    ucnv_close(converter);
    SetBytes(state);
}
BENCHMARK(WideToWesternIcu)->Name("wide_to_western/icu");

void WesternToWideOurs(benchmark::State& state)
{
    const AnsiString text{std::string_view(SampleWestern())};
    for (auto _ : state) {
        benchmark::DoNotOptimize(UnicodeString(text));
    }
    SetBytes(state);
}
BENCHMARK(WesternToWideOurs)->Name("western_to_wide/ours");

void WesternToWideIcu(benchmark::State& state)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-1252", &status);
    for (auto _ : state) {
        std::u16string text(Length, u'\0');
        ucnv_toUChars(converter, text.data(), Length, SampleWestern().data(), Length, &status);
        benchmark::DoNotOptimize(text);
    }
    ucnv_close(converter);
    SetBytes(state);
}
BENCHMARK(WesternToWideIcu)->Name("western_to_wide/icu");

/// Copies a list of texts, as every pass of a list by value does.
template <class String>
void CopyList(benchmark::State& state, const String& text)
{
    const std::vector<String> list(1000, text);
    for (auto _ : state) {
        std::vector<String> copy = list;
        benchmark::DoNotOptimize(copy);
    }
}

constexpr const char16_t* CaptionText = u"A caption of the usual length on a form";

BENCHMARK_CAPTURE(CopyList, ours, UnicodeString(CaptionText))->Name("copy/ours");
BENCHMARK_CAPTURE(CopyList, std, std::u16string(CaptionText))->Name("copy/std_u16string");
BENCHMARK_CAPTURE(CopyList, icu, icu::UnicodeString(CaptionText))->Name("copy/icu");

/// Builds a text from single characters.
template <class String>
void AppendCharacters(benchmark::State& state)
{
    for (auto _ : state) {
        String text;
        for (int i = 0; i < Length; ++i) {
            text += static_cast<char16_t>(u'a' + i % 26);
        }
        benchmark::DoNotOptimize(text);
    }
    SetBytes(state);
}
BENCHMARK(AppendCharacters<UnicodeString>)->Name("append/ours");
BENCHMARK(AppendCharacters<std::u16string>)->Name("append/std_u16string");
BENCHMARK(AppendCharacters<icu::UnicodeString>)->Name("append/icu");

#ifdef TRS8_BTL_BENCHMARK_QT

QString ToQt(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

void WideToUtf8Qt(benchmark::State& state)
{
    const QString text = ToQt(SampleText());
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.toUtf8());
    }
    SetBytes(state);
}
BENCHMARK(WideToUtf8Qt)->Name("wide_to_utf8/qstring");

void Utf8ToWideQt(benchmark::State& state)
{
    const std::string& bytes = SampleUtf8();
    for (auto _ : state) {
        benchmark::DoNotOptimize(QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())));
    }
    SetBytes(state);
}
BENCHMARK(Utf8ToWideQt)->Name("utf8_to_wide/qstring");

// Qt has no code page 1252 of its own; Latin-1, which is the same but for 27 characters, is what its users
// take.

void WideToWesternQt(benchmark::State& state)
{
    const QString text = ToQt(SampleText());
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.toLatin1());
    }
    SetBytes(state);
}
BENCHMARK(WideToWesternQt)->Name("wide_to_western/qstring_latin1");

void WesternToWideQt(benchmark::State& state)
{
    const std::string& bytes = SampleWestern();
    for (auto _ : state) {
        benchmark::DoNotOptimize(QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size())));
    }
    SetBytes(state);
}
BENCHMARK(WesternToWideQt)->Name("western_to_wide/qstring_latin1");

BENCHMARK_CAPTURE(CopyList, qt, ToQt(CaptionText))->Name("copy/qstring");

void AppendCharactersQt(benchmark::State& state)
{
    for (auto _ : state) {
        QString text;
        for (int i = 0; i < Length; ++i) {
            text += QChar(static_cast<char16_t>(u'a' + i % 26));
        }
        benchmark::DoNotOptimize(text);
    }
    SetBytes(state);
}
BENCHMARK(AppendCharactersQt)->Name("append/qstring");

#endif

} // namespace
