// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/edits/Comctrls_TextFormat.h"

#include <string>

namespace Comctrls
{

/// Whether the text is one in Rich Text Format.
bool IsRtf(std::u16string_view text) noexcept;

/// Reads a text in Rich Text Format, its bytes in the system's code page as characters: paragraphs, fonts,
/// colours, styles, alignment, indents, tabulators and bullets. What it doesn't know gives nothing. Broken
/// input ends somewhere, and loses at most what follows the break.
TFormattedText ReadRtf(std::u16string_view source, const TCharFormat& start);

/// The text in Rich Text Format, in ASCII.
std::string WriteRtf(const TFormattedText& text);

} // namespace Comctrls
