// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Support
{

/// A stream class of a user's own that only reads, seven bytes at a time, and counts what it is asked for.
class OwnReader : public Classes::TStream
{
public:
    explicit OwnReader(std::string_view content) : mContent(content) {}
    ~OwnReader() override = default;

    System::Int64 Read(void* buffer, System::Int64 count) override
    {
        ++reads;
        const std::string_view piece = std::string_view(mContent).substr(
            mPosition, static_cast<std::size_t>(std::min<System::Int64>(count, 7)));
        std::copy(piece.begin(), piece.end(), static_cast<char*>(buffer));
        mPosition += piece.size();
        return static_cast<System::Int64>(piece.size());
    }
    System::Int64 Write(const void*, System::Int64) override { return 0; }
    System::Int64 Seek(System::Int64, Classes::TSeekOrigin) override
    {
        ++seeks;
        return -1;
    }

    int reads = 0;
    int seeks = 0;

private:
    std::string mContent;
    std::size_t mPosition = 0;
};

/// As `OwnReader`, but one that refuses to seek loudly.
class RaisingReader : public OwnReader
{
public:
    using OwnReader::OwnReader;
    ~RaisingReader() override = default;
    System::Int64 Seek(System::Int64, Classes::TSeekOrigin) override
    {
        throw Classes::EStreamError(u"this class only reads");
    }
};

/// The kinds of streams that can't seek.
enum class EForwardKind
{
    Pipe,
    Socket,
    /// By its name in the file system.
    NamedPipe,
    OwnReader,
    RaisingReader
};

/// Runs a test on each kind of stream that can't seek; a suite instantiates it with `EveryForwardKind`.
class ForwardOnlyTest : public testing::TestWithParam<EForwardKind>
{
protected:
    ~ForwardOnlyTest() override
    {
        mStreams.clear();
        std::for_each(mHandles.begin(), mHandles.end(), close);
        for (std::thread& writer : mWriters) {
            writer.join();
        }
    }

    bool IsOwnClass() const
    {
        return GetParam() == EForwardKind::OwnReader || GetParam() == EForwardKind::RaisingReader;
    }

    Classes::TStream* With(const std::string& content)
    {
        mStreams.push_back(Make(content));
        return mStreams.back().get();
    }

    /// The path of a named pipe that gives `content`.
    System::UnicodeString NamedPipe(const std::string& content)
    {
        const std::string path = (mFolder.Path() / std::to_string(mWriters.size())).string();
        EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
        mWriters.emplace_back([path, content] { WriteAll(open(path.c_str(), O_WRONLY), content); });
        return System::FromUtf8(path);
    }

private:
    static void WriteAll(int descriptor, std::string_view content)
    {
        while (!content.empty()) {
            const ssize_t done =
                write(descriptor, content.data(), std::min(content.size(), std::size_t{1000}));
            if (done <= 0) {
                break;
            }
            content.remove_prefix(static_cast<std::size_t>(done));
        }
        close(descriptor);
    }

    std::unique_ptr<Classes::TStream> Make(const std::string& content)
    {
        switch (GetParam()) {
        case EForwardKind::NamedPipe:
            return std::make_unique<Classes::TFileStream>(NamedPipe(content), Classes::fmOpenRead);
        case EForwardKind::OwnReader:
            return std::make_unique<OwnReader>(content);
        case EForwardKind::RaisingReader:
            return std::make_unique<RaisingReader>(content);
        default:
            break;
        }
        std::array<int, 2> ends{};
        EXPECT_EQ(GetParam() == EForwardKind::Pipe ? pipe(ends.data())
                                                   : socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()),
                  0);
        mHandles.push_back(ends[0]);
        mWriters.emplace_back([=] { WriteAll(ends[1], content); });
        return std::make_unique<Classes::THandleStream>(ends[0]);
    }

    TempFolder mFolder;
    std::vector<std::unique_ptr<Classes::TStream>> mStreams;
    std::vector<int> mHandles;
    std::vector<std::thread> mWriters;
};

inline const auto EveryForwardKind =
    testing::Values(EForwardKind::Pipe, EForwardKind::Socket, EForwardKind::NamedPipe,
                    EForwardKind::OwnReader, EForwardKind::RaisingReader);

} // namespace Support
