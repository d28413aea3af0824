// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <initializer_list>
#include <map>
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
    /// The first key with that value, sought one by one; empty if there is none.
    System::UnicodeString Get1stKey(const System::UnicodeString& value) const;
    /// False if there is none, which leaves `key` alone.
    bool Get1stKey(const System::UnicodeString& value, System::UnicodeString& key) const;

    /// The values as the lines of the list, in the order of their keys.
    void GetValues(Classes::TStrings* strings) const;
    void GetKeys(Classes::TStrings* strings) const;

    /// All entries in one line for a log.
    System::UnicodeString getDebugInfo() const;

protected:
    /// `SetValues`; false if there was a fault.
    bool AddPairs(const Classes::TStrings* keys, const Classes::TStrings* values);
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
