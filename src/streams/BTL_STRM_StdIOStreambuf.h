// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"

#include <array>
#include <memory>
#include <streambuf>

namespace BTL
{

/// The buffer of a standard stream on a `Classes::TStream`, which it doesn't own. What the stream raises
/// passes through. The position in one that can't seek, as a pipe, is -1, which the standard streams take for
/// a failed seek.
class TRS8_BTL_API AStdStreambuf : public std::basic_streambuf<char>
{
public:
    /// A null stream is an internal fault, and an empty one takes its place if the user lets that pass.
    explicit AStdStreambuf(Classes::TStream* stream);
    /// On the same stream, with nothing in the buffer.
    AStdStreambuf(const AStdStreambuf& other);
    /// An internal fault, which changes nothing if the user lets it pass.
    AStdStreambuf& operator=(const AStdStreambuf& other);
    ~AStdStreambuf() override;

    Classes::TStream* getStream() const noexcept { return mStream; }

    /// One reference more.
    void AddRef() noexcept { ++mReferences; }
    /// Gives up one reference; the last one deletes the object.
    void Release();

    /// The position that the stream has after the seek.
    virtual pos_type SetPosition(pos_type position);
    virtual pos_type GetPosition() const;

protected:
    pos_type seekoff(off_type offset, std::ios_base::seekdir direction,
                     std::ios_base::openmode mode) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode mode) override;

private:
    int mReferences = 0;
    std::shared_ptr<Classes::TStream> mEmpty;
    Classes::TStream* mStream;
};

/// Hands each piece to the stream at once; `Classes::EWriteError` if that can't be done. A file gathers small
/// pieces, and `sync` hands them to the host: `std::flush` makes them visible to other programs, or sets bad
/// if the host doesn't take them.
class TRS8_BTL_API CStdOutStreambuf : public AStdStreambuf
{
public:
    using AStdStreambuf::AStdStreambuf;
    ~CStdOutStreambuf() override;

protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* bytes, std::streamsize count) override;
    int sync() override;
};

/// Reads 256 bytes at a time. At least the last 4 bytes read can be put back.
class TRS8_BTL_API CStdInStreambuf : public AStdStreambuf
{
public:
    using AStdStreambuf::AStdStreambuf;
    CStdInStreambuf(const CStdInStreambuf& other);
    CStdInStreambuf& operator=(const CStdInStreambuf& other);
    ~CStdInStreambuf() override;

    /// A target within the buffer leaves the stream alone. A position that then contradicts the stream's is
    /// an internal fault.
    pos_type SetPosition(pos_type position) override;
    pos_type GetPosition() const override;

protected:
    int_type underflow() override;
    std::streamsize xsgetn(char* bytes, std::streamsize count) override;
    int_type pbackfail(int_type c) override;

private:
    static constexpr std::size_t PutBackSize = 4;
    static constexpr std::size_t BufferSize = 256;

    char* Buffer() noexcept { return mBytes.data() + PutBackSize; }
    void SetBuffer(std::string_view putBack, std::size_t size);

    std::array<char, PutBackSize + BufferSize> mBytes;
};

} // namespace BTL
