// SPDX-License-Identifier: MIT
#include "platform/base/System_CodePage.h"

#include "platform/base/internal/System_Converter.h"
#include "platform/base/internal/System_CopyRun.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <string>

#include <unicode/ucnv_cb.h>

namespace System
{

namespace
{

/// A code page that ICU has, but not under its number.
struct TNamedPage
{
    CodePage codePage;
    const char* name;
};

constexpr TNamedPage NamedPages[] = {
    {28591, "iso-8859-1"},  {28600, "iso-8859-10"}, {28601, "iso-8859-11"}, {28604, "iso-8859-14"},
    {50220, "iso-2022-jp"}, {51932, "euc-jp"},      {52936, "hz-gb-2312"},
};

constexpr std::array<std::string_view, 3> NumberPrefixes = {"windows-", "ibm-", "cp"};

Detail::Converter OpenByName(const std::string& name)
{
    UErrorCode status = U_ZERO_ERROR;
    return {ucnv_open(name.c_str(), &status), &ucnv_close};
}

/// What ICU itself calls the converter, whichever name opened it.
std::string_view OwnName(const Detail::Converter& converter)
{
    UErrorCode status = U_ZERO_ERROR;
    return converter != nullptr ? ucnv_getName(converter.get(), &status) : "";
}

/// The number in a name such as "windows-1252"; nothing if it has another form.
std::optional<CodePage> NumberIn(std::string_view name, std::string_view prefix)
{
    CodePage number = 0;
    if (!name.starts_with(prefix)) {
        return std::nullopt;
    }
    const char* const end = name.data() + name.size();
    const auto [next, fault] = std::from_chars(name.data() + prefix.size(), end, number);
    return fault == std::errc() && next == end ? std::optional(number) : std::nullopt;
}

} // namespace

Detail::Converter Detail::OpenConverter(CodePage codePage)
{
    const auto* const named = std::ranges::find(NamedPages, codePage, &TNamedPage::codePage);
    if (named != std::end(NamedPages)) {
        return OpenByName(named->name);
    }
    for (const std::string_view prefix : NumberPrefixes) {
        if (Converter converter = OpenByName(std::string(prefix) + std::to_string(codePage))) {
            return converter;
        }
    }
    return {nullptr, &ucnv_close};
}

std::optional<CodePage> Detail::FindCodePage(const std::string& name)
{
    // ICU takes the empty name for the locale's encoding.
    const Converter converter = name.empty() ? Converter(nullptr, &ucnv_close) : OpenByName(name);
    const std::string ownName(OwnName(converter));
    for (const auto& [codePage, pageName] : NamedPages) {
        if (!ownName.empty() && OwnName(OpenByName(pageName)) == ownName) {
            return codePage;
        }
    }
    UErrorCode status = U_ZERO_ERROR;
    const std::uint16_t count = ucnv_countAliases(ownName.c_str(), &status);
    for (const std::string_view prefix : NumberPrefixes) {
        for (std::uint16_t i = 0; i < count; ++i) {
            const char* const alias = ucnv_getAlias(ownName.c_str(), i, &status);
            const auto number = NumberIn(alias != nullptr ? alias : "", prefix);
            // One number may be that of several converters.
            if (number && OwnName(OpenConverter(*number)) == ownName) {
                return number;
            }
        }
    }
    return std::nullopt;
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

constexpr bool IsWesternSpecial(unsigned code)
{
    return code - 0x80U < WesternSpecials.size();
}

/// Marks the bytes that stand for another number in Unicode, of one byte or of a vector.
struct TSpecialByte
{
    static auto Ends(auto bytes) { return (bytes & 0xE0) == 0x80; }
};

/// Marks the units that aren't the same number in the code page, of one unit or of a vector.
struct TOtherUnit
{
    static auto Ends(auto units) { return (units > 0xFF) | ((units & 0xFFE0) == 0x80); }
};

WideText DecodeWestern(std::string_view bytes)
{
    auto text = WideText::Uninitialized(bytes.size());
    WideChar* const units = text.Unique();
    using End = Detail::GRunEnd<TSpecialByte>;
    std::size_t i = Detail::CopyRun<End>(bytes, units);
    while (i < bytes.size()) {
        for (; i < bytes.size() && End::Ends(ByteOf(bytes[i])); ++i) {
            units[i] = WesternSpecials[ByteOf(bytes[i]) - 0x80U];
        }
        i += Detail::CopyRun<End>(bytes.substr(i), units + i);
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
    using End = Detail::GRunEnd<TOtherUnit>;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t same = Detail::CopyRun<End>(text.substr(i), out);
        out += same;
        i += same;
        for (; i < text.size() && End::Ends(text[i]); ++i) {
            *out++ = EncodeWesternSpecial(text[i]);
            if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
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

/// As `ReadUtf8` for a character of several bytes, with a short way for what most texts have.
TUtf8Character ReadBeyondAscii(std::string_view bytes)
{
    const auto continues = [&](std::size_t i) { return (ByteOf(bytes[i]) & 0xC0) == 0x80; };
    const auto bits = [&](std::size_t i) { return char32_t(ByteOf(bytes[i])) & 0x3F; };
    const char32_t lead = ByteOf(bytes[0]);
    if (lead >= 0xC2 && lead < 0xE0 && bytes.size() >= 2 && continues(1)) {
        return {((lead & 0x1F) << 6) | bits(1), 2};
    }
    // E0 and ED have second bytes that are forbidden.
    if (lead > 0xE0 && lead < 0xF0 && lead != 0xED && bytes.size() >= 3 && continues(1) && continues(2)) {
        return {((lead & 0xF) << 12) | (bits(1) << 6) | bits(2), 3};
    }
    return ReadUtf8(bytes);
}

WideText DecodeUtf8(std::string_view bytes)
{
    auto text = WideText::Uninitialized(bytes.size());
    WideChar* const begin = text.Unique();
    WideChar* out = begin;
    while (!bytes.empty()) {
        const std::size_t ascii = Detail::CopyRun<Detail::TAsciiEnd>(bytes, out);
        out += ascii;
        bytes.remove_prefix(ascii);
        while (!bytes.empty() && ByteOf(bytes[0]) >= 0x80) {
            const auto [code, length] = ReadBeyondAscii(bytes);
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

/// Writes the characters of `text` from `i` on that aren't 7-bit, up to the next one that is.
std::size_t EncodeBeyondAscii(std::u16string_view text, std::size_t i, char*& out)
{
    const auto put = [&out](char32_t bits) { *out++ = static_cast<char>(bits); };
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
    return i;
}

NarrowText EncodeUtf8(std::u16string_view text)
{
    // Most texts are 7-bit to their end.
    auto bytes = NarrowText::Uninitialized(text.size());
    std::size_t i = Detail::CopyRun<Detail::TAsciiEnd>(text, bytes.Unique());
    if (i == text.size()) {
        return bytes;
    }
    auto longer = NarrowText::Uninitialized(i + 3 * (text.size() - i));
    char* const begin = longer.Unique();
    char* out = std::copy_n(bytes.c_str(), i, begin);
    while (i < text.size()) {
        i = EncodeBeyondAscii(text, i, out);
        const std::size_t ascii = Detail::CopyRun<Detail::TAsciiEnd>(text.substr(i), out);
        out += ascii;
        i += ascii;
    }
    longer.Resize(static_cast<std::size_t>(out - begin));
    longer.Trim();
    return longer;
}

void SubstituteQuestionMark(UConverter* converter)
{
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setSubstString(converter, u"?", 1, &status);
}

/// As ICU's own substitution, which puts U+001A for a single byte in some of the code pages.
void PutReplacement(const void*, UConverterToUnicodeArgs* target, const char*, int32_t,
                    UConverterCallbackReason reason, UErrorCode* status)
{
    if (reason > UCNV_IRREGULAR) {
        return;
    }
    *status = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(target, &Replacement, 1, 0, status);
}

WideText DecodeByIcu(UConverter* converter, std::string_view bytes)
{
    const auto source = static_cast<int32_t>(bytes.size());
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(converter, &PutReplacement, nullptr, nullptr, nullptr, &status);
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

bool IsKnownCodePage(CodePage codePage)
{
    return Detail::IsWestern(codePage) || codePage == CP_UTF8 || Detail::OpenConverter(codePage) != nullptr;
}

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
