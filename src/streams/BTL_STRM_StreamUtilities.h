// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"
#include "streams/BTL_STRM_Stream.h"

#include <concepts>
#include <string_view>

namespace BTL
{

// Reading and writing at the position of a stream. A null stream is an internal fault, and an empty one if
// the user lets that pass. What ends a piece of text is read too and isn't part of the result; the end of the
// stream ends it as well. Bytes are `System::AnsiString` values.
//
// Streams that only read, as pipes and sockets, are read as others. What needs a position there raises
// `Classes::EStreamError`, and so does what looks ahead in a stream of one's own class: on it take a
// `CReadAheadStream`. One's own classes are asked for single bytes, so that they stand exactly behind what
// was read; `CInStream`, `CTextReader` and `CReadAheadStream` read them in blocks.

/// Whether nothing is left behind the position, also if no read has met the end yet, unlike the eof of a text
/// stream. At a pipe, waits until it is known. Looks ahead.
TRS8_BTL_API bool Eof(Classes::TStream* stream);
/// -1 for what has none, as a pipe.
TRS8_BTL_API System::Int64 GetSize(Classes::TStream* stream);

/// The line feeds among the first `limit` bytes of the stream, where the position then is; a negative limit
/// means 2147483647. Needs a position.
TRS8_BTL_API int CountLines(Classes::TStream* stream, System::Int64 limit);
/// The line in which the position lies, as `ReadLine` gives it from its beginning on; the position stays.
/// Needs a position.
TRS8_BTL_API System::AnsiString GetCurrStrLine(Classes::TStream* stream);

/// The next byte; 0 at the end.
TRS8_BTL_API char ReadChar(Classes::TStream* stream);
/// As `ReadChar`, but the position stays. Looks ahead.
TRS8_BTL_API char PeekChar(Classes::TStream* stream);

/// Moves behind the next line feed, or behind the next `c`.
TRS8_BTL_API void SkipLine(Classes::TStream* stream);
TRS8_BTL_API void SkipUntil(Classes::TStream* stream, char c);
/// Moves by `count`, backwards if it is negative. Where that would reach the end, the position is the last
/// byte; in front of the beginning, the beginning. Forwards without a position too, and then up to the end.
TRS8_BTL_API void SkipBytes(Classes::TStream* stream, int count);
/// Moves behind the next white space.
TRS8_BTL_API void SkipWhitespaces(Classes::TStream* stream);
/// As `SkipUntil`.
TRS8_BTL_API void ReadUntil(Classes::TStream* stream, char c);

/// All up to the next `delimiter`, which is read too.
TRS8_BTL_API System::AnsiString ReadStringUntil(Classes::TStream* stream, char delimiter);
TRS8_BTL_API System::UTF8String ReadUTF8StringUntil(Classes::TStream* stream, char delimiter);
/// Either of the two is the delimiter.
TRS8_BTL_API System::AnsiString ReadStringUntil2(Classes::TStream* stream, char a, char b);
/// The whole `text` is the delimiter; an empty one ends nowhere.
TRS8_BTL_API System::AnsiString ReadStringUntil(Classes::TStream* stream, const System::AnsiString& text);
/// The bytes up to a carriage return, and with it all that follows up to a line feed.
TRS8_BTL_API System::AnsiString ReadLine(Classes::TStream* stream);
/// Up to `count` bytes, fewer at the end.
TRS8_BTL_API System::AnsiString ReadBytes(Classes::TStream* stream, int count);

// The bytes alone; `Classes::EWriteError` if they can't all be written. Text of another code page keeps its
// bytes: that of a `System::UTF8String` is UTF-8. Wide text is written as
// `BytesOfText` gives it; for UTF-8 pass `System::UTF8String(text)`.

TRS8_BTL_API void WriteString(Classes::TStream* stream, const System::AnsiString& text);
template <System::CodePage CP>
void WriteString(Classes::TStream* stream, const System::AnsiStringT<CP>& text)
{
    WriteString(stream, System::AnsiString(text.AsView()));
}
template <std::convertible_to<std::u16string_view> WideText>
void WriteString(Classes::TStream* stream, const WideText& text)
{
    WriteString(stream, BytesOfText(text));
}
/// As `WriteString`, but text of another code page is turned into that of an `AnsiString`.
TRS8_BTL_API void WriteAnsiString(Classes::TStream* stream, const System::AnsiString& text);
template <std::convertible_to<std::u16string_view> WideText>
void WriteAnsiString(Classes::TStream* stream, const WideText& text)
{
    WriteAnsiString(stream, BytesOfText(text));
}
/// Wide text is converted, which loses nothing but lone surrogates.
TRS8_BTL_API void WriteUTF8String(Classes::TStream* stream, const System::UTF8String& text);
/// CR LF.
TRS8_BTL_API void WriteEndOfLine(Classes::TStream* stream);

// Decimal integers: digits, behind a `-` if that is the very first byte. The byte behind them is read too.

/// `Sysutils::EConvertError` if there is none.
TRS8_BTL_API int ReadInteger(Classes::TStream* stream);
TRS8_BTL_API int ReadIntegerDef(Classes::TStream* stream, int defaultValue);
/// As `ReadIntegerDef`, but the byte behind the number stays in the stream. Looks ahead.
TRS8_BTL_API int ReadIntegerUnget(Classes::TStream* stream, int defaultValue);
TRS8_BTL_API System::Int64 ReadInt64(Classes::TStream* stream);
TRS8_BTL_API System::Int64 ReadInt64Def(Classes::TStream* stream, System::Int64 defaultValue);
TRS8_BTL_API System::Int64 ReadInt64Unget(Classes::TStream* stream, System::Int64 defaultValue);

/// As `WriteString`, also for text of another code page and for wide text.
TRS8_BTL_API void SaveStringToStream(Classes::TStream* stream, const System::AnsiString& text);
template <System::CodePage CP>
void SaveStringToStream(Classes::TStream* stream, const System::AnsiStringT<CP>& text)
{
    WriteString(stream, text);
}
template <std::convertible_to<std::u16string_view> WideText>
void SaveStringToStream(Classes::TStream* stream, const WideText& text)
{
    SaveStringToStream(stream, BytesOfText(text));
}
/// All from the position on, up to 2 GB; `Sysutils::EOutOfMemory` if there is more.
TRS8_BTL_API System::AnsiString LoadStringFromStream(Classes::TStream* stream);
/// Makes the bytes of `text` the whole file: UTF-8 with `System::UTF8String(text)`, as `CTextReader` reads
/// it. Wide text is written as `BytesOfText` gives it, before the file is opened.
/// `Classes::EFCreateError` if the file can't be made, `Classes::EWriteError` if the host doesn't take all of
/// it.
TRS8_BTL_API void SaveStringToFile(const System::UnicodeString& path, const System::AnsiString& text);
template <System::CodePage CP>
void SaveStringToFile(const System::UnicodeString& path, const System::AnsiStringT<CP>& text)
{
    SaveStringToFile(path, System::AnsiString(text.AsView()));
}
template <std::convertible_to<std::u16string_view> WideText>
void SaveStringToFile(const System::UnicodeString& path, const WideText& text)
{
    SaveStringToFile(path, BytesOfText(text));
}
/// The whole file, shared with all: also one that a `CTextWriter` or a log has open. `Classes::EFOpenError`
/// if it can't be opened.
TRS8_BTL_API System::AnsiString LoadStringFromFile(const System::UnicodeString& path);

} // namespace BTL
