// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

struct stat;

// The files of this process that have buffers over them. Who reads, asks or writes past these buffers says so
// here, so that nobody sees a file without what is gathered for it.

namespace Host
{

class FileRecord;

/// The record that all buffers over this file share; made with the first of them, gone with the last.
[[nodiscard]] std::shared_ptr<FileRecord> RecordOf(const struct stat& status);

/// Whether the process ends, so that nobody comes after to write what is gathered now.
[[nodiscard]] bool IsGatheringOver();

/// To be called before the file is read, queried or written past the buffers: writes what they gathered for
/// it.
void FlushBuffersOf(int descriptor);
void FlushBuffersOf(const char* path);
void FlushBuffersOf(const struct stat& status);
/// To be called after the file was written or cut past the buffers: what they read ahead is old, and room
/// that the host set aside may be gone.
void AgeBuffersOf(int descriptor);

/// Writes what is gathered for any file of the process, for those who open the files by other means.
void FlushAllBuffers();

} // namespace Host
