// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Object.h"

#include <concepts>
#include <cstddef>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace System
{

/// A method of an object as a value; `TClosure<R(Args...)>` is the one form that there is.
template <class Signature>
class TClosure;

namespace Detail
{

[[noreturn]] TRS8_BTL_API void ThrowEmptyClosure();

/// The form in which a method's object is kept: always from the same base, so that code that knows only the
/// name of a method finds its object again.
template <class T>
void* ToMethodData(T* object) noexcept
{
    if constexpr (std::derived_from<T, TObject>) {
        return static_cast<TObject*>(object);
    } else {
        return object;
    }
}

/// Null for an object that only appears as a `T`, which can't run its methods.
template <class T>
T* FromMethodData(void* data)
{
    if constexpr (std::derived_from<T, TObject>) {
        auto* const base = static_cast<TObject*>(data);
        T* const object = dynamic_cast<T*>(base);
        if (object == nullptr && (base == nullptr || !base->HasSetClass())) {
            ThrowInvalidCast();
        }
        return object;
    } else {
        return static_cast<T*>(data);
    }
}

/// What a method gives that isn't run.
template <class R>
R NoResult()
{
    if constexpr (std::is_void_v<R>) {
        return;
    } else if constexpr (std::is_default_constructible_v<R>) {
        return R();
    } else {
        ThrowInvalidCast();
    }
}

template <class Signature>
class GMethodCode;

template <class R, class... Args>
class GMethodCode<R(Args...)> : public TMethodCode
{
public:
    const std::type_info& Signature() const noexcept override { return typeid(R(Args...)); }
    virtual R Invoke(void* data, Args... args) const = 0;
};

template <class T, class Member, class Signature>
class GMemberCode;

/// A member function of `T`.
template <class T, class Member, class R, class... Args>
class GMemberCode<T, Member, R(Args...)> final : public GMethodCode<R(Args...)>
{
public:
    explicit GMemberCode(Member member) noexcept : mMember(member) {}

    bool Equals(const TMethodCode& other) const noexcept override
    {
        const auto* same = dynamic_cast<const GMemberCode*>(&other);
        return same != nullptr && same->mMember == mMember;
    }
    R Invoke(void* data, Args... args) const override
    {
        T* const object = FromMethodData<T>(data);
        return object == nullptr ? NoResult<R>() : (object->*mMember)(std::forward<Args>(args)...);
    }

private:
    Member mMember;
};

template <class Callable, class Signature>
class GCallableCode;

/// Anything else that can be called; equal only to its own copies.
template <class Callable, class R, class... Args>
class GCallableCode<Callable, R(Args...)> final : public GMethodCode<R(Args...)>
{
public:
    explicit GCallableCode(Callable callable) : mCallable(std::move(callable)) {}

    bool Equals(const TMethodCode& other) const noexcept override { return this == &other; }
    R Invoke(void*, Args... args) const override
    {
        // Calls as std::invoke does, whose header takes a fifth of a second in each file.
        return std::apply(mCallable, std::tuple<Args&&...>(std::forward<Args>(args)...));
    }

private:
    mutable Callable mCallable;
};

template <class Self, class Signature>
class GFunctionCode;

/// A function that takes the object first, and then what the closure is called with.
template <class Self, class R, class... Args>
class GFunctionCode<Self, R(Args...)> final : public GMethodCode<R(Args...)>
{
public:
    using Function = R (*)(Self*, Args...);

    explicit GFunctionCode(Function function) noexcept : mFunction(function) {}

    bool Equals(const TMethodCode& other) const noexcept override
    {
        const auto* same = dynamic_cast<const GFunctionCode*>(&other);
        return same != nullptr && same->mFunction == mFunction;
    }
    R Invoke(void* data, Args... args) const override
    {
        Self* const object = FromMethodData<Self>(data);
        return object == nullptr ? NoResult<R>() : mFunction(object, std::forward<Args>(args)...);
    }

private:
    Function mFunction;
};

template <class Member>
struct GMemberTraits;

template <class R, class T, class... Args>
struct GMemberTraits<R (T::*)(Args...)>
{
    using Class = T;
    /// What the closure is called with, and what it gives.
    using Signature = R(Args...);
};
template <class R, class T, class... Args>
struct GMemberTraits<R (T::*)(Args...) const> : GMemberTraits<R (T::*)(Args...)>
{
};
template <class R, class T, class... Args>
struct GMemberTraits<R (T::*)(Args...) noexcept> : GMemberTraits<R (T::*)(Args...)>
{
};
template <class R, class T, class... Args>
struct GMemberTraits<R (T::*)(Args...) const noexcept> : GMemberTraits<R (T::*)(Args...)>
{
};

template <class Member>
concept MemberFunction = std::is_member_function_pointer_v<Member>;

template <MemberFunction Member>
TMethodAddress MakeMethodAddress(Member member)
{
    using Traits = GMemberTraits<Member>;
    using Code = GMemberCode<typename Traits::Class, Member, typename Traits::Signature>;
    return TMethodAddress(new Code(member));
}

template <class R, std::derived_from<TObject> Self, class... Args>
TMethodAddress MakeMethodAddress(R (*function)(Self*, Args...))
{
    return TMethodAddress(new GFunctionCode<Self, R(Args...)>(function));
}

} // namespace Detail

/// What an event holds: a member function with its object, or any callable. A small value; copies share the
/// callable. It doesn't own the object, so the object must outlive the last call.
///
///     TClosure<void(int)> onChange(&gauge, &TGauge::Show);        // or any callable
///     if (onChange) {
///         onChange(5);
///     }
///     onChange = nullptr;
template <class R, class... Args>
class TClosure<R(Args...)>
{
public:
    /// What the closure is called with, and what it gives.
    using Signature = R(Args...);

    TClosure() noexcept = default;
    TClosure(std::nullptr_t) noexcept {}

    /// A null `object` or `member` gives the empty closure.
    template <class T, Detail::MemberFunction Member>
    requires(std::same_as<typename Detail::GMemberTraits<Member>::Signature, Signature>&&
                 std::derived_from<T, typename Detail::GMemberTraits<Member>::Class>)
        TClosure(T* object, Member member)
    {
        if (object != nullptr && member != nullptr) {
            using Class = typename Detail::GMemberTraits<Member>::Class;
            mMethod = {Detail::MakeMethodAddress(member), Detail::ToMethodData(static_cast<Class*>(object))};
        }
    }

    /// A null function pointer or empty `std::function` gives the empty closure.
    template <class Callable>
    requires(!std::same_as<Callable, TClosure> && std::is_invocable_r_v<R, Callable&, Args...>)
        TClosure(Callable callable)
    {
        if constexpr (requires { callable == nullptr; }) {
            if (callable == nullptr) {
                return;
            }
        }
        mMethod.Code = TMethodAddress(new Detail::GCallableCode<Callable, Signature>(std::move(callable)));
    }

    /// Raises `Sysutils::EInvalidCast` if the method has another signature.
    explicit TClosure(TMethod method) : mMethod(std::move(method))
    {
        if (!Fits(mMethod)) {
            Detail::ThrowInvalidCast();
        }
    }

    /// Whether `method` has this closure's signature; no method fits always.
    static bool Fits(const TMethod& method) noexcept
    {
        return !method || method.Code->Signature() == typeid(Signature);
    }

    /// The method as a value without a type; that of an empty closure is empty.
    const TMethod& AsMethod() const noexcept { return mMethod; }

    explicit operator bool() const noexcept { return static_cast<bool>(mMethod); }
    friend bool operator==(const TClosure& a, const TClosure& b) noexcept { return a.mMethod == b.mMethod; }
    friend bool operator==(const TClosure& a, std::nullptr_t) noexcept { return !a.mMethod; }

    /// Raises `Sysutils::Exception` if the closure is empty, `Sysutils::EInvalidCast` if the object isn't of
    /// the method's class. Does nothing, and gives a value made without arguments, if the object only appears
    /// as one of that class, see `TObject::SetClassType`. The closure may be changed or destroyed by what it
    /// calls.
    R operator()(Args... args) const
    {
        const TMethod method = mMethod;
        if (!method) {
            Detail::ThrowEmptyClosure();
        }
        const auto& code = static_cast<const Detail::GMethodCode<Signature>&>(*method.Code);
        return code.Invoke(method.Data, std::forward<Args>(args)...);
    }

private:
    TMethod mMethod;
};

} // namespace System

namespace Classes
{

/// The closure of most events: the argument is the object that sends it.
using TNotifyEvent = System::TClosure<void(System::TObject*)>;

} // namespace Classes
