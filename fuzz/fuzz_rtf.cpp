// SPDX-License-Identifier: MIT
#include "support/Fuzz.h"
#include "text/grammar/BTL_RTF_Plain.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace
{

using Fuzz::Require;
using System::UnicodeString;

void CheckText(const UnicodeString& text)
{
    const UnicodeString file = BTL::RTF2PlainFile(text);
    const UnicodeString standard = BTL::RTF2PlainStd(text);
    const UnicodeString joined = BTL::RTF2Plain(text, u"");
    Require(std::max({file.Length(), standard.Length(), joined.Length()}) <= text.Length());
    if (!BTL::IsRTF(text)) {
        Require(file == text && joined == text);
        return;
    }
    // Each paragraph adds its break. What is nothing but one break, even one of codes, counts as none.
    if (!file.IsEmpty() && !standard.IsEmpty()) {
        Require(file.Length() - standard.Length() == standard.Length() - joined.Length());
    }
}

} // namespace

/// A text in UTF-8 and in 16-bit units, as it is and as the inside of a document.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Fuzz::Bytes(data, size);
    for (const UnicodeString& text : {System::FromUtf8(bytes), Fuzz::WideText(bytes)}) {
        CheckText(text);
        CheckText(u"{\\rtf1 " + text);
        CheckText(u"{\\rtf1 " + text + u"}");
    }
    return 0;
}
