// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

#include <concepts>
#include <functional>
#include <memory>
#include <span>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Typinfo
{
class TPropInfo;
struct TTypeInfo;
} // namespace Typinfo

namespace Classes
{
class TComponent;
} // namespace Classes

namespace Sysutils
{

/// An object that isn't of the class asked for.
class TRS8_BTL_API EInvalidCast : public Exception
{
public:
    using Exception::Exception;
    ~EInvalidCast() override;
};

} // namespace Sysutils

namespace System
{

class TMetaClass;
class TObject;

/// What a method does, without the object it does it to: the meaning of a published method's name.
class TRS8_BTL_API TMethodCode
{
public:
    virtual ~TMethodCode();

    /// The type of a function of the same result and arguments.
    virtual const std::type_info& Signature() const noexcept = 0;
    /// Whether both run the same method.
    virtual bool Equals(const TMethodCode& other) const noexcept = 0;
};

/// The code of a method; null stands for no method.
using TMethodAddress = std::shared_ptr<const TMethodCode>;

/// A method bound to its object, of any signature: the untyped store of a `TClosure`.
struct TRS8_BTL_API TMethod
{
    TMethodAddress Code;
    /// The object, as `TObject*` if it is one; not owned.
    void* Data = nullptr;

    /// The method `code` of `object`; empty if there is no code.
    static TMethod Of(TMethodAddress code, TObject* object) noexcept
    {
        return code == nullptr ? TMethod() : TMethod{std::move(code), object};
    }

    explicit operator bool() const noexcept { return Code != nullptr; }
    /// Whether both run the same method of the same object.
    friend bool operator==(const TMethod& a, const TMethod& b) noexcept { return Equal(a, b); }

private:
    static bool Equal(const TMethod& a, const TMethod& b) noexcept;
};

template <class Signature>
class TClosure;

/// The root of all classes that know at run time what they are.
class TRS8_BTL_API TObject
{
public:
    TObject() noexcept = default;
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;
    virtual ~TObject();

    /// The class of this object: the one it was made of, unless `SetClassType` replaced it. Never null. While
    /// a constructor or destructor runs it is the class of that constructor.
    TMetaClass* ClassType() const { return mReplacedClass != nullptr ? mReplacedClass : OwnClass(); }
    const UnicodeString& ClassName() const;
    /// Null for `TObject` itself.
    TMetaClass* ClassParent() const;
    const Typinfo::TTypeInfo* ClassInfo() const;
    /// Whether the class of this object is `type` or derives from it; false for null.
    bool InheritsFrom(const TMetaClass* type) const;
    /// The published method of that name, case aside; null if there is none.
    TMethodAddress MethodAddress(const UnicodeString& name) const;
    /// The name under which the class publishes `method`; empty if it doesn't.
    UnicodeString MethodName(const TMethodAddress& method) const;

    /// Lets the object appear as one of the class `type`, or again as what it is if `type` is null. The code
    /// it runs stays that of the class it was made of.
    void SetClassType(TMetaClass* type) noexcept { mReplacedClass = type; }

    static TMetaClass* ClassRecord();
    using ThisClass = TObject;
    using ParentClass = void;

protected:
    virtual TMetaClass* OwnClass() const;

private:
    TMetaClass* mReplacedClass = nullptr;
};

/// The one line that a class with run-time information has in its body. Its source file defines
/// `ClassRecord` with a `GClassBuilder`.
#define TRS8_BTL_CLASS(Class, Parent)                                                                        \
public:                                                                                                      \
    using ThisClass = Class;                                                                                 \
    using ParentClass = Parent;                                                                              \
    static ::System::TMetaClass* ClassRecord();                                                              \
                                                                                                             \
protected:                                                                                                   \
    ::System::TMetaClass* OwnClass() const override                                                          \
    {                                                                                                        \
        return ClassRecord();                                                                                \
    }                                                                                                        \
                                                                                                             \
private:

/// A class of which the run time has a record of its own.
template <class T>
concept DescribedClass = std::derived_from<T, TObject> && std::same_as<typename T::ThisClass, T>;

/// The record of the class `T`.
template <class T>
TMetaClass* ClassOf()
{
    static_assert(DescribedClass<T>, "the class lacks TRS8_BTL_CLASS in its body");
    return T::ClassRecord();
}

/// A published field: the place in an owner that points to one of its components.
struct TFieldInfo
{
    UnicodeString Name;
    /// A function, because the classes of two forms may name each other.
    TMetaClass* (*FieldClass)();
    /// Sets the field of `owner` to `value`; nothing happens if either is of another class.
    std::function<void(TObject* owner, TObject* value)> Assign;
};

/// The record of one class. There is exactly one per class, made at the first use of it and living to the end
/// of the process; it never changes after that, so any thread may read it.
class TRS8_BTL_API TMetaClass final : public TObject
{
    TRS8_BTL_CLASS(TMetaClass, TObject)

public:
    /// What a `GClassBuilder` gathers.
    struct Description
    {
        UnicodeString name;
        TMetaClass* parent = nullptr;
        std::function<std::unique_ptr<TObject>()> create;
        std::function<Classes::TComponent*(Classes::TComponent* owner)> createOwned;
        std::vector<Typinfo::TPropInfo> properties;
        std::vector<std::pair<UnicodeString, TMethodAddress>> methods;
        std::vector<TFieldInfo> fields;
        const void* moduleAddress = nullptr;
        std::span<const Byte> formResource;
    };

    explicit TMetaClass(Description&& description);
    ~TMetaClass() override;

    const UnicodeString& getName() const noexcept { return mDescription.name; }
    /// Null for `TObject`.
    TMetaClass* getParent() const noexcept { return mDescription.parent; }
    /// Whether this is `type` or derives from it; false for null.
    bool Inherits(const TMetaClass* type) const noexcept;
    const Typinfo::TTypeInfo* TypeInfo() const noexcept { return mTypeInfo.get(); }

    /// A new object of the class; null if the class is abstract or can't be made without arguments.
    std::unique_ptr<TObject> Create() const;
    /// A new component, which belongs to `owner` or, if that is null, to the caller; null if the class is no
    /// component or abstract.
    Classes::TComponent* Create(Classes::TComponent* owner) const;

    /// All published properties: those of the parent first, each in the order of its description. A property
    /// that a class describes again stands in the place of the parent's.
    const std::vector<Typinfo::TPropInfo*>& Properties() const noexcept { return mProperties; }
    /// Case aside; null if there is none.
    Typinfo::TPropInfo* FindProperty(const UnicodeString& name) const;
    /// The published method of this class or its parents, case aside; null if there is none.
    TMethodAddress FindMethod(const UnicodeString& name) const;
    /// The name of a published method; empty if it isn't published.
    UnicodeString FindMethodName(const TMethodAddress& method) const;
    /// The fields that this class itself publishes, without those of its parents.
    const std::vector<TFieldInfo>& Fields() const noexcept { return mDescription.fields; }
    /// The field of this class or its parents, case aside; null if there is none.
    const TFieldInfo* FindField(const UnicodeString& name) const;

    /// An address in the module that declares the class.
    const void* ModuleAddress() const noexcept { return mDescription.moduleAddress; }
    /// The class's own form resource; empty if it has none. Lives as long as the module.
    std::span<const Byte> FormResource() const noexcept { return mDescription.formResource; }

private:
    struct NameIndex;

    Description mDescription;
    std::unique_ptr<Typinfo::TTypeInfo> mTypeInfo;
    std::vector<Typinfo::TPropInfo*> mProperties;
    std::unique_ptr<NameIndex> mIndex;
};

/// `object` as a `T`; null for null. Raises `Sysutils::EInvalidCast` if it is none.
template <class T>
T* CheckedCast(TObject* object);

namespace Detail
{

[[noreturn]] TRS8_BTL_API void ThrowInvalidCast();
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

template <class T>
T& FromMethodData(void* data)
{
    if constexpr (std::derived_from<T, TObject>) {
        T* object = CheckedCast<T>(static_cast<TObject*>(data));
        if (object == nullptr) {
            ThrowInvalidCast();
        }
        return *object;
    } else {
        return *static_cast<T*>(data);
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
        return std::invoke(mMember, FromMethodData<T>(data), std::forward<Args>(args)...);
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
        return std::invoke(mCallable, std::forward<Args>(args)...);
    }

private:
    mutable Callable mCallable;
};

template <class Member>
struct MemberTraits;

template <class R, class T, class... Args>
struct MemberTraits<R (T::*)(Args...)>
{
    using Class = T;
    using Signature = R(Args...);
};
template <class R, class T, class... Args>
struct MemberTraits<R (T::*)(Args...) const> : MemberTraits<R (T::*)(Args...)>
{
};
template <class R, class T, class... Args>
struct MemberTraits<R (T::*)(Args...) noexcept> : MemberTraits<R (T::*)(Args...)>
{
};
template <class R, class T, class... Args>
struct MemberTraits<R (T::*)(Args...) const noexcept> : MemberTraits<R (T::*)(Args...)>
{
};

template <class Member>
concept MemberFunction = std::is_member_function_pointer_v<Member>;

template <MemberFunction Member>
TMethodAddress MakeMethodAddress(Member member)
{
    using Traits = MemberTraits<Member>;
    return std::make_shared<GMemberCode<typename Traits::Class, Member, typename Traits::Signature>>(member);
}

} // namespace Detail

/// What an event holds: a member function with its object, or any callable. A small value; copies share the
/// callable. It doesn't own the object, so the object must outlive the last call.
template <class R, class... Args>
class TClosure<R(Args...)>
{
public:
    using Signature = R(Args...);

    TClosure() noexcept = default;
    TClosure(std::nullptr_t) noexcept {}

    /// A null `object` or `member` gives the empty closure.
    template <class T, Detail::MemberFunction Member>
    requires(std::same_as<typename Detail::MemberTraits<Member>::Signature, Signature>&&
                 std::derived_from<T, typename Detail::MemberTraits<Member>::Class>)
        TClosure(T* object, Member member)
    {
        if (object != nullptr && member != nullptr) {
            using Class = typename Detail::MemberTraits<Member>::Class;
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
        mMethod.Code = std::make_shared<Detail::GCallableCode<Callable, Signature>>(std::move(callable));
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

    const TMethod& AsMethod() const noexcept { return mMethod; }

    explicit operator bool() const noexcept { return static_cast<bool>(mMethod); }
    friend bool operator==(const TClosure& a, const TClosure& b) noexcept { return a.mMethod == b.mMethod; }
    friend bool operator==(const TClosure& a, std::nullptr_t) noexcept { return !a.mMethod; }

    /// Raises `Sysutils::Exception` if the closure is empty, `Sysutils::EInvalidCast` if the object isn't of
    /// the method's class. The closure may be changed or destroyed by what it calls.
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

template <class T>
T* CheckedCast(TObject* object)
{
    T* result = dynamic_cast<T*>(object);
    if (result == nullptr && object != nullptr) {
        Detail::ThrowInvalidCast();
    }
    return result;
}

} // namespace System

namespace Classes
{

/// The closure of most events: the argument is the object that sends it.
using TNotifyEvent = System::TClosure<void(System::TObject*)>;

} // namespace Classes
