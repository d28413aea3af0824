// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"

namespace BTL::Detail
{

// The reading functions of `BTL_STRM_StreamUtilities.h`, which tell how they ended as well.

struct TReadEnd
{
    /// How many bytes came in front of what ended it.
    System::Int64 count = 0;
    /// The end of the stream ended it, no byte.
    bool metEnd = false;
};

TReadEnd SkipUntil(Classes::TStream& stream, char c);
TReadEnd SkipWhitespaces(Classes::TStream& stream);
TReadEnd ReadStringUntil(Classes::TStream& stream, char delimiter, System::AnsiString& text);
TReadEnd ReadStringUntil(Classes::TStream& stream, const System::AnsiString& delimiter,
                         System::AnsiString& text);
TReadEnd ReadBytes(Classes::TStream& stream, int count, System::AnsiString& bytes);

enum class EByteBehind
{
    Read,
    /// The stream must be able to look ahead.
    Kept
};

/// The text of a decimal integer, perhaps of none.
TReadEnd ReadIntegerText(Classes::TStream& stream, EByteBehind byteBehind, System::UnicodeString& text);

} // namespace BTL::Detail
