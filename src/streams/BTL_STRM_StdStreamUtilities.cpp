// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StdStreamUtilities.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/host/Host_BufferedFiles.h"
#include "platform/host/Host_Path.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "streams/internal/BTL_STRM_DataFileSource.h"
#include "streams/internal/BTL_STRM_Scan.h"

#include <algorithm>
#include <array>
#include <climits>
#include <limits>
#include <optional>
#include <streambuf>
#include <string_view>
#include <utility>

namespace BTL
{

using System::AnsiString;
using System::Int64;
using System::UnicodeString;
using System::Detail::IsAsciiDigit;

namespace
{

/// Looks at the bytes that a standard stream has in memory, which are its buffer's own affair otherwise.
class CGetArea : private std::streambuf
{
public:
    /// Empty where only the next read can tell.
    static std::string_view Of(const StdInStream& stream)
    {
        const std::streambuf* const buffer = stream.good() ? stream.rdbuf() : nullptr;
        if (buffer == nullptr || (buffer->*&CGetArea::gptr)() == nullptr) {
            return {};
        }
        return {(buffer->*&CGetArea::gptr)(), (buffer->*&CGetArea::egptr)()};
    }

    static void Pass(const StdInStream& stream, std::size_t count)
    {
        // The function that moves by a count takes an `int`.
        while (count > 0) {
            const std::size_t step = std::min<std::size_t>(count, INT_MAX);
            (stream.rdbuf()->*&CGetArea::gbump)(static_cast<int>(step));
            count -= step;
        }
    }
};

/// Reads up to and with the first byte that `find` tells, which is the result, and gives those in front of it
/// to `sink` in pieces. Nothing if a read fails before. What comes at the edge of the bytes in memory is read
/// as by itself, so that the stream's state, count and mask of exceptions are those of `get`.
template <class Find, class Sink>
std::optional<char> ReadTo(StdInStream& stream, Find find, Sink sink)
{
    for (;;) {
        const std::string_view area = CGetArea::Of(stream);
        const std::string_view piece = area.substr(0, find(area));
        sink(piece);
        CGetArea::Pass(stream, piece.size());
        char c = 0;
        if (!stream.get(c)) {
            return std::nullopt;
        }
        const std::string_view single(&c, 1);
        if (piece.size() < area.size() || find(single) == 0) {
            return c;
        }
        sink(single);
    }
}

template <class Find>
AnsiString ReadTextTo(StdInStream& stream, Find find)
{
    AnsiString text;
    ReadTo(stream, find, Detail::AppendTo(text));
    return text;
}

struct TStdIntegerText
{
    AnsiString text;
    bool hasEnd;

    bool HasDigit() const { return !text.IsEmpty() && IsAsciiDigit(*text.LastChar()); }
};

TStdIntegerText ReadStdIntegerText(StdInStream& stream)
{
    AnsiString text;
    bool isFirst = true;
    const auto isEnd = [&isFirst](char c) {
        const bool isSign = std::exchange(isFirst, false) && c == '-';
        return !isSign && !IsAsciiDigit(c);
    };
    const auto end = ReadTo(stream, Detail::GFindIf{isEnd}, Detail::AppendTo(text));
    return {text, end.has_value()};
}

template <class Convert>
auto ReadUnget(StdInStream& stream, Convert convert)
{
    const TStdIntegerText number = ReadStdIntegerText(stream);
    if (!number.HasDigit() && number.hasEnd) {
        stream.unget();
    }
    return convert(number.HasDigit() ? UnicodeString(number.text) : UnicodeString());
}

Int64 LowHalf(std::streamoff position)
{
    return static_cast<std::uint32_t>(position);
}

/// Where the line begins that holds the byte at `position`, or that ends with it.
std::streamoff LineStart(StdInStream& stream, std::streamoff position)
{
    constexpr std::streamoff BlockSize = 512;
    std::array<char, BlockSize> block;
    while (position > 0) {
        const std::streamoff start = std::max(position - BlockSize, std::streamoff{0});
        stream.seekg(start);
        stream.read(block.data(), position - start);
        const std::size_t lineFeed =
            std::string_view(block.data(), static_cast<std::size_t>(stream.gcount())).rfind('\n');
        stream.clear();
        if (lineFeed != std::string_view::npos) {
            return start + static_cast<std::streamoff>(lineFeed) + 1;
        }
        position = start;
    }
    return 0;
}

/// The path for a standard stream, to which the host shows all that was written. Empty, which opens nothing,
/// for a folder: the host would open it, and fail to read.
std::string PathToRead(const UnicodeString& path)
{
    if (Sysutils::DirectoryExists(path)) {
        return {};
    }
    std::string hostPath = Sysutils::HostPath(path);
    Host::FlushBuffersOf(hostPath.c_str());
    return hostPath;
}

} // namespace

void SkipLine(StdInStream& stream)
{
    SkipUntil(stream, '\n');
}

void SkipUntil(StdInStream& stream, char c)
{
    ReadTo(stream, Detail::CFindByte{c}, Detail::Ignore);
}

void SkipBytes(StdInStream& stream, int count)
{
    stream.seekg(count, std::ios_base::cur);
}

void SkipWhitespaces(StdInStream& stream)
{
    stream >> std::ws;
}

int CountLines(StdInStream& stream, int limit)
{
    stream.clear();
    stream.seekg(0);
    const int last = limit < 0 ? INT_MAX : limit;
    int lines = 0;
    char c = 0;
    for (int count = 0; stream.get(c) && count < last; ++count) {
        lines += c == '\n' ? 1 : 0;
    }
    return lines;
}

Int64 GetReadPosition(StdInStream& stream)
{
    return LowHalf(stream.tellg());
}

Int64 GetSize(StdInStream& stream)
{
    const std::streampos position = stream.tellg();
    stream.seekg(0, std::ios_base::end);
    const std::streampos size = stream.tellg();
    stream.seekg(position);
    return LowHalf(size);
}

AnsiString GetCurrStrLine(StdInStream& stream)
{
    // A stream that met its end has a position nevertheless.
    stream.clear();
    const std::streamoff position = stream.tellg();
    if (position < 0) {
        stream.setstate(std::ios_base::failbit);
        return {};
    }
    stream.seekg(LineStart(stream, position));
    std::array<char, 1024> line;
    stream.getline(line.data(), line.size());
    AnsiString text(line.data());
    // The end of the stream, or of the room, is no failure here.
    stream.clear();
    stream.seekg(position);
    return text;
}

AnsiString ReadStringUntil(StdInStream& stream, char delimiter)
{
    return ReadTextTo(stream, Detail::CFindByte{delimiter});
}

AnsiString ReadStringUntil(StdInStream& stream, const AnsiString& delimiters)
{
    const auto isEnd = [&](char c) { return delimiters.AsView().find(c) != std::string_view::npos; };
    return ReadTextTo(stream, Detail::GFindIf{isEnd});
}

AnsiString ReadBytes(StdInStream& stream, int count)
{
    if (count < 1) {
        return {};
    }
    AnsiString bytes;
    if (count == INT_MAX) {
        System::ThrowStringMemory();
    }
    bytes.SetLength(count + 1);
    stream.read(bytes.UniqueData(), count);
    return bytes;
}

int ReadInteger(StdInStream& stream)
{
    return Sysutils::StrToInt(ReadStdIntegerText(stream).text);
}

int ReadIntegerDef(StdInStream& stream, int defaultValue)
{
    return Sysutils::StrToIntDef(ReadStdIntegerText(stream).text, defaultValue);
}

Int64 ReadInt64(StdInStream& stream)
{
    return Sysutils::StrToInt64(ReadStdIntegerText(stream).text);
}

Int64 ReadInt64Def(StdInStream& stream, Int64 defaultValue)
{
    return Sysutils::StrToInt64Def(ReadStdIntegerText(stream).text, defaultValue);
}

int ReadIntegerUnget(StdInStream& stream, int defaultValue)
{
    return ReadUnget(stream,
                     [=](const UnicodeString& text) { return Sysutils::StrToIntDef(text, defaultValue); });
}

Int64 ReadInt64Unget(StdInStream& stream, Int64 defaultValue)
{
    return ReadUnget(stream,
                     [=](const UnicodeString& text) { return Sysutils::StrToInt64Def(text, defaultValue); });
}

StdInStream& operator>>(StdInStream& stream, AnsiString& text)
{
    // The form for an array ends at its size.
    char buffer[512] = "";
    stream >> buffer;
    text = AnsiString(buffer);
    return stream;
}

// CStdFileInStreamEx

template class GDataFile<std::ifstream>;

CStdFileInStreamEx::CStdFileInStreamEx(const UnicodeString& path)
    : GDataFile(path, PathToRead(path), std::ios_base::in | std::ios_base::binary)
{
}

CStdFileInStreamEx::~CStdFileInStreamEx() = default;

int CStdFileInStreamEx::getCurrLine()
{
    clear();
    const std::streampos position = tellg();
    const auto goal = std::clamp<std::streamoff>(position, 0, INT_MAX);
    if (goal < mLineCount.position) {
        mLineCount = {};
    }
    seekg(mLineCount.position);
    std::array<char, 4096> block;
    while (mLineCount.position < goal) {
        const auto size = static_cast<std::streamsize>(block.size());
        read(block.data(), std::min<std::streamsize>(goal - mLineCount.position, size));
        if (gcount() <= 0) {
            break;
        }
        mLineCount.lines += std::count(block.begin(), block.begin() + gcount(), '\n');
        mLineCount.position += gcount();
    }
    clear();
    seekg(position);
    return static_cast<int>(mLineCount.lines);
}

Int64 CStdFileInStreamEx::getPosition()
{
    return GetReadPosition(*this);
}

Int64 CStdFileInStreamEx::getSize()
{
    return GetSize(*this);
}

// CStdFileOutStreamEx

CStdFileOutStreamEx::CStdFileOutStreamEx(const UnicodeString& path)
    : std::ofstream(PathToRead(path), std::ios_base::out | std::ios_base::binary)
{
    exceptions(std::ios_base::badbit);
}

CStdFileOutStreamEx::~CStdFileOutStreamEx() = default;

} // namespace BTL
