// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_CopyPath.h"
#include "environment/files/BTL_SYS_Folders.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_Path.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

/// A folder for the run of one case, and what the host's own programs do with it.
class Scratch
{
public:
    Scratch() : mPath(fs::temp_directory_path() / ("bench_files_" + std::to_string(getpid())))
    {
        fs::create_directory(mPath);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() { fs::remove_all(mPath); }

    fs::path At(const char* name) const { return mPath / name; }
    System::UnicodeString Name(const char* name) const { return Sysutils::FromHostPath(At(name).string()); }

private:
    fs::path mPath;
};

void Run(std::initializer_list<std::string> command)
{
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0) {
        std::abort();
    }
    waitpid(process, nullptr, 0);
}

/// 10,000 files of 1 KB in 100 folders.
void MakeTree(const fs::path& root)
{
    const std::string content(1024, 'x');
    for (int folder = 0; folder < 100; ++folder) {
        const fs::path path = root / std::to_string(folder);
        fs::create_directories(path);
        for (int file = 0; file < 100; ++file) {
            std::ofstream(path / std::to_string(file)) << content;
        }
    }
}

void MakeLargeFile(const fs::path& file)
{
    const std::string piece(1 << 20, 'x');
    std::ofstream stream(file, std::ios::binary);
    for (int i = 0; i < 1024; ++i) {
        stream << piece;
    }
}

/// Times `copy` alone: what it made is gone before the next one.
template <class Make, class Copy>
void Measure(benchmark::State& state, Make make, Copy copy)
{
    const Scratch scratch;
    make(scratch.At("from"));
    for (auto _ : state) {
        copy(scratch);
        state.PauseTiming();
        fs::remove_all(scratch.At("to"));
        state.ResumeTiming();
    }
}

void CopyTreeOurs(benchmark::State& state)
{
    Measure(state, MakeTree,
            [](const Scratch& scratch) { BTL::CopyPath(scratch.Name("from"), scratch.Name("to")); });
}

void CopyByHost(const Scratch& scratch)
{
    Run({"cp", "-a", scratch.At("from"), scratch.At("to")});
}

void CopyTreeByHost(benchmark::State& state)
{
    Measure(state, MakeTree, CopyByHost);
}

void CopyFileOurs(benchmark::State& state)
{
    Measure(state, MakeLargeFile,
            [](const Scratch& scratch) { CopyFileW(scratch.Name("from"), scratch.Name("to"), true); });
}

void CopyFileByHost(benchmark::State& state)
{
    Measure(state, MakeLargeFile, CopyByHost);
}

template <class Delete>
void MeasureDelete(benchmark::State& state, Delete deleteTree)
{
    const Scratch scratch;
    for (auto _ : state) {
        state.PauseTiming();
        MakeTree(scratch.At("from"));
        state.ResumeTiming();
        deleteTree(scratch);
    }
}

void DeleteOurs(benchmark::State& state)
{
    MeasureDelete(state, [](const Scratch& scratch) { BTL::DeleteFolder(scratch.Name("from")); });
}

void DeleteByHost(benchmark::State& state)
{
    MeasureDelete(state, [](const Scratch& scratch) { Run({"rm", "-r", scratch.At("from")}); });
}

void CountOurs(benchmark::State& state)
{
    const Scratch scratch;
    MakeTree(scratch.At("from"));
    for (auto _ : state) {
        benchmark::DoNotOptimize(BTL::CountFiles(scratch.Name("from"), true));
    }
}

void CountByStd(benchmark::State& state)
{
    const Scratch scratch;
    MakeTree(scratch.At("from"));
    for (auto _ : state) {
        int count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(scratch.At("from"))) {
            count += entry.is_directory() ? 0 : 1;
        }
        benchmark::DoNotOptimize(count);
    }
}

/// The host's programs work in processes of their own, so that only the real time tells.
template <int Count>
void Times(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(Count);
}

BENCHMARK(CopyTreeOurs)->Name("copy_10000_files/ours")->Apply(Times<3>);
BENCHMARK(CopyTreeByHost)->Name("copy_10000_files/cp_a")->Apply(Times<3>);
BENCHMARK(CopyFileOurs)->Name("copy_1GB/ours")->Apply(Times<1>);
BENCHMARK(CopyFileByHost)->Name("copy_1GB/cp_a")->Apply(Times<1>);
BENCHMARK(DeleteOurs)->Name("delete_10000_files/ours")->Apply(Times<3>);
BENCHMARK(DeleteByHost)->Name("delete_10000_files/rm_r")->Apply(Times<3>);
BENCHMARK(CountOurs)->Name("count_10000_files/ours")->Apply(Times<3>);
BENCHMARK(CountByStd)->Name("count_10000_files/std")->Apply(Times<3>);

} // namespace
