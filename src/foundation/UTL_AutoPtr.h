// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace UTL
{

/// An object that counts its holders and ends with the last of them. The count isn't guarded against threads.
///
///     class CShared : public UTL::AAutoObj { ... };
///     UTL::GAutoPtr<CShared> first = new CShared;
///     const UTL::GAutoPtr<CShared> second = first;   // two holders
///     first = nullptr;                               // still there; destroyed with `second`
class TRS8_BTL_API AAutoObj
{
public:
    AAutoObj() noexcept = default;
    /// The count belongs to the object, not to its value: a copy starts at 0.
    AAutoObj(const AAutoObj&) noexcept {}
    /// Changes nothing.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
    AAutoObj& operator=(const AAutoObj&) noexcept { return *this; }
    /// An object that is still held is an internal fault. While another exception is on its way the fault is
    /// only shown, since a second one would end the program.
    virtual ~AAutoObj() noexcept(false);

    /// One holder more.
    void Retain() noexcept { ++mRefCount; }
    /// Destroys the object, which then comes from `new`, when the count reaches 0. A negative count is an
    /// internal fault; nothing happens if the user lets it pass.
    void Release();

    int getRefCount() const noexcept { return mRefCount; }

private:
    int mRefCount = 0;
};

/// Makes a class that has other bases an `AAutoObj` too. Where one of these has a virtual destructor, the
/// class declares its own as `noexcept`, and an object that is still held at its end then ends the program.
class TRS8_BTL_API MAutoObj : public virtual AAutoObj
{
public:
    ~MAutoObj() noexcept(false) override;
};

namespace Detail
{

/// An internal fault; `Sysutils::Exception` if the user lets it pass, since there is no object to give.
[[noreturn]] TRS8_BTL_API void FailNullAccess();

} // namespace Detail

/// Holds an `AAutoObj`, or nothing.
template <class T>
class GAutoPtr
{
public:
    GAutoPtr() noexcept = default;
    GAutoPtr(T* object) noexcept : mObject(object)
    {
        if (mObject != nullptr) {
            mObject->Retain();
        }
    }
    GAutoPtr(const GAutoPtr& other) noexcept : GAutoPtr(other.mObject) {}
    /// Never throws, so that any class can have one as a member: a destructor of `T` that throws ends the
    /// program.
    ~GAutoPtr() { Assign(nullptr); }

    GAutoPtr& operator=(T* object)
    {
        Assign(object);
        return *this;
    }
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
    GAutoPtr& operator=(const GAutoPtr& other)
    {
        Assign(other.mObject);
        return *this;
    }

    /// Holds `object` in place of the one held. Does nothing if it is the same.
    void Assign(T* object)
    {
        if (object == mObject) {
            return;
        }
        // The former object goes last: it may be the one that keeps the new one, or this pointer, alive.
        T* const former = mObject;
        mObject = object;
        if (object != nullptr) {
            object->Retain();
        }
        if (former != nullptr) {
            former->Release();
        }
    }

    /// The object, null if none is held; it stays held.
    T* get() const noexcept { return mObject; }
    /// Raises an internal fault if nothing is held; `Sysutils::Exception` if the user lets that pass.
    T* operator->() const
    {
        if (mObject == nullptr) {
            Detail::FailNullAccess();
        }
        return mObject;
    }

private:
    T* mObject = nullptr;
};

} // namespace UTL
