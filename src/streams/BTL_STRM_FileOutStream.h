// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_OutStream.h"

namespace BTL
{

/// Writes a file. Raises what `Classes::TFileStream` raises.
class TRS8_BTL_API CFileOutStream : public COutStream
{
public:
    /// Creates or empties the file and shares it with all.
    explicit CFileOutStream(const System::UnicodeString& path);
    /// Starts at the beginning of the file.
    CFileOutStream(const System::UnicodeString& path, unsigned short mode);
    CFileOutStream(const System::UnicodeString& path, EFileOpenMode mode, EFileShareMode share);
    ~CFileOutStream() override;

    Classes::TFileStream* getFileStream() const noexcept { return mFileStream; }

    // The text and CR LF.

    void WriteLine(const char* text);
    void WriteLine(const System::WideChar* text);
    void WriteLine(const System::AnsiString& text);
    void WriteLine(const System::UnicodeString& text);

private:
    Classes::TFileStream* mFileStream;
};

/// Knows its file's name as well.
class TRS8_BTL_API CFileOutStreamEx : public CFileOutStream
{
public:
    explicit CFileOutStreamEx(const System::UnicodeString& path);
    ~CFileOutStreamEx() override;

    const System::UnicodeString& getFileName() const noexcept { return mFileName; }

private:
    System::UnicodeString mFileName;
};

} // namespace BTL
