// SPDX-License-Identifier: MIT
#include "text/BTL_STR_String.h"

#include "platform/runtime/Sysutils_Number.h"

#include <algorithm>
#include <istream>
#include <ostream>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;

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
    stream << size() << ' ';
    stream.write(c_str(), size());
}

void CAnsiString::Read(std::istream& stream)
{
    int count = 0;
    if (!(stream >> count)) {
        count = 0;
    }
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
