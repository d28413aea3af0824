// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_StringGrid.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <string>
#include <vector>

// A million cells of a string grid, beside a vector of as many strings. Each round does both, one after the
// other; `ratio` is our time by that of the vector.

namespace
{

using Grids::TStringGrid;
using System::UnicodeString;

constexpr int CellCount = 1'000'000;
constexpr std::size_t TextCount = 1000;

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

double SecondsOf(const auto& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

template <class Ours, class Theirs>
void Compare(benchmark::State& state, Ours ours, Theirs theirs)
{
    double ourTime = 0;
    double theirTime = 0;
    for (auto _ : state) {
        ourTime += SecondsOf(ours);
        theirTime += SecondsOf(theirs);
    }
    state.counters["ratio"] = ourTime / theirTime;
    state.SetItemsProcessed(state.iterations() * CellCount);
}

/// The argument is the count of columns.
void SetCells(benchmark::State& state)
{
    const auto texts = Texts<UnicodeString>();
    const auto plainTexts = Texts<std::u16string>();
    const auto cols = static_cast<int>(state.range(0));
    const int rows = CellCount / cols;
    Compare(
        state,
        [&] {
            TStringGrid grid;
            grid.setColCount(cols);
            grid.setRowCount(rows);
            std::size_t i = 0;
            for (int row = 0; row < rows; ++row) {
                for (int col = 0; col < cols; ++col) {
                    grid.setCells(col, row, texts[i++ % TextCount]);
                }
            }
            benchmark::DoNotOptimize(grid.getCells(cols - 1, rows - 1));
        },
        [&] {
            std::vector<std::u16string> cells(CellCount);
            for (std::size_t i = 0; i < CellCount; ++i) {
                cells[i] = plainTexts[i % TextCount];
            }
            benchmark::DoNotOptimize(cells.back());
        });
}
BENCHMARK(SetCells)->Arg(5)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// As `SetCells`, but each text is made for its cell.
void MakeCells(benchmark::State& state)
{
    const auto cols = static_cast<int>(state.range(0));
    const int rows = CellCount / cols;
    Compare(
        state,
        [&] {
            TStringGrid grid;
            grid.setColCount(cols);
            grid.setRowCount(rows);
            for (int row = 0; row < rows; ++row) {
                for (int col = 0; col < cols; ++col) {
                    grid.setCells(col, row, u"channel name");
                }
            }
            benchmark::DoNotOptimize(grid.getCells(cols - 1, rows - 1));
        },
        [&] {
            std::vector<std::u16string> cells(CellCount);
            for (std::u16string& cell : cells) {
                cell = u"channel name";
            }
            benchmark::DoNotOptimize(cells.back());
        });
}
BENCHMARK(MakeCells)->Arg(5)->Arg(1000)->Unit(benchmark::kMillisecond);

void GetCells(benchmark::State& state)
{
    const auto texts = Texts<UnicodeString>();
    const auto plainTexts = Texts<std::u16string>();
    const auto cols = static_cast<int>(state.range(0));
    const int rows = CellCount / cols;
    TStringGrid grid;
    grid.setColCount(cols);
    grid.setRowCount(rows);
    std::vector<std::u16string> cells(CellCount);
    for (std::size_t i = 0; i < CellCount; ++i) {
        const auto number = static_cast<int>(i);
        grid.setCells(number % cols, number / cols, texts[i % TextCount]);
        cells[i] = plainTexts[i % TextCount];
    }
    Compare(
        state,
        [&] {
            std::size_t sum = 0;
            for (int row = 0; row < rows; ++row) {
                for (int col = 0; col < cols; ++col) {
                    sum += grid.getCells(col, row).size();
                }
            }
            benchmark::DoNotOptimize(sum);
        },
        [&] {
            std::size_t sum = 0;
            for (std::size_t i = 0; i < CellCount; ++i) {
                sum += std::u16string(cells[i]).size();
            }
            benchmark::DoNotOptimize(sum);
        });
}
BENCHMARK(GetCells)->Arg(5)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
