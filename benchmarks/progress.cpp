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

/// A whole record.
bool Take(const BTL::CSharedProgressInfo& info, BTL::CSharedProgressInfoData& data)
{
    return info.Snapshot(data);
}

/// Its bytes as they are just now, half-written texts among them.
bool TakeUnguarded(const BTL::CSharedProgressInfo& info, BTL::CSharedProgressInfoData& data)
{
    data = info.getData();
    return true;
}

void WritePosition(BTL::CSharedProgressInfo& info, System::Int64 /*step*/)
{
    info.IncPosition();
}

void WriteText(BTL::CSharedProgressInfo& info, System::Int64 step)
{
    static const UnicodeString texts[] = {UnicodeString::StringOfChar(u'a', 512),
                                          UnicodeString::StringOfChar(u'b', 512)};
    info.setMessage(texts[step % 2]);
    info.IncPosition();
}

/// Reads a record that another thread changes without a pause.
template <auto Read, auto Write>
void ReadBesideWriter(benchmark::State& state)
{
    BTL::CSharedProgressInfo info(OwnName());
    std::atomic<bool> goesOn = true;
    std::thread writer([&] {
        for (System::Int64 step = 0; goesOn; ++step) {
            Write(info, step);
        }
    });
    BTL::CSharedProgressInfoData data;
    for (auto _ : state) {
        if (!Read(info, data)) {
            state.SkipWithError("a record was not to be had");
            break;
        }
        benchmark::DoNotOptimize(data);
    }
    goesOn = false;
    writer.join();
}

constexpr benchmark::IterationCount Reads = 1'000'000;

BENCHMARK(IncreaseOurs)->Name("increase/ours");
BENCHMARK(IncreaseAtomic)->Name("increase/atomic");
BENCHMARK(SetOurs)->Name("set/ours");
BENCHMARK(SetAtomic)->Name("set/atomic");
BENCHMARK(ReadBesideWriter<Take, WritePosition>)->Name("read_beside_positions/ours")->Iterations(Reads);
BENCHMARK(ReadBesideWriter<TakeUnguarded, WritePosition>)
    ->Name("read_beside_positions/unguarded")
    ->Iterations(Reads);
BENCHMARK(ReadBesideWriter<Take, WriteText>)->Name("read_beside_texts/ours")->Iterations(Reads);
BENCHMARK(ReadBesideWriter<TakeUnguarded, WriteText>)->Name("read_beside_texts/unguarded")->Iterations(Reads);

} // namespace
