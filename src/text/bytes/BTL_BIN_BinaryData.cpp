// SPDX-License-Identifier: MIT
#include "text/bytes/BTL_BIN_BinaryData.h"

#include <algorithm>
#include <climits>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::UTF8String;

constexpr unsigned Marker = 1;
constexpr unsigned FirstPlain = 32;
constexpr unsigned MarkedOffset = 33;

std::string_view AsBytes(const void* data, int size)
{
    return System::Detail::SafeView(static_cast<const char*>(data), size);
}

template <class Char>
unsigned CodeOf(Char c)
{
    return static_cast<std::make_unsigned_t<Char>>(c);
}

template <>
unsigned CodeOf(char16_t c)
{
    return c;
}

template <class S>
S ToHex(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789abcdef";
    if (bytes.size() > INT_MAX / 2) {
        System::ThrowStringMemory();
    }
    S text;
    text.SetLength(static_cast<int>(bytes.size() * 2));
    auto* out = text.UniqueData();
    if (out == nullptr) {
        return text;
    }
    for (const char byte : bytes) {
        *out++ = static_cast<typename S::CharType>(digits[CodeOf(byte) >> 4]);
        *out++ = static_cast<typename S::CharType>(digits[CodeOf(byte) & 15]);
    }
    return text;
}

template <class Char>
unsigned DigitValue(Char c)
{
    const unsigned code = CodeOf(c);
    if (code >= '0' && code <= '9') {
        return code - '0';
    }
    const unsigned lower = code | 0x20U;
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 0;
}

/// Writes `count` bytes, for which `hex` has the digits.
template <class Char>
void FromHex(const Char* hex, std::size_t count, char* out)
{
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = static_cast<char>(DigitValue(hex[2 * i]) << 4 | DigitValue(hex[2 * i + 1]));
    }
}

template <class S>
void HexToBuffer(const S& hex, void* buffer, int size)
{
    if (buffer != nullptr && size > 0) {
        FromHex(hex.c_str(), static_cast<std::size_t>(std::min(size, hex.Length() / 2)),
                static_cast<char*>(buffer));
    }
}

template <class S>
AnsiString HexToBytes(const S& hex)
{
    AnsiString bytes;
    bytes.SetLength(hex.Length() / 2);
    FromHex(hex.c_str(), static_cast<std::size_t>(bytes.Length()), bytes.UniqueData());
    return bytes;
}

template <class S>
S ToTextSafe(const AnsiString& bytes)
{
    using Char = typename S::CharType;
    const auto isMarked = [](char byte) { return CodeOf(byte) < FirstPlain; };
    const std::string_view view = bytes.AsView();
    const auto marked = static_cast<std::size_t>(std::count_if(view.begin(), view.end(), isMarked));
    if (view.size() + marked > INT_MAX) {
        System::ThrowStringMemory();
    }
    S text;
    text.SetLength(static_cast<int>(view.size() + marked));
    Char* out = text.UniqueData();
    if (out == nullptr) {
        return text;
    }
    for (const char byte : view) {
        if (isMarked(byte)) {
            *out++ = static_cast<Char>(Marker);
        }
        *out++ = static_cast<Char>(CodeOf(byte) + (isMarked(byte) ? MarkedOffset : 0));
    }
    return text;
}

template <class S>
AnsiString FromTextSafe(const S& text)
{
    AnsiString bytes;
    bytes.Reserve(text.Length());
    unsigned offset = 0;
    for (const auto c : text.AsView()) {
        if (offset == 0 && CodeOf(c) == Marker) {
            offset = MarkedOffset;
            continue;
        }
        bytes += static_cast<char>(CodeOf(c) - offset);
        offset = 0;
    }
    return bytes;
}

} // namespace

UnicodeString BinaryDataToHexW(const void* data, int size)
{
    return ToHex<UnicodeString>(AsBytes(data, size));
}

UnicodeString BinaryDataToHexW(const AnsiString& bytes)
{
    return ToHex<UnicodeString>(bytes.AsView());
}

AnsiString BinaryDataToHexA(const void* data, int size)
{
    return ToHex<AnsiString>(AsBytes(data, size));
}

AnsiString BinaryDataToHexA(const AnsiString& bytes)
{
    return ToHex<AnsiString>(bytes.AsView());
}

void HexToBinaryData(const UnicodeString& hex, void* buffer, int size)
{
    HexToBuffer(hex, buffer, size);
}

void HexToBinaryData(const AnsiString& hex, void* buffer, int size)
{
    HexToBuffer(hex, buffer, size);
}

AnsiString HexToBinaryData(const UnicodeString& hex)
{
    return HexToBytes(hex);
}

AnsiString HexToBinaryData(const AnsiString& hex)
{
    return HexToBytes(hex);
}

UnicodeString BinaryDataToStringW(const AnsiString& bytes)
{
    return ToTextSafe<UnicodeString>(bytes);
}

AnsiString BinaryDataToStringA(const AnsiString& bytes)
{
    return ToTextSafe<AnsiString>(bytes);
}

AnsiString StringToBinaryDataW(const UnicodeString& text)
{
    return FromTextSafe(text);
}

AnsiString StringToBinaryData(const UnicodeString& text)
{
    return StringToBinaryDataW(text);
}

AnsiString StringToBinaryDataA(const AnsiString& text)
{
    return FromTextSafe(text);
}

AnsiString StringToBinaryData(const AnsiString& text)
{
    return StringToBinaryDataA(text);
}

UTF8String BinaryDataToUTF8(const AnsiString& bytes)
{
    return BinaryDataToStringW(bytes);
}

AnsiString UTF8ToBinaryData(const UTF8String& text)
{
    return StringToBinaryDataW(UnicodeString(text));
}

bool IsEqual(const System::DynamicArray<unsigned char>& a, const System::DynamicArray<unsigned char>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

} // namespace BTL
