// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Encoding.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Converter.h"

#include <algorithm>
#include <array>
#include <string>

namespace Sysutils
{

namespace
{

constexpr std::size_t UnitSize = 2;

std::array<TEncoding, 4>& StandardEncodings()
{
    static std::array encodings{TEncoding(System::DefaultSystemCodePage), TEncoding(System::CP_UTF8),
                                TEncoding(TEncoding::Utf16), TEncoding(TEncoding::Utf16BigEndian)};
    return encodings;
}

/// The place of the low byte in a unit.
std::size_t LowByte(System::CodePage codePage)
{
    return codePage == TEncoding::Utf16BigEndian ? 1 : 0;
}

std::string ToUnits(std::u16string_view text, std::size_t low)
{
    std::string bytes(text.size() * UnitSize, '\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        bytes[UnitSize * i + low] = static_cast<char>(text[i] & 0xFF);
        bytes[UnitSize * i + 1 - low] = static_cast<char>(text[i] >> 8);
    }
    return bytes;
}

std::u16string FromUnits(std::string_view bytes, std::size_t low)
{
    std::u16string text(bytes.size() / UnitSize, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto lowByte = static_cast<unsigned char>(bytes[UnitSize * i + low]);
        const auto highByte = static_cast<unsigned char>(bytes[UnitSize * i + 1 - low]);
        text[i] = static_cast<char16_t>(highByte << 8 | lowByte);
    }
    if (bytes.size() % UnitSize != 0) {
        text += u'\uFFFD';
    }
    return text;
}

} // namespace

TEncoding::TEncoding(System::CodePage codePage) : mCodePage(codePage)
{
    if (!System::IsKnownCodePage(codePage)) {
        throw EArgumentException(u"There is no code page " + System::UnicodeString(codePage));
    }
}

TEncoding TEncoding::FromName(const System::UnicodeString& name)
{
    // The host's converter of this name wants a mark.
    if (name.CompareIC(u"utf-16") == 0 || name.CompareIC(u"utf16") == 0) {
        return TEncoding(Utf16);
    }
    const std::optional<System::CodePage> codePage = System::Detail::FindCodePage(System::ToUtf8(name));
    if (!codePage) {
        throw EArgumentException(u"There is no encoding \"" + name + u"\"");
    }
    return TEncoding(*codePage);
}

TEncoding* TEncoding::getDefault()
{
    return &StandardEncodings()[0];
}

TEncoding* TEncoding::getUTF8()
{
    return &StandardEncodings()[1];
}

TEncoding* TEncoding::getUnicode()
{
    return &StandardEncodings()[2];
}

TEncoding* TEncoding::getBigEndianUnicode()
{
    return &StandardEncodings()[3];
}

bool TEncoding::IsStandardEncoding(const TEncoding* encoding)
{
    return std::ranges::any_of(StandardEncodings(),
                               [encoding](const TEncoding& standard) { return &standard == encoding; });
}

std::pair<TEncoding*, int> TEncoding::Detect(std::string_view bytes, TEncoding* preferred)
{
    for (TEncoding& encoding : StandardEncodings()) {
        const std::string_view mark = encoding.GetPreamble();
        if (!mark.empty() && bytes.starts_with(mark)) {
            return {&encoding, static_cast<int>(mark.size())};
        }
    }
    return {preferred != nullptr ? preferred : getDefault(), 0};
}

std::string_view TEncoding::GetPreamble() const noexcept
{
    switch (mCodePage) {
    case System::CP_UTF8:
        return "\xEF\xBB\xBF";
    case Utf16:
        return "\xFF\xFE";
    case Utf16BigEndian:
        return "\xFE\xFF";
    default:
        return {};
    }
}

System::RawByteString TEncoding::GetBytes(const System::UnicodeString& text) const
{
    if (mCodePage == Utf16 || mCodePage == Utf16BigEndian) {
        return System::RawByteString(std::string_view(ToUnits(text.AsView(), LowByte(mCodePage))));
    }
    return System::RawByteString(System::EncodeText(mCodePage, text.AsView()));
}

System::UnicodeString TEncoding::GetString(std::string_view bytes) const
{
    if (mCodePage == Utf16 || mCodePage == Utf16BigEndian) {
        return System::UnicodeString(std::u16string_view(FromUnits(bytes, LowByte(mCodePage))));
    }
    return System::UnicodeString(System::DecodeText(mCodePage, bytes));
}

} // namespace Sysutils
