// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_Object.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/Typinfo.h"

#include <algorithm>
#include <unordered_map>

namespace Sysutils
{

EInvalidCast::~EInvalidCast() = default;

} // namespace Sysutils

namespace System
{

namespace Detail
{

void ThrowInvalidCast()
{
    throw Sysutils::EInvalidCast(u"Invalid class typecast");
}

void ThrowEmptyClosure()
{
    throw Sysutils::Exception(u"An event without a method was called.");
}

} // namespace Detail

TMethodCode::~TMethodCode() = default;

bool TMethod::Equal(const TMethod& a, const TMethod& b) noexcept
{
    const bool sameCode = a.Code == b.Code || (a.Code && b.Code && a.Code->Equals(*b.Code));
    return sameCode && a.Data == b.Data;
}

TObject::~TObject() = default;

TMetaClass* TObject::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TObject>(u"TObject").Build();
    return record;
}

TMetaClass* TObject::OwnClass() const
{
    return ClassRecord();
}

const UnicodeString& TObject::ClassName() const
{
    return ClassType()->getName();
}

TMetaClass* TObject::ClassParent() const
{
    return ClassType()->getParent();
}

const Typinfo::TTypeInfo* TObject::ClassInfo() const
{
    return ClassType()->TypeInfo();
}

bool TObject::InheritsFrom(const TMetaClass* type) const
{
    return ClassType()->Inherits(type);
}

TMethodAddress TObject::MethodAddress(const UnicodeString& name) const
{
    return ClassType()->FindMethod(name);
}

UnicodeString TObject::MethodName(const TMethodAddress& method) const
{
    return ClassType()->FindMethodName(method);
}

/// All names of a class and its parents, folded.
struct TMetaClass::NameIndex
{
    template <class T>
    using Map = std::unordered_map<UnicodeString, T>;

    Map<Typinfo::TPropInfo*> properties;
    Map<TMethodAddress> methods;
    Map<const TFieldInfo*> fields;
};

TMetaClass::TMetaClass(Description&& description)
    : mDescription(std::move(description)),
      mTypeInfo(std::make_unique<Typinfo::TTypeInfo>()),
      mIndex(std::make_unique<NameIndex>())
{
    mTypeInfo->Kind = Typinfo::tkClass;
    mTypeInfo->Name = mDescription.name;
    mTypeInfo->ClassType = this;
    if (const TMetaClass* parent = mDescription.parent; parent != nullptr) {
        mProperties = parent->mProperties;
        *mIndex = *parent->mIndex;
    }
    for (Typinfo::TPropInfo& property : mDescription.properties) {
        Typinfo::TPropInfo*& known = mIndex->properties[property.getName().LowerCase()];
        if (known == nullptr) {
            mProperties.push_back(&property);
        } else {
            std::ranges::replace(mProperties, known, &property);
        }
        known = &property;
    }
    for (const auto& [name, method] : mDescription.methods) {
        mIndex->methods[name.LowerCase()] = method;
    }
    for (const TFieldInfo& field : mDescription.fields) {
        mIndex->fields[field.Name.LowerCase()] = &field;
    }
}

TMetaClass::~TMetaClass() = default;

TMetaClass* TMetaClass::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TMetaClass>(u"TMetaClass").Build();
    return record;
}

bool TMetaClass::Inherits(const TMetaClass* type) const noexcept
{
    const TMetaClass* ancestor = this;
    while (ancestor != nullptr && ancestor != type) {
        ancestor = ancestor->getParent();
    }
    return ancestor != nullptr;
}

std::unique_ptr<TObject> TMetaClass::Create() const
{
    return mDescription.create ? mDescription.create() : nullptr;
}

Classes::TComponent* TMetaClass::Create(Classes::TComponent* owner) const
{
    return mDescription.createOwned ? mDescription.createOwned(owner) : nullptr;
}

namespace
{

template <class T>
T Lookup(const std::unordered_map<UnicodeString, T>& names, const UnicodeString& name)
{
    const auto found = names.find(name.LowerCase());
    return found == names.end() ? nullptr : found->second;
}

} // namespace

Typinfo::TPropInfo* TMetaClass::FindProperty(const UnicodeString& name) const
{
    return Lookup(mIndex->properties, name);
}

TMethodAddress TMetaClass::FindMethod(const UnicodeString& name) const
{
    return Lookup(mIndex->methods, name);
}

UnicodeString TMetaClass::FindMethodName(const TMethodAddress& method) const
{
    if (method == nullptr) {
        return {};
    }
    for (const TMetaClass* type = this; type != nullptr; type = type->getParent()) {
        for (const auto& [name, known] : type->mDescription.methods) {
            if (known->Equals(*method)) {
                return name;
            }
        }
    }
    return {};
}

const TFieldInfo* TMetaClass::FindField(const UnicodeString& name) const
{
    return Lookup(mIndex->fields, name);
}

} // namespace System
