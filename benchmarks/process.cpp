// SPDX-License-Identifier: MIT
#include "os/WIN_Process.h"
#include "os/WIN_Processes.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// Processes that only wait, so that a walk has a thousand to go.
class ManyProcesses
{
public:
    ManyProcesses()
    {
        constexpr int count = 1000;
        for (int i = 0; i < count; ++i) {
            const pid_t process = fork();
            if (process == 0) {
                for (;;) {
                    pause();
                }
            }
            mProcesses.push_back(process);
        }
    }
    ManyProcesses(const ManyProcesses&) = delete;
    ManyProcesses& operator=(const ManyProcesses&) = delete;
    ~ManyProcesses()
    {
        for (const pid_t process : mProcesses) {
            kill(process, SIGKILL);
            waitpid(process, nullptr, 0);
        }
    }

private:
    std::vector<pid_t> mProcesses;
};

void WalkOurs(benchmark::State& state)
{
    const ManyProcesses processes;
    for (auto _ : state) {
        int count = 0;
        WIN::ForEachProcess([&count](const tagPROCESSENTRY32W& entry) {
            count += entry.szExeFile[0] != 0 ? 1 : 0;
            return true;
        });
        benchmark::DoNotOptimize(count);
    }
}

void WalkByHand(benchmark::State& state)
{
    const ManyProcesses processes;
    for (auto _ : state) {
        int count = 0;
        DIR* const folder = opendir("/proc");
        while (const dirent* entry = readdir(folder)) {
            if (std::atoi(entry->d_name) == 0) {
                continue;
            }
            const std::string path = std::string("/proc/") + entry->d_name;
            char buffer[4096];
            const int file = open((path + "/stat").c_str(), O_RDONLY | O_CLOEXEC);
            if (file < 0) {
                continue;
            }
            ssize_t length = read(file, buffer, sizeof buffer);
            close(file);
            length = readlink((path + "/exe").c_str(), buffer, sizeof buffer);
            if (length < 0) {
                const int line = open((path + "/cmdline").c_str(), O_RDONLY | O_CLOEXEC);
                length = read(line, buffer, sizeof buffer);
                close(line);
            }
            benchmark::DoNotOptimize(length);
            ++count;
        }
        closedir(folder);
        benchmark::DoNotOptimize(count);
    }
}

constexpr int Starts = 200;

void StartOurs(benchmark::State& state)
{
    for (auto _ : state) {
        for (int i = 0; i < Starts; ++i) {
            WIN::CProcess process(u"/bin/true", 0);
            process.Create(u"", 0, 0);
            process.WaitForSingleObject(INFINITE);
        }
    }
}

void StartByHand(benchmark::State& state)
{
    for (auto _ : state) {
        for (int i = 0; i < Starts; ++i) {
            char name[] = "/bin/true";
            char* const arguments[] = {name, nullptr};
            pid_t process = 0;
            posix_spawn(&process, name, nullptr, nullptr, arguments, environ);
            waitpid(process, nullptr, 0);
        }
    }
}

BENCHMARK(WalkOurs)->Name("walk/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(WalkByHand)->Name("walk/by_hand")->Unit(benchmark::kMillisecond);
BENCHMARK(StartOurs)->Name("start_and_await/ours")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(StartByHand)->Name("start_and_await/posix_spawn")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
