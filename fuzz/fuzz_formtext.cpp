// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "support/Fuzz.h"

#include <string>

namespace
{

using namespace Classes;

std::string Compiled(std::string_view text)
{
    TMemoryStream input;
    input.WriteBuffer(text.data(), static_cast<System::Int64>(text.size()));
    input.setPosition(0);
    TMemoryStream output;
    ObjectTextToBinary(&input, &output);
    return std::string(output.AsView());
}

std::string Decompiled(std::string_view bytes)
{
    TMemoryStream input;
    input.WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
    input.setPosition(0);
    TMemoryStream output;
    ObjectBinaryToText(&input, &output);
    return std::string(output.AsView());
}

} // namespace

/// A text is refused with its place, or has a binary form that tells the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string bytes;
    try {
        bytes = Compiled(Fuzz::Bytes(data, size));
    } catch (const EParserError& fault) {
        Fuzz::Require(fault.getLine() > 0 && fault.getColumn() > 0);
        return 0;
    }
    const std::string text = Decompiled(bytes);
    Fuzz::Require(Compiled(text) == bytes);
    Fuzz::Require(Decompiled(Compiled(text)) == text);
    return 0;
}
