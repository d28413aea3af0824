// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_String.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/Sysutils_Number.h"

#include <algorithm>
#include <climits>
#include <istream>
#include <ostream>
#include <string>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::Detail::IsAsciiDigit;
using System::Detail::IsAsciiSpace;

using Traits = std::istream::traits_type;

/// By hand: a stream reads numbers by the digit groups of its locale and in its base.
int ReadSize(std::istream& stream)
{
    while (IsAsciiSpace(stream.peek())) {
        stream.get();
    }
    const bool isNegative = stream.peek() == '-';
    if (isNegative) {
        stream.get();
    }
    constexpr System::Int64 bound = System::Int64{INT_MAX} + 1;
    System::Int64 size = 0;
    bool isNumber = false;
    for (; IsAsciiDigit(stream.peek()); isNumber = true) {
        size = std::min(size * 10 + (stream.get() - '0'), bound);
    }
    if (!isNumber || (size == bound && !isNegative)) {
        stream.setstate(std::ios::failbit);
        return 0;
    }
    return isNegative ? 0 : static_cast<int>(size);
}

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
    // Unformatted, since a stream writes numbers with the digit groups of its locale and in its base.
    const std::string head = std::to_string(size()) + ' ';
    stream.write(head.data(), static_cast<std::streamsize>(head.size()));
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
