// SPDX-License-Identifier: MIT
#include "platform/base/System_String.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/internal/System_Converter.h"
#include "platform/base/internal/System_Digits.h"

#include <algorithm>
#include <array>
#include <optional>
#include <ostream>

#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace System
{

namespace Detail
{

namespace
{

/// Written where it stays: the count of the digits costs less than a copy of them.
GSharedText<WideChar> DecimalText(UInt64 magnitude, bool negative)
{
    auto text = GSharedText<WideChar>::Uninitialized(CountDigits(magnitude) + (negative ? 1 : 0));
    WideChar* const begin = text.Unique();
    if (negative) {
        *begin = u'-';
    }
    WriteDigits(magnitude, begin + text.Size());
    return text;
}

/// The other case of each character of Latin-1.
using TLatinCase = std::array<WideChar, 256>;

/// Stands for a character that turns into several.
constexpr WideChar SeveralUnits = 0xFFFF;

constexpr TLatinCase LatinUpper = [] {
    TLatinCase upper{};
    for (unsigned c = 0; c < upper.size(); ++c) {
        const bool isLower = (c >= 'a' && c <= 'z') || (c >= 0xE0 && c < 0xFF && c != 0xF7);
        upper[c] = static_cast<WideChar>(isLower ? c - 0x20 : c);
    }
    upper[0xB5] = 0x039C;
    upper[0xDF] = SeveralUnits;
    upper[0xFF] = 0x0178;
    return upper;
}();

constexpr TLatinCase LatinLower = [] {
    TLatinCase lower{};
    for (unsigned c = 0; c < lower.size(); ++c) {
        const bool isUpper = (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c < 0xDF && c != 0xD7);
        lower[c] = static_cast<WideChar>(isUpper ? c + 0x20 : c);
    }
    return lower;
}();

/// False if a character is beyond Latin-1 or turns into several; `out` has room for all.
bool MapLatinCase(std::u16string_view text, const TLatinCase& table, WideChar* out)
{
    return std::all_of(text.begin(), text.end(), [&](WideChar unit) {
        const WideChar mapped = unit < table.size() ? table[unit] : SeveralUnits;
        *out++ = mapped; // NOLINT(clang-analyzer-core.NullDereference): null only where there is no text
        return mapped != SeveralUnits;
    });
}

GSharedText<WideChar> MapCase(std::u16string_view text, const TLatinCase& table, decltype(&u_strToUpper) map)
{
    const auto length = static_cast<int32_t>(text.size());
    auto result = GSharedText<WideChar>::Uninitialized(text.size());
    if (MapLatinCase(text, table, result.Unique())) {
        return result;
    }
    UErrorCode status = U_ZERO_ERROR;
    int32_t needed = map(result.Unique(), length, text.data(), length, "", &status);
    if (needed > length) {
        result = GSharedText<WideChar>::Uninitialized(static_cast<std::size_t>(needed));
        status = U_ZERO_ERROR;
        needed = map(result.Unique(), needed, text.data(), length, "", &status);
    }
    result.Resize(static_cast<std::size_t>(needed));
    return result;
}

using CaseMap = GSharedText<WideChar> (*)(std::u16string_view text);

/// Maps the one character `text` and gives it in `codePage`; as it was, if the code page lacks the outcome.
GSharedText<char> MapCharacter(CodePage codePage, std::u16string_view text, CaseMap map)
{
    const GSharedText<WideChar> mapped = map(text);
    GSharedText<char> bytes = EncodeText(codePage, mapped.AsView());
    const bool isThere = DecodeText(codePage, bytes.AsView()).AsView() == mapped.AsView();
    return isThere ? bytes : EncodeText(codePage, text);
}

GSharedText<char> MapByCharacters(CodePage codePage, std::string_view bytes, CaseMap map)
{
    const GSharedText<WideChar> text = DecodeText(codePage, bytes);
    const auto length = static_cast<int32_t>(text.Size());
    GSharedText<char> result;
    for (int32_t i = 0; i < length;) {
        const int32_t begin = i;
        U16_FWD_1(text.c_str(), i, length);
        const auto character =
            text.AsView().substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(i - begin));
        result.Append(MapCharacter(codePage, character, map).AsView());
    }
    return result;
}

/// What the 256 characters of the system's code page become.
class CWesternCase
{
public:
    explicit CWesternCase(CaseMap map)
    {
        for (std::size_t code = 0; code < mFirst.size(); ++code) {
            const auto byte = static_cast<char>(code);
            const GSharedText<char> mapped = MapByCharacters(DefaultSystemCodePage, {&byte, 1}, map);
            mFirst[code] = mapped.AsView().front();
            if (mapped.Size() > 1) {
                mDoubled = byte;
                mSecond = mapped.AsView()[1];
            }
        }
    }

    GSharedText<char> Map(std::string_view bytes) const
    {
        const auto first = [this](char byte) { return mFirst[static_cast<unsigned char>(byte)]; };
        const auto doubled = mDoubled ? std::count(bytes.begin(), bytes.end(), *mDoubled) : 0;
        auto result = GSharedText<char>::Uninitialized(bytes.size() + static_cast<std::size_t>(doubled));
        char* out = result.Unique();
        if (doubled == 0) {
            std::transform(bytes.begin(), bytes.end(), out, first);
            return result;
        }
        for (const char byte : bytes) {
            *out++ = first(byte);
            if (byte == mDoubled) {
                *out++ = mSecond;
            }
        }
        return result;
    }

private:
    std::array<char, 256> mFirst;
    /// The one letter that turns into two, if any, which the sharp s does in upper case.
    std::optional<char> mDoubled;
    char mSecond = '\0';
};

/// `western` is what `map` does to the system's code page.
GSharedText<char> MapBytes(CodePage codePage, std::string_view bytes, CaseMap map,
                           const CWesternCase& western)
{
    if (IsWestern(codePage)) {
        return western.Map(bytes);
    }
    if (codePage == CP_UTF8) {
        return EncodeText(codePage, map(DecodeText(codePage, bytes).AsView()).AsView());
    }
    return MapByCharacters(codePage, bytes, map);
}

constexpr WideChar ByteSurrogate = 0xDC00;

/// Writes one character of `bytes` from `position` on to `out`, and gives the position behind it.
std::size_t WriteHostCharacter(WideChar*& out, std::string_view bytes, std::size_t position)
{
    const auto* start = reinterpret_cast<const std::uint8_t*>(bytes.data()) + position;
    const auto room = static_cast<int32_t>(std::min<std::size_t>(bytes.size() - position, U8_MAX_LENGTH));
    int32_t length = 0;
    UChar32 character = 0;
    U8_NEXT(start, length, room, character);
    if (character < 0 || character == '\\') {
        *out++ = static_cast<WideChar>(ByteSurrogate + *start);
        return position + 1;
    }
    if (character > 0xFFFF) {
        *out++ = U16_LEAD(character);
        *out++ = U16_TRAIL(character);
    } else {
        *out++ = static_cast<WideChar>(character);
    }
    return position + static_cast<std::size_t>(length);
}

} // namespace

GSharedText<WideChar> FromHostName(std::string_view bytes)
{
    auto text = GSharedText<WideChar>::Uninitialized(bytes.size());
    WideChar* const begin = text.Unique();
    WideChar* out = begin;
    for (std::size_t position = 0; position < bytes.size();) {
        position = WriteHostCharacter(out, bytes, position);
    }
    if (out - begin >= 2 && begin[1] == u':' && IsAsciiLetter(begin[0])) {
        begin[1] = ByteSurrogate + ':';
    }
    text.Resize(static_cast<std::size_t>(out - begin));
    return text;
}

GSharedText<WideChar> IntegerText(long long value)
{
    const auto bits = static_cast<UInt64>(value);
    return DecimalText(value < 0 ? 0 - bits : bits, value < 0);
}

GSharedText<WideChar> UnsignedText(unsigned long long value)
{
    return DecimalText(value, false);
}

GSharedText<WideChar> FromUtf32(std::wstring_view text)
{
    GSharedText<WideChar> result;
    result.Reserve(text.size());
    for (const wchar_t character : text) {
        const auto code = static_cast<char32_t>(character);
        if (code < 0x10000) {
            const auto unit = static_cast<WideChar>(code);
            result.Append({&unit, 1});
        } else if (code < 0x110000) {
            const WideChar pair[] = {static_cast<WideChar>(0xD7C0 + (code >> 10)),
                                     static_cast<WideChar>(0xDC00 + (code & 0x3FF))};
            result.Append({pair, 2});
        } else {
            result.Append(u"\uFFFD");
        }
    }
    return result;
}

GSharedText<WideChar> UpperText(std::u16string_view text)
{
    return MapCase(text, LatinUpper, u_strToUpper);
}

GSharedText<WideChar> LowerText(std::u16string_view text)
{
    return MapCase(text, LatinLower, u_strToLower);
}

GSharedText<char> UpperText(CodePage codePage, std::string_view bytes)
{
    // Never destroyed, so that it serves to the end of the program.
    static const auto* const western = new CWesternCase(UpperText);
    return MapBytes(codePage, bytes, UpperText, *western);
}

GSharedText<char> LowerText(CodePage codePage, std::string_view bytes)
{
    // Never destroyed, so that it serves to the end of the program.
    static const auto* const western = new CWesternCase(LowerText);
    return MapBytes(codePage, bytes, LowerText, *western);
}

int CompareIgnoreCase(std::u16string_view a, std::u16string_view b)
{
    UErrorCode status = U_ZERO_ERROR;
    return u_strCaseCompare(a.data(), static_cast<int32_t>(a.size()), b.data(),
                            static_cast<int32_t>(b.size()), U_FOLD_CASE_DEFAULT, &status);
}

std::ostream& WriteBytes(std::ostream& stream, std::string_view bytes)
{
    return stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace Detail

std::string ToUtf8(std::u16string_view text)
{
    return std::string(EncodeText(CP_UTF8, text).AsView());
}

UnicodeString FromUtf8(std::string_view bytes)
{
    return UnicodeString(DecodeText(CP_UTF8, bytes));
}

std::ostream& operator<<(std::ostream& stream, const UnicodeString& text)
{
    return Detail::WriteBytes(stream, EncodeText(CP_UTF8, text.AsView()).AsView());
}

} // namespace System
