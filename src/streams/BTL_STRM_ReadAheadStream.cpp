// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_ReadAheadStream.h"

#include "platform/runtime/classes/internal/Classes_StreamWindow.h"

#include <algorithm>

namespace BTL
{

using Classes::TStream;
using System::Int64;

namespace
{

constexpr std::size_t BlockSize = 0x4000;
/// What is read next, where little may be wanted and the rest is given back. Grows from one to the next.
constexpr std::size_t FirstFill = 64;
constexpr std::size_t FillGrowth = 4;

} // namespace

CReadAheadStream::CReadAheadStream(TStream* source) noexcept : mSource(source) {}

CReadAheadStream::CReadAheadStream(std::unique_ptr<TStream> source) noexcept
    : mOwned(std::move(source)), mSource(mOwned.get())
{
}

CReadAheadStream::~CReadAheadStream()
{
    if (!mOwned) {
        GiveBack();
    }
}

Int64 CReadAheadStream::Read(void* buffer, Int64 count)
{
    if (buffer == nullptr || count <= 0) {
        return 0;
    }
    if (mSize == 0 && (count >= static_cast<Int64>(BlockSize) || CanSeek())) {
        return mSource->Read(buffer, count);
    }
    const std::string_view bytes = Window().substr(0, static_cast<std::size_t>(count));
    std::copy(bytes.begin(), bytes.end(), static_cast<char*>(buffer));
    PassWindow(static_cast<Int64>(bytes.size()));
    return static_cast<Int64>(bytes.size());
}

Int64 CReadAheadStream::Write(const void* buffer, Int64 count)
{
    GiveBack();
    return mSource->Write(buffer, count);
}

Int64 CReadAheadStream::Seek(Int64 offset, Classes::TSeekOrigin origin)
{
    if (!CanSeek()) {
        return -1;
    }
    if (origin == Classes::soCurrent && offset >= 0 && offset <= static_cast<Int64>(mSize)) {
        PassWindow(offset);
        return mSource->Seek(0, Classes::soCurrent) - static_cast<Int64>(mSize);
    }
    GiveBack();
    Drop();
    return mSource->Seek(offset, origin);
}

Int64 CReadAheadStream::getSize() const
{
    return CanSeek() ? mSource->getSize() : -1;
}

void CReadAheadStream::setSize(Int64 size)
{
    GiveBack();
    mSource->setSize(size);
}

void CReadAheadStream::GiveBack()
{
    if (mSize == 0 || mSeeking != ESeeking::Works) {
        return;
    }
    try {
        if (mSource->Seek(-static_cast<Int64>(mSize), Classes::soCurrent) >= 0) {
            Drop();
            return;
        }
    } catch (const Sysutils::Exception&) { // NOLINT(bugprone-empty-catch): as a result of -1.
    } catch (const std::exception&) {      // NOLINT(bugprone-empty-catch)
    }
    // A stream that tells its position and yet can't go back: its bytes are kept.
    mSeeking = ESeeking::Fails;
}

std::string_view CReadAheadStream::Window()
{
    if (mSize == 0) {
        Fill();
    }
    return {mBlock.get() + mStart, mSize};
}

void CReadAheadStream::PassWindow(Int64 count)
{
    mStart += static_cast<std::size_t>(count);
    mSize -= static_cast<std::size_t>(count);
}

void CReadAheadStream::Fill()
{
    if (!mBlock) {
        mBlock = std::make_unique_for_overwrite<char[]>(BlockSize);
    }
    const bool isFirst = mSeeking == ESeeking::Unknown;
    const std::optional<Int64> before = isFirst ? Classes::ToldPosition(*mSource) : std::nullopt;
    mFillSize = std::clamp(mFillSize * FillGrowth, FirstFill, BlockSize);
    const Int64 count = std::max(mSource->Read(mBlock.get(), static_cast<Int64>(mFillSize)), Int64{0});
    mStart = 0;
    mSize = static_cast<std::size_t>(count);
    if (isFirst && (!before || count > 0)) {
        // One that tells the same position for ever can't seek either.
        const bool works = before && Classes::ToldPosition(*mSource) == *before + count;
        mSeeking = works ? ESeeking::Works : ESeeking::Fails;
    }
}

void CReadAheadStream::Drop() noexcept
{
    mSize = 0;
    mFillSize = 0;
}

bool CReadAheadStream::CanSeek() const
{
    if (mSeeking == ESeeking::Unknown) {
        return Classes::ToldPosition(*mSource).has_value();
    }
    return mSeeking == ESeeking::Works;
}

} // namespace BTL
