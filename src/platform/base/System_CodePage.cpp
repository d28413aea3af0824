// SPDX-License-Identifier: MIT
#include "platform/base/System_CodePage.h"

#include "platform/base/internal/System_Converter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <string>

namespace System
{

Detail::Converter Detail::OpenConverter(CodePage codePage)
{
    for (const char* prefix : {"windows-", "ibm-", "cp"}) {
        UErrorCode status = U_ZERO_ERROR;
        Converter converter(ucnv_open((prefix + std::to_string(codePage)).c_str(), &status), &ucnv_close);
        if (U_SUCCESS(status)) {
            return converter;
        }
    }
    return {nullptr, &ucnv_close};
}

namespace
{

using WideText = GSharedText<WideChar>;
using NarrowText = GSharedText<char>;

constexpr WideChar Replacement = u'\uFFFD';

/// What the codes 128 to 159 stand for in 1252; all other codes stand for themselves.
constexpr std::array<WideChar, 32> WesternSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool IsHighSurrogate(WideChar unit)
{
    return (unit & 0xFC00) == 0xD800;
}

constexpr bool IsLowSurrogate(WideChar unit)
{
    return (unit & 0xFC00) == 0xDC00;
}

constexpr unsigned char ByteOf(char c)
{
    return static_cast<unsigned char>(c);
}

/// How many characters at the front are 7-bit, looked at in words.
std::size_t AsciiPrefix(std::string_view bytes)
{
    std::size_t i = 0;
    for (; i + 8 <= bytes.size(); i += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + i, 8);
        if ((word & 0x8080808080808080U) != 0) {
            break;
        }
    }
    while (i < bytes.size() && ByteOf(bytes[i]) < 0x80) {
        ++i;
    }
    return i;
}

std::size_t AsciiPrefix(std::u16string_view text)
{
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t words[2];
        std::memcpy(words, text.data() + i, 16);
        if (((words[0] | words[1]) & 0xFF80FF80FF80FF80U) != 0) {
            break;
        }
    }
    while (i < text.size() && text[i] < 0x80) {
        ++i;
    }
    return i;
}

WideChar* Widen(std::string_view bytes, WideChar* out)
{
    return std::transform(bytes.begin(), bytes.end(), out, [](char c) { return WideChar(ByteOf(c)); });
}

char* Narrow(std::u16string_view text, char* out)
{
    return std::transform(text.begin(), text.end(), out, [](WideChar c) { return static_cast<char>(c); });
}

constexpr bool IsWesternSpecial(unsigned code)
{
    return code - 0x80U < WesternSpecials.size();
}

WideText DecodeWestern(std::string_view bytes)
{
    auto text = WideText::Uninitialized(bytes.size());
    WideChar* const units = text.Unique();
    WideChar* const end = Widen(bytes, units);
    // Few texts hold a special at all, and two plain loops are faster than one with a look-up.
    for (WideChar* c = std::find_if(units, end, IsWesternSpecial); c != end;
         c = std::find_if(c + 1, end, IsWesternSpecial)) {
        *c = WesternSpecials[*c - 0x80U];
    }
    return text;
}

char EncodeWesternSpecial(WideChar unit)
{
    const auto* found = std::find(WesternSpecials.begin(), WesternSpecials.end(), unit);
    return found == WesternSpecials.end() ? '?' : static_cast<char>(0x80 + (found - WesternSpecials.begin()));
}

NarrowText EncodeWestern(std::u16string_view text)
{
    auto bytes = NarrowText::Uninitialized(text.size());
    char* const begin = bytes.Unique();
    char* out = begin;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t ascii = AsciiPrefix(text.substr(i));
        out = Narrow(text.substr(i, ascii), out);
        i += ascii;
        for (; i < text.size() && text[i] >= 0x80; ++i) {
            const WideChar unit = text[i];
            *out++ = unit >= 0xA0 && unit < 0x100 ? static_cast<char>(unit) : EncodeWesternSpecial(unit);
            if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
                ++i;
            }
        }
    }
    bytes.Resize(static_cast<std::size_t>(out - begin));
    return bytes;
}

/// The bytes of one UTF-8 character and what they stand for.
struct TUtf8Character
{
    char32_t code;
    std::size_t bytes;
};

/// Reads the character at the front of `bytes`, which isn't empty. An ill-formed sequence gives U+FFFD for
/// its longest well-formed beginning, as Unicode recommends.
TUtf8Character ReadUtf8(std::string_view bytes)
{
    const unsigned lead = ByteOf(bytes[0]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const std::size_t needed = lead >= 0xC2 && lead < 0xE0   ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    if (needed == 0) {
        return {Replacement, 1};
    }
    char32_t code = lead & (0x7FU >> needed);
    for (std::size_t i = 1; i < needed; ++i) {
        const unsigned next = i < bytes.size() ? ByteOf(bytes[i]) : 0U;
        // The second byte shuts out overlong forms, surrogates and codes above 10FFFF.
        const unsigned low = i == 1 && lead == 0xE0 ? 0xA0 : i == 1 && lead == 0xF0 ? 0x90 : 0x80;
        const unsigned high = i == 1 && lead == 0xED ? 0x9F : i == 1 && lead == 0xF4 ? 0x8F : 0xBF;
        if (next < low || next > high) {
            return {Replacement, i};
        }
        code = (code << 6) | (next & 0x3FU);
    }
    return {code, needed};
}

WideText DecodeUtf8(std::string_view bytes)
{
    auto text = WideText::Uninitialized(bytes.size());
    WideChar* const begin = text.Unique();
    WideChar* out = begin;
    while (!bytes.empty()) {
        const std::size_t ascii = AsciiPrefix(bytes);
        out = Widen(bytes.substr(0, ascii), out);
        bytes.remove_prefix(ascii);
        while (!bytes.empty() && ByteOf(bytes[0]) >= 0x80) {
            const auto [code, length] = ReadUtf8(bytes);
            bytes.remove_prefix(length);
            if (code < 0x10000) {
                *out++ = static_cast<WideChar>(code);
            } else {
                *out++ = static_cast<WideChar>(0xD7C0 + (code >> 10));
                *out++ = static_cast<WideChar>(0xDC00 + (code & 0x3FF));
            }
        }
    }
    text.Resize(static_cast<std::size_t>(out - begin));
    return text;
}

/// Room for the UTF-8 form: exact, or two bytes too much for each surrogate pair.
std::size_t Utf8Room(std::u16string_view text)
{
    std::size_t room = text.size();
    for (const WideChar unit : text) {
        room += static_cast<std::size_t>(unit >= 0x80) + static_cast<std::size_t>(unit >= 0x800);
    }
    return room;
}

NarrowText EncodeUtf8(std::u16string_view text)
{
    auto bytes = NarrowText::Uninitialized(Utf8Room(text));
    char* const begin = bytes.Unique();
    char* out = begin;
    const auto put = [&out](char32_t bits) { *out++ = static_cast<char>(bits); };
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t ascii = AsciiPrefix(text.substr(i));
        out = Narrow(text.substr(i, ascii), out);
        i += ascii;
        for (; i < text.size() && text[i] >= 0x80; ++i) {
            char32_t code = text[i];
            if (code < 0x800) {
                put(0xC0 | (code >> 6));
                put(0x80 | (code & 0x3F));
                continue;
            }
            if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
                code = 0x10000 + ((code & 0x3FF) << 10) + (text[++i] & 0x3FFU);
                put(0xF0 | (code >> 18));
                put(0x80 | ((code >> 12) & 0x3F));
            } else {
                code = code >= 0xD800 && code < 0xE000 ? char32_t(Replacement) : code;
                put(0xE0 | (code >> 12));
            }
            put(0x80 | ((code >> 6) & 0x3F));
            put(0x80 | (code & 0x3F));
        }
    }
    bytes.Resize(static_cast<std::size_t>(out - begin));
    return bytes;
}

void SubstituteQuestionMark(UConverter* converter)
{
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setSubstString(converter, u"?", 1, &status);
}

WideText DecodeByIcu(UConverter* converter, std::string_view bytes)
{
    const auto source = static_cast<int32_t>(bytes.size());
    UErrorCode status = U_ZERO_ERROR;
    const int32_t needed = ucnv_toUChars(converter, nullptr, 0, bytes.data(), source, &status);
    auto text = WideText::Uninitialized(static_cast<std::size_t>(std::max(needed, 0)));
    status = U_ZERO_ERROR;
    ucnv_toUChars(converter, text.Unique(), needed, bytes.data(), source, &status);
    return text;
}

NarrowText EncodeByIcu(UConverter* converter, std::u16string_view text)
{
    SubstituteQuestionMark(converter);
    const auto source = static_cast<int32_t>(text.size());
    UErrorCode status = U_ZERO_ERROR;
    const int32_t needed = ucnv_fromUChars(converter, nullptr, 0, text.data(), source, &status);
    auto bytes = NarrowText::Uninitialized(static_cast<std::size_t>(std::max(needed, 0)));
    status = U_ZERO_ERROR;
    ucnv_fromUChars(converter, bytes.Unique(), needed, text.data(), source, &status);
    return bytes;
}

WideChar WesternUnit(char byte)
{
    const unsigned code = ByteOf(byte);
    return IsWesternSpecial(code) ? WesternSpecials[code - 0x80U] : static_cast<WideChar>(code);
}

} // namespace

int CompareWithAnsi(std::u16string_view text, std::string_view bytes) noexcept
{
    const auto [unit, byte] = std::mismatch(text.begin(), text.end(), bytes.begin(), bytes.end(),
                                            [](WideChar a, char b) { return a == WesternUnit(b); });
    if (unit == text.end() || byte == bytes.end()) {
        return static_cast<int>(unit != text.end()) - static_cast<int>(byte != bytes.end());
    }
    return *unit < WesternUnit(*byte) ? -1 : 1;
}

GSharedText<WideChar> DecodeText(CodePage codePage, std::string_view bytes)
{
    if (bytes.empty()) {
        return {};
    }
    if (Detail::IsWestern(codePage)) {
        return DecodeWestern(bytes);
    }
    if (codePage == CP_UTF8) {
        return DecodeUtf8(bytes);
    }
    const Detail::Converter converter = Detail::OpenConverter(codePage);
    return converter != nullptr ? DecodeByIcu(converter.get(), bytes) : DecodeWestern(bytes);
}

GSharedText<char> EncodeText(CodePage codePage, std::u16string_view text)
{
    if (text.empty()) {
        return {};
    }
    if (Detail::IsWestern(codePage)) {
        return EncodeWestern(text);
    }
    if (codePage == CP_UTF8) {
        return EncodeUtf8(text);
    }
    const Detail::Converter converter = Detail::OpenConverter(codePage);
    return converter != nullptr ? EncodeByIcu(converter.get(), text) : EncodeWestern(text);
}

} // namespace System
