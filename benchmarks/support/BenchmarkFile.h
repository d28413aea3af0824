// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/Host_Path.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

/// A file that goes with its object. There is one at a time.
class BenchmarkFile
{
public:
    BenchmarkFile() : mPath(std::filesystem::temp_directory_path() / ("bench_" + std::to_string(getpid()))) {}
    explicit BenchmarkFile(const std::string& content) : BenchmarkFile() { Write(content); }
    BenchmarkFile(const BenchmarkFile&) = delete;
    BenchmarkFile& operator=(const BenchmarkFile&) = delete;
    ~BenchmarkFile()
    {
        std::error_code ignored;
        std::filesystem::remove(mPath, ignored);
    }

    std::string HostName() const { return mPath.string(); }
    System::UnicodeString Name() const { return Sysutils::FromHostPath(mPath.string()); }
    void Write(const std::string& content) const { std::ofstream(mPath, std::ios::binary) << content; }

private:
    std::filesystem::path mPath;
};
