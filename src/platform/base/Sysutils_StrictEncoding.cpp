// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_StrictEncoding.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Converter.h"

#include <algorithm>
#include <array>
#include <optional>

#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace Sysutils
{

using System::CodePage;
using System::RawByteString;
using System::UnicodeString;
using System::WideChar;

namespace
{

/// The 0-based place of the first fault; nothing if there is none.
using Place = std::optional<std::size_t>;

bool IsUtf16(CodePage codePage)
{
    return codePage == TEncoding::Utf16 || codePage == TEncoding::Utf16BigEndian;
}

template <class Iterator>
Place PlaceOf(Iterator found, Iterator begin, Iterator end)
{
    return found == end ? Place() : static_cast<std::size_t>(found - begin);
}

Place FaultInUtf8(std::string_view bytes)
{
    const auto* const data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto length = static_cast<int32_t>(bytes.size());
    for (int32_t next = 0; next < length;) {
        const int32_t start = next;
        UChar32 character = 0;
        U8_NEXT(data, next, length, character);
        if (character < 0) {
            return static_cast<std::size_t>(start);
        }
    }
    return {};
}

Place FaultInWestern(std::string_view bytes)
{
    constexpr std::string_view unassigned = "\x81\x8D\x8F\x90\x9D";
    const std::size_t found = bytes.find_first_of(unassigned);
    return found == std::string_view::npos ? Place() : found;
}

Place LoneSurrogate(std::u16string_view text)
{
    const WideChar* const units = text.data();
    const auto length = static_cast<int32_t>(text.size());
    for (int32_t next = 0; next < length;) {
        const int32_t start = next;
        UChar32 character = 0;
        U16_NEXT(units, next, length, character);
        if (U_IS_SURROGATE(character)) {
            return static_cast<std::size_t>(start);
        }
    }
    return {};
}

Place FaultInUtf16(CodePage codePage, std::string_view bytes)
{
    // The half of a unit at the end becomes U+FFFD, so that the places of all others are right.
    const UnicodeString text = TEncoding(codePage).GetString(bytes);
    if (const Place unit = LoneSurrogate(text.AsView())) {
        return *unit * sizeof(WideChar);
    }
    return bytes.size() % sizeof(WideChar) == 0 ? Place() : bytes.size() - 1;
}

Place MissingInWestern(std::u16string_view text)
{
    const auto isMissing = [](const WideChar unit) {
        if (unit < 0x80 || (unit >= 0xA0 && unit < 0x100)) {
            return false;
        }
        // What 1252 has beside Latin-1 becomes one of the codes 128 to 159; the controls there are none of
        // it.
        return unit < 0x100 || System::EncodeText(System::DefaultSystemCodePage, {&unit, 1}).AsView() == "?";
    };
    return PlaceOf(std::find_if(text.begin(), text.end(), isMissing), text.begin(), text.end());
}

System::Detail::Converter NeedConverter(CodePage codePage)
{
    auto converter = System::Detail::OpenConverter(codePage);
    if (converter == nullptr) {
        throw EArgumentException(u"There is no code page " + UnicodeString(codePage));
    }
    return converter;
}

/// Runs the converter to the end or to the first fault, into a buffer that is thrown away.
template <class Source, class Target, class Convert, class InvalidLength>
Place FaultByIcu(std::basic_string_view<Source> source, Convert convert, InvalidLength invalidLength)
{
    const Source* next = source.data();
    const Source* const end = next + source.size();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status == U_BUFFER_OVERFLOW_ERROR) {
        std::array<Target, 1024> buffer;
        Target* out = buffer.data();
        status = U_ZERO_ERROR;
        convert(&out, out + buffer.size(), &next, end, status);
    }
    if (U_SUCCESS(status)) {
        return {};
    }
    return static_cast<std::size_t>(next - source.data()) - invalidLength();
}

Place FaultByIcu(CodePage codePage, std::string_view bytes)
{
    const auto converter = NeedConverter(codePage);
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return FaultByIcu<char, UChar>(
        bytes,
        [&](UChar** out, const UChar* outEnd, const char** next, const char* end, UErrorCode& error) {
            ucnv_toUnicode(converter.get(), out, outEnd, next, end, nullptr, 1, &error);
        },
        [&] {
            std::array<char, 32> invalid;
            auto length = static_cast<int8_t>(invalid.size());
            UErrorCode error = U_ZERO_ERROR;
            ucnv_getInvalidChars(converter.get(), invalid.data(), &length, &error);
            return static_cast<std::size_t>(length);
        });
}

/// Stops at what the code page lacks. The callback of ICU for that passes over invisible characters, such as
/// joiners and variation selectors, in silence.
void StopAtMissing(const void*, UConverterFromUnicodeArgs*, const UChar*, int32_t, UChar32,
                   UConverterCallbackReason, UErrorCode*)
{
}

Place MissingByIcu(CodePage codePage, std::u16string_view text)
{
    const auto converter = NeedConverter(codePage);
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter.get(), StopAtMissing, nullptr, nullptr, nullptr, &status);
    return FaultByIcu<WideChar, char>(
        text,
        [&](char** out, const char* outEnd, const UChar** next, const UChar* end, UErrorCode& error) {
            ucnv_fromUnicode(converter.get(), out, outEnd, next, end, nullptr, 1, &error);
        },
        [&] {
            std::array<UChar, 32> invalid;
            auto length = static_cast<int8_t>(invalid.size());
            UErrorCode error = U_ZERO_ERROR;
            ucnv_getInvalidUChars(converter.get(), invalid.data(), &length, &error);
            return static_cast<std::size_t>(length);
        });
}

Place FirstFault(CodePage codePage, std::string_view bytes)
{
    if (bytes.empty()) {
        return {};
    }
    if (System::Detail::IsWestern(codePage)) {
        return FaultInWestern(bytes);
    }
    if (codePage == System::CP_UTF8) {
        return FaultInUtf8(bytes);
    }
    return IsUtf16(codePage) ? FaultInUtf16(codePage, bytes) : FaultByIcu(codePage, bytes);
}

Place FirstMissing(CodePage codePage, std::u16string_view text)
{
    if (text.empty()) {
        return {};
    }
    if (System::Detail::IsWestern(codePage)) {
        return MissingInWestern(text);
    }
    if (codePage == System::CP_UTF8 || IsUtf16(codePage)) {
        return LoneSurrogate(text);
    }
    return MissingByIcu(codePage, text);
}

/// Whether there is no fault; tells its place from 1 on.
bool Report(const Place& place, int* fault)
{
    if (fault != nullptr) {
        *fault = place ? static_cast<int>(*place) + 1 : 0;
    }
    return !place;
}

CodePage CodePageOf(const TEncoding* encoding)
{
    return encoding == nullptr ? System::DefaultSystemCodePage : encoding->getCodePage();
}

} // namespace

bool TryDecode(CodePage codePage, std::string_view bytes, UnicodeString& text, int* fault)
{
    if (!Report(FirstFault(codePage, bytes), fault)) {
        return false;
    }
    text = TEncoding(codePage).GetString(bytes);
    return true;
}

bool TryDecode(const TEncoding* encoding, std::string_view bytes, UnicodeString& text, int* fault)
{
    return TryDecode(CodePageOf(encoding), bytes, text, fault);
}

bool TryEncode(CodePage codePage, std::u16string_view text, RawByteString& bytes, int* fault)
{
    if (!Report(FirstMissing(codePage, text), fault)) {
        return false;
    }
    bytes = TEncoding(codePage).GetBytes(UnicodeString(text));
    return true;
}

bool TryEncode(const TEncoding* encoding, std::u16string_view text, RawByteString& bytes, int* fault)
{
    return TryEncode(CodePageOf(encoding), text, bytes, fault);
}

} // namespace Sysutils
