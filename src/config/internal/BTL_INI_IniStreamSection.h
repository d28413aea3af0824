// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_IniStreamImp.h"
#include "config/internal/BTL_INI_PackedTexts.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace BTL
{

/// The keys of a section with their values, in the order of their characters. They lie close together, in
/// blocks, and the values in one text, so that a way through all of them is one through memory, and a new key
/// moves few others.
///
///     CSection section(u"Range");
///     section.Set(u"Upper", u"10");
///     if (const auto value = section.Find(u"Upper")) { ... *value ... }
class CIniStreamImp::CSection
{
public:
    explicit CSection(const System::UnicodeString& name) : mName(name) {}

    const System::UnicodeString& getName() const noexcept { return mName; }
    std::size_t size() const noexcept { return mSize; }
    bool empty() const noexcept { return mSize == 0; }

    /// The value, until the section changes; nothing if the key is missing.
    std::optional<std::u16string_view> Find(const System::UnicodeString& key) const
    {
        const TEntry* const entry = FindFrom(key);
        return entry != nullptr && entry->key == key ? std::optional(mValues.Of(entry->value)) : std::nullopt;
    }

    /// Overwrites the value of a key that is there.
    void Set(System::UnicodeString key, std::u16string_view value)
    {
        // Keys often come in their order.
        if (empty() || mBlocks.back().back().key < key) {
            Append({std::move(key), mValues.Add(value)});
            return;
        }
        const std::size_t number = BlockOf(key);
        TBlock& block = mBlocks[number];
        const auto place = block.begin() + PlaceOf(key, block);
        if (place != block.end() && place->key == key) {
            mValues.Replace(place->value, value);
            PackValues();
            return;
        }
        block.insert(place, {std::move(key), mValues.Add(value)});
        ++mSize;
        if (block.size() > Most) {
            Split(number);
        }
    }

    void Remove(const System::UnicodeString& key)
    {
        if (!Find(key)) {
            return;
        }
        const std::size_t number = BlockOf(key);
        TBlock& block = mBlocks[number];
        const auto place = block.begin() + PlaceOf(key, block);
        mValues.Remove(place->value);
        block.erase(place);
        --mSize;
        if (block.empty()) {
            mBlocks.erase(mBlocks.begin() + static_cast<std::ptrdiff_t>(number));
        }
        PackValues();
    }

    void Clear() noexcept
    {
        mBlocks.clear();
        mValues = {};
        mSize = 0;
    }

    /// Calls `use(key, value)` for each; it may not change the section.
    template <class Use>
    void ForEach(Use use) const
    {
        for (const TBlock& block : mBlocks) {
            for (const TEntry& entry : block) {
                use(entry.key, mValues.Of(entry.value));
            }
        }
    }

    /// As `ForEach`, but calls `use(key)`, which may change the section.
    template <class Use>
    void ForEachInSteps(Use use) const
    {
        const TEntry* next = FindFrom({});
        while (next != nullptr) {
            const System::UnicodeString key = next->key;
            use(key);
            next = FindFrom(key);
            if (next != nullptr && next->key == key) {
                next = FindFrom(key + u'\0');
            }
        }
    }

private:
    struct TEntry
    {
        System::UnicodeString key;
        Detail::CPackedTexts::TSlice value;
    };
    using TBlock = std::vector<TEntry>;
    static constexpr std::size_t Most = 256;

    /// The place of the first entry whose key isn't less.
    static std::ptrdiff_t PlaceOf(const System::UnicodeString& key, const TBlock& block)
    {
        const auto place =
            std::lower_bound(block.begin(), block.end(), key,
                             [](const TEntry& entry, const auto& sought) { return entry.key < sought; });
        return place - block.begin();
    }

    /// The number of the block that has the key, or is to take it.
    std::size_t BlockOf(const System::UnicodeString& key) const
    {
        const auto behind = std::upper_bound(mBlocks.begin(), mBlocks.end(), key,
                                             [](const System::UnicodeString& sought, const TBlock& block) {
                                                 return sought < block.front().key;
                                             });
        return behind == mBlocks.begin() ? 0 : static_cast<std::size_t>(behind - mBlocks.begin()) - 1;
    }

    /// The first entry whose key isn't less; null if there is none.
    const TEntry* FindFrom(const System::UnicodeString& key) const
    {
        if (empty()) {
            return nullptr;
        }
        const std::size_t number = BlockOf(key);
        const auto place = mBlocks[number].begin() + PlaceOf(key, mBlocks[number]);
        if (place != mBlocks[number].end()) {
            return &*place;
        }
        return number + 1 < mBlocks.size() ? &mBlocks[number + 1].front() : nullptr;
    }

    void Append(TEntry entry)
    {
        if (empty() || mBlocks.back().size() == Most) {
            mBlocks.emplace_back();
        }
        mBlocks.back().push_back(std::move(entry));
        ++mSize;
    }

    void Split(std::size_t number)
    {
        const auto place = mBlocks.begin() + static_cast<std::ptrdiff_t>(number);
        const auto middle = place->begin() + Most / 2;
        TBlock upper(std::make_move_iterator(middle), std::make_move_iterator(place->end()));
        place->erase(middle, place->end());
        mBlocks.insert(std::next(place), std::move(upper));
    }

    void PackValues()
    {
        if (!mValues.MustPack()) {
            return;
        }
        mValues.Pack([this](auto move) {
            for (TBlock& block : mBlocks) {
                std::for_each(block.begin(), block.end(), [&](TEntry& entry) { move(entry.value); });
            }
        });
    }

    System::UnicodeString mName;
    /// None is empty.
    std::vector<TBlock> mBlocks;
    Detail::CPackedTexts mValues;
    std::size_t mSize = 0;
};

class CIniStreamImp::CSections : public std::map<System::UnicodeString, System::GOwner<CSection>>
{
};

} // namespace BTL
