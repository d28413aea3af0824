// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StandardStreams.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_OpenFile.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

namespace BTL
{

using Host::StandardStream;
using System::Int64;
using System::NativeInt;
using System::UnicodeString;

namespace
{

constexpr std::size_t BufferSize = 0x10000;

template <class Fault>
NativeInt Open(StandardStream stream, const UnicodeString& name)
{
    const NativeInt handle = Host::OpenStandardStream(stream);
    if (handle == Host::InvalidHandle) {
        throw Fault(u"Cannot open " + name + u". " + Sysutils::SysErrorMessage(GetLastError()));
    }
    return handle;
}

class CStandardInput : public Classes::THandleStream
{
public:
    CStandardInput() : THandleStream(Open<Classes::EFOpenError>(StandardStream::Input, u"standard input")) {}
    ~CStandardInput() override { Host::CloseFile(ReleaseHandle()); }
};

/// Gathers in memory of its own: the buffers of files know the position of their file, which is others' here.
class CStandardOutput : public Classes::THandleStream
{
public:
    CStandardOutput(StandardStream stream, const UnicodeString& name)
        : CStandardOutput(Open<Classes::EFCreateError>(stream, name), stream, name)
    {
    }
    ~CStandardOutput() override
    {
        WriteGathered();
        Host::CloseFile(ReleaseHandle());
    }

    Int64 Write(const void* buffer, Int64 count) override;
    Int64 Seek(Int64 offset, Classes::TSeekOrigin origin) override;
    void Flush() const override;

private:
    CStandardOutput(NativeInt handle, StandardStream stream, const UnicodeString& name)
        : THandleStream(handle),
          mHandle(handle),
          mName(name),
          mGathers(stream == StandardStream::Output && !Host::IsTerminal(handle))
    {
    }
    UnicodeString FileInMessage() const override { return u" in " + mName; }
    /// Whether the host took all. What it doesn't take is given up.
    bool WriteGathered() const;

    NativeInt mHandle;
    UnicodeString mName;
    bool mGathers;
    mutable std::string mGathered;
};

Int64 CStandardOutput::Write(const void* buffer, Int64 count)
{
    if (!mGathers || buffer == nullptr || count <= 0) {
        return THandleStream::Write(buffer, count);
    }
    mGathered.append(static_cast<const char*>(buffer), static_cast<std::size_t>(count));
    return mGathered.size() < BufferSize || WriteGathered() ? count : 0;
}

Int64 CStandardOutput::Seek(Int64 offset, Classes::TSeekOrigin origin)
{
    Flush();
    return THandleStream::Seek(offset, origin);
}

void CStandardOutput::Flush() const
{
    if (!WriteGathered()) {
        RaiseWriteError();
    }
}

bool CStandardOutput::WriteGathered() const
{
    // The host may take a part and tell why not all of it only when asked again.
    std::string_view left = mGathered;
    Int64 done = 1;
    while (!left.empty() && done > 0) {
        done = Host::WriteFile(mHandle, left.data(), static_cast<Int64>(left.size()));
        left.remove_prefix(static_cast<std::size_t>(std::max(done, Int64{0})));
    }
    const bool isDone = left.empty();
    mGathered.clear();
    return isDone;
}

} // namespace

CTextReader StandardInput(const Sysutils::TEncoding& encoding, EDecoding decoding)
{
    return CTextReader(std::make_unique<CStandardInput>(), encoding, decoding);
}

CTextWriter StandardOutput(const TTextForm& form)
{
    return CTextWriter(std::make_unique<CStandardOutput>(StandardStream::Output, u"standard output"), form);
}

CTextWriter StandardError(const TTextForm& form)
{
    return CTextWriter(std::make_unique<CStandardOutput>(StandardStream::Error, u"standard error"), form);
}

} // namespace BTL
