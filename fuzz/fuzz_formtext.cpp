// SPDX-License-Identifier: MIT
#include "support/Forms.h"
#include "support/Fuzz.h"

#include <string>

using Fuzz::Compiled;
using Fuzz::Decompiled;

/// A text is refused with its place, or has a binary form that tells the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string bytes;
    try {
        bytes = Compiled(Fuzz::Bytes(data, size));
    } catch (const Classes::EParserError& fault) {
        Fuzz::Require(fault.getLine() > 0 && fault.getColumn() > 0);
        return 0;
    }
    const std::string text = Decompiled(bytes);
    Fuzz::Require(Compiled(text) == bytes);
    Fuzz::Require(Decompiled(Compiled(text)) == text);
    return 0;
}
