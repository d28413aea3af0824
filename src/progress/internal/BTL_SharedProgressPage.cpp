// SPDX-License-Identifier: MIT
#include "progress/internal/BTL_SharedProgressPage.h"

#include "platform/base/dates/Sysutils_Chrono.h"
#include "platform/host/Host_Module.h"
#include "platform/host/internal/Host_Deadline.h"
#include "platform/host/processes/internal/Host_ProcessFiles.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <chrono>
#include <thread>
#include <type_traits>

namespace BTL
{

namespace
{

/// A piece of the record as readers and writers copy it, whatever lies there.
using TRecordWord [[gnu::may_alias]] = std::uint64_t;

constexpr std::size_t RecordWords = sizeof(CSharedProgressInfoData) / sizeof(TRecordWord);
/// Those that hold any of what changes later on.
constexpr std::size_t ChangingWords =
    (CSharedProgressPage::EndOfChanges + sizeof(TRecordWord) - 1) / sizeof(TRecordWord);
/// Those of the largest part, at whatever place it begins.
constexpr std::size_t PartWords = CSharedProgressPage::Message.size / sizeof(TRecordWord) + 2;
// Programs of other versions share the page.
static_assert(ChangingWords == 234 && PartWords == 130);
/// So many changes lie between two copies.
constexpr std::uint64_t ChangesPerCopy = 64;

/// Copies words that others use at the same time. Each is read with a barrier, so that a look at the sequence
/// behind them is a later one, and written with one, so that a look before them is an earlier one.
template <class From, class To>
void CopyWords(const From* from, std::size_t count, To* to)
{
    for (std::size_t i = 0; i < count; ++i) {
        __atomic_store_n(to + i, __atomic_load_n(from + i, __ATOMIC_ACQUIRE), __ATOMIC_RELEASE);
    }
}

const TRecordWord* WordsOf(const CSharedProgressInfoData& record)
{
    return reinterpret_cast<const TRecordWord*>(&record);
}

TRecordWord* WordsOf(CSharedProgressInfoData& record)
{
    return reinterpret_cast<TRecordWord*>(&record);
}

constexpr bool IsAtRest(std::uint64_t sequence)
{
    return sequence % 2 == 0;
}

template <class T>
T Load(T& word)
{
    return std::atomic_ref(word).load(std::memory_order_acquire);
}

template <class T>
void Store(T& word, std::type_identity_t<T> value)
{
    std::atomic_ref(word).store(value, std::memory_order_release);
}

/// Whether the word had the value, and has another one now.
bool Exchange(std::uint64_t& word, std::uint64_t value, std::uint64_t another)
{
    return std::atomic_ref(word).compare_exchange_strong(value, another);
}

/// A part as it was before a change. Other processes write it, too: no number in it is taken on trust.
struct TFormer
{
    /// The sequence during the change, or that of who undoes it; another one while this is being written.
    std::uint64_t sequence;
    std::uint64_t first;
    /// 0 stands for an empty record.
    std::uint64_t count;
    std::uint64_t words[PartWords];
};

void KeepFormer(TFormer& former, const CSharedProgressInfoData& record, TProgressPart part,
                std::uint64_t sequence)
{
    constexpr std::size_t size = sizeof(TRecordWord);
    const std::size_t first = part.offset / size;
    const std::size_t count = (part.offset + part.size + size - 1) / size - first;
    Store(former.first, first);
    Store(former.count, count <= PartWords ? count : 0);
    if (count <= PartWords) {
        CopyWords(WordsOf(record) + first, count, former.words);
    }
    Store(former.sequence, sequence);
}

/// Whether this is what stood there before the change that is under way by that sequence. Who undoes it may
/// have said so already, and not have the sequence yet.
bool IsFormerOf(TFormer& former, std::uint64_t sequence)
{
    const std::uint64_t kept = Load(former.sequence);
    return kept == sequence || kept == sequence + 2;
}

/// Puts the former part into the words of a record.
template <class Word>
void RestoreFormer(TFormer& former, Word* words)
{
    const std::uint64_t first = std::min<std::uint64_t>(Load(former.first), RecordWords);
    const std::uint64_t count = Load(former.count);
    if (count == 0) {
        constexpr std::uint64_t empty[RecordWords] = {};
        CopyWords(empty, RecordWords, words);
    } else {
        CopyWords(former.words, std::min({count, std::uint64_t{PartWords}, RecordWords - first}),
                  words + first);
    }
}

} // namespace

struct CSharedProgressPage::TShared
{
    TWord sequence;
    /// The process that made the record, with its start in the host's ticks; 0 where that isn't known.
    TWord writer;
    TWord writerStart;
    /// The process that made the last change, or is about to.
    TWord changer;
    TFormer former;
    /// The sequence behind the change that the copy is of; 0 while it is being written.
    TWord copied;
    TWord copy[ChangingWords];
};

CSharedProgressPage::CSharedProgressPage(HANDLE mapping, EAccess access)
    : mPage(mapping, access), mProcess(GetCurrentProcessId())
{
}

auto CSharedProgressPage::Begin(CSharedProgressInfoData& record, TProgressPart part) noexcept -> TWord
{
    static_assert(sizeof(TShared) <= Host::CMappingPage::Size);
    const TWord own = Take(record);
    Store(getShared().changer, mProcess);
    KeepFormer(getShared().former, record, part, own);
    return own;
}

auto CSharedProgressPage::Take(CSharedProgressInfoData& record) noexcept -> TWord
{
    TShared& shared = getShared();
    TWord seen = Load(shared.sequence);
    // Mostly this needs no look at the clock.
    if (IsAtRest(seen) && Exchange(shared.sequence, seen, seen + 1)) {
        return seen + 1;
    }
    auto look = Host::Deadline::In(Patience);
    auto end = Host::Deadline::In(LongPatience);
    for (;;) {
        if (IsAtRest(seen)) {
            if (Exchange(shared.sequence, seen, seen + 1)) {
                return seen + 1;
            }
        } else if (look.IsPast()) {
            // One that lives may only wait for a processor.
            if (end.IsPast() || !Host::ReadProcessStart(Load(shared.changer))) {
                Undo(record, seen);
            }
            look = Host::Deadline::In(Patience);
        } else {
            std::this_thread::yield();
        }
        if (const TWord now = Load(shared.sequence); now != seen) {
            seen = now;
            look = Host::Deadline::In(Patience);
            end = Host::Deadline::In(LongPatience);
        }
    }
}

void CSharedProgressPage::Undo(CSharedProgressInfoData& record, TWord dead) noexcept
{
    TShared& shared = getShared();
    const TWord own = dead + 2;
    // Before the sequence goes on: a half-written part is never without what stood there before, also if this
    // process is killed on the way.
    Exchange(shared.former.sequence, dead, own);
    if (!Exchange(shared.sequence, dead, own)) {
        return;
    }
    if (Load(shared.former.sequence) == own) {
        RestoreFormer(shared.former, WordsOf(record));
    }
    Exchange(shared.sequence, own, own + 1);
}

void CSharedProgressPage::End(const CSharedProgressInfoData& record, TWord own) noexcept
{
    TShared& shared = getShared();
    const TWord behind = own + 1;
    if (own / 2 % ChangesPerCopy == 0) {
        Store(shared.copied, 0);
        CopyWords(WordsOf(record), ChangingWords, shared.copy);
        Store(shared.copied, behind);
    }
    // Another writer that waited in vain has the sequence now.
    Exchange(shared.sequence, own, behind);
}

bool CSharedProgressPage::Copy(const CSharedProgressInfoData& record, CSharedProgressInfoData& copy) const
{
    constexpr int attemptsPerTurn = 32;
    TShared& shared = getShared();
    const TRecordWord* const words = WordsOf(record);
    std::array<std::uint64_t, RecordWords> got;
    const auto tryRecord = [&](TWord seen) {
        CopyWords(words, RecordWords, got.data());
        // Nothing is changed before the former part is here.
        if (!IsAtRest(seen) && IsFormerOf(shared.former, seen)) {
            RestoreFormer(shared.former, got.data());
        }
        return Load(shared.sequence) == seen;
    };
    // Of a change that ended since `begin`, so it is as good as one that is read now.
    const auto tryCopy = [&](TWord begin) {
        const TWord seen = Load(shared.copied);
        if (seen <= begin) {
            return false;
        }
        CopyWords(shared.copy, ChangingWords, got.data());
        CopyWords(words + ChangingWords, RecordWords - ChangingWords, got.data() + ChangingWords);
        return Load(shared.copied) == seen;
    };
    const TWord begin = Load(shared.sequence);
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
        seen = Load(shared.sequence);
    }
    copy = std::bit_cast<CSharedProgressInfoData>(got);
    return true;
}

void CSharedProgressPage::SetWriter(unsigned long process) noexcept
{
    const auto start = Host::ReadProcessStart(process);
    TShared& shared = getShared();
    Store(shared.writer, process);
    Store(shared.writerStart, start ? start->ticks : 0);
}

bool CSharedProgressPage::IsWriterAlive(const CSharedProgressInfoData& record) const
{
    const unsigned long process = record.getProcessId();
    const auto start = Host::ReadProcessStart(process);
    if (!start) {
        return false;
    }
    TShared& shared = getShared();
    const TWord ticks = Load(shared.writerStart);
    if (ticks != 0 && Load(shared.writer) == process) {
        return ticks == start->ticks;
    }
    // Somebody made the record without this page. A process that came behind it is another one.
    using namespace std::chrono;
    constexpr milliseconds clockSteps = 1s;
    const auto began = system_clock::now() - duration_cast<milliseconds>(duration<double>(start->secondsAgo));
    return Sysutils::ToLocalDateTime(began - clockSteps) <= record.getStartTime();
}

} // namespace BTL
