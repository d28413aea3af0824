// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_DataFile.h"
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

extern template class GDataFile<CFileInStream>;

/// Reads a simple data file.
class TRS8_BTL_API CFileInStreamEx : public GDataFile<CFileInStream>
{
public:
    explicit CFileInStreamEx(const System::UnicodeString& path);
    ~CFileInStreamEx() override;

    /// The count of line feeds in front of the position. Counts on from where it was asked for last: what a
    /// writer changes in front of that doesn't show until the position has been before it.
    int getCurrLine();
    System::Int64 getPosition() const;
    System::Int64 getSize() const;
};

} // namespace BTL
