// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_StdIOStreambuf.h"
#include "streams/BTL_STRM_Stream.h"

#include <istream>
#include <memory>
#include <ostream>

namespace BTL
{

// Standard streams on a `Classes::TStream`. `ssSync` lets reading and writing go on at the position of the
// stream, `ssRewind` begins at 0. A stream that can't seek, as a pipe, is read and written where it is. Eof
// and fail are those of the standard, which `AStream` shares.
//
//     CStdInFileStream in(u"values.txt");
//     for (std::string line; std::getline(in, line);) {
//         Use(line);
//     }

/// Doesn't own the stream, which must live as long.
class TRS8_BTL_API CStdOutStream : public CStdOutStreambuf, public std::basic_ostream<char>
{
public:
    CStdOutStream(Classes::TStream* stream, EStreamSync sync);
    ~CStdOutStream() override;
};

/// Doesn't own the stream, which must live as long.
class TRS8_BTL_API CStdInStream : public CStdInStreambuf, public std::basic_istream<char>
{
public:
    CStdInStream(Classes::TStream* stream, EStreamSync sync);
    ~CStdInStream() override;
};

/// Opens and owns the file. Raises what `Classes::TFileStream` raises.
class TRS8_BTL_API CStdInFileStream : public CStdInStream
{
public:
    /// Shared with all.
    explicit CStdInFileStream(const System::UnicodeString& path);
    CStdInFileStream(const System::UnicodeString& path, unsigned short mode);
    CStdInFileStream(const System::UnicodeString& path, EFileOpenMode mode, EFileShareMode share);
    ~CStdInFileStream() override;

private:
    explicit CStdInFileStream(std::unique_ptr<Classes::TFileStream> file);

    std::unique_ptr<Classes::TFileStream> mFile;
};

/// Opens and owns the file. Raises what `Classes::TFileStream` raises.
class TRS8_BTL_API CStdOutFileStream : public CStdOutStream
{
public:
    /// The file must exist; shared with all.
    explicit CStdOutFileStream(const System::UnicodeString& path);
    CStdOutFileStream(const System::UnicodeString& path, unsigned short mode);
    CStdOutFileStream(const System::UnicodeString& path, EFileOpenMode mode, EFileShareMode share);
    ~CStdOutFileStream() override;

private:
    explicit CStdOutFileStream(std::unique_ptr<Classes::TFileStream> file);

    std::unique_ptr<Classes::TFileStream> mFile;
};

} // namespace BTL
