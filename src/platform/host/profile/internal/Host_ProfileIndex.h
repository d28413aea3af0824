// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Host
{

/// Where a line stands in a profile file.
struct ProfilePlace
{
    std::uint32_t section = 0;
    std::uint32_t line = 0;

    [[nodiscard]] bool operator==(const ProfilePlace&) const = default;
};

/// The places of keys by the hash of their names: a table without the names, which stand in the lines, so
/// that a file of many keys takes little memory and is soon filled in.
///
///     const auto isKey = [&](const ProfilePlace& place) { return NameEqual()(KeyAt(place), key); };
///     if (const ProfilePlace* const place = index.Find(NameHash()(key), isKey)) { ... }
class ProfileIndex
{
public:
    /// The place of this hash for which `isKey(place)` holds; null if there is none.
    template <class IsKey>
    [[nodiscard]] const ProfilePlace* Find(std::size_t hash, IsKey isKey) const
    {
        const std::size_t slot = SlotOf(hash, isKey);
        return slot == None ? nullptr : &mSlots[slot].place;
    }

    /// A key that isn't in it yet.
    void Add(std::size_t hash, const ProfilePlace& place)
    {
        if ((mCount + 1) * 4 > mSlots.size() * 3) {
            Grow();
        }
        ++mCount;
        Put({Stored(hash), place});
    }

    template <class IsKey>
    void Remove(std::size_t hash, IsKey isKey)
    {
        std::size_t hole = SlotOf(hash, isKey);
        if (hole == None) {
            return;
        }
        --mCount;
        // What was put further on because of it moves up, so that a search may stop at the first free slot.
        for (std::size_t slot = Next(hole); mSlots[slot].IsUsed(); slot = Next(slot)) {
            const std::size_t home = mSlots[slot].hash & Mask();
            if (((slot - home) & Mask()) >= ((slot - hole) & Mask())) {
                mSlots[hole] = mSlots[slot];
                hole = slot;
            }
        }
        mSlots[hole] = {};
    }

private:
    static constexpr std::size_t None = SIZE_MAX;
    static constexpr std::uint32_t NoLine = UINT32_MAX;

    struct Slot
    {
        std::uint32_t hash = 0;
        ProfilePlace place{0, NoLine};

        [[nodiscard]] bool IsUsed() const noexcept { return place.line != NoLine; }
    };

    [[nodiscard]] static std::uint32_t Stored(std::size_t hash) noexcept
    {
        return static_cast<std::uint32_t>(hash);
    }
    [[nodiscard]] std::size_t Mask() const noexcept { return mSlots.size() - 1; }
    [[nodiscard]] std::size_t Next(std::size_t slot) const noexcept { return (slot + 1) & Mask(); }

    template <class IsKey>
    [[nodiscard]] std::size_t SlotOf(std::size_t hash, IsKey isKey) const
    {
        if (mSlots.empty()) {
            return None;
        }
        for (std::size_t slot = Stored(hash) & Mask(); mSlots[slot].IsUsed(); slot = Next(slot)) {
            if (mSlots[slot].hash == Stored(hash) && isKey(mSlots[slot].place)) {
                return slot;
            }
        }
        return None;
    }

    void Put(const Slot& entry)
    {
        std::size_t slot = entry.hash & Mask();
        while (mSlots[slot].IsUsed()) {
            slot = Next(slot);
        }
        mSlots[slot] = entry;
    }

    void Grow()
    {
        constexpr std::size_t smallest = 8;
        const std::vector<Slot> former =
            std::exchange(mSlots, std::vector<Slot>(mSlots.empty() ? smallest : mSlots.size() * 2));
        for (const Slot& slot : former) {
            if (slot.IsUsed()) {
                Put(slot);
            }
        }
    }

    /// A power of two of them, a quarter free.
    std::vector<Slot> mSlots;
    std::size_t mCount = 0;
};

} // namespace Host
