// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_FileInStream.h"

#include "platform/runtime/Sysutils_Number.h"
#include "streams/BTL_STRM_StreamUtilities.h"

namespace BTL
{

using Classes::TFileStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

CFileInStream::CFileInStream(const UnicodeString& path) : CFileInStream(path, Classes::fmShareDenyNone) {}

CFileInStream::CFileInStream(const UnicodeString& path, unsigned short mode)
    : CInStream(new TFileStream(path, mode), ssRewind, true),
      mFileStream(static_cast<TFileStream*>(getStream()))
{
}

CFileInStream::CFileInStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : CInStream(path, mode, share), mFileStream(static_cast<TFileStream*>(getStream()))
{
}

CFileInStream::~CFileInStream() = default;

// CFileInStreamEx

CFileInStreamEx::CFileInStreamEx(const UnicodeString& path) : CFileInStream(path), mFileName(path) {}

CFileInStreamEx::~CFileInStreamEx() = default;

void CFileInStreamEx::SkipLine()
{
    BTL::SkipLine(getStream());
}

void CFileInStreamEx::SkipUntil(char c)
{
    BTL::SkipUntil(getStream(), c);
}

void CFileInStreamEx::SkipBytes(int count)
{
    BTL::SkipBytes(getStream(), count);
}

void CFileInStreamEx::SkipWhitespaces()
{
    BTL::SkipWhitespaces(getStream());
}

char CFileInStreamEx::ReadTypeChar()
{
    const char c = get();
    get();
    return c;
}

char CFileInStreamEx::ReadOpChar()
{
    return ReadTypeChar();
}

bool CFileInStreamEx::ReadTypeCharEx(char& c, char marker)
{
    get(c);
    const bool marked = c == marker;
    if (marked) {
        get(c);
    }
    get();
    return marked;
}

int CFileInStreamEx::ReadInteger()
{
    return BTL::ReadInteger(getStream());
}

int CFileInStreamEx::ReadIntegerDef(int defaultValue)
{
    return BTL::ReadIntegerDef(getStream(), defaultValue);
}

int CFileInStreamEx::ReadIntegerUnget(int defaultValue)
{
    return BTL::ReadIntegerUnget(getStream(), defaultValue);
}

Int64 CFileInStreamEx::ReadInt64()
{
    return BTL::ReadInt64(getStream());
}

Int64 CFileInStreamEx::ReadInt64Unget(Int64 defaultValue)
{
    return BTL::ReadInt64Unget(getStream(), defaultValue);
}

int CFileInStreamEx::ReadInteger(char delimiter)
{
    return Sysutils::StrToInt(ReadUntil(delimiter));
}

Int64 CFileInStreamEx::ReadInt64(char delimiter)
{
    return Sysutils::StrToInt64(ReadUntil(delimiter));
}

AnsiString CFileInStreamEx::ReadString()
{
    AnsiString text;
    *this >> text;
    return text;
}

AnsiString CFileInStreamEx::ReadUntil(char delimiter)
{
    return ReadStringUntil(getStream(), delimiter);
}

AnsiString CFileInStreamEx::ReadUntil(const AnsiString& text)
{
    return ReadStringUntil(getStream(), text);
}

AnsiString CFileInStreamEx::ReadBytes(int count)
{
    return BTL::ReadBytes(getStream(), count);
}

int CFileInStreamEx::getCurrLine()
{
    return CountLines(getStream(), getPosition());
}

Int64 CFileInStreamEx::getPosition() const
{
    return GetPosition();
}

Int64 CFileInStreamEx::getSize() const
{
    return GetSize(getStream());
}

AnsiString CFileInStreamEx::getCurrStrLine()
{
    return GetCurrStrLine(getStream());
}

} // namespace BTL
