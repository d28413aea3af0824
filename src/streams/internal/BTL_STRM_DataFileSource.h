// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/numbers/Sysutils_Number.h"
#include "streams/BTL_STRM_FileInStream.h"
#include "streams/BTL_STRM_StdStreamUtilities.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/internal/BTL_STRM_Reading.h"

namespace BTL
{

namespace Detail
{

/// The stream of a file whose state is to tell what reading it met.
class CToldStream
{
public:
    explicit CToldStream(CFileInStream& file) : mFile(file) {}

    Classes::TStream& operator*() const { return *mFile.getStream(); }
    void Tell(const TReadEnd& end) const { mFile.NoteRead(end.count, end.metEnd); }
    void TellSeek() const
    {
        if (mFile.tellg() >= 0) {
            mFile.seekg(mFile.tellg());
        }
    }

    System::AnsiString ReadText(auto read) const
    {
        System::AnsiString text;
        Tell(read(**this, text));
        return text;
    }
    System::UnicodeString ReadIntegerText(EByteBehind byteBehind) const
    {
        System::UnicodeString text;
        Tell(Detail::ReadIntegerText(**this, byteBehind, text));
        return text;
    }

private:
    CFileInStream& mFile;
};

// What the utilities take for a data file.

inline CToldStream SourceOf(CFileInStream& file)
{
    return CToldStream(file);
}

inline StdInStream& SourceOf(std::ifstream& file)
{
    return file;
}

} // namespace Detail

// As the functions of these names on the stream.

inline void SkipUntil(Detail::CToldStream stream, char c)
{
    stream.Tell(Detail::SkipUntil(*stream, c));
}

inline void SkipLine(Detail::CToldStream stream)
{
    SkipUntil(stream, '\n');
}

inline void SkipBytes(Detail::CToldStream stream, int count)
{
    SkipBytes(&*stream, count);
    stream.TellSeek();
}

inline void SkipWhitespaces(Detail::CToldStream stream)
{
    stream.Tell(Detail::SkipWhitespaces(*stream));
}

template <class Delimiter>
System::AnsiString ReadStringUntil(Detail::CToldStream stream, const Delimiter& delimiter)
{
    return stream.ReadText([&](Classes::TStream& source, System::AnsiString& text) {
        return Detail::ReadStringUntil(source, delimiter, text);
    });
}

inline System::AnsiString ReadBytes(Detail::CToldStream stream, int count)
{
    return stream.ReadText([&](Classes::TStream& source, System::AnsiString& bytes) {
        return Detail::ReadBytes(source, count, bytes);
    });
}

inline int ReadInteger(Detail::CToldStream stream)
{
    return Sysutils::StrToInt(stream.ReadIntegerText(Detail::EByteBehind::Read));
}

inline int ReadIntegerDef(Detail::CToldStream stream, int defaultValue)
{
    return Sysutils::StrToIntDef(stream.ReadIntegerText(Detail::EByteBehind::Read), defaultValue);
}

inline int ReadIntegerUnget(Detail::CToldStream stream, int defaultValue)
{
    return Sysutils::StrToIntDef(stream.ReadIntegerText(Detail::EByteBehind::Kept), defaultValue);
}

inline System::Int64 ReadInt64(Detail::CToldStream stream)
{
    return Sysutils::StrToInt64(stream.ReadIntegerText(Detail::EByteBehind::Read));
}

inline System::Int64 ReadInt64Unget(Detail::CToldStream stream, System::Int64 defaultValue)
{
    return Sysutils::StrToInt64Def(stream.ReadIntegerText(Detail::EByteBehind::Kept), defaultValue);
}

inline System::AnsiString GetCurrStrLine(Detail::CToldStream stream)
{
    return GetCurrStrLine(&*stream);
}

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
