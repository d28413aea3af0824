// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_InStream.h"

namespace BTL
{

/// Reads a file from its beginning on. Raises what `Classes::TFileStream` raises.
class TRS8_BTL_API CFileInStream : public CInStream
{
public:
    /// Shared with all.
    explicit CFileInStream(const System::UnicodeString& path);
    CFileInStream(const System::UnicodeString& path, unsigned short mode);
    CFileInStream(const System::UnicodeString& path, EFileOpenMode mode, EFileShareMode share);
    ~CFileInStream() override;

    Classes::TFileStream* getFileStream() const noexcept { return mFileStream; }

private:
    Classes::TFileStream* mFileStream;
};

/// Reads a simple data file. What isn't told here is as the function of that name in the stream utilities.
class TRS8_BTL_API CFileInStreamEx : public CFileInStream
{
public:
    explicit CFileInStreamEx(const System::UnicodeString& path);
    ~CFileInStreamEx() override;

    const System::UnicodeString& getFileName() const noexcept { return mFileName; }

    void SkipLine();
    void SkipUntil(char c);
    void SkipBytes(int count);
    void SkipWhitespaces();

    // Fields of one character: the one behind it is read too.

    char ReadTypeChar();
    char ReadOpChar();
    /// A field that `marker` may stand in front of; the result tells whether it did.
    bool ReadTypeCharEx(char& c, char marker);

    int ReadInteger();
    int ReadIntegerDef(int defaultValue);
    int ReadIntegerUnget(int defaultValue);
    System::Int64 ReadInt64();
    System::Int64 ReadInt64Unget(System::Int64 defaultValue);
    /// All up to the delimiter must be a number, else `Sysutils::EConvertError`.
    int ReadInteger(char delimiter);
    System::Int64 ReadInt64(char delimiter);

    /// As `operator>>`.
    System::AnsiString ReadString();
    System::AnsiString ReadUntil(char delimiter);
    System::AnsiString ReadUntil(const System::AnsiString& text);
    System::AnsiString ReadBytes(int count);

    /// The count of line feeds in front of the position.
    int getCurrLine();
    System::Int64 getPosition() const;
    System::Int64 getSize() const;
    System::AnsiString getCurrStrLine();

private:
    System::UnicodeString mFileName;
};

} // namespace BTL
