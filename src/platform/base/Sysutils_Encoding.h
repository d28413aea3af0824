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
///     CTextReader in(u"old.txt", TEncoding::FromName(u"iso-8859-1"));
///
/// The usual code pages: 65001 is UTF-8, 1200 and 1201 are UTF-16, 20127 is ASCII, 28591 to 28605 without
/// 28602 are ISO 8859-1 to 8859-15 without 8859-12, 1250 to 1258 and 874 are the 8-bit ones of desktops, 437,
/// 720, 737, 775, 850 to 869 those of terminals, 10000 is Macintosh, 20866 and 21866 are KOI8-R and KOI8-U;
/// of East Asia 932 (Shift JIS), 51932 (EUC-JP), 50220 (ISO 2022-JP), 936 (GBK), 54936 (GB 18030), 52936
/// (HZ), 949 and 51949 (EUC-KR), 950 (Big5). 8859-16 is missing.
class TRS8_BTL_API TEncoding
{
public:
    static constexpr System::CodePage Utf16 = 1200;
    static constexpr System::CodePage Utf16BigEndian = 1201;

    /// `EArgumentException` for a code page that there isn't. 0 counts as 1252.
    explicit TEncoding(System::CodePage codePage);
    /// The encoding with a usual name, as "utf-8", "iso-8859-1", "latin1", "windows-1252", "shift_jis"; case
    /// and
    /// `-`, `_` don't matter, and "utf-16" has the low byte first. `EArgumentException` for a name that is
    /// none.
    [[nodiscard]] static TEncoding FromName(const System::UnicodeString& name);

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
    /// What is no text in this encoding becomes U+FFFD; UTF-16 keeps every unit, but for half a one at the
    /// end.
    System::UnicodeString GetString(std::string_view bytes) const;

private:
    System::CodePage mCodePage;
};

} // namespace Sysutils
