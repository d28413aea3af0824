// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace Support
{

/// A stream that comes to its bytes only by its own `Read`, and to few at a time.
class ReadOnlyByRead : public Classes::TMemoryStream
{
public:
    ~ReadOnlyByRead() override = default;
    System::Int64 Read(void* buffer, System::Int64 count) override
    {
        return Classes::TMemoryStream::Read(buffer, std::min<System::Int64>(count, 2));
    }
};

/// Every way in which a stream can come to its bytes: all in memory, from a file, or only by its own `Read`.
enum class EStreamKind
{
    Memory,
    File,
    Handle,
    Read
};

/// Runs a test on each kind of stream; a suite instantiates it with `EveryStreamKind`.
class AnyStreamTest : public testing::TestWithParam<EStreamKind>
{
protected:
    Classes::TStream* With(std::string_view content)
    {
        auto stream = Make();
        stream->WriteBuffer(content.data(), static_cast<System::Int64>(content.size()));
        stream->setPosition(0);
        mStreams.push_back(std::move(stream));
        return mStreams.back().get();
    }

    /// What `read` gives on a stream, and where the position then is.
    template <class Read>
    auto After(std::string_view content, Read read)
    {
        Classes::TStream* const stream = With(content);
        auto result = read(stream);
        return std::pair(result, stream->getPosition());
    }

private:
    std::unique_ptr<Classes::TStream> Make()
    {
        switch (GetParam()) {
        case EStreamKind::Memory:
            return std::make_unique<Classes::TMemoryStream>();
        case EStreamKind::Read:
            return std::make_unique<ReadOnlyByRead>();
        default:
            break;
        }
        const System::UnicodeString path =
            System::FromUtf8((mFolder.Path() / std::to_string(mStreams.size())).string());
        auto file = std::make_unique<Classes::TFileStream>(path, Classes::fmCreate);
        if (GetParam() == EStreamKind::Handle) {
            auto handle = std::make_unique<Classes::THandleStream>(file->getHandle());
            mStreams.push_back(std::move(file));
            return handle;
        }
        return file;
    }

    TempFolder mFolder;
    std::vector<std::unique_ptr<Classes::TStream>> mStreams;
};

inline const auto EveryStreamKind =
    testing::Values(EStreamKind::Memory, EStreamKind::File, EStreamKind::Handle, EStreamKind::Read);

} // namespace Support
