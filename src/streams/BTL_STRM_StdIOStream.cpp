// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StdIOStream.h"

#include "platform/runtime/classes/internal/Classes_StreamWindow.h"

namespace BTL
{

using Classes::TFileStream;
using Classes::TStream;
using System::UnicodeString;

namespace
{

/// Does with the position of the stream what `sync` says; `seek` moves the standard stream.
template <class Seek>
void Synchronize(TStream& stream, EStreamSync sync, Seek seek)
{
    if (sync != ssSync && sync != ssRewind) {
        return;
    }
    const std::optional<System::Int64> position = Classes::ToldPosition(stream);
    if (position.value_or(0) == 0) {
        return;
    }
    stream.setPosition(0);
    if (sync == ssSync) {
        seek(*position);
    }
}

} // namespace

CStdOutStream::CStdOutStream(TStream* stream, EStreamSync sync)
    : CStdOutStreambuf(stream), std::basic_ostream<char>(static_cast<std::streambuf*>(this))
{
    Synchronize(*getStream(), sync, [this](std::streampos position) { seekp(position); });
}

CStdOutStream::~CStdOutStream() = default;

CStdInStream::CStdInStream(TStream* stream, EStreamSync sync)
    : CStdInStreambuf(stream), std::basic_istream<char>(static_cast<std::streambuf*>(this))
{
    Synchronize(*getStream(), sync, [this](std::streampos position) { seekg(position); });
}

CStdInStream::~CStdInStream() = default;

CStdInFileStream::CStdInFileStream(std::unique_ptr<TFileStream> file)
    : CStdInStream(file.get(), ssSync), mFile(std::move(file))
{
}

CStdInFileStream::CStdInFileStream(const UnicodeString& path)
    : CStdInFileStream(path, Classes::fmOpenRead | Classes::fmShareDenyNone)
{
}

CStdInFileStream::CStdInFileStream(const UnicodeString& path, unsigned short mode)
    : CStdInFileStream(std::make_unique<TFileStream>(path, mode))
{
}

CStdInFileStream::CStdInFileStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : CStdInFileStream(std::unique_ptr<TFileStream>(CreateFileStream(path, mode, share)))
{
}

CStdInFileStream::~CStdInFileStream() = default;

CStdOutFileStream::CStdOutFileStream(std::unique_ptr<TFileStream> file)
    : CStdOutStream(file.get(), ssSync), mFile(std::move(file))
{
}

CStdOutFileStream::CStdOutFileStream(const UnicodeString& path)
    : CStdOutFileStream(path, Classes::fmOpenWrite | Classes::fmShareDenyNone)
{
}

CStdOutFileStream::CStdOutFileStream(const UnicodeString& path, unsigned short mode)
    : CStdOutFileStream(std::make_unique<TFileStream>(path, mode))
{
}

CStdOutFileStream::CStdOutFileStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : CStdOutFileStream(std::unique_ptr<TFileStream>(CreateFileStream(path, mode, share)))
{
}

CStdOutFileStream::~CStdOutFileStream() = default;

} // namespace BTL
