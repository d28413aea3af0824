// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <cstdint>
#include <vector>

namespace BTL
{

/// Numbers by text. The entries stand as they came, and a table of their places finds them: a search looks at
/// one place of the table and one entry, mostly, and what is done to all entries goes through memory in
/// order.
class CTextIndex
{
public:
    /// Null if the text isn't there.
    const System::Int64* Find(const System::UnicodeString& text) const
    {
        if (mTable.empty()) {
            return nullptr;
        }
        const std::uint32_t number = mTable[SlotOf(text, HashOf(text))];
        return number == None ? nullptr : &mEntries[number - 1].value;
    }

    /// Overwrites the number of a text that is there.
    void Set(const System::UnicodeString& text, System::Int64 value)
    {
        if (mEntries.size() * 2 >= mTable.size()) {
            Grow();
        }
        const std::uint32_t hash = HashOf(text);
        std::uint32_t& number = mTable[SlotOf(text, hash)];
        if (number != None) {
            mEntries[number - 1].value = value;
            return;
        }
        mEntries.push_back({text, value, hash});
        number = static_cast<std::uint32_t>(mEntries.size());
    }

private:
    struct TEntry
    {
        System::UnicodeString text;
        System::Int64 value;
        std::uint32_t hash;
    };

    static constexpr std::uint32_t None = 0;

    static std::uint32_t HashOf(const System::UnicodeString& text)
    {
        return static_cast<std::uint32_t>(std::hash<System::UnicodeString>()(text));
    }

    /// The place in the table of a text, or the free one where it goes.
    std::size_t SlotOf(const System::UnicodeString& text, std::uint32_t hash) const
    {
        const std::size_t mask = mTable.size() - 1;
        std::size_t slot = hash & mask;
        while (mTable[slot] != None) {
            const TEntry& entry = mEntries[mTable[slot] - 1];
            if (entry.hash == hash && entry.text == text) {
                break;
            }
            slot = (slot + 1) & mask;
        }
        return slot;
    }

    void Grow()
    {
        constexpr std::size_t few = 16;
        std::vector<std::uint32_t> table(mTable.empty() ? few : 2 * mTable.size(), None);
        const std::size_t mask = table.size() - 1;
        for (std::size_t i = 0; i < mEntries.size(); ++i) {
            std::size_t slot = mEntries[i].hash & mask;
            while (table[slot] != None) {
                slot = (slot + 1) & mask;
            }
            table[slot] = static_cast<std::uint32_t>(i + 1);
        }
        mTable = std::move(table);
    }

    std::vector<TEntry> mEntries;
    /// The numbers of entries, from 1 on, by hash. Its size is a power of two, and half of it at least is
    /// free.
    std::vector<std::uint32_t> mTable;
};

} // namespace BTL
