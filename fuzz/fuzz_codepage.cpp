// SPDX-License-Identifier: MIT
#include "platform/base/System_String.h"
#include "support/Fuzz.h"

#include <cstdint>
#include <string_view>

namespace
{

using Fuzz::Require;

} // namespace

/// Decodes any bytes in several code pages. What was decoded must come back from UTF-8 unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Fuzz::Bytes(data, size);
    for (const System::CodePage codePage : {System::CodePage(1252), System::CP_UTF8, System::CodePage(932),
                                            System::CodePage(1251), System::CodePage(20000)}) {
        const System::UnicodeString text(System::DecodeText(codePage, bytes));
        Require(System::FromUtf8(System::ToUtf8(text)) == text);
        System::EncodeText(codePage, text.AsView());
    }
    const System::UnicodeString western(System::DecodeText(System::DefaultSystemCodePage, bytes));
    Require(System::AnsiString(western).AsView() == bytes);

    // The same bytes as 16-bit units, which may hold lone surrogates.
    const System::UnicodeString wide = Fuzz::WideText(bytes);
    const System::UnicodeString cleaned = System::FromUtf8(System::ToUtf8(wide));
    Require(cleaned.Length() == wide.Length());
    System::EncodeText(932, wide.AsView());
    Require(System::AnsiString(wide).Length() <= wide.Length());
    Require(wide.UpperCase().CompareIC(wide.UpperCase()) == 0);
    return 0;
}
