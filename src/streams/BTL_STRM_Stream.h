// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVector.h"
#include "platform/base/System_DynamicArray.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <concepts>
#include <memory>
#include <string_view>

namespace BTL
{

/// How a file is opened.
enum EFileOpenMode : int
{
    /// Created, an existing file is emptied.
    fomCreate = 0,
    /// Opened for reading and writing at its end, or created.
    fomAppend = 1,
    fomRead = 2,
    fomWrite = 3,
    fomReadWrite = 4
};

/// What others may do with the file meanwhile.
enum EFileShareMode : int
{
    fsmDenyNone = 0,
    fsmDenyWrite = 1,
    fsmExclusive = 2
};

/// What a stream object does with the position of the stream that it is given.
enum EStreamSync : int
{
    ssKeep = 0,
    /// Matters to the standard streams only; the others keep the position.
    ssSync = 1,
    /// Goes to the beginning; a stream that can't seek goes on where it is.
    ssRewind = 2
};

/// The caller owns the stream. Raises what the constructor of `Classes::TFileStream` raises. A mode that is
/// none of the values counts as `fomRead`, a share mode as `fsmDenyNone`.
[[nodiscard]] TRS8_BTL_API Classes::TFileStream* CreateFileStream(const System::UnicodeString& path,
                                                                  EFileOpenMode mode, EFileShareMode share);

/// Looks for `text` from `start` on, from the position on if that is negative. The result is the place of its
/// first byte, with the position behind the match. If there is none it is -1, and the position is at the end,
/// or at a `start` behind that. An empty text is nowhere and leaves the position at the start.
/// `Classes::EStreamError` for a stream that can't seek, where no place can be told. A null stream is an
/// internal fault, and has nothing if the user lets that pass.
TRS8_BTL_API System::Int64 Search(const System::AnsiString& text, Classes::TStream* stream, int start);

/// The bytes of wide text in the code page of a `System::AnsiString`, for what writes bytes.
/// `ECharacterFault`, an `Sysutils::EConvertError`, at a character that the code page lacks, where
/// `AnsiString(text)` puts `?`.
[[nodiscard]] TRS8_BTL_API System::AnsiString BytesOfText(std::u16string_view text);

/// Reads and writes binary values and lines on a stream that somebody else owns, at its position. Numbers are
/// little-endian. What the stream can't give raises `Classes::EReadError`, what it can't take
/// `Classes::EWriteError`. It has no state: a text that the end cuts off is as one that its delimiter ends,
/// and none is empty, so that `BTL::Eof` tells whether there is one. Bytes are `System::AnsiString` values.
/// Wide text is written as `BytesOfText` gives it; its UTF-8 is `AnsiString(System::ToUtf8(text))`. A stream
/// of one's own class that is read up to some byte is asked for single bytes, so that it stands exactly
/// behind it; on a `CReadAheadStream` it is read in blocks.
class TRS8_BTL_API MStream
{
public:
    /// `stream` must not be null and must live as long as this object is used.
    explicit MStream(Classes::TStream* stream) noexcept : mStream(stream) {}

    Classes::TStream* getStream() const noexcept { return mStream; }

    /// One byte.
    char ReadChar();
    unsigned char ReadUChar();
    /// Any byte but 0 is true.
    bool ReadBool();
    /// 4 bytes.
    int ReadInteger();
    /// 8 bytes.
    double ReadDouble();
    /// The length as an integer, and as many bytes. A negative length, or one that the stream doesn't hold,
    /// raises without taking that much memory.
    System::AnsiString ReadString();
    void WriteChar(char value);
    void WriteUChar(unsigned char value);
    void WriteBool(bool value);
    void WriteInteger(int value);
    void WriteDouble(double value);
    void WriteString(const System::AnsiString& text);
    template <std::convertible_to<std::u16string_view> WideText>
    void WriteString(const WideText& text)
    {
        WriteString(BytesOfText(text));
    }

    /// None for a negative count.
    System::AnsiString ReadBuffer(int count);
    void WriteBuffer(const System::AnsiString& bytes);
    template <std::convertible_to<std::u16string_view> WideText>
    void WriteBuffer(const WideText& text)
    {
        WriteBuffer(BytesOfText(text));
    }
    /// Up to `count` bytes, fewer at the end.
    System::DynamicArray<unsigned char> ReadBytes(System::Int64 count);
    void WriteBytes(const System::DynamicArray<unsigned char>& bytes);
    /// As the stream's `Write`: the count of bytes done.
    int Write(const System::AnsiString& bytes);
    template <std::convertible_to<std::u16string_view> WideText>
    int Write(const WideText& text)
    {
        return Write(BytesOfText(text));
    }
    int Write(const char* bytes, int count);

    /// The whole stream from its beginning on; of one that can't seek, as a pipe, what is left.
    System::AnsiString ReadAll();
    /// Makes `text` the whole stream.
    void WriteAll(const System::AnsiString& text);
    template <std::convertible_to<std::u16string_view> WideText>
    void WriteAll(const WideText& text)
    {
        WriteAll(BytesOfText(text));
    }

    /// The bytes in front of the delimiter, which is read too, or up to the end.
    System::AnsiString ReadUntil(char delimiter);
    /// Up to a line feed or the end, without the carriage returns, wherever they stand.
    System::AnsiString ReadLine();
    /// As `ReadLine`, or up to the delimiter; what ends the line is read too.
    System::AnsiString ReadLineUntil(char delimiter);
    /// `newLine` tells whether a line feed was the end.
    System::AnsiString ReadLineUntil(char delimiter, bool& newLine);
    /// Adds a line end (CR LF) unless the text has one.
    void WriteLine(const System::AnsiString& text);
    template <std::convertible_to<std::u16string_view> WideText>
    void WriteLine(const WideText& text)
    {
        WriteLine(BytesOfText(text));
    }
    /// CR LF.
    void WriteEOL();

    /// The next word, with the place of its first byte; the byte behind it is read too. Letters and `_` begin
    /// a word, digits continue it as well. Empty if there is none; `position` then stays, but is the size if
    /// nothing was left to read. In a stream that can't seek it is -1.
    System::AnsiString ReadWord(int& position);
    /// The next word by two tables of 256 bytes, 1 for each character that begins or continues a word. With
    /// `nextChars` null the first serves for both; with both null the usual tables do.
    System::AnsiString ReadWord(int& position, const unsigned char* firstChars,
                                const unsigned char* nextChars);

    // Copying from another stream at its position. A null source, and the own stream, raise
    // `Classes::EReadError`, and so does a device without an end of which all is to be copied. The results
    // are the counts of bytes copied.

    /// As `Classes::TStream::CopyFrom`.
    System::Int64 CopyFrom(Classes::TStream* source, System::Int64 count);
    System::Int64 LoadRest(Classes::TStream* source);
    /// Up to and with the delimiter.
    System::Int64 LoadTill(Classes::TStream* source, char delimiter);
    /// Up to and with the whole pattern; an empty one is nowhere.
    System::Int64 LoadTill(Classes::TStream* source, const System::DynamicArray<unsigned char>& pattern);

    /// As `BTL::Search`.
    System::Int64 Search(const System::AnsiString& text, int start);

private:
    Classes::TStream* mStream;
};

/// The binary face of a foreign stream.
class TRS8_BTL_API CStream : public MStream
{
public:
    using MStream::MStream;
};

/// Owns a stream of the class `Stream`, and has its binary face.
template <class Stream>
class GOwnedStream : public MStream
{
public:
    GOwnedStream(const GOwnedStream&) = delete;
    GOwnedStream& operator=(const GOwnedStream&) = delete;

    Stream* getStream() const noexcept { return mOwned.get(); }

protected:
    explicit GOwnedStream(std::unique_ptr<Stream> stream) : MStream(stream.get()), mOwned(std::move(stream))
    {
    }
    ~GOwnedStream() = default;

private:
    std::unique_ptr<Stream> mOwned;
};

/// A stream on a file, which is closed with it.
class TRS8_BTL_API CFileStream : public GOwnedStream<Classes::TFileStream>
{
public:
    /// For reading, shared with all.
    explicit CFileStream(const System::UnicodeString& path);
    CFileStream(const System::UnicodeString& path, unsigned short mode);
    CFileStream(const System::UnicodeString& path, EFileOpenMode mode, EFileShareMode share);
};

/// A stream on a text in memory.
class TRS8_BTL_API CStringStream : public GOwnedStream<Classes::TStringStream>
{
public:
    CStringStream();
    explicit CStringStream(const System::AnsiString& text);
    CStringStream(const System::UnicodeString& text, Sysutils::TEncoding* encoding, bool ownsEncoding);
    /// Copies the text, at its beginning.
    CStringStream(const CStringStream& other);
};

/// A stream on bytes in memory.
class TRS8_BTL_API CMemoryStream : public GOwnedStream<Classes::TMemoryStream>
{
public:
    CMemoryStream();
    /// Holds the whole file.
    explicit CMemoryStream(const System::UnicodeString& path);
};

/// Streams that the list owns.
class TRS8_BTL_API CStreams : private UTL::GSimpleVector<Classes::TStream*>
{
    using Base = UTL::GSimpleVector<Classes::TStream*>;

public:
    using Base::begin;
    using Base::empty;
    using Base::end;
    using Base::size;

    CStreams() = default;
    CStreams(const CStreams&) = delete;
    CStreams& operator=(const CStreams&) = delete;
    ~CStreams();

    Classes::TStream* operator[](unsigned index) const { return Base::operator[](index); }

    /// Null takes a place too.
    void Add(Classes::TStream* stream);
    /// Deletes the streams.
    void Clear();
};

} // namespace BTL
