// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_Stream.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_STR_Words.h"
#include "platform/base/Sysutils_StrictEncoding.h"
#include "streams/BTL_STRM_TextWriter.h"
#include "streams/internal/BTL_STRM_Scan.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <functional>
#include <optional>
#include <string_view>

namespace BTL
{

namespace
{

using Classes::TStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;
using System::Word;

static_assert(std::endian::native == std::endian::little, "numbers are stored as they are in memory");

constexpr UTL::CFaultPlace NullStreamInSearch{"BTL_STRM_Stream.cpp", 520};

constexpr std::string_view LineEnd = "\r\n";

Word ShareWord(EFileShareMode share)
{
    switch (share) {
    case fsmDenyWrite:
        return Classes::fmShareDenyWrite;
    case fsmExclusive:
        return Classes::fmShareExclusive;
    default:
        return Classes::fmShareDenyNone;
    }
}

Word OpenWord(const UnicodeString& path, EFileOpenMode mode)
{
    switch (mode) {
    case fomCreate:
        return Classes::fmCreate;
    case fomAppend:
        return Sysutils::FileExists(path) ? Classes::fmOpenReadWrite : Classes::fmCreate;
    case fomWrite:
        return Classes::fmOpenWrite;
    case fomReadWrite:
        return Classes::fmOpenReadWrite;
    default:
        return Classes::fmOpenRead;
    }
}

template <class T>
T ReadValue(TStream& stream)
{
    T value;
    stream.ReadBuffer(&value, sizeof(T));
    return value;
}

template <class T>
void WriteValue(TStream& stream, T value)
{
    stream.WriteBuffer(&value, sizeof(T));
}

std::string_view AsChars(const System::DynamicArray<unsigned char>& bytes)
{
    return {reinterpret_cast<const char*>(bytes.begin()), static_cast<std::size_t>(bytes.Length())};
}

void WriteView(TStream& stream, std::string_view bytes)
{
    stream.WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
}

AnsiString ReadExactly(TStream& stream, int count)
{
    AnsiString bytes = Detail::ReadUpTo(stream, count);
    if (bytes.Length() < count) {
        throw Classes::EReadError(u"Stream read error");
    }
    return bytes;
}

auto FindInTable(const unsigned char* table)
{
    return Detail::GFindIf{[=](char c) { return table[static_cast<unsigned char>(c)] != 0; }};
}

auto FindNotInTable(const unsigned char* table)
{
    return Detail::GFindIf{[=](char c) { return table[static_cast<unsigned char>(c)] == 0; }};
}

/// The position as the type that words are told in.
int AsInt(Int64 position)
{
    return static_cast<int>(std::min(position, Int64{INT_MAX}));
}

TStream& SourceOf(TStream* source, const TStream* target)
{
    if (source == nullptr || source == target) {
        throw Classes::EReadError(u"Stream read error");
    }
    return *source;
}

/// Copies up to and with the byte that `find` finds.
template <class Find>
Int64 CopyTo(TStream& source, TStream& target, Find find)
{
    Int64 count = 0;
    const auto copy = [&](std::string_view bytes) {
        WriteView(target, bytes);
        count += static_cast<Int64>(bytes.size());
    };
    if (const std::optional<char> end = Detail::ReadTo(source, find, copy)) {
        copy(std::string_view(&*end, 1));
    }
    return count;
}

} // namespace

Classes::TFileStream* CreateFileStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
{
    auto stream = std::make_unique<Classes::TFileStream>(
        path, static_cast<Word>(OpenWord(path, mode) | ShareWord(share)));
    if (mode == fomAppend) {
        stream->Seek(0, Classes::soEnd);
    }
    return stream.release();
}

Int64 Search(const AnsiString& text, TStream* stream, int start)
{
    if (stream == nullptr) {
        UTL::THROW_XAssert(NullStreamInSearch);
        return -1;
    }
    Detail::NeedPosition(*stream);
    if (start >= 0) {
        stream->setPosition(start);
    }
    if (text.IsEmpty()) {
        return -1;
    }
    Detail::CPatternScan scan(text.AsView());
    const auto found = Detail::ReadTo(*stream, std::ref(scan), Detail::Ignore);
    return found ? stream->getPosition() - text.Length() : -1;
}

AnsiString BytesOfText(std::u16string_view text)
{
    System::RawByteString bytes;
    int fault = 0;
    if (!Sysutils::TryEncode(System::DefaultSystemCodePage, text, bytes, &fault)) {
        throw ECharacterFault(text, fault);
    }
    return AnsiString(bytes.AsView());
}

// MStream

char MStream::ReadChar()
{
    return ReadValue<char>(*mStream);
}

unsigned char MStream::ReadUChar()
{
    return ReadValue<unsigned char>(*mStream);
}

bool MStream::ReadBool()
{
    return ReadValue<unsigned char>(*mStream) != 0;
}

int MStream::ReadInteger()
{
    return ReadValue<int>(*mStream);
}

double MStream::ReadDouble()
{
    return ReadValue<double>(*mStream);
}

AnsiString MStream::ReadString()
{
    const int length = ReadInteger();
    if (length < 0) {
        throw Classes::EReadError(u"Stream read error");
    }
    return ReadExactly(*mStream, length);
}

void MStream::WriteChar(char value)
{
    WriteValue(*mStream, value);
}

void MStream::WriteUChar(unsigned char value)
{
    WriteValue(*mStream, value);
}

void MStream::WriteBool(bool value)
{
    WriteValue(*mStream, static_cast<unsigned char>(value));
}

void MStream::WriteInteger(int value)
{
    WriteValue(*mStream, value);
}

void MStream::WriteDouble(double value)
{
    WriteValue(*mStream, value);
}

void MStream::WriteString(const AnsiString& text)
{
    WriteInteger(text.Length());
    WriteBuffer(text);
}

AnsiString MStream::ReadBuffer(int count)
{
    return ReadExactly(*mStream, count);
}

void MStream::WriteBuffer(const AnsiString& bytes)
{
    WriteView(*mStream, bytes.AsView());
}

System::DynamicArray<unsigned char> MStream::ReadBytes(Int64 count)
{
    const AnsiString bytes = Detail::ReadUpTo(*mStream, count);
    System::DynamicArray<unsigned char> result;
    result.set_length(bytes.Length());
    std::copy(bytes.AsView().begin(), bytes.AsView().end(), result.begin());
    return result;
}

void MStream::WriteBytes(const System::DynamicArray<unsigned char>& bytes)
{
    WriteView(*mStream, AsChars(bytes));
}

int MStream::Write(const AnsiString& bytes)
{
    return Write(bytes.c_str(), bytes.Length());
}

int MStream::Write(const char* bytes, int count)
{
    return static_cast<int>(mStream->Write(bytes, count));
}

AnsiString MStream::ReadAll()
{
    if (!Classes::ToldPosition(*mStream)) {
        return Detail::ReadUpTo(*mStream, INT64_MAX);
    }
    const Int64 size = mStream->getSize();
    if (size == 0) {
        return {};
    }
    if (size > INT_MAX) {
        System::ThrowStringMemory();
    }
    mStream->setPosition(0);
    if (size < 0) {
        return Detail::ReadUpTo(*mStream, INT64_MAX);
    }
    return ReadExactly(*mStream, static_cast<int>(size));
}

void MStream::WriteAll(const AnsiString& text)
{
    mStream->setPosition(0);
    WriteBuffer(text);
    mStream->setSize(text.Length());
}

AnsiString MStream::ReadUntil(char delimiter)
{
    AnsiString text;
    Detail::ReadTo(*mStream, Detail::CFindByte{delimiter}, Detail::AppendTo(text));
    return text;
}

AnsiString MStream::ReadLine()
{
    return ReadLineUntil('\n');
}

AnsiString MStream::ReadLineUntil(char delimiter)
{
    bool newLine = false;
    return ReadLineUntil(delimiter, newLine);
}

AnsiString MStream::ReadLineUntil(char delimiter, bool& newLine)
{
    AnsiString text;
    const auto appendWithoutReturns = [&](std::string_view bytes) {
        while (!bytes.empty()) {
            const std::size_t end = std::min(bytes.find('\r'), bytes.size());
            text.Append(bytes.substr(0, end));
            bytes.remove_prefix(std::min(end + 1, bytes.size()));
        }
    };
    const std::optional<char> end =
        delimiter == '\n'
            ? Detail::ReadTo(*mStream, Detail::CFindByte{'\n'}, appendWithoutReturns)
            : Detail::ReadTo(*mStream, Detail::CFindEither{delimiter, '\n'}, appendWithoutReturns);
    newLine = end == '\n';
    return text;
}

void MStream::WriteLine(const AnsiString& text)
{
    WriteBuffer(text);
    if (!text.AsView().ends_with(LineEnd)) {
        WriteEOL();
    }
}

void MStream::WriteEOL()
{
    WriteView(*mStream, LineEnd);
}

AnsiString MStream::ReadWord(int& position)
{
    return ReadWord(position, nullptr, nullptr);
}

AnsiString MStream::ReadWord(int& position, const unsigned char* firstChars, const unsigned char* nextChars)
{
    if (firstChars == nullptr) {
        firstChars = UTL::GetWordCharsA();
        nextChars = nextChars == nullptr ? UTL::GetWordChars2A() : nextChars;
    }
    const bool hasPosition = Classes::ToldPosition(*mStream).has_value();
    if (!hasPosition) {
        position = -1;
    } else if (Detail::AtEnd(*mStream)) {
        position = AsInt(mStream->getSize());
        return {};
    }
    const std::optional<char> first = Detail::ReadTo(*mStream, FindInTable(firstChars), Detail::Ignore);
    if (!first) {
        return {};
    }
    if (hasPosition) {
        position = AsInt(mStream->getPosition() - 1);
    }
    AnsiString word(*first);
    Detail::ReadTo(*mStream, FindNotInTable(nextChars == nullptr ? firstChars : nextChars),
                   Detail::AppendTo(word));
    return word;
}

Int64 MStream::CopyFrom(TStream* source, Int64 count)
{
    return mStream->CopyFrom(&SourceOf(source, mStream), count);
}

Int64 MStream::LoadRest(TStream* source)
{
    TStream& from = SourceOf(source, mStream);
    return CopyTo(from, *mStream, [&](std::string_view) {
        Classes::CStreamWindow::CheckHasEnd(from);
        return std::string_view::npos;
    });
}

Int64 MStream::LoadTill(TStream* source, char delimiter)
{
    return CopyTo(SourceOf(source, mStream), *mStream, Detail::CFindByte{delimiter});
}

Int64 MStream::LoadTill(TStream* source, const System::DynamicArray<unsigned char>& pattern)
{
    Detail::CPatternScan scan(AsChars(pattern));
    return CopyTo(SourceOf(source, mStream), *mStream, std::ref(scan));
}

Int64 MStream::Search(const AnsiString& text, int start)
{
    return BTL::Search(text, mStream, start);
}

// The owners

CFileStream::CFileStream(const UnicodeString& path) : CFileStream(path, Classes::fmShareDenyNone) {}

CFileStream::CFileStream(const UnicodeString& path, unsigned short mode)
    : GOwnedStream(std::make_unique<Classes::TFileStream>(path, mode))
{
}

CFileStream::CFileStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : GOwnedStream(std::unique_ptr<Classes::TFileStream>(CreateFileStream(path, mode, share)))
{
}

CStringStream::CStringStream() : GOwnedStream(std::make_unique<Classes::TStringStream>()) {}

CStringStream::CStringStream(const AnsiString& text)
    : GOwnedStream(std::make_unique<Classes::TStringStream>(text))
{
}

CStringStream::CStringStream(const UnicodeString& text, Sysutils::TEncoding* encoding, bool ownsEncoding)
    : GOwnedStream(std::make_unique<Classes::TStringStream>(text, encoding, ownsEncoding))
{
}

CStringStream::CStringStream(const CStringStream& other)
    : CStringStream(other.getStream()->getDataString(),
                    // The other stream may delete its own.
                    new Sysutils::TEncoding(*other.getStream()->getEncoding()), true)
{
}

CMemoryStream::CMemoryStream() : GOwnedStream(std::make_unique<Classes::TMemoryStream>()) {}

CMemoryStream::CMemoryStream(const UnicodeString& path) : CMemoryStream()
{
    getStream()->LoadFromFile(path);
}

// CStreams

CStreams::~CStreams()
{
    Clear();
}

void CStreams::Add(TStream* stream)
{
    push_back(stream);
}

void CStreams::Clear()
{
    for (const TStream* stream : *this) {
        delete stream;
    }
    resize(0);
}

} // namespace BTL
