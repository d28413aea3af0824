// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/Host_Handle.h"

#include <memory>
#include <type_traits>

namespace Host
{

/// What handles stand for.
///
///     const HANDLE handle = OpenHandle(std::make_shared<CNamedMutex>(...));
///     if (const auto mutex = ObjectOf<CNamedMutex>(handle)) { ... }   // null and the last error 6 if it
///     isn't one
class TRS8_BTL_API AObject
{
public:
    AObject() = default;
    AObject(const AObject&) = delete;
    AObject& operator=(const AObject&) = delete;
    virtual ~AObject();

    /// As `WaitForSingleObject`; `WAIT_FAILED` for an object that can't be waited for.
    virtual unsigned long Wait(unsigned long milliseconds);
};

/// A new handle on the object, which the caller closes.
TRS8_BTL_API HANDLE OpenHandle(std::shared_ptr<AObject> object);

/// Null, with `ERROR_INVALID_HANDLE`, for what is no open handle.
TRS8_BTL_API std::shared_ptr<AObject> FindObject(HANDLE handle);

/// Null, with `ERROR_INVALID_HANDLE`, for what is no open handle on a `T`.
template <class T>
std::shared_ptr<T> ObjectOf(HANDLE handle);

/// Sets `ERROR_INVALID_HANDLE`.
TRS8_BTL_API void RefuseHandle();

template <class T>
std::shared_ptr<T> ObjectOf(HANDLE handle)
{
    static_assert(std::is_base_of_v<AObject, T>);
    const std::shared_ptr<AObject> object = FindObject(handle);
    std::shared_ptr<T> wanted = std::dynamic_pointer_cast<T>(object);
    if (object != nullptr && wanted == nullptr) {
        RefuseHandle();
    }
    return wanted;
}

} // namespace Host
