// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_SharedText.h"

#include <string_view>

namespace System
{

/// The wide form of `bytes` in `codePage`. A byte sequence that is none in the code page becomes U+FFFD; the
/// five unassigned codes of 1252 pass as the control characters of their number, so that bytes survive the
/// way there and back. An unknown code page counts as 1252.
///
///     const UnicodeString text(DecodeText(1252, "5 \xB5m"));      // "5 \u00B5m"
///     const AnsiStringT<437> bytes(EncodeText(437, text));
TRS8_BTL_API GSharedText<WideChar> DecodeText(CodePage codePage, std::string_view bytes);

/// The form of `text` in `codePage`. A character that the code page lacks becomes one `?`; a lone surrogate
/// is such a character, in UTF-8 it becomes U+FFFD. An unknown code page counts as 1252.
TRS8_BTL_API GSharedText<char> EncodeText(CodePage codePage, std::u16string_view text);

/// Whether there is such a code page; `Sysutils::TEncoding` lists the usual ones.
TRS8_BTL_API bool IsKnownCodePage(CodePage codePage);

/// Negative, 0 or positive, as if `text` was compared with `bytes` decoded from the system's code page.
TRS8_BTL_API int CompareWithAnsi(std::u16string_view text, std::string_view bytes) noexcept;

} // namespace System
