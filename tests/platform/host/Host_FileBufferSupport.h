// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/Host_FileSupport.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace Support
{

inline std::string ReadSome(Classes::TStream& stream, System::Int64 count)
{
    std::string bytes(static_cast<std::size_t>(count), '\0');
    bytes.resize(static_cast<std::size_t>(stream.Read(bytes.data(), count)));
    return bytes;
}

inline void WriteText(Classes::TStream& stream, std::string_view text)
{
    stream.WriteBuffer(text.data(), static_cast<System::Int64>(text.size()));
}

/// A test with one file, which streams read and write through their buffers.
class BufferedFileTest : public FolderTest
{
protected:
    const std::filesystem::path mFile = Host("data");
    const System::UnicodeString mPath = System::FromUtf8(mFile.string());
};

} // namespace Support
