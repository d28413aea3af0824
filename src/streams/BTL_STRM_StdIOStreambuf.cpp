// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StdIOStreambuf.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/internal/Classes_Position.h"
#include "platform/runtime/classes/internal/Classes_StreamWindow.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace BTL
{

using Classes::TStream;
using System::Int64;

namespace
{

/// What the standard streams take for a failure.
constexpr Int64 NoPosition = -1;

constexpr const char* Source = "BTL_STRM_StdIOStreambuf";
constexpr UTL::CFaultPlace NullStream{Source, 48};
constexpr UTL::CFaultPlace Assigned{Source, 55};
constexpr UTL::CFaultPlace SurplusRelease{Source, 63};
constexpr UTL::CFaultPlace WrongPlaceInBuffer{Source, 268};
constexpr UTL::CFaultPlace StreamMoved{Source, 305};

/// What takes the place of a null stream.
std::shared_ptr<TStream> EmptyFor(const TStream* stream)
{
    if (stream != nullptr) {
        return nullptr;
    }
    UTL::THROW_XAssert(NullStream);
    return std::make_shared<Classes::TMemoryStream>();
}

/// Fills `piece` as far as the stream has bytes, or as far as one that can't seek gives them at once.
std::size_t ReadPiece(TStream& stream, std::span<char> piece)
{
    const auto size = static_cast<Int64>(piece.size());
    const std::optional<Int64> position = Classes::ToldPosition(stream);
    if (!position) {
        return static_cast<std::size_t>(std::max(stream.Read(piece.data(), size), Int64{0}));
    }
    const std::string_view window = Classes::CStreamWindow::Of(stream);
    if (window.size() >= piece.size()) {
        // What is in memory is there, without asking the host for the size.
        std::copy_n(window.begin(), piece.size(), piece.begin());
        Classes::CStreamWindow::Pass(stream, piece.size());
        return piece.size();
    }
    const Int64 count = std::clamp(Classes::BytesBehind(*position, stream.getSize()), Int64{0}, size);
    stream.ReadBuffer(piece.data(), count);
    return static_cast<std::size_t>(count);
}

} // namespace

// AStdStreambuf

AStdStreambuf::AStdStreambuf(TStream* stream)
    : mEmpty(EmptyFor(stream)), mStream(mEmpty ? mEmpty.get() : stream)
{
}

AStdStreambuf::AStdStreambuf(const AStdStreambuf& other) : AStdStreambuf(other.mStream)
{
    mEmpty = other.mEmpty;
}

AStdStreambuf& AStdStreambuf::operator=(const AStdStreambuf& /*other*/)
{
    UTL::THROW_XAssert(Assigned, "Unexpected 'AStdStreambuf::operator =' call.");
    return *this;
}

AStdStreambuf::~AStdStreambuf() = default;

void AStdStreambuf::Release()
{
    if (mReferences < 0) {
        UTL::THROW_XAssert(SurplusRelease, "Unexpected AStdStreambuf release");
    }
    if (--mReferences == 0) {
        delete this;
    }
}

AStdStreambuf::pos_type AStdStreambuf::SetPosition(pos_type position)
{
    if (!Classes::ToldPosition(*mStream)) {
        return NoPosition;
    }
    mStream->setPosition(position);
    return mStream->getPosition();
}

AStdStreambuf::pos_type AStdStreambuf::GetPosition() const
{
    return Classes::ToldPosition(*mStream).value_or(NoPosition);
}

AStdStreambuf::pos_type AStdStreambuf::seekoff(off_type offset, std::ios_base::seekdir direction,
                                               std::ios_base::openmode /*mode*/)
{
    Int64 base = 0;
    if (direction == std::ios_base::cur) {
        base = GetPosition();
        if (offset == 0) {
            return base;
        }
    } else if (direction == std::ios_base::end && Classes::ToldPosition(*mStream)) {
        base = mStream->getSize();
    }
    return SetPosition(Classes::AddClamped(base, offset));
}

AStdStreambuf::pos_type AStdStreambuf::seekpos(pos_type position, std::ios_base::openmode /*mode*/)
{
    return SetPosition(position);
}

// CStdOutStreambuf

CStdOutStreambuf::~CStdOutStreambuf() = default;

CStdOutStreambuf::int_type CStdOutStreambuf::overflow(int_type c)
{
    if (traits_type::eq_int_type(c, traits_type::eof())) {
        return traits_type::not_eof(c);
    }
    const char byte = traits_type::to_char_type(c);
    getStream()->WriteBuffer(&byte, 1);
    return c;
}

std::streamsize CStdOutStreambuf::xsputn(const char* bytes, std::streamsize count)
{
    getStream()->WriteBuffer(bytes, count);
    return count;
}

int CStdOutStreambuf::sync()
{
    if (const auto* const file = dynamic_cast<const Classes::THandleStream*>(getStream())) {
        file->Flush();
    }
    return 0;
}

// CStdInStreambuf

CStdInStreambuf::CStdInStreambuf(const CStdInStreambuf& other) : AStdStreambuf(other) {}

CStdInStreambuf& CStdInStreambuf::operator=(const CStdInStreambuf& other)
{
    AStdStreambuf::operator=(other);
    return *this;
}

CStdInStreambuf::~CStdInStreambuf() = default;

CStdInStreambuf::pos_type CStdInStreambuf::SetPosition(pos_type position)
{
    const off_type target = position;
    const off_type current = GetPosition();
    if (current == NoPosition) {
        return NoPosition;
    }
    if (target == current) {
        return position;
    }
    if (gptr() != nullptr && target >= current - (gptr() - eback()) &&
        target <= current + (egptr() - gptr())) {
        setg(eback(), gptr() + (target - current), egptr());
        if (GetPosition() != position) {
            UTL::THROW_XAssert(WrongPlaceInBuffer);
        }
        return position;
    }
    setg(nullptr, nullptr, nullptr);
    return AStdStreambuf::SetPosition(position);
}

CStdInStreambuf::pos_type CStdInStreambuf::GetPosition() const
{
    const Int64 position = Classes::ToldPosition(*getStream()).value_or(NoPosition);
    if (gptr() == nullptr || position == NoPosition) {
        return position;
    }
    if (position == 0) {
        UTL::Warn(StreamMoved, "Unexpected Stream-Position");
        return 0;
    }
    return position - (egptr() - gptr());
}

CStdInStreambuf::int_type CStdInStreambuf::underflow()
{
    if (gptr() < egptr()) {
        return traits_type::to_int_type(*gptr());
    }
    // Read aside, so that a stream that raises leaves the buffer as it is.
    std::array<char, BufferSize> bytes;
    const std::size_t size = ReadPiece(*getStream(), bytes);
    if (size == 0) {
        return traits_type::eof();
    }
    SetBuffer({eback(), static_cast<std::size_t>(egptr() - eback())}, size);
    std::copy_n(bytes.begin(), size, Buffer());
    return traits_type::to_int_type(*gptr());
}

std::streamsize CStdInStreambuf::xsgetn(char* bytes, std::streamsize count)
{
    const std::streamsize buffered = std::clamp<std::streamsize>(count, 0, egptr() - gptr());
    std::copy_n(gptr(), buffered, bytes);
    setg(eback(), gptr() + buffered, egptr());
    if (buffered >= count) {
        return buffered;
    }
    std::streamsize done = buffered;
    while (done < count) {
        const Int64 read = getStream()->Read(bytes + done, count - done);
        if (read <= 0) {
            break;
        }
        done += read;
        // What can be put back are the bytes just read, not those of the buffer, even if the next read
        // raises.
        SetBuffer({bytes, static_cast<std::size_t>(done)}, 0);
    }
    return done;
}

CStdInStreambuf::int_type CStdInStreambuf::pbackfail(int_type c)
{
    return AStdStreambuf::pbackfail(c);
}

/// Makes the buffer `size` bytes long, which the caller fills, with the last bytes of `putBack` in front.
void CStdInStreambuf::SetBuffer(std::string_view putBack, std::size_t size)
{
    const std::size_t kept = std::min(putBack.size(), PutBackSize);
    if (kept > 0) {
        std::memmove(Buffer() - kept, putBack.data() + putBack.size() - kept, kept);
    }
    setg(Buffer() - kept, Buffer(), Buffer() + size);
}

} // namespace BTL
