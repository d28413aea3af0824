// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/base/System_String.h"

#include <map>

namespace Sysutils
{

/// How `StringReplace` replaces: all places rather than the first, and without regard to case.
enum TReplaceFlag
{
    rfReplaceAll,
    rfIgnoreCase
};

/// How `StringReplace` works: `TReplaceFlags() << rfReplaceAll`.
using TReplaceFlags = System::Set<TReplaceFlag, rfReplaceAll, rfIgnoreCase>;

/// `text` with the first `oldPattern` replaced, or all of them from left to right. An empty pattern replaces
/// nothing. Takes time in proportion to the text.
///
///     StringReplace(u"a-b-c", u"-", u"+", TReplaceFlags() << rfReplaceAll);   // "a+b+c"
///     SameText(u"Port", u"PORT");                                 // true
///     AnsiQuotedStr(u"it's", u'\'');                              // "'it''s'"
[[nodiscard]] TRS8_BTL_API System::UnicodeString StringReplace(const System::UnicodeString& text,
                                                               const System::UnicodeString& oldPattern,
                                                               const System::UnicodeString& newPattern,
                                                               TReplaceFlags flags);
[[nodiscard]] TRS8_BTL_API System::AnsiString StringReplace(const System::AnsiString& text,
                                                            const System::AnsiString& oldPattern,
                                                            const System::AnsiString& newPattern,
                                                            TReplaceFlags flags);

/// `text` in quotes, with each quote inside doubled.
[[nodiscard]] TRS8_BTL_API System::UnicodeString AnsiQuotedStr(const System::UnicodeString& text,
                                                               System::WideChar quote);
[[nodiscard]] TRS8_BTL_API System::AnsiString AnsiQuotedStr(const System::AnsiString& text, char quote);
/// In single quotes.
[[nodiscard]] TRS8_BTL_API System::UnicodeString QuotedStr(const System::UnicodeString& text);

/// Reads the quoted text at the front of `source` and moves `source` behind it; doubled quotes become one. An
/// unclosed quote takes all that is left. Empty, with `source` unmoved, if no quote stands there.
TRS8_BTL_API System::UnicodeString AnsiExtractQuotedStr(std::u16string_view& source, System::WideChar quote);
TRS8_BTL_API System::AnsiString AnsiExtractQuotedStr(std::string_view& source, char quote);
TRS8_BTL_API System::UnicodeString AnsiExtractQuotedStr(const System::WideChar*& source,
                                                        System::WideChar quote);
TRS8_BTL_API System::AnsiString AnsiExtractQuotedStr(const char*& source, char quote);
/// The text without its quotes, or as it is if it doesn't begin with one.
[[nodiscard]] TRS8_BTL_API System::UnicodeString AnsiDequotedStr(const System::UnicodeString& text,
                                                                 System::WideChar quote);

/// Without the characters up to and including the blank (code 32) at both ends, in front, or behind.
[[nodiscard]] TRS8_BTL_API System::UnicodeString Trim(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::UnicodeString TrimLeft(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::UnicodeString TrimRight(const System::UnicodeString& text);

/// Only the letters of ASCII change.
[[nodiscard]] TRS8_BTL_API System::UnicodeString UpperCase(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::UnicodeString LowerCase(const System::UnicodeString& text);
/// All letters change, by the rules of Unicode.
[[nodiscard]] TRS8_BTL_API System::UnicodeString AnsiUpperCase(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::UnicodeString AnsiLowerCase(const System::UnicodeString& text);

// Negative, 0 or positive.

/// By ordinals.
[[nodiscard]] TRS8_BTL_API int CompareStr(const System::UnicodeString& a, const System::UnicodeString& b);
/// By ordinals, the letters of ASCII without regard to case.
[[nodiscard]] TRS8_BTL_API int CompareText(const System::UnicodeString& a, const System::UnicodeString& b);
[[nodiscard]] TRS8_BTL_API bool SameText(const System::UnicodeString& a, const System::UnicodeString& b);
/// By the order of the user's language. What that takes for the same, such as control characters, is ordered
/// by the characters: only equal texts give 0.
[[nodiscard]] TRS8_BTL_API int AnsiCompareStr(const System::UnicodeString& a, const System::UnicodeString& b);
/// As `AnsiCompareStr`, but without regard to case.
[[nodiscard]] TRS8_BTL_API int AnsiCompareText(const System::UnicodeString& a,
                                               const System::UnicodeString& b);
[[nodiscard]] TRS8_BTL_API bool AnsiSameStr(const System::UnicodeString& a, const System::UnicodeString& b);
[[nodiscard]] TRS8_BTL_API bool AnsiSameText(const System::UnicodeString& a, const System::UnicodeString& b);

/// The 1-based place of the first `part`, 0 if there is none.
[[nodiscard]] TRS8_BTL_API int AnsiPos(const System::UnicodeString& part, const System::UnicodeString& text);
/// The 1-based place of the last character of `text` that `delimiters` holds, 0 if there is none.
[[nodiscard]] TRS8_BTL_API int LastDelimiter(const System::UnicodeString& delimiters,
                                             const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API bool IsDelimiter(const System::UnicodeString& delimiters,
                                            const System::UnicodeString& text, int index);

/// The texts of a program by number, which `LoadStr` finds for the life of the object. A later object's text
/// hides an earlier one's of the same number. To be made and destroyed on the main thread.
class TRS8_BTL_API TStringResources
{
public:
    explicit TStringResources(std::map<int, System::UnicodeString> texts);
    TStringResources(const TStringResources&) = delete;
    TStringResources& operator=(const TStringResources&) = delete;
    ~TStringResources();

    /// The text of that number, valid as long as the object; null if it has none.
    const System::UnicodeString* Find(int ident) const;

private:
    std::map<int, System::UnicodeString> mTexts;
};

/// The string resource of that number; empty if there is none.
[[nodiscard]] TRS8_BTL_API System::UnicodeString LoadStr(int ident);

} // namespace Sysutils
