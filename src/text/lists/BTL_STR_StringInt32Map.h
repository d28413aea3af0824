// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <initializer_list>
#include <map>
#include <utility>

namespace BTL
{

/// Integers by text, in the exact order of the keys' characters, so that case matters.
///
///     BTL::CStringInt32Map counts = {{u"error", 0}};
///     counts.IncValue(u"warning", 1);                // 1
///     const int errors = counts.ToValue(u"error", -1);
///     for (const auto& [name, count] : counts) { ... }
template <class T>
class GStringIntegerMap
{
public:
    using value_type = std::pair<const System::UnicodeString, T>;
    using const_iterator = typename std::map<System::UnicodeString, T>::const_iterator;

    GStringIntegerMap() = default;
    /// Of entries with one key the first counts.
    GStringIntegerMap(std::initializer_list<value_type> entries) : mValues(entries) {}
    /// Each of the `count` names with its index; a repeated one has its last. Null names count as none.
    GStringIntegerMap(const char* const* names, int count)
    {
        for (int i = 0; names != nullptr && i < count; ++i) {
            Add(names[i], i);
        }
    }

    /// Overwrites the value of a key that is there.
    void Add(const System::UnicodeString& key, T value) { mValues.insert_or_assign(key, value); }
    void Clear() noexcept { mValues.clear(); }

    /// Whether the key is there, and whether none is.
    bool Contains(const System::UnicodeString& key) const { return mValues.contains(key); }
    bool IsEmpty() const noexcept { return mValues.empty(); }

    // The entries as a range.

    const_iterator begin() const noexcept { return mValues.begin(); }
    const_iterator end() const noexcept { return mValues.end(); }
    std::size_t size() const noexcept { return mValues.size(); }
    [[nodiscard]] bool empty() const noexcept { return mValues.empty(); }

    int getCount() const noexcept { return static_cast<int>(mValues.size()); }
    /// False if the key is missing, which leaves `value` alone.
    bool GetValue(const System::UnicodeString& key, T& value) const
    {
        const auto found = mValues.find(key);
        if (found == mValues.end()) {
            return false;
        }
        value = found->second;
        return true;
    }
    /// As `GetValue` without a default, but for a missing key `value` becomes `defaultValue`.
    bool GetValue(const System::UnicodeString& key, T& value, T defaultValue) const
    {
        const bool found = GetValue(key, value);
        if (!found) {
            value = defaultValue;
        }
        return found;
    }
    /// The value of the key; `defaultValue` if it is missing.
    T ToValue(const System::UnicodeString& key, T defaultValue) const
    {
        GetValue(key, defaultValue);
        return defaultValue;
    }

protected:
    std::map<System::UnicodeString, T> mValues;
};

/// Integers of 32 bits by text.
class CStringInt32Map : public GStringIntegerMap<int>
{
public:
    using GStringIntegerMap::GStringIntegerMap;

    /// Adds `delta` to the value, which is 0 for a missing key, and gives the sum. It wraps on an overflow.
    int IncValue(const System::UnicodeString& key, int delta)
    {
        int& value = mValues[key];
        value = static_cast<int>(static_cast<unsigned>(value) + static_cast<unsigned>(delta));
        return value;
    }
};

/// Integers of 64 bits by text.
class CStringKeyMap : public GStringIntegerMap<System::Int64>
{
public:
    using GStringIntegerMap::GStringIntegerMap;
};

} // namespace BTL
