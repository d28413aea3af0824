// SPDX-License-Identifier: MIT
#include "progress/BTL_SharedProgress.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdint>
#include <thread>

#include <unistd.h>

namespace
{

using System::UnicodeString;

UnicodeString OwnName()
{
    return u"bench/progress/" + UnicodeString(getpid());
}

/// A record that this process reports in, through the interface as an operation does.
class Reported
{
public:
    Reported() : mRecord(OwnName()), mInfo(&mRecord) {}

    BTL::AProgressInfo& Info()
    {
        // The compiler can't know what stands behind it.
        benchmark::DoNotOptimize(mInfo);
        return *mInfo;
    }

private:
    BTL::CSharedProgressInfo mRecord;
    BTL::AProgressInfo* mInfo;
};

void IncreaseOurs(benchmark::State& state)
{
    Reported reported;
    BTL::AProgressInfo& info = reported.Info();
    for (auto _ : state) {
        info.IncPosition();
    }
}

/// A counter that nobody else sees.
void IncreaseAtomic(benchmark::State& state)
{
    std::atomic<std::int64_t> position = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(position.fetch_add(1, std::memory_order_release));
    }
}

void SetOurs(benchmark::State& state)
{
    Reported reported;
    BTL::AProgressInfo& info = reported.Info();
    System::Int64 position = 0;
    for (auto _ : state) {
        info.setPosition(++position);
    }
}

void SetAtomic(benchmark::State& state)
{
    std::atomic<std::int64_t> target = 0;
    std::int64_t position = 0;
    for (auto _ : state) {
        target.store(++position, std::memory_order_release);
        benchmark::ClobberMemory();
    }
}

/// Snapshots beside a writer that changes what `Write` does, without a pause.
template <class Write>
void Snapshots(benchmark::State& state, Write write)
{
    BTL::CSharedProgressInfo info(OwnName());
    info.setMessage(UnicodeString::StringOfChar(u'a', 512));
    std::atomic<bool> goesOn = true;
    std::thread writer([&] {
        for (System::Int64 step = 0; goesOn; ++step) {
            write(info, step);
        }
    });
    BTL::CSharedProgressInfoData data;
    std::int64_t missed = 0;
    for (auto _ : state) {
        missed += info.Snapshot(data) ? 0 : 1;
    }
    state.counters["missed"] = static_cast<double>(missed);
    goesOn = false;
    writer.join();
}

void SnapshotsBesidePositions(benchmark::State& state)
{
    Snapshots(state, [](BTL::CSharedProgressInfo& info, System::Int64) { info.IncPosition(); });
}

void SnapshotsBesideTexts(benchmark::State& state)
{
    const UnicodeString texts[] = {UnicodeString::StringOfChar(u'a', 512),
                                   UnicodeString::StringOfChar(u'b', 512)};
    Snapshots(state, [&](BTL::CSharedProgressInfo& info, System::Int64 step) {
        info.setMessage(texts[step % 2]);
        info.IncPosition();
    });
}

BENCHMARK(IncreaseOurs)->Name("increase/ours");
BENCHMARK(IncreaseAtomic)->Name("increase/atomic");
BENCHMARK(SetOurs)->Name("set/ours");
BENCHMARK(SetAtomic)->Name("set/atomic");
BENCHMARK(SnapshotsBesidePositions)->Name("snapshot/positions")->Iterations(1'000'000);
BENCHMARK(SnapshotsBesideTexts)->Name("snapshot/texts")->Iterations(1'000'000);

} // namespace
