// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include "platform/base/internal/System_Ascii.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include <unicode/ucol.h>
#include <unicode/uloc.h>

namespace Sysutils
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

enum class EOccurrences
{
    First,
    All,
};

/// Replaces in `text` at the places found in `searched`, which has the same length.
template <class S>
S ReplaceAt(typename S::View text, typename S::View searched, typename S::View pattern,
            typename S::View replacement, EOccurrences occurrences)
{
    S result;
    std::size_t from = 0;
    while (true) {
        const std::size_t found = System::Detail::FindText(searched, pattern, from);
        if (found == S::View::npos) {
            break;
        }
        result.Append(text.substr(from, found - from));
        result.Append(replacement);
        from = found + pattern.size();
        if (occurrences == EOccurrences::First) {
            break;
        }
    }
    result.Append(text.substr(from));
    return result;
}

/// Case folded character by character, so that places stay where they are.
UnicodeString FoldInPlace(const UnicodeString& text)
{
    UnicodeString folded = text.LowerCase();
    if (folded.Length() == text.Length()) {
        return folded;
    }
    UnicodeString result = text;
    WideChar* characters = result.UniqueData();
    std::transform(characters, characters + result.Length(), characters, [](WideChar c) {
        const UnicodeString lower = UnicodeString(c).LowerCase();
        return lower.Length() == 1 ? lower[1] : c;
    });
    return result;
}

AnsiString FoldInPlace(const AnsiString& text)
{
    return FoldInPlace(UnicodeString(text));
}

template <class S>
S Replace(const S& text, const S& oldPattern, const S& newPattern, const TReplaceFlags& flags)
{
    if (oldPattern.IsEmpty() || oldPattern.Length() > text.Length()) {
        return text;
    }
    const auto occurrences = flags.Contains(rfReplaceAll) ? EOccurrences::All : EOccurrences::First;
    if (!flags.Contains(rfIgnoreCase)) {
        return ReplaceAt<S>(text.AsView(), text.AsView(), oldPattern.AsView(), newPattern.AsView(),
                            occurrences);
    }
    const S foldedText = FoldInPlace(text);
    const S foldedPattern = FoldInPlace(oldPattern);
    return ReplaceAt<S>(text.AsView(), foldedText.AsView(), foldedPattern.AsView(), newPattern.AsView(),
                        occurrences);
}

template <class S>
S Quoted(const S& text, typename S::CharType quote)
{
    S result = quote;
    auto rest = text.AsView();
    result.Reserve(text.Length() + 2 + static_cast<int>(std::count(rest.begin(), rest.end(), quote)));
    while (true) {
        const auto next = rest.find(quote);
        result.Append(rest.substr(0, next));
        result += quote;
        if (next == S::View::npos) {
            return result;
        }
        result += quote;
        rest.remove_prefix(next + 1);
    }
}

template <class S>
S ExtractQuoted(typename S::View& source, typename S::CharType quote)
{
    S result;
    if (source.empty() || source.front() != quote) {
        return result;
    }
    source.remove_prefix(1);
    while (true) {
        const auto close = source.find(quote);
        result.Append(source.substr(0, close));
        if (close == S::View::npos) {
            source.remove_prefix(source.size());
            return result;
        }
        source.remove_prefix(close + 1);
        if (source.empty() || source.front() != quote) {
            return result;
        }
        result += quote;
        source.remove_prefix(1);
    }
}

template <class S>
S ExtractQuotedAt(const typename S::CharType*& source, typename S::CharType quote)
{
    auto view = System::Detail::SafeView(source);
    S result = ExtractQuoted<S>(view, quote);
    source = source == nullptr ? nullptr : view.data();
    return result;
}

template <WideChar (*Map)(WideChar)>
UnicodeString MapEach(const UnicodeString& text)
{
    UnicodeString result = text;
    WideChar* const characters = result.UniqueData();
    std::transform(characters, characters + result.Length(), characters, [](WideChar c) { return Map(c); });
    return result;
}

/// Null if the host has no collation data. Collators may be shared between threads.
const UCollator* OpenCollator(UCollationStrength strength)
{
    // The collation of the plain C locale would set upper and lower case apart as different letters.
    const std::string_view locale = uloc_getDefault();
    UErrorCode status = U_ZERO_ERROR;
    UCollator* collator = ucol_open(locale == "en_US_POSIX" ? "" : uloc_getDefault(), &status);
    if (U_FAILURE(status) != 0) {
        return nullptr;
    }
    ucol_setStrength(collator, strength);
    return collator;
}

int Collate(const UCollator* collator, const UnicodeString& a, const UnicodeString& b)
{
    return collator == nullptr ? 0 : ucol_strcoll(collator, a.c_str(), a.Length(), b.c_str(), b.Length());
}

/// Never destroyed: texts may be asked for when the process ends.
std::vector<const TStringResources*>& Resources()
{
    static auto* const resources = new std::vector<const TStringResources*>;
    return *resources;
}

} // namespace

UnicodeString StringReplace(const UnicodeString& text, const UnicodeString& oldPattern,
                            const UnicodeString& newPattern, TReplaceFlags flags)
{
    return Replace(text, oldPattern, newPattern, flags);
}

AnsiString StringReplace(const AnsiString& text, const AnsiString& oldPattern, const AnsiString& newPattern,
                         TReplaceFlags flags)
{
    return Replace(text, oldPattern, newPattern, flags);
}

UnicodeString AnsiQuotedStr(const UnicodeString& text, WideChar quote)
{
    return Quoted(text, quote);
}

AnsiString AnsiQuotedStr(const AnsiString& text, char quote)
{
    return Quoted(text, quote);
}

UnicodeString QuotedStr(const UnicodeString& text)
{
    return Quoted(text, u'\'');
}

UnicodeString AnsiExtractQuotedStr(std::u16string_view& source, WideChar quote)
{
    return ExtractQuoted<UnicodeString>(source, quote);
}

AnsiString AnsiExtractQuotedStr(std::string_view& source, char quote)
{
    return ExtractQuoted<AnsiString>(source, quote);
}

UnicodeString AnsiExtractQuotedStr(const WideChar*& source, WideChar quote)
{
    return ExtractQuotedAt<UnicodeString>(source, quote);
}

AnsiString AnsiExtractQuotedStr(const char*& source, char quote)
{
    return ExtractQuotedAt<AnsiString>(source, quote);
}

UnicodeString AnsiDequotedStr(const UnicodeString& text, WideChar quote)
{
    if (text.IsEmpty() || text[1] != quote) {
        return text;
    }
    std::u16string_view source = text.AsView();
    return AnsiExtractQuotedStr(source, quote);
}

UnicodeString Trim(const UnicodeString& text)
{
    return text.Trim();
}

UnicodeString TrimLeft(const UnicodeString& text)
{
    return text.TrimLeft();
}

UnicodeString TrimRight(const UnicodeString& text)
{
    return text.TrimRight();
}

UnicodeString UpperCase(const UnicodeString& text)
{
    return MapEach<System::Detail::AsciiUpper<WideChar>>(text);
}

UnicodeString LowerCase(const UnicodeString& text)
{
    return MapEach<System::Detail::AsciiLower<WideChar>>(text);
}

UnicodeString AnsiUpperCase(const UnicodeString& text)
{
    return text.UpperCase();
}

UnicodeString AnsiLowerCase(const UnicodeString& text)
{
    return text.LowerCase();
}

int CompareStr(const UnicodeString& a, const UnicodeString& b)
{
    return a.Compare(b);
}

int CompareText(const UnicodeString& a, const UnicodeString& b)
{
    return UpperCase(a).Compare(UpperCase(b));
}

bool SameText(const UnicodeString& a, const UnicodeString& b)
{
    return CompareText(a, b) == 0;
}

int AnsiCompareStr(const UnicodeString& a, const UnicodeString& b)
{
    static const UCollator* const collator = OpenCollator(UCOL_TERTIARY);
    const int order = a == b ? 0 : Collate(collator, a, b);
    return order != 0 ? order : a.Compare(b);
}

int AnsiCompareText(const UnicodeString& a, const UnicodeString& b)
{
    static const UCollator* const collator = OpenCollator(UCOL_SECONDARY);
    const int order = a == b ? 0 : Collate(collator, a, b);
    return order != 0 ? order : a.CompareIC(b);
}

bool AnsiSameStr(const UnicodeString& a, const UnicodeString& b)
{
    return AnsiCompareStr(a, b) == 0;
}

bool AnsiSameText(const UnicodeString& a, const UnicodeString& b)
{
    return AnsiCompareText(a, b) == 0;
}

int AnsiPos(const UnicodeString& part, const UnicodeString& text)
{
    return text.Pos(part);
}

int LastDelimiter(const UnicodeString& delimiters, const UnicodeString& text)
{
    return text.LastDelimiter(delimiters);
}

bool IsDelimiter(const UnicodeString& delimiters, const UnicodeString& text, int index)
{
    return text.IsDelimiter(delimiters, index);
}

TStringResources::TStringResources(std::map<int, UnicodeString> texts) : mTexts(std::move(texts))
{
    Resources().push_back(this);
}

TStringResources::~TStringResources()
{
    std::erase(Resources(), this);
}

const UnicodeString* TStringResources::Find(int ident) const
{
    const auto found = mTexts.find(ident);
    return found == mTexts.end() ? nullptr : &found->second;
}

UnicodeString LoadStr(int ident)
{
    const auto& resources = Resources();
    for (auto owner = resources.end(); owner != resources.begin();) {
        if (const UnicodeString* text = (*--owner)->Find(ident)) {
            return *text;
        }
    }
    return {};
}

} // namespace Sysutils
