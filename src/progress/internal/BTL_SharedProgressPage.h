// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/internal/Host_MappingPage.h"
#include "progress/BTL_SharedProgressData.h"

#include <cstdint>

namespace BTL
{

/// What the users of a shared record agree on beside its bytes: whether a part of it is being changed, and
/// which process made it.
///
/// A sequence counts the changes; it is odd during one. A reader copies the record and takes what it copied
/// if the sequence was even and stayed. A writer without a pause would let none of them come to an end: now
/// and then it leaves a copy here, which stands long enough.
class CSharedProgressPage
{
public:
    using EAccess = Host::CMappingPage::EAccess;

    CSharedProgressPage(HANDLE mapping, EAccess access) : mPage(mapping, access) {}

    bool IsOpen() const noexcept { return mPage.getBytes() != nullptr; }

    /// Runs `change`, which may raise nothing, so that a reader sees all of it or nothing. Another writer
    /// waits meanwhile; one that was cut off in the middle is waited for no longer than `Patience`.
    template <class Action>
    void Change(const CSharedProgressInfoData& record, Action change) noexcept
    {
        const TWord own = Begin();
        change();
        End(record, own);
    }

    /// Copies the record as it stood at a moment of the call. False, and `copy` left alone, if that doesn't
    /// come about within `Patience`.
    bool Copy(const CSharedProgressInfoData& record, CSharedProgressInfoData& copy) const;

    /// Keeps which process has the number now.
    void SetWriter(unsigned long process) noexcept;
    /// Whether the process of the record's number is the one that had it when the record was made.
    bool IsWriterAlive(const CSharedProgressInfoData& record) const;

private:
    /// In milliseconds.
    static constexpr std::uint64_t Patience = 10;

    using TWord = std::uint64_t;
    struct TShared;

    TShared& getShared() const noexcept { return *static_cast<TShared*>(mPage.getBytes()); }
    /// The sequence during the change.
    TWord Begin() noexcept;
    void End(const CSharedProgressInfoData& record, TWord own) noexcept;

    Host::CMappingPage mPage;
};

} // namespace BTL
