// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_SimpleString.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "properties/BTL_ObjectLinks.h"
#include "streams/BTL_STRM_FileInStream.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/editing/BTL_STR_Search.h"
#include "text/editing/BTL_STR_Split.h"
#include "text/grammar/BTL_STR_Macro.h"
#include "text/lists/BTL_STR_I64StrMap.h"
#include "text/lists/BTL_STR_IntSet.h"
#include "text/lists/BTL_STR_StrSet.h"
#include "text/lists/BTL_STR_StrStrMap.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

// How the time grows with the input: a work of one size beside ten works of a tenth of that size. A ratio of
// 1 is growth in step with the input, a ratio of 10 is growth with its square.

namespace
{

using System::AnsiString;
using System::UnicodeString;

// So long are texts and files, and so many entries are in containers: few enough to lie in the processor's
// cache with their texts, since it is the growth of the work that counts and not that of the way to the
// memory.

constexpr int Length = 100'000;
constexpr int Count = 10'000;

UnicodeString Repeated(int count)
{
    return UnicodeString::StringOfChar(u'a', count);
}

/// Different texts in no order.
std::vector<UnicodeString> Words(int count)
{
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 1);
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
    std::vector<UnicodeString> words;
    words.reserve(numbers.size());
    for (const int number : numbers) {
        words.push_back(u"channel " + UnicodeString(number));
    }
    return words;
}

/// A work that searches one repeated character for one that nearly is.
template <class S, class Search>
auto OnRepeated(Search search)
{
    return [search](int size) {
        const S text = Repeated(size);
        const S pattern = Repeated(size / 4) + u'b' + Repeated(size / 4);
        return [=] { benchmark::DoNotOptimize(search(text, pattern)); };
    };
}

auto CallMacro(int size)
{
    UnicodeString names;
    UnicodeString body;
    UnicodeString values;
    for (int i = 0; i < size; ++i) {
        names += (i == 0 ? u"p" : u",p") + UnicodeString(i) + u"_";
        body += u"<%p" + UnicodeString(i) + u"_>";
        values += (i == 0 ? u"" : u",") + UnicodeString(i);
    }
    const UnicodeString macro = u"M(" + names + u")";
    const UnicodeString text = u"M(" + values + u")";
    return [=] { benchmark::DoNotOptimize(BTL::ApplyMacro(text, macro, body).Length()); };
}

auto AppendToSimpleString(int size)
{
    return [=] {
        UTL::CSimpleString text;
        for (int i = 0; i < size; ++i) {
            text += "0123456789";
        }
        benchmark::DoNotOptimize(text.length());
    };
}

auto FillStrSet(int size)
{
    return [words = Words(size)] {
        BTL::CStrSet set;
        for (const UnicodeString& word : words) {
            set.Add(word);
        }
        benchmark::DoNotOptimize(set.GetCount());
    };
}

auto FillSortedList(int size)
{
    return [words = Words(size)] {
        Classes::TStringList list;
        list.setSorted(true);
        for (const UnicodeString& word : words) {
            list.Add(word);
        }
        benchmark::DoNotOptimize(list.getCount());
    };
}

auto FillAndAskI64StrMap(int size)
{
    return [words = Words(size)] {
        BTL::CI64StrMap map;
        System::Int64 key = 0;
        for (const UnicodeString& word : words) {
            map.Add(key, word);
            benchmark::DoNotOptimize(map.GetKey(key, word));
            ++key;
        }
    };
}

auto TakeFreeValues(int size)
{
    return [=] {
        BTL::CIntSet set;
        for (int i = 0; i < size; ++i) {
            set.insert(set.NextFreeValue(1));
        }
        benchmark::DoNotOptimize(set.size());
    };
}

auto AskFirstKeys(int size)
{
    return [words = Words(size)] {
        BTL::CStrStrMap map;
        UnicodeString key;
        int number = 1'000'000;
        for (const UnicodeString& word : words) {
            map.Add(u"key " + UnicodeString(number++), word);
            benchmark::DoNotOptimize(map.Get1stKey(word, key));
        }
    };
}

auto RemoveLinks(int size)
{
    return [=] {
        BTL::CObjectLinks links;
        std::vector<BTL::AObjectLink> all(static_cast<std::size_t>(size));
        for (BTL::AObjectLink& link : all) {
            link.Subscribe(&links);
        }
        for (BTL::AObjectLink& link : all) {
            links.Remove(&link);
        }
    };
}

/// A file of lines that goes when its last work does.
class CFile
{
public:
    explicit CFile(int lines)
        : mPath(std::filesystem::temp_directory_path() / ("bench_growth_" + std::to_string(lines)))
    {
        std::ofstream file(mPath, std::ios::binary);
        for (int i = 0; i < lines; ++i) {
            file << "12;13;14\n";
        }
    }
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    ~CFile()
    {
        std::error_code ignored;
        std::filesystem::remove(mPath, ignored);
    }

    UnicodeString Path() const { return Sysutils::FromHostPath(mPath.string()); }

private:
    std::filesystem::path mPath;
};

auto AskCurrentLines(int size)
{
    return [size, file = std::make_shared<CFile>(size)] {
        BTL::CFileInStreamEx stream(file->Path());
        int last = 0;
        for (int i = 0; i < size; ++i) {
            stream.SkipLine();
            last = stream.getCurrLine();
        }
        benchmark::DoNotOptimize(last);
    };
}

template <class Make>
void Compare(const std::string& name, int size, Make make)
{
    benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) {
        const auto work = make(size);
        for (auto _ : state) {
            work();
        }
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((name + "/ten_tenths").c_str(), [=](benchmark::State& state) {
        const auto work = make(size / 10);
        for (auto _ : state) {
            for (int i = 0; i < 10; ++i) {
                work();
            }
        }
    })->Unit(benchmark::kMillisecond);
}

bool CompareAll()
{
    const auto pos = [](const auto& text, const auto& pattern) { return BTL::Pos(text, pattern); };
    const auto posIC = [](const auto& text, const auto& pattern) { return BTL::PosIC(text, pattern); };
    const auto rPos = [](const auto& text, const auto& pattern) { return BTL::RPos(text, pattern, -1); };
    const auto replace = [](const auto& text, const auto& pattern) {
        return BTL::ExchangeAll(text, pattern, text).Length();
    };
    const auto replaceUnquoted = [](const auto& text, const auto& pattern) {
        return BTL::ExchangeAll(text, pattern, text, u"'").Length();
    };
    const auto split = [](const auto& text, const auto& pattern) {
        const auto fields = BTL::Split(text, pattern);
        return std::distance(fields.begin(), fields.end());
    };
    Compare("pos_repeated_wide", Length, OnRepeated<UnicodeString>(pos));
    Compare("pos_repeated_narrow", Length, OnRepeated<AnsiString>(pos));
    Compare("pos_ic_repeated_wide", Length, OnRepeated<UnicodeString>(posIC));
    Compare("pos_ic_repeated_narrow", Length, OnRepeated<AnsiString>(posIC));
    Compare("rpos_repeated", Length, OnRepeated<UnicodeString>(rPos));
    Compare("replace_repeated", Length, OnRepeated<UnicodeString>(replace));
    Compare("replace_repeated_unquoted", Length, OnRepeated<UnicodeString>(replaceUnquoted));
    Compare("split_repeated", Length, OnRepeated<UnicodeString>(split));
    Compare("macro_parameters", Count, CallMacro);
    Compare("simple_string_append", Length, AppendToSimpleString);
    Compare("str_set_add", Count, FillStrSet);
    Compare("sorted_list_add", Count, FillSortedList);
    Compare("i64_str_map_in_turn", Count, FillAndAskI64StrMap);
    Compare("int_set_next_free", Count, TakeFreeValues);
    Compare("str_str_map_first_key", Count, AskFirstKeys);
    Compare("current_line", Length, AskCurrentLines);
    Compare("remove_object_links", Count, RemoveLinks);
    return true;
}

[[maybe_unused]] const bool areCompared = CompareAll();

} // namespace
