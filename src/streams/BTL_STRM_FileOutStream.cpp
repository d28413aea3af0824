// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_FileOutStream.h"

namespace BTL
{

using Classes::TFileStream;
using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

CFileOutStream::CFileOutStream(const UnicodeString& path)
    : CFileOutStream(path, Classes::fmCreate | Classes::fmShareDenyNone)
{
}

CFileOutStream::CFileOutStream(const UnicodeString& path, unsigned short mode)
    : COutStream(new TFileStream(path, mode), ssRewind, true),
      mFileStream(static_cast<TFileStream*>(getStream()))
{
}

CFileOutStream::CFileOutStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : COutStream(path, mode, share), mFileStream(static_cast<TFileStream*>(getStream()))
{
}

CFileOutStream::~CFileOutStream() = default;

void CFileOutStream::WriteLine(const char* text)
{
    *this << text << "\r\n";
}

void CFileOutStream::WriteLine(const WideChar* text)
{
    *this << text << "\r\n";
}

void CFileOutStream::WriteLine(const AnsiString& text)
{
    *this << text << "\r\n";
}

void CFileOutStream::WriteLine(const UnicodeString& text)
{
    *this << text << "\r\n";
}

CFileOutStreamEx::CFileOutStreamEx(const UnicodeString& path) : CFileOutStream(path), mFileName(path) {}

CFileOutStreamEx::~CFileOutStreamEx() = default;

} // namespace BTL
