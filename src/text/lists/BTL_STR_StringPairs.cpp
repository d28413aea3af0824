// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringPairs.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <algorithm>

namespace BTL
{

namespace
{

using Classes::TStrings;
using System::TObject;
using System::UnicodeString;

constexpr UTL::CFaultPlace UnequalCounts{"BTL_STR_StringPairs", 68};

using Pairs = std::vector<CStringPair>;
using Column = UnicodeString CStringPair::*;

const CStringPair* Find(const Pairs& pairs, Column column, const UnicodeString& text)
{
    const auto found = std::find_if(pairs.begin(), pairs.end(),
                                    [&](const CStringPair& pair) { return pair.*column == text; });
    return found == pairs.end() ? nullptr : &*found;
}

void SortByLength(Pairs& pairs, Column column, bool longestFirst)
{
    std::stable_sort(pairs.begin(), pairs.end(), [&](const CStringPair& a, const CStringPair& b) {
        return longestFirst ? (a.*column).Length() > (b.*column).Length()
                            : (a.*column).Length() < (b.*column).Length();
    });
}

void AddColumn(const Pairs& pairs, Column column, TStrings* strings, TObject* object)
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    for (const CStringPair& pair : pairs) {
        if (object == nullptr) {
            strings->Add(pair.*column);
        } else {
            strings->AddObject(pair.*column, object);
        }
    }
}

void GetColumn(const Pairs& pairs, Column column, TStrings* strings, TObject* object)
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    strings->Clear();
    AddColumn(pairs, column, strings, object);
}

/// Puts the lines from `begin` to `end` in the opposite order.
void Reverse(TStrings& strings, int begin, int end)
{
    while (begin < --end) {
        strings.Exchange(begin++, end);
    }
}

/// The lines that were there go behind the column. Each of them moves twice at most, however many pairs there
/// are: the column goes to the end, and the parts change places.
void AddColumnInFront(const Pairs& pairs, Column column, TStrings* strings, TObject* object)
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    const int middle = strings->getCount();
    int end = middle;
    for (const CStringPair& pair : pairs) {
        strings->InsertObject(end++, pair.*column, object);
    }
    Reverse(*strings, 0, middle);
    Reverse(*strings, middle, end);
    Reverse(*strings, 0, end);
}

bool IsSeparatorAt(const UnicodeString& text, int index)
{
    return text.IsDelimiter(u"\\/", index);
}

/// The path without a separator at its end, which that of a root keeps.
UnicodeString PathOf(const CStringPair& pair)
{
    const UnicodeString& path = pair.second;
    return IsSeparatorAt(path, path.Length()) ? Sysutils::ExtractFileDir(path) : path;
}

/// The path that takes the place of the macro in `text`. The separator of a root is not written twice.
UnicodeString PathFor(const CStringPair& pair, const UnicodeString& text)
{
    UnicodeString path = PathOf(pair);
    const int behind = text.Pos(pair.first) + pair.first.Length();
    if (IsSeparatorAt(path, path.Length()) && IsSeparatorAt(text, behind)) {
        path.SetLength(path.Length() - 1);
    }
    return path;
}

/// The macro that takes the place of `path`, with the separator that the path of a root has.
UnicodeString MacroFor(const CStringPair& pair, const UnicodeString& path)
{
    return IsSeparatorAt(path, path.Length()) ? pair.first + path[path.Length()] : pair.first;
}

} // namespace

void CStringPairs::Add(const UnicodeString& first, const UnicodeString& second)
{
    mPairs.emplace_back(first, second);
}

void CStringPairs::Add(const TStrings* lines)
{
    const int count = lines == nullptr ? 0 : lines->getCount();
    for (int i = 0; i < count; ++i) {
        const UnicodeString line = lines->getStrings(i);
        if (const int sign = line.Pos(u'='); sign != 0) {
            Add(line.SubString(1, sign - 1).Trim(), line.SubString(sign + 1).Trim());
        }
    }
}

void CStringPairs::Add(const TStrings* firsts, const TStrings* seconds)
{
    const int count = firsts == nullptr ? 0 : firsts->getCount();
    if (count != (seconds == nullptr ? 0 : seconds->getCount())) {
        UTL::THROW_XAssert(UnequalCounts);
        return;
    }
    for (int i = 0; i < count; ++i) {
        Add(firsts->getStrings(i), seconds->getStrings(i));
    }
}

const CStringPair& CStringPairs::getItem(int index) const
{
    if (index < 0 || index >= getCount()) {
        throw Sysutils::ERangeError(u"The index lies outside the pairs.");
    }
    return mPairs[static_cast<std::size_t>(index)];
}

CStringPair& CStringPairs::getItem(int index)
{
    return const_cast<CStringPair&>(std::as_const(*this).getItem(index));
}

const CStringPair* CStringPairs::FindFirst(const UnicodeString& text) const
{
    return Find(mPairs, &CStringPair::first, text);
}

const CStringPair* CStringPairs::FindSecond(const UnicodeString& text) const
{
    return Find(mPairs, &CStringPair::second, text);
}

void CStringPairs::SortByFirstLengths(bool longestFirst)
{
    SortByLength(mPairs, &CStringPair::first, longestFirst);
}

void CStringPairs::SortBySecondLengths(bool longestFirst)
{
    SortByLength(mPairs, &CStringPair::second, longestFirst);
}

void CStringPairs::AddPairsTo(TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    for (const CStringPair& pair : mPairs) {
        strings->Add(pair.first + u'=' + pair.second);
    }
}

void CStringPairs::GetPairs(TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    strings->Clear();
    AddPairsTo(strings);
}

void CStringPairs::AddFirstsTo(TStrings* strings, TObject* object) const
{
    AddColumn(mPairs, &CStringPair::first, strings, object);
}

void CStringPairs::AddSecondsTo(TStrings* strings, TObject* object) const
{
    AddColumn(mPairs, &CStringPair::second, strings, object);
}

void CStringPairs::AddFirstsInFrontTo(TStrings* strings, TObject* object) const
{
    AddColumnInFront(mPairs, &CStringPair::first, strings, object);
}

void CStringPairs::AddSecondsInFrontTo(TStrings* strings, TObject* object) const
{
    AddColumnInFront(mPairs, &CStringPair::second, strings, object);
}

void CStringPairs::GetFirsts(TStrings* strings, TObject* object) const
{
    GetColumn(mPairs, &CStringPair::first, strings, object);
}

void CStringPairs::GetSeconds(TStrings* strings, TObject* object) const
{
    GetColumn(mPairs, &CStringPair::second, strings, object);
}

UnicodeString CStringPairs::GetText(const UnicodeString& keySeparator,
                                    const UnicodeString& pairSeparator) const
{
    UnicodeString text;
    for (const CStringPair& pair : mPairs) {
        if (&pair != &mPairs.front()) {
            text += pairSeparator;
        }
        text += pair.first;
        text += keySeparator;
        text += pair.second;
    }
    return text;
}

UnicodeString CStringPairs::GetSQLParamFilter(const UnicodeString& prefix) const
{
    UnicodeString filter;
    for (const CStringPair& pair : mPairs) {
        if (&pair != &mPairs.front()) {
            filter += u" and ";
        }
        filter += pair.second.IsEmpty() ? u'(' + pair.first + u')' : pair.first + u'=' + prefix + pair.second;
    }
    return filter;
}

UnicodeString CStringPairs::GetSQLMasterLink() const
{
    return mPairs.size() == 1 ? GetText(u"=", u"") : UnicodeString();
}

UnicodeString CStringPairs::ReplaceMacroToPath(const UnicodeString& text) const
{
    for (const CStringPair& pair : mPairs) {
        UnicodeString result = Exchange1stSubStr(text, pair.first, PathFor(pair, text), 0);
        if (result != text) {
            return result;
        }
    }
    return text;
}

UnicodeString CStringPairs::ReplaceMacroToPathRecursive(const UnicodeString& text) const
{
    // Texts that replace each other would go on for ever. A text has no more macros than characters; one far
    // longer than any path is left with some.
    const int maxReplacements = 1000 + std::min(text.Length(), 20'000);
    UnicodeString result = text;
    for (int i = 0; i < maxReplacements; ++i) {
        UnicodeString next = ReplaceMacroToPath(result);
        if (next == result) {
            break;
        }
        result = std::move(next);
    }
    return result;
}

UnicodeString CStringPairs::ReplacePathToMacro(const UnicodeString& text) const
{
    for (const CStringPair& pair : mPairs) {
        const UnicodeString path = PathOf(pair);
        UnicodeString result = Sysutils::StringReplace(text, path, MacroFor(pair, path),
                                                       Sysutils::TReplaceFlags() << Sysutils::rfIgnoreCase);
        if (result != text) {
            return result;
        }
    }
    return text;
}

} // namespace BTL
