// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Object.h"

#include <functional>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace Typinfo
{
class TPropInfo;
} // namespace Typinfo

namespace Classes
{
class TComponent;
} // namespace Classes

namespace System
{

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
///
///     const TMetaClass* const type = ClassOf<TGauge>();
///     const std::unique_ptr<TObject> made = type->Create();
///     for (const Typinfo::TPropInfo* property : type->Properties()) { ... }
class TRS8_BTL_API TMetaClass final : public TObject
{
    TRS8_BTL_CLASS(TMetaClass, TObject)

public:
    /// What a `GClassBuilder` gathers.
    struct TDescription
    {
        UnicodeString name;
        TMetaClass* parent = nullptr;
        /// The bytes of an object, and what makes one in storage of that size; null for a class that can't
        /// be made in that way.
        std::size_t instanceSize = 0;
        TObject* (*construct)(void* storage) = nullptr;
        Classes::TComponent* (*constructOwned)(void* storage, Classes::TComponent* owner) = nullptr;
        std::unique_ptr<TObject> (*createStandIn)() = nullptr;
        std::vector<Typinfo::TPropInfo> properties;
        std::vector<std::pair<UnicodeString, TMethodAddress>> methods;
        std::vector<TFieldInfo> fields;
        const void* moduleAddress = nullptr;
        std::span<const Byte> formResource;
    };

    explicit TMetaClass(TDescription&& description);
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

    /// A new object for a kept property of this class, see `TObject::SetClassType`: what the description
    /// says, or as `Create`.
    std::unique_ptr<TObject> CreateStandIn() const;

    // The steps of `Create` one by one, for who makes an object in the storage of one of another class.
    //
    //     void* const storage = ::operator new(type->InstanceSize());
    //     TObject* object = type->InitInstance(storage);              // bare: its class is all that it has
    //     object->~TObject();
    //     object = type->Construct(storage);                          // delete frees the storage

    /// The bytes of storage that an object of the class needs, aligned as `::operator new` does.
    std::size_t InstanceSize() const noexcept;
    /// A bare object at the begin of `storage`, which appears as one of this class. It can be asked for its
    /// class and destroyed. The rest of the storage is filled with 0.
    TObject* InitInstance(void* storage) const;
    /// The class whose `InitInstance` made `object`; null for an object that isn't bare.
    static const TMetaClass* StorageOf(const TObject& object);
    /// As the `Create` of these arguments, in storage of `InstanceSize()` bytes or more. The storage stays
    /// the caller's if that gives null or raises; else the object's `delete` frees it.
    TObject* Construct(void* storage) const;
    Classes::TComponent* Construct(void* storage, Classes::TComponent* owner) const;

    /// All published properties: those of the parent first, each in the order of its description. A property
    /// that a class describes again stands in the place of the parent's.
    const std::vector<Typinfo::TPropInfo*>& Properties() const noexcept { return mProperties; }
    /// The published property of that name, of this class or its parents, case aside; null if there is none.
    Typinfo::TPropInfo* FindProperty(std::u16string_view name) const;
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

    TDescription mDescription;
    std::unique_ptr<Typinfo::TTypeInfo> mTypeInfo;
    std::vector<Typinfo::TPropInfo*> mProperties;
    std::unique_ptr<NameIndex> mIndex;
};

} // namespace System
