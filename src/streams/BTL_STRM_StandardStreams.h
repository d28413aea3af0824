// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_TextReader.h"
#include "streams/BTL_STRM_TextWriter.h"

namespace BTL
{

// The standard streams of the program as text, be they files, pipes, sockets or a terminal.
// `Classes::EFOpenError` or `Classes::EFCreateError` if the program was started without the stream. The end
// of the reader or writer leaves the standard stream open, for those of C++ too: what `std::cout` gathers is
// flushed before the two mix.
//
//     CTextReader in = StandardInput();
//     CTextWriter out = StandardOutput();
//     for (const UnicodeString& line : in) {
//         out.WriteLine(line.Trim());
//     }
//     out.Close();                         // raises if the disk is full

/// Reads on from where standard input stands, so that what a script before read of a file isn't read again.
/// Lines of a terminal or a pipe come as soon as they are there. It is read in blocks: what the reader has
/// taken is lost for others.
[[nodiscard]] TRS8_BTL_API CTextReader
StandardInput(const Sysutils::TEncoding& encoding = Sysutils::TEncoding(System::CP_UTF8),
              EDecoding decoding = EDecoding::Lenient);

/// Goes on behind what a file that the output is sent to holds, and cuts off nothing. A terminal gets each
/// text at once; else small pieces are gathered up to `Flush` or `Close`, and up to 64 KB.
[[nodiscard]] TRS8_BTL_API CTextWriter StandardOutput(const TTextForm& form = {});

/// As `StandardOutput`, but of the error output, which gets each text at once.
[[nodiscard]] TRS8_BTL_API CTextWriter StandardError(const TTextForm& form = {});

} // namespace BTL
