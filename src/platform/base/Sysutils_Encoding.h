// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Sysutils
{

/// The form of a text in bytes. The standard encodings live to the end of the process; callers hold pointers
/// to them.
///
///     const TEncoding* const utf8 = TEncoding::getUTF8();
///     const System::RawByteString bytes = utf8->GetBytes(u"5 \u00B5m");
///     const System::UnicodeString text = TEncoding(1252).GetString("5 \xB5m");
class TRS8_BTL_API TEncoding
{
public:
    static constexpr System::CodePage Utf16 = 1200;
    static constexpr System::CodePage Utf16BigEndian = 1201;

    /// An encoding of 1200, 1201 or any code page of `System::DecodeText`.
    explicit TEncoding(System::CodePage codePage) noexcept : mCodePage(codePage) {}

    /// The system's code page.
    static TEncoding* getDefault();
    static TEncoding* getUTF8();
    /// UTF-16 with the low byte first.
    static TEncoding* getUnicode();
    static TEncoding* getBigEndianUnicode();
    static bool IsStandardEncoding(const TEncoding* encoding);

    /// The encoding of `bytes` by the byte order mark that they begin with, and that mark's length. Without a
    /// mark, `preferred`, or the default encoding if that is null; the length then is 0.
    static std::pair<TEncoding*, int> Detect(std::string_view bytes, TEncoding* preferred = nullptr);

    System::CodePage getCodePage() const noexcept { return mCodePage; }
    /// The byte order mark that files of this encoding begin with; empty for code pages.
    std::string_view GetPreamble() const noexcept;
    /// What the code page lacks becomes `?`; UTF-16 keeps every unit, UTF-8 all but lone surrogates.
    System::RawByteString GetBytes(const System::UnicodeString& text) const;
    /// What is no text in this encoding becomes U+FFFD.
    System::UnicodeString GetString(std::string_view bytes) const;

private:
    System::CodePage mCodePage;
};

} // namespace Sysutils
