// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/typinfo/System_Method.h"

#include <concepts>
#include <new>

namespace Typinfo
{
class TPropInfo;
struct TTypeInfo;
} // namespace Typinfo

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

namespace Detail
{

struct TShownClass;

} // namespace Detail

/// The root of all classes that know at run time what they are.
///
///     class TGauge : public System::TObject
///     {
///         TRS8_BTL_CLASS(TGauge, System::TObject)
///     };                                                          // its source has `TGauge::ClassRecord`
///     gauge.ClassName();                                          // "TGauge"
class TRS8_BTL_API TObject
{
public:
    TObject() noexcept = default;
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;
    virtual ~TObject();

    /// The class of this object: the one it was made of, unless `SetClassType` replaced it. Never null. While
    /// a constructor or destructor runs it is the class of that constructor.
    TMetaClass* ClassType() const { return mShown == nullptr ? OwnClass() : ShownClass(); }
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
    /// it runs stays that of the class it was made of. The published properties of classes that derive from
    /// that one are kept beside the object, without their accessors: each has its default until it is
    /// written, and goes with the object, or when `type` is null. Methods of these classes do nothing when an
    /// event calls them.
    void SetClassType(TMetaClass* type);
    /// Whether `SetClassType` gave the object its class, if only the one that it was made of.
    bool HasSetClass() const noexcept { return mShown != nullptr; }
    /// Whether the object was made of `type` or a class that derives from it, whatever it appears as; false
    /// for null.
    bool IsMadeOf(const TMetaClass* type) const;

    // An object may lie in storage that was made for one of a larger class, so its own size isn't told to who
    // frees that.

    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void* operator new(std::size_t size, const std::nothrow_t& tag) noexcept
    {
        return ::operator new(size, tag);
    }
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* storage) noexcept { ::operator delete(storage); }
    static void operator delete(void* storage, const std::nothrow_t&) noexcept { ::operator delete(storage); }
    static void operator delete(void*, void*) noexcept {}

    static TMetaClass* ClassRecord();
    using ThisClass = TObject;
    using ParentClass = void;

protected:
    virtual TMetaClass* OwnClass() const;

private:
    friend class Typinfo::TPropInfo;

    TMetaClass* ShownClass() const noexcept;

    Detail::TShownClass* mShown = nullptr;
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

namespace Detail
{

[[noreturn]] TRS8_BTL_API void ThrowInvalidCast();

} // namespace Detail

/// `object` as a `T`; null for null. Raises `Sysutils::EInvalidCast` if it is none.
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
