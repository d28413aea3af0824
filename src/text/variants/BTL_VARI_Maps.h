// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_IntVector.h"
#include "platform/runtime/variants/System_Variant.h"

#include <map>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

/// Variants in the order of their keys.
template <class Key>
class GVariantMap : public std::map<Key, System::Variant>
{
public:
    /// False if the key is missing, which leaves `value` alone.
    bool Find(const Key& key, System::Variant& value) const
    {
        const auto found = this->find(key);
        if (found == this->end()) {
            return false;
        }
        value = found->second;
        return true;
    }
    /// Empty if the key is missing.
    System::Variant Find(const Key& key) const { return FindDef(key, System::Variant()); }
    System::Variant FindDef(const Key& key, System::Variant defaultValue) const
    {
        Find(key, defaultValue);
        return defaultValue;
    }
};

/// Keys are in the exact order of their characters, so that case matters.
///
///     BTL::CStrVariantMap settings;
///     settings[u"port"] = u"8080";
///     const int port = settings.FindInt(u"port", 80);
///     const System::Variant name = settings.FindDef(u"name", u"none");
class TRS8_BTL_API CStrVariantMap : public GVariantMap<System::UnicodeString>
{
public:
    // `defaultValue` for a missing key and for a value that doesn't convert; see `ToIntDef`, `ToInt64Def` and
    // `ToPropertyIntDef`.

    int FindInt(const System::UnicodeString& key, int defaultValue) const;
    System::Int64 FindInt64(const System::UnicodeString& key, System::Int64 defaultValue) const;
    int FindPropertyInt(const System::UnicodeString& key, int defaultValue) const;

    /// A line "key = value" for each entry; null does nothing.
    void AddInfoTextTo(Classes::TStrings* strings) const;
    /// All entries in one line, the values and failures as of `VarToVStr`.
    System::UnicodeString getDebugText() const;
};

/// Variants by numbers of 64 bits.
class TRS8_BTL_API CInt64VariantMap : public GVariantMap<System::Int64>
{
public:
    /// Takes the entry out, if there is one.
    void Delete(System::Int64 key) { erase(key); }
    /// Adds `value` under a new key and gives that: 1 in an empty map, else one more than the largest, but
    /// never 0. Behind the last number follows the first one; if that is taken, it is an internal fault, and
    /// its value stays if the user lets that pass.
    System::Int64 Append(const System::Variant& value);
};

/// Variants by numbers of 32 bits.
class TRS8_BTL_API CIntToVarMap : public GVariantMap<int>
{
public:
    /// Gives each of the keys the empty variant, also those that have a value.
    void Add(const UTL::CIntVector& keys) { Add(keys, System::Variant()); }
    /// Gives each of the keys that value, also those that have one.
    void Add(const UTL::CIntVector& keys, const System::Variant& value);
};

} // namespace BTL
