// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_AStream.h"

namespace BTL
{

//     CFileInStream in(u"words.txt");
//     AnsiString word;
//     while (in >> word) {
//         Count(word);
//     }

/// Reads texts and numbers, in a form that depends on no locale. White space, which is passed over in front
/// of all values, is every byte up to 32 and from 128 on.
class TRS8_BTL_API CInStream : public AStream
{
public:
    CInStream(Classes::TStream* stream, EStreamSync sync, bool ownsStream);
    /// Doesn't own the stream.
    CInStream(Classes::TStream* stream, EStreamSync sync);
    CInStream(const System::UnicodeString& path, EFileOpenMode mode, EFileShareMode share);
    /// Reads a copy of the bytes.
    CInStream(const char* data, System::Int64 count);
    explicit CInStream(const System::AnsiString& bytes);
    ~CInStream() override;

    /// The next byte; 0, eof and fail at the end.
    char get();
    CInStream& get(char& c);
    /// A text in front of a line feed, which is read too and counts as a character.
    CInStream& get(char* buffer, System::Int64 count);
    /// A text in front of the delimiter, which stays in the stream.
    CInStream& get(char* buffer, System::Int64 count, char delimiter);
    /// A text in front of a line feed, or of the delimiter, which is read too and counts as a character.
    CInStream& getline(char* buffer, System::Int64 count);
    CInStream& getline(char* buffer, System::Int64 count, char delimiter);
    /// Fail if there are fewer bytes.
    CInStream& read(char* buffer, System::Int64 count);

    /// The position; nothing is read.
    System::Int64 peek() const;
    System::Int64 tellg() const;
    CInStream& seekg(System::Int64 position);
    CInStream& seekg(System::Int64 offset, std::ios_base::seekdir direction);

    // An integer is read with 64 bits and cut to the target. What can't be read gives 0 and fail.

    CInStream& operator>>(char& value);
    CInStream& operator>>(bool& value);
    CInStream& operator>>(short& value);
    CInStream& operator>>(unsigned short& value);
    CInStream& operator>>(int& value);
    CInStream& operator>>(unsigned& value);
    CInStream& operator>>(long& value);
    CInStream& operator>>(unsigned long& value);
    CInStream& operator>>(System::Int64& value);
    CInStream& operator>>(System::UInt64& value);
    CInStream& operator>>(float& value);
    CInStream& operator>>(double& value);
    CInStream& operator>>(long double& value);
    /// Reads a signed integer as wide as a pointer, so that what `COutStream` wrote comes back.
    CInStream& operator>>(void*& value);
    /// The bytes up to the next white space; the last word sets no eof. At the end the text is empty, with
    /// eof but without fail; the stream as a condition tells it, as in `while (in >> word)`.
    CInStream& operator>>(System::AnsiString& value);
    /// As for 8-bit text, which is read in the system's code page. For UTF-8 there is `CTextReader`.
    CInStream& operator>>(System::UnicodeString& value);

private:
    template <class T>
    CInStream& ReadSigned(T& value);
    template <class T>
    CInStream& ReadUnsigned(T& value);
};

} // namespace BTL
