// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_InStream.h"

#include <cstdint>
#include <memory>

namespace BTL
{

using Classes::TStream;
using System::AnsiString;
using System::Int64;
using System::UInt64;
using System::UnicodeString;

namespace
{

TStream* MemoryWith(const char* data, Int64 count)
{
    auto stream = std::make_unique<Classes::TMemoryStream>();
    if (data != nullptr) {
        stream->Write(data, count);
    }
    stream->setPosition(0);
    return stream.release();
}

} // namespace

CInStream::CInStream(TStream* stream, EStreamSync sync, bool ownsStream) : AStream(stream, sync, ownsStream)
{
}

CInStream::CInStream(TStream* stream, EStreamSync sync) : CInStream(stream, sync, false) {}

CInStream::CInStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : AStream(path, mode, share)
{
}

CInStream::CInStream(const char* data, Int64 count) : AStream(MemoryWith(data, count), true) {}

CInStream::CInStream(const AnsiString& bytes) : CInStream(bytes.c_str(), bytes.Length()) {}

CInStream::~CInStream() = default;

char CInStream::get()
{
    return DoGetChar();
}

CInStream& CInStream::get(char& c)
{
    c = DoGetChar();
    return *this;
}

CInStream& CInStream::get(char* buffer, Int64 count)
{
    return get(buffer, count, '\0');
}

CInStream& CInStream::get(char* buffer, Int64 count, char delimiter)
{
    DoGet(buffer, count, delimiter);
    return *this;
}

CInStream& CInStream::getline(char* buffer, Int64 count)
{
    return getline(buffer, count, '\n');
}

CInStream& CInStream::getline(char* buffer, Int64 count, char delimiter)
{
    DoGetLine(buffer, count, delimiter);
    return *this;
}

CInStream& CInStream::read(char* buffer, Int64 count)
{
    DoRead(buffer, count);
    return *this;
}

Int64 CInStream::peek() const
{
    return GetPosition();
}

Int64 CInStream::tellg() const
{
    return GetPosition();
}

CInStream& CInStream::seekg(Int64 position)
{
    seekpos(position);
    return *this;
}

CInStream& CInStream::seekg(Int64 offset, std::ios_base::seekdir direction)
{
    seekoff(offset, direction);
    return *this;
}

template <class T>
CInStream& CInStream::ReadSigned(T& value)
{
    value = static_cast<T>(ReadInt64());
    return *this;
}

template <class T>
CInStream& CInStream::ReadUnsigned(T& value)
{
    value = static_cast<T>(ReadUInt64());
    return *this;
}

CInStream& CInStream::operator>>(char& value)
{
    DoSkipWhiteSpaces();
    return get(value);
}

CInStream& CInStream::operator>>(bool& value)
{
    value = ReadInt64() != 0;
    return *this;
}

CInStream& CInStream::operator>>(short& value)
{
    return ReadSigned(value);
}

CInStream& CInStream::operator>>(unsigned short& value)
{
    return ReadUnsigned(value);
}

CInStream& CInStream::operator>>(int& value)
{
    return ReadSigned(value);
}

CInStream& CInStream::operator>>(unsigned& value)
{
    return ReadUnsigned(value);
}

CInStream& CInStream::operator>>(long& value)
{
    return ReadSigned(value);
}

CInStream& CInStream::operator>>(unsigned long& value)
{
    return ReadUnsigned(value);
}

CInStream& CInStream::operator>>(Int64& value)
{
    return ReadSigned(value);
}

CInStream& CInStream::operator>>(UInt64& value)
{
    return ReadUnsigned(value);
}

CInStream& CInStream::operator>>(float& value)
{
    value = ReadFloat();
    return *this;
}

CInStream& CInStream::operator>>(double& value)
{
    value = ReadDouble();
    return *this;
}

CInStream& CInStream::operator>>(long double& value)
{
    value = ReadLDouble();
    return *this;
}

CInStream& CInStream::operator>>(void*& value)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a pointer is read as the number it was written as.
    value = reinterpret_cast<void*>(static_cast<std::intptr_t>(ReadInt64()));
    return *this;
}

CInStream& CInStream::operator>>(AnsiString& value)
{
    DoReadWord(value);
    return *this;
}

CInStream& CInStream::operator>>(UnicodeString& value)
{
    AnsiString bytes;
    *this >> bytes;
    value = bytes;
    return *this;
}

} // namespace BTL
