// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/visual/stdctrls/edits/Comctrls_RichEdit.h"
#include "support/Fuzz.h"

#include <cstdint>

/// Any bytes behind the mark of rich text read, and what is written of them reads the same text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const System::UnicodeString source(System::AnsiString("{\\rtf1 " + std::string(Fuzz::Bytes(data, size))));
    Comctrls::TRichEdit edit;
    edit.getLines()->setText(source);
    const System::UnicodeString text = edit.getText();
    Classes::TMemoryStream stream;
    edit.getLines()->SaveToStream(&stream);
    stream.setPosition(0);
    Comctrls::TRichEdit other;
    other.getLines()->LoadFromStream(&stream);
    Fuzz::Require(other.getText() == text);
    return 0;
}
