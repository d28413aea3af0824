// SPDX-License-Identifier: MIT
#pragma once

namespace BTL
{

/// What an object has found out about its own content, and may forget. A copy begins without; an object that
/// gets another content forgets, and so does one whose content is moved away.
///
///     mutable GCache<System::GOwner<TIndex>> mIndex; // null in each copy
///     if (mIndex.value == nullptr) { ... }
template <class T>
struct GCache
{
    GCache() = default;
    GCache(const GCache&) {}
    GCache(GCache&& other) noexcept { other.Forget(); }
    GCache& operator=(const GCache& other)
    {
        if (this != &other) {
            Forget();
        }
        return *this;
    }
    GCache& operator=(GCache&& other) noexcept
    {
        Forget();
        other.Forget();
        return *this;
    }
    ~GCache() = default;

    /// Goes back to what a new one holds.
    void Forget() noexcept { value = T(); }

    T value = T();
};

} // namespace BTL
