// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/base/System_String.h"

#include "text/lists/BTL_STR_Cache.h"

#include <initializer_list>
#include <map>
#include <utility>
#include <vector>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

/// Texts by text, in the exact order of the keys' characters, so that case matters. A null list as an
/// argument counts as empty, and filling it does nothing.
///
///     BTL::CStrStrMap colours = {{u"sky", u"blue"}, {u"grass", u"green"}};
///     colours.Add(u"sky", u"grey");
///     const UnicodeString colour = colours.GetValue(u"sky"); // "grey"; empty for a missing key
///     for (const auto& [thing, value] : colours) { ... }
class TRS8_BTL_API CStrStrMap : public std::map<System::UnicodeString, System::UnicodeString>
{
    using Base = std::map<System::UnicodeString, System::UnicodeString>;

public:
    CStrStrMap() = default;
    CStrStrMap(std::initializer_list<value_type> entries) : map(entries) {}
    /// As `SetValues`.
    CStrStrMap(const Classes::TStrings* keys, const Classes::TStrings* values);
    CStrStrMap(const System::UnicodeString& commaKeys, const System::UnicodeString& commaValues);

    /// Adds the lines of both lists in pairs; former entries stay. Unequal counts are an internal fault, and
    /// nothing is added if the user lets that pass.
    void SetValues(const Classes::TStrings* keys, const Classes::TStrings* values);
    /// As `SetValues` of lists, with the items of comma texts.
    void SetValues(const System::UnicodeString& commaKeys, const System::UnicodeString& commaValues);
    /// Overwrites the value of a key that is there.
    void Add(const System::UnicodeString& key, const System::UnicodeString& value);

    /// Whether the key is there.
    bool Contains(const System::UnicodeString& key) const { return contains(key); }
    /// Empty if the key is missing.
    System::UnicodeString GetValue(const System::UnicodeString& key) const;
    /// False if the key is missing, which leaves `value` alone.
    bool GetValue(const System::UnicodeString& key, System::UnicodeString& value) const;
    /// The first key with that value; empty if there is none. The keys are sought one by one, and by an index
    /// from some searches on. `Add` and `SetValues` keep the index, other changes lose it, and there is none
    /// from the first iterator on through which values can be written, until `clear`. What is written after a
    /// search through a reference that `operator[]` or `at` gave before it, the search doesn't see.
    System::UnicodeString Get1stKey(const System::UnicodeString& value) const;
    /// False if there is none, which leaves `key` alone.
    bool Get1stKey(const System::UnicodeString& value, System::UnicodeString& key) const;

    /// The values as the lines of the list, in the order of their keys.
    void GetValues(Classes::TStrings* strings) const;
    void GetKeys(Classes::TStrings* strings) const;

    /// All entries in one line for a log.
    System::UnicodeString getDebugInfo() const;

    // As those of `std::map`. They lose the index of `Get1stKey`, since values can be written to through what
    // most of them give; those up to `equal_range` do so for good, since a loop may search while it writes.

    using Base::at;
    using Base::begin;
    using Base::end;
    using Base::equal_range;
    using Base::find;
    using Base::lower_bound;
    using Base::rbegin;
    using Base::rend;
    using Base::upper_bound;
    iterator begin() noexcept { return WithIterators().begin(); }
    iterator end() noexcept { return WithIterators().end(); }
    reverse_iterator rbegin() noexcept { return WithIterators().rbegin(); }
    reverse_iterator rend() noexcept { return WithIterators().rend(); }
    iterator find(const key_type& key) { return WithIterators().find(key); }
    iterator lower_bound(const key_type& key) { return WithIterators().lower_bound(key); }
    iterator upper_bound(const key_type& key) { return WithIterators().upper_bound(key); }
    std::pair<iterator, iterator> equal_range(const key_type& key)
    {
        return WithIterators().equal_range(key);
    }
    /// As of `std::map`.
    mapped_type& at(const key_type& key) { return ForChange().at(key); }
    mapped_type& operator[](const key_type& key) { return ForChange()[key]; }
    auto insert(const value_type& entry) { return ForChange().insert(entry); }
    void insert(std::initializer_list<value_type> entries) { ForChange().insert(entries); }
    template <class... Arguments>
    auto insert(Arguments&&... arguments)
    {
        return ForChange().insert(std::forward<Arguments>(arguments)...);
    }
    /// As of `std::map`.
    template <class... Arguments>
    auto insert_or_assign(Arguments&&... arguments)
    {
        return ForChange().insert_or_assign(std::forward<Arguments>(arguments)...);
    }
    /// As of `std::map`.
    template <class... Arguments>
    auto emplace(Arguments&&... arguments)
    {
        return ForChange().emplace(std::forward<Arguments>(arguments)...);
    }
    /// As of `std::map`.
    template <class... Arguments>
    auto emplace_hint(Arguments&&... arguments)
    {
        return ForChange().emplace_hint(std::forward<Arguments>(arguments)...);
    }
    /// As of `std::map`.
    template <class... Arguments>
    auto try_emplace(Arguments&&... arguments)
    {
        return ForChange().try_emplace(std::forward<Arguments>(arguments)...);
    }
    template <class... Arguments>
    auto erase(Arguments&&... arguments)
    {
        return ForChange().erase(std::forward<Arguments>(arguments)...);
    }
    /// As of `std::map`.
    template <class Argument>
    auto extract(Argument&& argument)
    {
        return ForChange().extract(std::forward<Argument>(argument));
    }
    /// Takes the entries of `other` whose keys it lacks; the rest stays there.
    void merge(CStrStrMap& other)
    {
        ForChange().merge(other.ForChange());
        mHasIterators |= other.mHasIterators;
    }
    void merge(CStrStrMap&& other) { merge(other); }
    void swap(CStrStrMap& other) noexcept
    {
        ForChange().swap(other.ForChange());
        std::swap(mHasIterators, other.mHasIterators);
    }
    void clear() noexcept
    {
        ForChange().clear();
        mHasIterators = false;
    }

protected:
    /// `SetValues`; false if there was a fault.
    bool AddPairs(const Classes::TStrings* keys, const Classes::TStrings* values);

private:
    struct TIndex;

    struct TSearches
    {
        TSearches() noexcept;
        TSearches& operator=(TSearches&& other) noexcept;
        ~TSearches();

        /// Null until there were searches that an index pays for.
        System::GOwner<TIndex> index;
        /// The entries that searches without it have looked at.
        std::size_t lookedAt = 0;
    };

    Base& ForChange() noexcept
    {
        mSearches.Forget();
        return *this;
    }
    Base& WithIterators() noexcept
    {
        mHasIterators = true;
        return ForChange();
    }
    const_iterator FindValue(const mapped_type& value) const;
    const_iterator FindInIndex(const mapped_type& value) const;
    System::GOwner<TIndex> MakeIndex() const;

    mutable GCache<TSearches> mSearches;
    /// Whether somebody may write values by iterators, at any time.
    bool mHasIterators = false;
};

/// A `CStrStrMap` that also knows in which order the keys were added.
class TRS8_BTL_API CStrStrMapEx : public CStrStrMap
{
public:
    CStrStrMapEx() = default;
    /// As `Add` of each.
    CStrStrMapEx(std::initializer_list<value_type> entries);

    /// A key added twice stands twice among the keys in their order.
    void Add(const System::UnicodeString& key, const System::UnicodeString& value);
    /// The keys in their order become `keys`, without those that were there before.
    void SetValues(const Classes::TStrings* keys, const Classes::TStrings* values);
    void SetValues(const System::UnicodeString& commaKeys, const System::UnicodeString& commaValues);
    void Clear() noexcept;

    const std::vector<System::UnicodeString>& getKeysInOrder() const noexcept { return mKeys; }

private:
    std::vector<System::UnicodeString> mKeys;
};

} // namespace BTL
