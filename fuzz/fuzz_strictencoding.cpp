// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_StrictEncoding.h"
#include "support/Fuzz.h"

#include <cstdint>
#include <iterator>
#include <string_view>

namespace
{

using Fuzz::Require;
using System::CodePage;
using System::RawByteString;
using System::UnicodeString;
using Sysutils::TEncoding;

/// Bytes that are text come to the text of the lenient way and back to bytes that mean the same; in others
/// the fault is at the place told, behind a text.
void CheckDecoding(CodePage codePage, std::string_view bytes)
{
    const UnicodeString before = u"before";
    UnicodeString text = before;
    int fault = -1;
    if (!Sysutils::TryDecode(codePage, bytes, text, &fault)) {
        Require(text == before);
        Require(fault >= 1 && static_cast<std::size_t>(fault) <= bytes.size());
        const std::string_view front = bytes.substr(0, static_cast<std::size_t>(fault) - 1);
        Require(Sysutils::TryDecode(codePage, front, text));
        return;
    }
    Require(fault == 0);
    Require(text == TEncoding(codePage).GetString(bytes));
    RawByteString encoded;
    Require(Sysutils::TryEncode(codePage, text.AsView(), encoded));
    UnicodeString again;
    Require(Sysutils::TryDecode(codePage, encoded.AsView(), again) && again == text);
}

/// As `CheckDecoding` the other way round.
void CheckEncoding(CodePage codePage, const UnicodeString& text)
{
    const RawByteString before = "before";
    RawByteString bytes = before;
    int fault = -1;
    if (!Sysutils::TryEncode(codePage, text.AsView(), bytes, &fault)) {
        Require(bytes.AsView() == before.AsView());
        Require(fault >= 1 && fault <= text.Length());
        const auto front = text.AsView().substr(0, static_cast<std::size_t>(fault) - 1);
        Require(Sysutils::TryEncode(codePage, front, bytes));
        return;
    }
    Require(fault == 0);
    UnicodeString decoded;
    Require(Sysutils::TryDecode(codePage, bytes.AsView(), decoded) && decoded == text);
}

} // namespace

/// The first byte chooses the code page; the rest is bytes in it, and a text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) {
        return 0;
    }
    constexpr CodePage codePages[] = {
        1252, System::CP_UTF8, TEncoding::Utf16, TEncoding::Utf16BigEndian, 932, 1251, 936, 28605};
    Fuzz::Input input(data, size);
    const CodePage codePage = codePages[input.Take<std::uint8_t>() % std::size(codePages)];
    CheckDecoding(codePage, input.getText());
    CheckEncoding(codePage, Fuzz::WideText(input.getText()));
    return 0;
}
