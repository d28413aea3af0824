// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormText.h"

#include <string>
#include <string_view>

namespace Fuzz
{

/// Puts the bytes into an empty stream, to be read.
inline Classes::TMemoryStream& Filled(Classes::TMemoryStream& stream, std::string_view bytes)
{
    stream.WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
    stream.setPosition(0);
    return stream;
}

/// What a conversion of streams makes of the bytes.
inline std::string Converted(std::string_view bytes, void (*convert)(Classes::TStream*, Classes::TStream*))
{
    Classes::TMemoryStream input;
    Classes::TMemoryStream output;
    convert(&Filled(input, bytes), &output);
    return std::string(output.AsView());
}

inline std::string Compiled(std::string_view text)
{
    return Converted(text, Classes::ObjectTextToBinary);
}

inline std::string Decompiled(std::string_view bytes)
{
    return Converted(bytes, Classes::ObjectBinaryToText);
}

} // namespace Fuzz
