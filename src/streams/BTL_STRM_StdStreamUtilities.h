// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_DataFile.h"

#include <fstream>
#include <istream>

namespace BTL
{

// Reading of standard streams, as the functions of the same names do it with a `Classes::TStream`. What ends
// a piece of text is read too and isn't part of the result; a failed read ends it as well. Failures show in
// the state: a piece that the end of the stream cuts off sets eof and fail, though it is given. To tell it
// from none take `std::getline`, which then sets eof alone.

using StdInStream = std::basic_istream<char>;

/// Moves behind the next line feed, or behind the next `c`.
TRS8_BTL_API void SkipLine(StdInStream& stream);
TRS8_BTL_API void SkipUntil(StdInStream& stream, char c);
/// Seeks forward from the position.
TRS8_BTL_API void SkipBytes(StdInStream& stream, int count);
/// As the manipulator `std::ws`.
TRS8_BTL_API void SkipWhitespaces(StdInStream& stream);

/// The line feeds among the first `limit` bytes; a negative limit means 2147483647. Clears the state first,
/// and reads the byte behind the limit as well.
TRS8_BTL_API int CountLines(StdInStream& stream, int limit);
// The low 32 bits of the position and of the size, 4294967295 after a failure.
TRS8_BTL_API System::Int64 GetReadPosition(StdInStream& stream);
/// The position stays.
TRS8_BTL_API System::Int64 GetSize(StdInStream& stream);
/// Up to 1023 bytes of the line in which the position lies, from its beginning on, without the line feed. The
/// position stays, and the state is good after it. Empty, with fail, for a stream that has no position.
TRS8_BTL_API System::AnsiString GetCurrStrLine(StdInStream& stream);

TRS8_BTL_API System::AnsiString ReadStringUntil(StdInStream& stream, char delimiter);
/// Each byte of `delimiters` is a delimiter.
TRS8_BTL_API System::AnsiString ReadStringUntil(StdInStream& stream, const System::AnsiString& delimiters);
/// `count` + 1 bytes, of which the last one and what the stream didn't have are 0; empty for a `count`
/// below 1.
TRS8_BTL_API System::AnsiString ReadBytes(StdInStream& stream, int count);

// Decimal integers: digits, behind a `-` if that is the very first byte.

/// The byte behind the number is read too. `Sysutils::EConvertError` if there is none.
TRS8_BTL_API int ReadInteger(StdInStream& stream);
TRS8_BTL_API int ReadIntegerDef(StdInStream& stream, int defaultValue);
TRS8_BTL_API System::Int64 ReadInt64(StdInStream& stream);
TRS8_BTL_API System::Int64 ReadInt64Def(StdInStream& stream, System::Int64 defaultValue);
/// As `ReadIntegerDef`, but without a digit the last byte is put back.
TRS8_BTL_API int ReadIntegerUnget(StdInStream& stream, int defaultValue);
TRS8_BTL_API System::Int64 ReadInt64Unget(StdInStream& stream, System::Int64 defaultValue);

/// Reads a word of up to 511 bytes; the rest of a longer one stays in the stream.
TRS8_BTL_API StdInStream& operator>>(StdInStream& stream, System::AnsiString& text);

extern template class GDataFile<std::ifstream>;

/// Reads a simple data file.
class TRS8_BTL_API CStdFileInStreamEx : public GDataFile<std::ifstream>
{
public:
    /// A file that can't be opened sets fail.
    explicit CStdFileInStreamEx(const System::UnicodeString& path);
    ~CStdFileInStreamEx() override;

    /// The count of line feeds in front of the position, which stays. Counts on from where it was asked for
    /// last: what a writer changes in front of that doesn't show until the position has been before it.
    int getCurrLine();
    System::Int64 getPosition();
    System::Int64 getSize();
};

/// Writes a file, emptied if it exists. Raises `std::ios_base::failure` when it goes bad; a file that can't
/// be opened sets fail.
class TRS8_BTL_API CStdFileOutStreamEx : public std::ofstream
{
public:
    explicit CStdFileOutStreamEx(const System::UnicodeString& path);
    ~CStdFileOutStreamEx() override;
};

} // namespace BTL
