// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_StringGrid.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

// A million cells of a string grid, of as many columns as the argument tells, beside a vector of as many
// strings.

namespace
{

using Grids::TStringGrid;
using System::UnicodeString;

constexpr int CellCount = 1'000'000;
constexpr std::size_t TextCount = 1000;

void Columns(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(5)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

/// What a column of measured values shows; too long for a string to hold it in itself.
template <class Text>
std::vector<Text> Texts()
{
    std::vector<Text> texts;
    for (std::size_t i = 0; i < TextCount; ++i) {
        const UnicodeString text = u"channel " + UnicodeString(static_cast<int>(i));
        texts.push_back(Text(text.AsView()));
    }
    return texts;
}

void Size(TStringGrid& grid, std::int64_t columns)
{
    grid.setColCount(static_cast<int>(columns));
    grid.setRowCount(CellCount / grid.getColCount());
}

/// Calls `work(col, row)` for each cell, row by row.
template <class Work>
void EachCell(const TStringGrid& grid, Work work)
{
    for (int row = 0; row < grid.getRowCount(); ++row) {
        for (int col = 0; col < grid.getColCount(); ++col) {
            work(col, row);
        }
    }
}

// Setting all cells of a new grid.

void SetOurs(benchmark::State& state)
{
    const auto texts = Texts<UnicodeString>();
    for (auto _ : state) {
        TStringGrid grid;
        Size(grid, state.range(0));
        std::size_t i = 0;
        EachCell(grid, [&](int col, int row) { grid.setCells(col, row, texts[i++ % TextCount]); });
        benchmark::DoNotOptimize(grid.getCells(0, 0));
    }
}
BENCHMARK(SetOurs)->Name("set_cells/ours")->Apply(Columns);

template <class Text>
void SetVector(benchmark::State& state)
{
    const auto texts = Texts<Text>();
    for (auto _ : state) {
        std::vector<Text> cells(CellCount);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            cells[i] = texts[i % TextCount];
        }
        benchmark::DoNotOptimize(cells.data());
    }
}
BENCHMARK(SetVector<std::u16string>)->Name("set_cells/std_u16string")->Apply(Columns);
BENCHMARK(SetVector<UnicodeString>)->Name("set_cells/unicode_string")->Apply(Columns);

// As above, but each text is made for its cell.

void MakeOurs(benchmark::State& state)
{
    for (auto _ : state) {
        TStringGrid grid;
        Size(grid, state.range(0));
        EachCell(grid, [&](int col, int row) { grid.setCells(col, row, u"channel name"); });
        benchmark::DoNotOptimize(grid.getCells(0, 0));
    }
}
BENCHMARK(MakeOurs)->Name("make_cells/ours")->Apply(Columns);

template <class Text>
void MakeVector(benchmark::State& state)
{
    for (auto _ : state) {
        std::vector<Text> cells(CellCount);
        for (Text& cell : cells) {
            cell = u"channel name";
        }
        benchmark::DoNotOptimize(cells.data());
    }
}
BENCHMARK(MakeVector<std::u16string>)->Name("make_cells/std_u16string")->Apply(Columns);
BENCHMARK(MakeVector<UnicodeString>)->Name("make_cells/unicode_string")->Apply(Columns);

// Reading all cells.

void GetOurs(benchmark::State& state)
{
    const auto texts = Texts<UnicodeString>();
    TStringGrid grid;
    Size(grid, state.range(0));
    std::size_t i = 0;
    EachCell(grid, [&](int col, int row) { grid.setCells(col, row, texts[i++ % TextCount]); });
    for (auto _ : state) {
        std::size_t sum = 0;
        EachCell(grid, [&](int col, int row) { sum += grid.getCells(col, row).size(); });
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(GetOurs)->Name("get_cells/ours")->Apply(Columns);

template <class Text>
void GetVector(benchmark::State& state)
{
    const auto texts = Texts<Text>();
    std::vector<Text> cells(CellCount);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i] = texts[i % TextCount];
    }
    for (auto _ : state) {
        std::size_t sum = 0;
        for (const Text& cell : cells) {
            sum += Text(cell).size();
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(GetVector<std::u16string>)->Name("get_cells/std_u16string")->Apply(Columns);

} // namespace
