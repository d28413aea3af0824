// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileBuffer.h"

#include "platform/host/Host_BufferedFiles.h"
#include "platform/host/Host_Error.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_FileRecord.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <utility>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

using System::Int64;
using System::NativeInt;

namespace
{

constexpr std::size_t BufferSize = std::size_t{1} << 16;
/// The first bytes read somewhere; each further piece in a row doubles, so that jumps cost little.
constexpr std::size_t FirstFill = std::size_t{1} << 12;
/// From here on the host tells which positions it can have.
constexpr Int64 FarAway = Int64{1} << 40;
/// What hosts hand out at least.
constexpr Int64 BlockSize = 4096;

Int64 ReadAt(int descriptor, Int64 position, char* buffer, Int64 count)
{
    return ReadPieces(count, [&](Int64 offset, std::size_t piece) {
        return pread(descriptor, buffer + offset, piece, position + offset);
    });
}

Int64 WriteAt(int descriptor, Int64 position, const char* buffer, Int64 count)
{
    return WritePieces(count, [&](Int64 offset, std::size_t piece) {
        return pwrite(descriptor, buffer + offset, piece, position + offset);
    });
}

} // namespace

std::unique_ptr<FileBuffer> FileBuffer::Attach(NativeInt handle)
{
    const auto descriptor = static_cast<int>(handle);
    struct stat status;
    const int flags = fcntl(descriptor, F_GETFL);
    if (flags == -1 || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        return nullptr;
    }
    const Rights rights = (flags & O_ACCMODE) == O_RDONLY ? Rights::Read : Rights::Write;
    return std::unique_ptr<FileBuffer>(new FileBuffer(descriptor, rights, RecordOf(status)));
}

FileBuffer::FileBuffer(int descriptor, Rights rights, std::shared_ptr<FileRecord> record)
    : mDescriptor(descriptor),
      mCanWrite(rights == Rights::Write),
      mRecord(std::move(record)),
      mPosition(std::max(lseek(descriptor, 0, SEEK_CUR), off_t{0}))
{
}

FileBuffer::~FileBuffer()
{
    if (mRecord->IsGathering()) {
        mRecord->Flush();
    }
    if (const unsigned long error = TakeError()) {
        SetLastError(error);
    }
}

Int64 FileBuffer::Read(void* buffer, Int64 count)
{
    Synchronize();
    auto* out = static_cast<char*>(buffer);
    Int64 left = count;
    while (left > 0) {
        std::string_view bytes = AtPosition();
        if (bytes.empty() && left >= static_cast<Int64>(BufferSize)) {
            const Int64 done = std::max(ReadAt(mDescriptor, mPosition, out, left), Int64{0});
            mPosition += done;
            left -= done;
            break;
        }
        if (bytes.empty()) {
            Fill();
            bytes = AtPosition();
        }
        if (bytes.empty()) {
            break;
        }
        bytes = bytes.substr(0, static_cast<std::size_t>(left));
        out = std::copy(bytes.begin(), bytes.end(), out);
        mPosition += static_cast<Int64>(bytes.size());
        left -= static_cast<Int64>(bytes.size());
    }
    return count - left;
}

Int64 FileBuffer::Write(const void* buffer, Int64 count)
{
    const auto* const bytes = static_cast<const char*>(buffer);
    const std::scoped_lock lock(mRecord->Gate());
    const bool mayGather = MayGather(count);
    if (!mayGather || mGatheredSize + static_cast<std::size_t>(count) > BufferSize ||
        mRecord->OthersGather(this)) {
        mRecord->FlushLocked();
    }
    if (mError != 0) {
        return 0;
    }
    if (mPosition != mRowEnd) {
        mRowStart = mPosition;
    }
    if (mayGather) {
        Gather(bytes, count);
    } else {
        count = WriteNow(bytes, count);
    }
    mPosition += count;
    mRowEnd = mPosition;
    return count;
}

/// Whether the next bytes go on where the last ones ended, and have room there.
bool FileBuffer::MayGather(Int64 count)
{
    if (mPosition != mRowEnd || count >= static_cast<Int64>(BufferSize) || !mCanWrite ||
        mPosition > FarAway || IsGatheringOver()) {
        return false;
    }
    const bool isThere = mPosition + count <= mRoomEnd && mRoomCuts == mRecord->Cuts();
    return isThere || (mCanSetAside && SetAside(count));
}

/// Has the host set aside room for the next bytes, and the more beyond them the longer the row is: what isn't
/// used stays with the file until it is written anew.
bool FileBuffer::SetAside(Int64 count)
{
    const Int64 beyond = std::min((mPosition - mRowStart) / 8, static_cast<Int64>(BufferSize));
    const Int64 end = (mPosition + count + beyond + BlockSize - 1) / BlockSize * BlockSize;
    rlimit limit;
    if (getrlimit(RLIMIT_FSIZE, &limit) != 0 || static_cast<rlim_t>(end) > limit.rlim_cur) {
        return false;
    }
    mRoomCuts = mRecord->Cuts();
    const int failure = Uninterrupted(
        [&] { return fallocate(mDescriptor, FALLOC_FL_KEEP_SIZE, mPosition, end - mPosition); });
    if (failure != 0) {
        mCanSetAside = errno != EOPNOTSUPP && errno != ENOSYS;
        return false;
    }
    mRoomEnd = end;
    return true;
}

Int64 FileBuffer::WriteNow(const char* bytes, Int64 count)
{
    const Int64 done = std::max(WriteAt(mDescriptor, mPosition, bytes, count), Int64{0});
    mRecord->Age();
    return done;
}

void FileBuffer::Gather(const char* bytes, Int64 count)
{
    if (!mGathered) {
        mGathered = std::make_unique_for_overwrite<char[]>(BufferSize);
    }
    if (mGatheredSize == 0) {
        mGatheredStart = mPosition;
        mRecord->Add(this);
    }
    std::memcpy(mGathered.get() + mGatheredSize, bytes, static_cast<std::size_t>(count));
    mGatheredSize += static_cast<std::size_t>(count);
}

Int64 FileBuffer::Seek(Int64 offset, int origin)
{
    const Int64 base = origin == SEEK_SET ? 0 : origin == SEEK_CUR ? mPosition : Size();
    Int64 target = 0;
    if (origin < SEEK_SET || origin > SEEK_END || base < 0) {
        Fail(ERROR_INVALID_PARAMETER);
        return -1;
    }
    if (__builtin_add_overflow(base, offset, &target) || target < 0 ||
        (target > FarAway && lseek(mDescriptor, target, SEEK_SET) < 0)) {
        Fail(ERROR_NEGATIVE_SEEK);
        return -1;
    }
    if (origin != SEEK_CUR) {
        // Other programs may have written meanwhile. Scanning moves by `SEEK_CUR` and keeps its bytes.
        mWindowSize = 0;
    }
    return mPosition = target;
}

bool FileBuffer::Resize(Int64 size)
{
    const std::scoped_lock lock(mRecord->Gate());
    mRecord->FlushLocked();
    if (!SetSize(mDescriptor, size)) {
        return false;
    }
    mRecord->Cut();
    return true;
}

std::string_view FileBuffer::Window()
{
    Synchronize();
    if (AtPosition().empty()) {
        Fill();
    }
    return AtPosition();
}

Int64 FileBuffer::Size()
{
    Synchronize();
    struct stat status;
    if (fstat(mDescriptor, &status) != 0) {
        FailErrno();
        return -1;
    }
    return status.st_size;
}

void FileBuffer::Flush()
{
    Synchronize();
    lseek(mDescriptor, mPosition, SEEK_SET);
}

unsigned long FileBuffer::TakeError()
{
    if (!HasError()) {
        return 0;
    }
    const std::scoped_lock lock(mRecord->Gate());
    if (mPosition == mLostEnd) {
        mPosition = mLostStart;
    }
    return mError.exchange(0);
}

/// Makes what the buffers over this file gathered visible, and forgets what is old.
void FileBuffer::Synchronize()
{
    if (mRecord->IsGathering()) {
        mRecord->Flush();
    }
    if (mWindowVersion != mRecord->Version()) {
        mWindowSize = 0;
    }
}

void FileBuffer::Fill()
{
    const bool isInRow = mWindowSize != 0 && mPosition == mWindowStart + static_cast<Int64>(mWindowSize);
    mFillSize = isInRow ? std::min(mFillSize * 2, BufferSize) : FirstFill;
    if (!mWindow) {
        mWindow = std::make_unique_for_overwrite<char[]>(BufferSize);
    }
    mWindowVersion = mRecord->Version();
    mWindowStart = mPosition;
    const Int64 done = ReadAt(mDescriptor, mPosition, mWindow.get(), static_cast<Int64>(mFillSize));
    mWindowSize = static_cast<std::size_t>(std::max(done, Int64{0}));
}

std::string_view FileBuffer::AtPosition() const
{
    const Int64 offset = mPosition - mWindowStart;
    if (offset < 0 || offset >= static_cast<Int64>(mWindowSize)) {
        return {};
    }
    return {mWindow.get() + offset, mWindowSize - static_cast<std::size_t>(offset)};
}

void FileBuffer::WriteGathered()
{
    const auto size = static_cast<Int64>(std::exchange(mGatheredSize, 0));
    const Int64 done = std::max(WriteAt(mDescriptor, mGatheredStart, mGathered.get(), size), Int64{0});
    mRecord->Age();
    if (done < size) {
        mLostStart = mGatheredStart + done;
        mLostEnd = mGatheredStart + size;
        mError = GetLastError();
    }
}

} // namespace Host
