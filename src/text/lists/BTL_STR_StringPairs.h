// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <initializer_list>
#include <span>
#include <vector>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace System
{
class TObject;
} // namespace System

namespace BTL
{

/// Two texts that belong together.
struct CStringPair
{
    CStringPair(const System::UnicodeString& firstText, const System::UnicodeString& secondText)
        : first(firstText), second(secondText)
    {
    }

    System::UnicodeString first;
    System::UnicodeString second;
};

/// Pairs of texts in the order in which they were added; a pair may be there more than once. A null list as
/// an argument counts as empty, and filling it does nothing.
///
///     BTL::CStringPairs macros = {{u"$(HOME)", u"/home/me"}, {u"$(TMP)", u"/tmp"}};
///     const UnicodeString path = macros.ReplaceMacroToPath(u"$(TMP)/a.txt");
///     for (const auto& [macro, folder] : macros) { ... }
class TRS8_BTL_API CStringPairs
{
public:
    CStringPairs() = default;
    CStringPairs(std::initializer_list<CStringPair> pairs) : mPairs(pairs) {}
    explicit CStringPairs(std::span<const CStringPair> pairs) : mPairs(pairs.begin(), pairs.end()) {}

    // The pairs as a range, which a `std::span` takes as well; valid until a pair comes or goes.

    const CStringPair* begin() const noexcept { return mPairs.data(); }
    const CStringPair* end() const noexcept { return mPairs.data() + mPairs.size(); }
    CStringPair* begin() noexcept { return mPairs.data(); }
    CStringPair* end() noexcept { return mPairs.data() + mPairs.size(); }
    std::size_t size() const noexcept { return mPairs.size(); }
    [[nodiscard]] bool empty() const noexcept { return mPairs.empty(); }

    void Add(const System::UnicodeString& first, const System::UnicodeString& second);
    /// Adds each line with a `=` as what stands in front of the first one and behind it, both trimmed.
    void Add(const Classes::TStrings* lines);
    /// Adds the lines of both lists in pairs. Unequal counts are an internal fault, and nothing is added if
    /// the user lets that pass.
    void Add(const Classes::TStrings* firsts, const Classes::TStrings* seconds);
    void Clear() noexcept { mPairs.clear(); }

    int getCount() const noexcept { return static_cast<int>(mPairs.size()); }
    /// `Sysutils::ERangeError` for an index out of range.
    const CStringPair& getItem(int index) const;
    CStringPair& getItem(int index);

    /// The first pair with that text, compared exactly; null if there is none.
    const CStringPair* FindFirst(const System::UnicodeString& text) const;
    const CStringPair* FindSecond(const System::UnicodeString& text) const;

    /// Pairs of equal length keep their order.
    void SortByFirstLengths(bool longestFirst);
    void SortBySecondLengths(bool longestFirst);

    // The pairs as lines `first=second`, and the columns as lines. `Get` clears the list first, `InFront`
    // puts the lines in front of those that it has. `object` goes with each of them.

    void AddPairsTo(Classes::TStrings* strings) const;
    void GetPairs(Classes::TStrings* strings) const;
    void AddFirstsTo(Classes::TStrings* strings, System::TObject* object = nullptr) const;
    void AddSecondsTo(Classes::TStrings* strings, System::TObject* object = nullptr) const;
    void AddFirstsInFrontTo(Classes::TStrings* strings, System::TObject* object = nullptr) const;
    void AddSecondsInFrontTo(Classes::TStrings* strings, System::TObject* object = nullptr) const;
    void GetFirsts(Classes::TStrings* strings, System::TObject* object = nullptr) const;
    void GetSeconds(Classes::TStrings* strings, System::TObject* object = nullptr) const;

    /// The pairs with `pairSeparator` between, each with `keySeparator` between its texts.
    System::UnicodeString GetText(const System::UnicodeString& keySeparator,
                                  const System::UnicodeString& pairSeparator) const;
    /// A condition of SQL: columns and the parameters that they equal, joined by `and`. A pair without a
    /// second text is a whole condition. Nothing is quoted or checked: the texts must be the program's own.
    System::UnicodeString GetSQLParamFilter(const System::UnicodeString& prefix = u":") const;
    /// The only pair as `first=second`; empty if there is none or more than one.
    System::UnicodeString GetSQLMasterLink() const;

    // Macros and the paths that they stand for, as first and second texts. A separator at the end of a path
    // doesn't count, and that of a root such as `D:\` is written once: `%D\x` is `D:\x`.

    /// Puts the path in the place of the first occurrence of one macro: that of the first pair that changes
    /// the text. Case matters.
    System::UnicodeString ReplaceMacroToPath(const System::UnicodeString& text) const;
    /// Repeats that until the text stays. It ends after 1000 replacements, since paths may bring new macros
    /// for ever.
    System::UnicodeString ReplaceMacroToPathRecursive(const System::UnicodeString& text) const;
    /// The reverse, without regard to case. Where paths contain each other, sort by the longest first.
    System::UnicodeString ReplacePathToMacro(const System::UnicodeString& text) const;

private:
    std::vector<CStringPair> mPairs;
};

} // namespace BTL
