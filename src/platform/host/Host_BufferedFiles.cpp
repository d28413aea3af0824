// SPDX-License-Identifier: MIT
#include "platform/host/Host_BufferedFiles.h"

#include "platform/host/internal/Host_FileRecord.h"

#include <atomic>
#include <cstdlib>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

#include <pthread.h>
#include <sys/stat.h>

namespace Host
{

namespace
{

/// How many files have buffers.
std::atomic<int> bufferedFiles{0};
std::atomic<bool> gatheringIsOver{false};

using FileKey = std::pair<dev_t, ino_t>;

FileKey KeyOf(const struct stat& status)
{
    return {status.st_dev, status.st_ino};
}

/// A record that leaves the registry with the last of its buffers.
class RegisteredRecord : public FileRecord
{
public:
    explicit RegisteredRecord(const FileKey& key) : mKey(key) { ++bufferedFiles; }
    RegisteredRecord(const RegisteredRecord&) = delete;
    RegisteredRecord& operator=(const RegisteredRecord&) = delete;
    ~RegisteredRecord();

private:
    const FileKey mKey;
};

struct Registry
{
    Registry()
    {
        std::atexit([] {
            gatheringIsOver = true;
            FlushAllBuffers();
        });
        // A child that runs the same code would write the bytes a second time.
        pthread_atfork(&FlushAllBuffers, nullptr, nullptr);
    }

    std::shared_ptr<FileRecord> Find(const FileKey& key)
    {
        const std::scoped_lock lock(gate);
        const auto found = files.find(key);
        return found == files.end() ? nullptr : found->second.lock();
    }

    std::shared_ptr<FileRecord> FindOrAdd(const FileKey& key)
    {
        const std::scoped_lock lock(gate);
        std::weak_ptr<FileRecord>& entry = files[key];
        std::shared_ptr<FileRecord> record = entry.lock();
        if (!record) {
            record = std::make_shared<RegisteredRecord>(key);
            entry = record;
        }
        return record;
    }

    void Remove(const FileKey& key)
    {
        const std::scoped_lock lock(gate);
        const auto found = files.find(key);
        // Another thread may have opened the file again.
        if (found != files.end() && found->second.expired()) {
            files.erase(found);
        }
    }

    std::vector<std::shared_ptr<FileRecord>> All()
    {
        const std::scoped_lock lock(gate);
        std::vector<std::shared_ptr<FileRecord>> records;
        for (const auto& [key, entry] : files) {
            records.push_back(entry.lock());
        }
        return records;
    }

    std::mutex gate;
    std::map<FileKey, std::weak_ptr<FileRecord>> files;
};

/// Never destroyed: streams may end after it would be.
Registry& Files()
{
    static auto* const instance = new Registry;
    return *instance;
}

RegisteredRecord::~RegisteredRecord()
{
    --bufferedFiles;
    Files().Remove(mKey);
}

} // namespace

std::shared_ptr<FileRecord> RecordOf(const struct stat& status)
{
    return Files().FindOrAdd(KeyOf(status));
}

bool IsGatheringOver()
{
    return gatheringIsOver;
}

void FlushBuffersOf(const struct stat& status)
{
    if (!FileRecord::IsAnyGathering()) {
        return;
    }
    if (const auto record = Files().Find(KeyOf(status))) {
        record->Flush();
    }
}

void FlushBuffersOf(int descriptor)
{
    struct stat status;
    if (FileRecord::IsAnyGathering() && fstat(descriptor, &status) == 0) {
        FlushBuffersOf(status);
    }
}

void FlushBuffersOf(const char* path)
{
    struct stat status;
    if (FileRecord::IsAnyGathering() && stat(path, &status) == 0) {
        FlushBuffersOf(status);
    }
}

void AgeBuffersOf(int descriptor)
{
    struct stat status;
    if (bufferedFiles == 0 || fstat(descriptor, &status) != 0) {
        return;
    }
    if (const auto record = Files().Find(KeyOf(status))) {
        record->Cut();
    }
}

void FlushAllBuffers()
{
    if (!FileRecord::IsAnyGathering()) {
        return;
    }
    for (const auto& record : Files().All()) {
        if (record) {
            record->Flush();
        }
    }
}

} // namespace Host
