// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Encoding.h"

namespace BTL
{

/// What ends a line.
enum class ELineEnd
{
    /// The text itself: a last line without an end.
    None,
    LF,
    CRLF,
    CR
};

/// Whether a file begins with the byte order mark of its encoding.
enum class EByteOrderMark
{
    Without,
    With
};

/// What a reader does with bytes that are no text in its encoding.
enum class EDecoding
{
    /// They become U+FFFD.
    Lenient,
    /// They raise `ETextFault`.
    Strict
};

/// What a writer does with characters that its encoding lacks, lone surrogates among them.
enum class EEncoding
{
    /// They become `?`, in Unicode U+FFFD.
    Lenient,
    /// They raise `ECharacterFault`.
    Strict
};

/// How a text lies in a file. Each member has its usual value:
/// `CTextWriter out(path, {.mark = EByteOrderMark::With, .lineEnd = ELineEnd::CRLF});`
struct TTextForm
{
    Sysutils::TEncoding encoding{System::CP_UTF8};
    EByteOrderMark mark = EByteOrderMark::Without;
    /// `None` for lines without ends.
    ELineEnd lineEnd = ELineEnd::LF;
    /// `Strict` loses nothing.
    EEncoding strictness = EEncoding::Lenient;
};

} // namespace BTL
