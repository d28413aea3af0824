// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "text/lists/BTL_STR_StringIdPairList.h"

#include <initializer_list>
#include <map>

namespace BTL
{

class CTextIndex;

/// Texts by 64-bit key, which can also be searched by text. Lookups look constant but may build the index of
/// texts, so that even readers need a lock of their own.
///
///     BTL::CI64StrMap names = {{1, u"one"}, {2, u"two"}};
///     System::Int64 key = 0;
///     if (names.GetKey(key, u"two")) { ... }     // 2
///     for (const auto& [id, name] : names) { ... }
class TRS8_BTL_API CI64StrMap
{
public:
    using value_type = std::pair<const System::Int64, System::UnicodeString>;
    using const_iterator = std::map<System::Int64, System::UnicodeString>::const_iterator;

    CI64StrMap();
    /// Of entries with one key the first counts.
    CI64StrMap(std::initializer_list<value_type> entries);
    CI64StrMap(const CI64StrMap& other);
    /// Null gives an empty map.
    explicit CI64StrMap(const CI64StrMap* other);
    CI64StrMap& operator=(const CI64StrMap& other);
    CI64StrMap& operator=(const CI64StrMap* other);
    ~CI64StrMap();

    /// Overwrites the value of a key that is there.
    void Add(System::Int64 key, const System::UnicodeString& value);
    void Clear() noexcept;

    /// Whether the key is there, whether none is, and how many there are.
    bool Contains(System::Int64 key) const { return mTexts.contains(key); }
    bool IsEmpty() const noexcept { return mTexts.empty(); }
    int GetCount() const noexcept { return static_cast<int>(mTexts.size()); }

    // The entries as a range.

    const_iterator begin() const noexcept { return mTexts.begin(); }
    const_iterator end() const noexcept { return mTexts.end(); }
    std::size_t size() const noexcept { return mTexts.size(); }
    [[nodiscard]] bool empty() const noexcept { return mTexts.empty(); }

    /// Empty if the key is missing.
    System::UnicodeString GetString(System::Int64 key) const;
    /// A missing key is added with an empty text. `GetKey` may not learn of what is written through this.
    System::UnicodeString& operator[](System::Int64 key) const { return mTexts[key]; }
    /// A key with that text, compared exactly: the largest at the time of the first search, later the last
    /// added. A text that was overwritten since then may still be found. False if there is none, which leaves
    /// `key` alone.
    bool GetKey(System::Int64& key, const System::UnicodeString& value) const;

    // In the order of the keys. `Get` clears the list first. A null list counts as empty, and filling it does
    // nothing.

    void AddStringsTo(Classes::TStrings* strings) const;
    void GetStrings(Classes::TStrings* strings) const;
    /// The texts with their keys as ids.
    void AddStringIdPairsTo(Classes::TStringList* list) const;
    void GetStringIdPairs(Classes::TStringList* list) const;
    /// Takes the lines with their ids in place of all entries, but no line with the id `excludedId`. Lines
    /// without an id have the id 0, so of those only the last stays.
    void SetStringIdPairs(const Classes::TStrings* list, System::Int64 excludedId);
    /// The texts as the comma text of a string list.
    System::UnicodeString GetCommaText() const;

private:
    mutable std::map<System::Int64, System::UnicodeString> mTexts;
    /// Null until it is needed.
    mutable System::GOwner<CTextIndex> mKeys;
};

} // namespace BTL
