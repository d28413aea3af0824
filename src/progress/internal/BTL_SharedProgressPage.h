// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/internal/Host_MappingPage.h"
#include "progress/BTL_SharedProgressData.h"

#include <cstddef>
#include <cstdint>

namespace BTL
{

/// A part of the record that is changed at once, in bytes.
struct TProgressPart
{
    std::size_t offset;
    std::size_t size;
};

/// What the users of a shared record agree on beside its bytes: whether a part of it is being changed, and
/// which process made it.
///
/// A sequence counts the changes; it is odd during one. A reader copies the record and takes what it copied
/// if the sequence stayed. During a change it puts the former part in the place of the half-written one: the
/// writer left it here, and so nobody depends on its end, which may never come. A writer without a pause
/// would let no reader come to an end either: now and then it leaves a copy of all here, which stands long
/// enough.
class CSharedProgressPage
{
    using TRecord = CSharedProgressInfoData;

public:
    using EAccess = Host::CMappingPage::EAccess;

    /// All of a record that is empty.
    static constexpr TProgressPart Everything{0, sizeof(CSharedProgressInfoData)};
    static constexpr TProgressPart Max{offsetof(TRecord, mMax), sizeof(TRecord::mMax)};
    static constexpr TProgressPart Caption{offsetof(TRecord, mCaption), sizeof(TRecord::mCaption)};
    static constexpr TProgressPart Text1{offsetof(TRecord, mText1), sizeof(TRecord::mText1)};
    static constexpr TProgressPart Text2{offsetof(TRecord, mText2), sizeof(TRecord::mText2)};
    static constexpr TProgressPart TextLines{offsetof(TRecord, mTextLines), sizeof(TRecord::mTextLines)};
    static constexpr TProgressPart Message{offsetof(TRecord, mMessage), sizeof(TRecord::mMessage)};
    /// Where begins what nobody changes later on.
    static constexpr std::size_t EndOfChanges = offsetof(TRecord, mCommandLine);

    CSharedProgressPage(HANDLE mapping, EAccess access);

    bool IsOpen() const noexcept { return mPage.getBytes() != nullptr; }

    /// Runs `change`, which changes the part and raises nothing, so that a reader sees all of it or nothing.
    /// Another writer waits meanwhile. What one whose process ended left half-done is undone; so is what one
    /// that lives takes more than `LongPatience` for: it was stopped.
    template <class Action>
    void Change(CSharedProgressInfoData& record, TProgressPart part, Action change) noexcept
    {
        const TWord own = Begin(record, part);
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
    static constexpr std::uint64_t LongPatience = 2000;

    using TWord = std::uint64_t;
    struct TShared;

    TShared& getShared() const noexcept { return *static_cast<TShared*>(mPage.getBytes()); }
    /// The sequence during the change.
    TWord Begin(CSharedProgressInfoData& record, TProgressPart part) noexcept;
    TWord Take(CSharedProgressInfoData& record) noexcept;
    /// Ends the change of a writer that died in its middle, also if that undid another one's.
    void Undo(CSharedProgressInfoData& record, TWord dead) noexcept;
    void End(const CSharedProgressInfoData& record, TWord own) noexcept;

    Host::CMappingPage mPage;
    /// Kept, since each change tells it.
    unsigned long mProcess;
};

} // namespace BTL
