// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <atomic>
#include <memory>
#include <string_view>

namespace Host
{

class FileRecord;

/// A buffer over an open plain file that it doesn't own, which has a position of its own: bytes are read
/// ahead, and written ones are gathered. Bytes are gathered only where they go on behind those written last
/// and the host has set aside room for them, so that a full disk shows with the write that it refuses; all
/// others are written at once. Nobody else may use the handle meanwhile. The buffers over one file
/// know each other, and the calls of `Host` know them: each sees what the others wrote, as if there were no
/// buffers. What is written past them all, as by other programs, shows behind a seek from the beginning or
/// the end.
///
/// Belongs to one thread at a time. Gathered bytes may be written by another thread that uses the same file.
class FileBuffer
{
public:
    /// Null if the handle is no plain file.
    [[nodiscard]] static std::unique_ptr<FileBuffer> Attach(System::NativeInt handle);
    FileBuffer(const FileBuffer&) = delete;
    FileBuffer& operator=(const FileBuffer&) = delete;
    /// Writes what is gathered; a failure sets the last error.
    ~FileBuffer();

    // As the functions of the same names on a handle, but that a failure to read or write counts as nothing
    // done.

    System::Int64 Read(void* buffer, System::Int64 count);
    System::Int64 Write(const void* buffer, System::Int64 count);
    System::Int64 Seek(System::Int64 offset, int origin);
    [[nodiscard]] bool Resize(System::Int64 size);

    /// Bytes from the position on that are in memory already, some of them read just now if there were none.
    /// Empty at the end and on a failure. Valid until the next call.
    std::string_view Window();
    /// -1 on a failure.
    System::Int64 Size();
    /// Writes what is gathered and sets the position of the handle to that of the buffer.
    void Flush();

    /// The error with which writing gathered bytes failed since the last call; 0 for none. These bytes are
    /// lost: the disk itself failed, or another program took away the room that they had. Where the position
    /// stood behind them, it goes back to the first lost one.
    unsigned long TakeError();
    /// Whether `TakeError` has one to give.
    bool HasError() const noexcept { return mError.load(std::memory_order_acquire) != 0; }

private:
    friend class FileRecord;

    enum class Rights
    {
        Read,
        Write,
    };

    FileBuffer(int descriptor, Rights rights, std::shared_ptr<FileRecord> record);
    void Synchronize();
    void Fill();
    std::string_view AtPosition() const;
    bool MayGather(System::Int64 count);
    bool SetAside(System::Int64 count);
    System::Int64 WriteNow(const char* bytes, System::Int64 count);
    void Gather(const char* bytes, System::Int64 count);
    /// Called by the record under its lock.
    void WriteGathered();

    const int mDescriptor;
    const bool mCanWrite;
    const std::shared_ptr<FileRecord> mRecord;
    System::Int64 mPosition = 0;

    std::unique_ptr<char[]> mWindow;
    System::Int64 mWindowStart = 0;
    std::size_t mWindowSize = 0;
    unsigned mWindowVersion = 0;
    std::size_t mFillSize = 0;

    /// The bytes written last, one behind the other.
    System::Int64 mRowStart = 0;
    System::Int64 mRowEnd = -1;
    /// Up to where the host has set aside room for the row, unless the file was cut since.
    System::Int64 mRoomEnd = 0;
    unsigned mRoomCuts = 0;
    bool mCanSetAside = true;

    // Guarded by the record.
    std::unique_ptr<char[]> mGathered;
    System::Int64 mGatheredStart = 0;
    std::size_t mGatheredSize = 0;
    System::Int64 mLostStart = 0;
    System::Int64 mLostEnd = 0;

    std::atomic<unsigned long> mError{0};
};

} // namespace Host
