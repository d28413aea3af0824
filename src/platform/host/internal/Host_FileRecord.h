// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <vector>

namespace Host
{

class FileBuffer;

/// What the buffers over one file know of each other.
class FileRecord
{
public:
    FileRecord(const FileRecord&) = delete;
    FileRecord& operator=(const FileRecord&) = delete;

    /// Whether a buffer of any file holds gathered bytes.
    static bool IsAnyGathering() { return gatheringBuffers != 0; }

    /// Guards the list and the gathered bytes of the buffers in it.
    std::mutex& Gate() { return mGate; }

    bool IsGathering() const { return mCount.load(std::memory_order_acquire) != 0; }
    /// Changes with each write to the file.
    unsigned Version() const { return mVersion.load(std::memory_order_acquire); }
    void Age() { mVersion.fetch_add(1, std::memory_order_acq_rel); }
    /// Changes when the file may have lost the room that the host set aside for it.
    unsigned Cuts() const { return mCuts.load(std::memory_order_acquire); }
    void Cut()
    {
        mCuts.fetch_add(1, std::memory_order_acq_rel);
        Age();
    }

    /// Writes what the buffers gathered.
    void Flush();
    /// As `Flush`, for who holds the gate.
    void FlushLocked();
    /// Whether a buffer besides `own` gathers.
    bool OthersGather(const FileBuffer* own) const
    {
        return !mGathering.empty() && (mGathering.size() > 1 || mGathering.front() != own);
    }
    /// The buffer begins to gather; the gate is held.
    void Add(FileBuffer* buffer);

protected:
    FileRecord() = default;
    ~FileRecord() = default;

private:
    inline static std::atomic<int> gatheringBuffers{0};

    std::mutex mGate;
    std::vector<FileBuffer*> mGathering;
    std::atomic<std::size_t> mCount{0};
    std::atomic<unsigned> mVersion{0};
    std::atomic<unsigned> mCuts{0};
};

} // namespace Host
