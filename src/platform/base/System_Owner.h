// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>

namespace System
{

/// Owns one object from `new`, or none, as `std::unique_ptr` does. It is for the private members of public
/// headers: `<memory>` brings the standard streams along and costs more to compile than most of these
/// headers.
///
///     System::GOwner<CIndex> mIndex;                     // none yet; CIndex may be incomplete here
///     mIndex = System::GOwner<CIndex>(new CIndex);
///     if (mIndex != nullptr) { mIndex->Add(key); }
template <class T>
class GOwner
{
public:
    GOwner() noexcept = default;
    GOwner(std::nullptr_t) noexcept {}
    explicit GOwner(T* object) noexcept : mObject(object) {}
    GOwner(GOwner&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
    GOwner(const GOwner&) = delete;
    ~GOwner() { delete mObject; }

    GOwner& operator=(GOwner other) noexcept
    {
        std::swap(mObject, other.mObject);
        return *this;
    }

    /// The object, null if there is none; it stays owned.
    T* get() const noexcept { return mObject; }
    T* operator->() const noexcept { return mObject; }
    T& operator*() const noexcept { return *mObject; }
    /// Whether there is none.
    friend bool operator==(const GOwner& owner, std::nullptr_t) noexcept { return owner.mObject == nullptr; }

private:
    T* mObject = nullptr;
};

/// An owner of a new `T`, made of `arguments`.
template <class T, class... Arguments>
GOwner<T> MakeOwner(Arguments&&... arguments)
{
    return GOwner<T>(new T(std::forward<Arguments>(arguments)...));
}

} // namespace System
