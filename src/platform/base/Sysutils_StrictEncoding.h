// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Encoding.h"

// Conversions between text and bytes that lose nothing: where `System::DecodeText`, `TEncoding::GetString`
// and their like put U+FFFD or `?`, these give false and tell the place.
//
//     System::UnicodeString text;
//     int fault = 0;
//     if (!TryDecode(System::CP_UTF8, bytes, text, &fault)) {
//         std::cerr << "byte " << fault << " is no UTF-8\n";
//     }

namespace Sysutils
{

/// Decodes `bytes`, which are in `codePage` (1200 and 1201 are UTF-16, as for `TEncoding`). At the first
/// sequence that is no text there, false: `text` keeps its value then, and `fault` is the 1-based place of
/// the first byte of that sequence, else 0; it may be null. Codes that a code page leaves unassigned are no
/// text. A byte order mark is a character as any other. `EArgumentException` for an unknown code page.
TRS8_BTL_API bool TryDecode(System::CodePage codePage, std::string_view bytes, System::UnicodeString& text,
                            int* fault = nullptr);
/// As `TryDecode` by the code page of `encoding`, the system's if that is null.
TRS8_BTL_API bool TryDecode(const TEncoding* encoding, std::string_view bytes, System::UnicodeString& text,
                            int* fault = nullptr);

/// Encodes `text` in `codePage` (1200 and 1201 are UTF-16, as for `TEncoding`). At the first character that
/// the code page lacks, a lone surrogate among them, false: `bytes` keeps its value then, and `fault` is the
/// 1-based place of that character, else 0; it may be null. `EArgumentException` for an unknown code page.
TRS8_BTL_API bool TryEncode(System::CodePage codePage, std::u16string_view text, System::RawByteString& bytes,
                            int* fault = nullptr);
/// As `TryEncode` by the code page of `encoding`, the system's if that is null.
TRS8_BTL_API bool TryEncode(const TEncoding* encoding, std::u16string_view text, System::RawByteString& bytes,
                            int* fault = nullptr);

} // namespace Sysutils
