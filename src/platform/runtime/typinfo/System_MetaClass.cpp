// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_MetaClass.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/Typinfo.h"

#include <algorithm>
#include <cstring>
#include <unordered_map>

namespace System
{

namespace
{

/// A name of ASCII letters in any case, which is looked up without a folded copy of it.
struct TAnyCase
{
    std::u16string_view name;
};

struct TFoldedHash
{
    using is_transparent = void;

    std::size_t operator()(std::u16string_view folded) const { return (*this)(TAnyCase{folded}); }
    std::size_t operator()(TAnyCase text) const
    {
        std::size_t hash = text.name.size();
        for (const WideChar c : text.name) {
            hash = (hash ^ Detail::AsciiLower(c)) * 0x100000001B3U;
        }
        return hash ^ hash >> 32U;
    }
};

struct TFoldedEqual
{
    using is_transparent = void;

    bool operator()(std::u16string_view a, std::u16string_view b) const { return a == b; }
    bool operator()(std::u16string_view folded, TAnyCase text) const
    {
        return std::ranges::equal(folded, text.name, {}, {}, Detail::AsciiLower<WideChar>);
    }
    bool operator()(TAnyCase text, std::u16string_view folded) const { return (*this)(folded, text); }
};

bool IsAscii(std::u16string_view text)
{
    return std::ranges::all_of(text, [](WideChar c) { return c < 0x80; });
}

} // namespace

/// All names of a class and its parents, folded.
struct TMetaClass::NameIndex
{
    template <class T>
    using Map = std::unordered_map<UnicodeString, T, TFoldedHash, TFoldedEqual>;

    template <class T>
    static T Find(const Map<T>& names, std::u16string_view name)
    {
        const auto found =
            IsAscii(name) ? names.find(TAnyCase{name}) : names.find(UnicodeString(name).LowerCase());
        return found == names.end() ? T() : found->second;
    }

    Map<Typinfo::TPropInfo*> properties;
    Map<TMethodAddress> methods;
    Map<const TFieldInfo*> fields;
};

TMetaClass::TMetaClass(TDescription&& description)
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
        property.mClass = this;
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

namespace
{

/// Nothing but its class, in storage that is to become an object of another one.
class CBareObject final : public TObject
{
public:
    explicit CBareObject(TMetaClass* type) noexcept : mClass(type) {}
    const TMetaClass* Storage() const noexcept { return mClass; }

protected:
    TMetaClass* OwnClass() const override { return mClass; }

private:
    TMetaClass* mClass;
};

struct TFreeStorage
{
    void operator()(void* storage) const noexcept { ::operator delete(storage); }
};

/// What `construct` makes in new storage for an object of `type`.
template <class Construct>
auto InNewStorage(const TMetaClass& type, Construct construct)
{
    std::unique_ptr<void, TFreeStorage> storage(::operator new(type.InstanceSize()));
    auto* const made = construct(storage.get());
    if (made != nullptr) {
        static_cast<void>(storage.release());
    }
    return made;
}

} // namespace

std::unique_ptr<TObject> TMetaClass::Create() const
{
    return std::unique_ptr<TObject>(
        InNewStorage(*this, [this](void* storage) { return Construct(storage); }));
}

Classes::TComponent* TMetaClass::Create(Classes::TComponent* owner) const
{
    return InNewStorage(*this, [&](void* storage) { return Construct(storage, owner); });
}

std::unique_ptr<TObject> TMetaClass::CreateStandIn() const
{
    return mDescription.createStandIn == nullptr ? Create() : mDescription.createStandIn();
}

std::size_t TMetaClass::InstanceSize() const noexcept
{
    return std::max(mDescription.instanceSize, sizeof(CBareObject));
}

TObject* TMetaClass::InitInstance(void* storage) const
{
    std::memset(storage, 0, InstanceSize());
    // The object has a class as others have, which may be written to; the record itself never is.
    return new (storage) CBareObject(const_cast<TMetaClass*>(this));
}

const TMetaClass* TMetaClass::StorageOf(const TObject& object)
{
    const auto* const bare = dynamic_cast<const CBareObject*>(&object);
    return bare == nullptr ? nullptr : bare->Storage();
}

TObject* TMetaClass::Construct(void* storage) const
{
    return mDescription.construct == nullptr ? nullptr : mDescription.construct(storage);
}

Classes::TComponent* TMetaClass::Construct(void* storage, Classes::TComponent* owner) const
{
    return mDescription.constructOwned == nullptr ? nullptr : mDescription.constructOwned(storage, owner);
}

Typinfo::TPropInfo* TMetaClass::FindProperty(std::u16string_view name) const
{
    return NameIndex::Find(mIndex->properties, name);
}

TMethodAddress TMetaClass::FindMethod(const UnicodeString& name) const
{
    return NameIndex::Find(mIndex->methods, name);
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
    return NameIndex::Find(mIndex->fields, name);
}

} // namespace System
