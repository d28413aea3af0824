// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/numbers/Sysutils_Number.h"
#include "streams/BTL_STRM_FileInStream.h"
#include "streams/BTL_STRM_StdStreamUtilities.h"
#include "streams/BTL_STRM_StreamUtilities.h"

namespace BTL
{

namespace Detail
{

// What the utilities take for a data file.

inline Classes::TStream* SourceOf(CFileInStream& file)
{
    return file.getStream();
}

inline StdInStream& SourceOf(std::ifstream& file)
{
    return file;
}

} // namespace Detail

template <class Stream>
void GDataFile<Stream>::SkipLine()
{
    BTL::SkipLine(Detail::SourceOf(*this));
}

template <class Stream>
void GDataFile<Stream>::SkipUntil(char c)
{
    BTL::SkipUntil(Detail::SourceOf(*this), c);
}

template <class Stream>
void GDataFile<Stream>::SkipBytes(int count)
{
    BTL::SkipBytes(Detail::SourceOf(*this), count);
}

template <class Stream>
void GDataFile<Stream>::SkipWhitespaces()
{
    BTL::SkipWhitespaces(Detail::SourceOf(*this));
}

template <class Stream>
char GDataFile<Stream>::ReadTypeChar()
{
    char c = '\0';
    this->get(c);
    this->get();
    return c;
}

template <class Stream>
bool GDataFile<Stream>::ReadTypeCharEx(char& c, char marker)
{
    c = '\0';
    this->get(c);
    const bool marked = c == marker;
    if (marked) {
        c = '\0';
        this->get(c);
    }
    this->get();
    return marked;
}

template <class Stream>
int GDataFile<Stream>::ReadInteger()
{
    return BTL::ReadInteger(Detail::SourceOf(*this));
}

template <class Stream>
int GDataFile<Stream>::ReadIntegerDef(int defaultValue)
{
    return BTL::ReadIntegerDef(Detail::SourceOf(*this), defaultValue);
}

template <class Stream>
int GDataFile<Stream>::ReadIntegerUnget(int defaultValue)
{
    return BTL::ReadIntegerUnget(Detail::SourceOf(*this), defaultValue);
}

template <class Stream>
System::Int64 GDataFile<Stream>::ReadInt64()
{
    return BTL::ReadInt64(Detail::SourceOf(*this));
}

template <class Stream>
System::Int64 GDataFile<Stream>::ReadInt64Unget(System::Int64 defaultValue)
{
    return BTL::ReadInt64Unget(Detail::SourceOf(*this), defaultValue);
}

template <class Stream>
int GDataFile<Stream>::ReadInteger(char delimiter)
{
    return Sysutils::StrToInt(ReadUntil(delimiter));
}

template <class Stream>
System::Int64 GDataFile<Stream>::ReadInt64(char delimiter)
{
    return Sysutils::StrToInt64(ReadUntil(delimiter));
}

template <class Stream>
System::AnsiString GDataFile<Stream>::ReadString()
{
    System::AnsiString text;
    static_cast<Stream&>(*this) >> text;
    return text;
}

template <class Stream>
System::AnsiString GDataFile<Stream>::ReadUntil(char delimiter)
{
    return ReadStringUntil(Detail::SourceOf(*this), delimiter);
}

template <class Stream>
System::AnsiString GDataFile<Stream>::ReadUntil(const System::AnsiString& delimiters)
{
    return ReadStringUntil(Detail::SourceOf(*this), delimiters);
}

template <class Stream>
System::AnsiString GDataFile<Stream>::ReadBytes(int count)
{
    return BTL::ReadBytes(Detail::SourceOf(*this), count);
}

template <class Stream>
System::AnsiString GDataFile<Stream>::getCurrStrLine()
{
    return GetCurrStrLine(Detail::SourceOf(*this));
}

} // namespace BTL
