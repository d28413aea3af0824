// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_OutStream.h"

#include "foundation/UTL_Links.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "streams/internal/BTL_STRM_Scan.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace BTL
{

using Classes::TStream;
using System::AnsiString;
using System::Int64;
using System::UInt64;
using System::UnicodeString;
using System::WideChar;

namespace
{

// The variants of the foundation write themselves into streams.
[[maybe_unused]] const bool linked = [] {
    UTL::Links().Write = [](COutStream& stream, std::string_view text) {
        stream.write(text.data(), static_cast<Int64>(text.size()));
    };
    return true;
}();

} // namespace

COutStream::COutStream() : AStream(new Classes::TMemoryStream, true) {}

COutStream::COutStream(TStream* stream, EStreamSync sync, bool ownsStream) : AStream(stream, sync, ownsStream)
{
}

COutStream::COutStream(TStream* stream, EStreamSync sync) : COutStream(stream, sync, false) {}

COutStream::COutStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : AStream(path, mode, share)
{
}

COutStream::~COutStream() = default;

COutStream& COutStream::put(char c)
{
    DoWriteChar(c);
    return *this;
}

COutStream& COutStream::write(const char* bytes, Int64 count)
{
    if (count > 0) {
        DoWrite(bytes, count);
    }
    return *this;
}

Int64 COutStream::tellp() const
{
    return GetPosition();
}

COutStream& COutStream::seekp(Int64 position)
{
    seekpos(position);
    return *this;
}

COutStream& COutStream::seekp(Int64 offset, std::ios_base::seekdir direction)
{
    seekoff(offset, direction);
    return *this;
}

COutStream& COutStream::Write_V(const char* format, System::TVarArgs arguments)
{
    return *this << System::PrintfA(format, arguments);
}

COutStream& COutStream::Write_V(const WideChar* format, System::TVarArgs arguments)
{
    return *this << System::Printf(format, arguments);
}

AnsiString COutStream::str(int position) const
{
    TStream& stream = *getStream();
    const Int64 former = stream.getPosition();
    stream.setPosition(std::max(position, 0));
    AnsiString text;
    Detail::ReadTo(stream, Detail::GFindIf{[](char c) { return static_cast<unsigned char>(c) < 5; }},
                   Detail::AppendTo(text));
    stream.setPosition(former);
    return text;
}

COutStream& COutStream::WriteBytes(std::string_view bytes)
{
    return write(bytes.data(), static_cast<Int64>(bytes.size()));
}

template <class T>
COutStream& COutStream::WriteInteger(T value)
{
    std::array<char, 24> text;
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return write(text.data(), end - text.data());
}

COutStream& COutStream::operator<<(char value)
{
    return put(value);
}

COutStream& COutStream::operator<<(bool value)
{
    return put(value ? '1' : '0');
}

COutStream& COutStream::operator<<(short value)
{
    return WriteInteger(value);
}

COutStream& COutStream::operator<<(unsigned short value)
{
    return WriteInteger(value);
}

COutStream& COutStream::operator<<(int value)
{
    return WriteInteger(value);
}

COutStream& COutStream::operator<<(unsigned value)
{
    return WriteInteger(value);
}

COutStream& COutStream::operator<<(long value)
{
    return WriteInteger(value);
}

COutStream& COutStream::operator<<(unsigned long value)
{
    return WriteInteger(value);
}

COutStream& COutStream::operator<<(Int64 value)
{
    return WriteInteger(value);
}

COutStream& COutStream::operator<<(UInt64 value)
{
    return WriteInteger(value);
}

COutStream& COutStream::operator<<(float value)
{
    return *this << static_cast<double>(value);
}

COutStream& COutStream::operator<<(double value)
{
    std::array<WideChar, Sysutils::FloatBufferSize> wide;
    std::array<char, Sysutils::FloatBufferSize> text;
    const std::size_t length = Sysutils::FloatToBuffer(value, u'.', wide.data());
    std::transform(wide.begin(), wide.begin() + length, text.begin(),
                   [](WideChar c) { return static_cast<char>(c); });
    return WriteBytes(std::string_view(text.data(), length));
}

COutStream& COutStream::operator<<(long double value)
{
    static const auto& settings = *[] {
        auto* const result = new Sysutils::TFormatSettings;
        result->DecimalSeparator = u'.';
        return result;
    }();
    return *this << Sysutils::FloatToStr(value, settings);
}

COutStream& COutStream::operator<<(const void* value)
{
    return WriteInteger(reinterpret_cast<std::intptr_t>(value));
}

COutStream& COutStream::operator<<(const char* value)
{
    return WriteBytes(System::Detail::SafeView(value));
}

COutStream& COutStream::operator<<(const WideChar* value)
{
    return *this << AnsiString(value);
}

COutStream& COutStream::operator<<(const AnsiString& value)
{
    return WriteBytes(value.AsView());
}

COutStream& COutStream::operator<<(const UnicodeString& value)
{
    return *this << AnsiString(value);
}

} // namespace BTL
