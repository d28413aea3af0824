// SPDX-License-Identifier: MIT
#include "os/WIN_CriticalSection.h"

#include <benchmark/benchmark.h>

#include <mutex>

namespace
{

struct OursLock
{
    WIN::CCriticalSectionObject section;
    using Guard = WIN::CCriticalSection;
};

struct StandardLock
{
    std::recursive_mutex section;
    using Guard = std::lock_guard<std::recursive_mutex>;
};

/// Counts under a lock that all threads of the run share.
template <class Lock>
void Count(benchmark::State& state)
{
    static Lock lock;
    static std::int64_t count = 0;
    for (auto _ : state) {
        const typename Lock::Guard guard(lock.section);
        benchmark::DoNotOptimize(++count);
    }
}

BENCHMARK(Count<OursLock>)->Name("alone/ours");
BENCHMARK(Count<StandardLock>)->Name("alone/recursive_mutex");
BENCHMARK(Count<OursLock>)->Name("two_threads/ours")->Threads(2)->UseRealTime();
BENCHMARK(Count<StandardLock>)->Name("two_threads/recursive_mutex")->Threads(2)->UseRealTime();

} // namespace
