// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"

#include <memory>

namespace BTL
{

// Makes a stream that only reads fit for all that looks ahead:
//
//     CReadAheadStream ahead(&ownStream);
//     while (!BTL::Eof(&ahead)) {
//         Use(BTL::ReadLine(&ahead));
//     }

/// Reads another stream in blocks, and knows what comes next even where the other can't seek: for `BTL::Eof`,
/// `BTL::PeekChar` and their like on streams of one's own classes. `CInStream` and `CTextReader` need none.
/// What it has read ahead is gone for others who read the source, until `GiveBack`.
class TRS8_BTL_API CReadAheadStream : public Classes::TStream
{
public:
    /// `source` must not be null and must live as long.
    explicit CReadAheadStream(Classes::TStream* source) noexcept;
    /// Owns the source, which must not be null.
    explicit CReadAheadStream(std::unique_ptr<Classes::TStream> source) noexcept;
    CReadAheadStream(const CReadAheadStream&) = delete;
    CReadAheadStream& operator=(const CReadAheadStream&) = delete;
    /// Gives back what it has read ahead.
    ~CReadAheadStream() override;

    /// Less than asked for also where the source gives little at a time; 0 only at the end.
    System::Int64 Read(void* buffer, System::Int64 count) override;
    /// Writes to the source, at its position if it can seek.
    System::Int64 Write(const void* buffer, System::Int64 count) override;
    /// -1 if the source can't seek.
    System::Int64 Seek(System::Int64 offset, Classes::TSeekOrigin origin) override;
    /// -1 if the source can't seek.
    System::Int64 getSize() const override;
    void setSize(System::Int64 size) override;

    /// Moves the source to the position of this stream, if it can seek.
    void GiveBack();

private:
    enum class ESeeking
    {
        Unknown,
        Works,
        Fails
    };

    std::string_view Window() override;
    bool ShowsEnd() const noexcept override { return true; }
    void PassWindow(System::Int64 count) override;
    void Fill();
    void Drop() noexcept;
    bool CanSeek() const;

    std::unique_ptr<Classes::TStream> mOwned;
    Classes::TStream* mSource;
    mutable ESeeking mSeeking = ESeeking::Unknown;
    std::unique_ptr<char[]> mBlock;
    std::size_t mStart = 0;
    std::size_t mSize = 0;
    std::size_t mFillSize = 0;
};

} // namespace BTL
