// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_FileRecord.h"

#include "platform/host/Host_FileBuffer.h"

namespace Host
{

void FileRecord::Flush()
{
    const std::scoped_lock lock(mGate);
    FlushLocked();
}

void FileRecord::FlushLocked()
{
    for (FileBuffer* const buffer : mGathering) {
        buffer->WriteGathered();
    }
    gatheringBuffers -= static_cast<int>(mGathering.size());
    mGathering.clear();
    mCount = 0;
}

void FileRecord::Add(FileBuffer* buffer)
{
    mGathering.push_back(buffer);
    ++mCount;
    ++gatheringBuffers;
}

} // namespace Host
