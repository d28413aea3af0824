// SPDX-License-Identifier: MIT
#include "progress/internal/BTL_SharedProgressPage.h"

#include "platform/base/dates/Sysutils_Chrono.h"
#include "platform/host/internal/Host_Deadline.h"
#include "platform/host/processes/internal/Host_ProcessFiles.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <chrono>
#include <thread>

namespace BTL
{

namespace
{

/// A part of the record as readers and writers copy it, whatever lies there.
using TRecordWord [[gnu::may_alias]] = std::uint64_t;

constexpr std::size_t RecordWords = sizeof(CSharedProgressInfoData) / sizeof(TRecordWord);
/// Those up to the command line, which nobody changes later on.
constexpr std::size_t ChangingWords = 234;
/// So many changes lie between two copies.
constexpr std::uint64_t ChangesPerCopy = 64;

using TCopy = std::array<std::uint64_t, RecordWords>;

// Each word is read with a barrier, so that the look at the sequence that follows is a later one, and written
// with one, so that the look before is an earlier one.

template <class Word>
void ReadWords(const Word* from, std::size_t count, std::uint64_t* to)
{
    std::transform(from, from + count, to,
                   [](const Word& word) { return __atomic_load_n(&word, __ATOMIC_ACQUIRE); });
}

const TRecordWord* WordsOf(const CSharedProgressInfoData& record)
{
    return reinterpret_cast<const TRecordWord*>(&record);
}

constexpr bool IsAtRest(std::uint64_t sequence)
{
    return sequence % 2 == 0;
}

} // namespace

struct CSharedProgressPage::TShared
{
    TWord sequence;
    /// The process that made the record, with its start in the host's ticks; 0 where that isn't known.
    TWord writer;
    TWord writerStart;
    /// The sequence behind the change that the copy is of; 0 while it is being written.
    TWord copied;
    TWord copy[ChangingWords];
};

auto CSharedProgressPage::Begin() noexcept -> TWord
{
    static_assert(sizeof(TShared) <= Host::CMappingPage::Size);
    const std::atomic_ref sequence(getShared().sequence);
    TWord seen = sequence.load(std::memory_order_relaxed);
    if (IsAtRest(seen) && sequence.compare_exchange_strong(seen, seen + 1)) {
        return seen + 1;
    }
    auto patience = Host::Deadline::In(Patience);
    for (;;) {
        if (IsAtRest(seen) || patience.IsPast()) {
            const TWord own = IsAtRest(seen) ? seen + 1 : seen + 2;
            if (sequence.compare_exchange_strong(seen, own)) {
                return own;
            }
            continue;
        }
        std::this_thread::yield();
        if (const TWord now = sequence.load(std::memory_order_relaxed); now != seen) {
            seen = now;
            patience = Host::Deadline::In(Patience);
        }
    }
}

void CSharedProgressPage::End(const CSharedProgressInfoData& record, TWord own) noexcept
{
    TShared& shared = getShared();
    const TWord behind = own + 1;
    if (own / 2 % ChangesPerCopy == 0) {
        const std::atomic_ref copied(shared.copied);
        copied.store(0, std::memory_order_relaxed);
        const TRecordWord* const words = WordsOf(record);
        for (std::size_t i = 0; i < ChangingWords; ++i) {
            const TWord word = __atomic_load_n(words + i, __ATOMIC_RELAXED);
            __atomic_store_n(shared.copy + i, word, __ATOMIC_RELEASE);
        }
        copied.store(behind, std::memory_order_release);
    }
    // Another writer that waited in vain has the sequence now.
    std::atomic_ref(shared.sequence).compare_exchange_strong(own, behind, std::memory_order_release);
}

bool CSharedProgressPage::Copy(const CSharedProgressInfoData& record, CSharedProgressInfoData& copy) const
{
    constexpr int attemptsPerTurn = 32;
    TShared& shared = getShared();
    const std::atomic_ref sequence(shared.sequence);
    const std::atomic_ref copied(shared.copied);
    const auto load = [](const std::atomic_ref<TWord>& word) { return word.load(std::memory_order_acquire); };
    const TRecordWord* const words = WordsOf(record);
    TCopy got;
    const auto tryRecord = [&](TWord seen) {
        if (!IsAtRest(seen)) {
            return false;
        }
        ReadWords(words, RecordWords, got.data());
        return load(sequence) == seen;
    };
    // Of a change that ended since `begin`, so it is as good as one that is read now.
    const auto tryCopy = [&](TWord begin) {
        const TWord seen = load(copied);
        if (seen <= begin) {
            return false;
        }
        ReadWords(shared.copy, ChangingWords, got.data());
        ReadWords(words + ChangingWords, RecordWords - ChangingWords, got.data() + ChangingWords);
        return load(copied) == seen;
    };
    const TWord begin = load(sequence);
    const auto limit = Host::Deadline::In(Patience);
    TWord seen = begin;
    for (int attempt = 1; !tryRecord(seen) && !tryCopy(begin); ++attempt) {
        if (attempt % attemptsPerTurn == 0) {
            if (limit.IsPast()) {
                return false;
            }
            // The writer may need this processor.
            std::this_thread::yield();
        }
        seen = load(sequence);
    }
    copy = std::bit_cast<CSharedProgressInfoData>(got);
    return true;
}

void CSharedProgressPage::SetWriter(unsigned long process) noexcept
{
    const auto start = Host::ReadProcessStart(process);
    TShared& shared = getShared();
    std::atomic_ref(shared.writer).store(process);
    std::atomic_ref(shared.writerStart).store(start ? start->ticks : 0);
}

bool CSharedProgressPage::IsWriterAlive(const CSharedProgressInfoData& record) const
{
    const unsigned long process = record.getProcessId();
    const auto start = Host::ReadProcessStart(process);
    if (!start) {
        return false;
    }
    TShared& shared = getShared();
    const TWord ticks = std::atomic_ref(shared.writerStart).load();
    if (ticks != 0 && std::atomic_ref(shared.writer).load() == process) {
        return ticks == start->ticks;
    }
    // Somebody made the record without this page. A process that came behind it is another one.
    using namespace std::chrono;
    constexpr milliseconds clockSteps = 1s;
    const auto began = system_clock::now() - duration_cast<milliseconds>(duration<double>(start->secondsAgo));
    return Sysutils::ToLocalDateTime(began - clockSteps) <= record.getStartTime();
}

} // namespace BTL
