// SPDX-License-Identifier: MIT
#include "text/BTL_STR_String.h"

#include "platform/runtime/Sysutils_Number.h"

#include <algorithm>
#include <charconv>
#include <istream>
#include <iterator>
#include <ostream>
#include <string>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;

/// Room for the digits of a size, with a sign.
constexpr std::size_t MaxSizeLength = 16;

/// Reads in pieces, so that a size alone takes no memory.
AnsiString ReadBytes(std::istream& stream, int count)
{
    AnsiString bytes;
    char piece[4096];
    while (count > 0 && stream) {
        stream.read(piece, std::min<int>(count, sizeof piece));
        const auto done = static_cast<int>(stream.gcount());
        bytes.Append({piece, static_cast<std::size_t>(done)});
        count -= done;
    }
    return bytes;
}

/// Not by `>>`, which follows the locale and the flags of the stream. 0 if there is no size, and the stream
/// has failed then.
int ReadSize(std::istream& stream)
{
    stream >> std::ws;
    std::string text;
    const auto isPart = [&](int c) { return (c >= '0' && c <= '9') || (c == '-' && text.empty()); };
    while (text.size() < MaxSizeLength && isPart(stream.peek())) {
        text += static_cast<char>(stream.get());
    }
    int size = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), size).ec != std::errc()) {
        stream.setstate(std::ios::failbit);
    }
    return size;
}

AnsiString ReadWord(std::istream& stream)
{
    char word[256] = "";
    stream >> word;
    return word;
}

} // namespace

const UnicodeString kEmptyString;

void CAnsiString::Write(std::ostream& stream) const
{
    char text[MaxSizeLength + 1];
    char* const end = std::to_chars(std::begin(text), std::end(text) - 1, size()).ptr;
    *end = ' ';
    stream.write(text, end + 1 - text);
    stream.write(c_str(), size());
}

void CAnsiString::Read(std::istream& stream)
{
    const int count = ReadSize(stream);
    stream.get();
    mText = ReadBytes(stream, count);
}

int CUnicodeString::ToIntDef(int defaultValue) const
{
    return Sysutils::StrToIntDef(mText, defaultValue);
}

void CUnicodeString::Write(std::ostream& stream) const
{
    CAnsiString(AnsiString(std::string_view(System::ToUtf8(mText)))).Write(stream);
}

void CUnicodeString::Read(std::istream& stream)
{
    CAnsiString bytes;
    bytes.Read(stream);
    mText = System::FromUtf8(bytes.vcl_str().AsView());
}

std::ostream& operator<<(std::ostream& stream, const CAnsiString& text)
{
    return stream << text.vcl_str().AsView();
}

std::istream& operator>>(std::istream& stream, CAnsiString& text)
{
    text = ReadWord(stream);
    return stream;
}

std::ostream& operator<<(std::ostream& stream, const CUnicodeString& text)
{
    return stream << System::ToUtf8(text.vcl_str());
}

std::istream& operator>>(std::istream& stream, CUnicodeString& text)
{
    text = System::FromUtf8(ReadWord(stream).AsView());
    return stream;
}

} // namespace BTL
