// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/sysutils/System_Printf.h"
#include "streams/BTL_STRM_AStream.h"

namespace BTL
{

/// Writes texts and numbers, in a form that depends on no locale, without widths. Wide text is written in the
/// system's 8-bit code page.
class TRS8_BTL_API COutStream : public AStream
{
public:
    /// On an own stream in memory.
    COutStream();
    COutStream(Classes::TStream* stream, EStreamSync sync, bool ownsStream);
    /// Doesn't own the stream.
    COutStream(Classes::TStream* stream, EStreamSync sync);
    COutStream(const System::UnicodeString& path, EFileOpenMode mode, EFileShareMode share);
    ~COutStream() override;

    /// Writes one byte.
    COutStream& put(char c);
    /// Nothing for a count below 1.
    COutStream& write(const char* bytes, System::Int64 count);

    /// The position, and setting it, which leaves fail and bad alone.
    System::Int64 tellp() const;
    COutStream& seekp(System::Int64 position);
    COutStream& seekp(System::Int64 offset, std::ios_base::seekdir direction);

    /// Writes a text of `System::Printf`.
    COutStream& Write_V(const char* format, System::TVarArgs arguments);
    COutStream& Write_V(const System::WideChar* format, System::TVarArgs arguments);
    template <class... Arguments>
    COutStream& Write_VA(const char* format, const Arguments&... arguments)
    {
        return Write_V(format, System::TVarArgs{System::TVarRec(arguments)...});
    }
    /// As `Write_V` of a wide format, with the arguments one by one.
    template <class... Arguments>
    COutStream& Write_VA(const System::WideChar* format, const Arguments&... arguments)
    {
        return Write_V(format, System::TVarArgs{System::TVarRec(arguments)...});
    }

    /// What stands from `position` on, up to the first byte below 5; the position stays. A negative one
    /// counts as 0.
    System::AnsiString str(int position = 0) const;

    COutStream& operator<<(char value);
    /// 1 or 0.
    COutStream& operator<<(bool value);
    COutStream& operator<<(short value);
    COutStream& operator<<(unsigned short value);
    COutStream& operator<<(int value);
    COutStream& operator<<(unsigned value);
    COutStream& operator<<(long value);
    COutStream& operator<<(unsigned long value);
    COutStream& operator<<(System::Int64 value);
    COutStream& operator<<(System::UInt64 value);
    /// As `Sysutils::FloatToStr` with a point.
    COutStream& operator<<(float value);
    COutStream& operator<<(double value);
    COutStream& operator<<(long double value);
    /// The address as a decimal number.
    COutStream& operator<<(const void* value);
    /// A null pointer is the empty text.
    COutStream& operator<<(const char* value);
    COutStream& operator<<(const System::WideChar* value);
    COutStream& operator<<(const System::AnsiString& value);
    COutStream& operator<<(const System::UnicodeString& value);

private:
    COutStream& WriteBytes(std::string_view bytes);
    template <class T>
    COutStream& WriteInteger(T value);
};

} // namespace BTL
