// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Closure.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/Typinfo.h"

#include <functional>
#include <memory>

namespace System
{

namespace Detail
{

/// Whether all are classes that the object was made of.
template <class... Classes>
bool IsEach(const TObject& object)
{
    return ((dynamic_cast<const Classes*>(&object) != nullptr) && ...);
}

template <class Value>
Typinfo::TPropValue RoundedTo(const Typinfo::TPropValue& value)
{
    using Traits = Typinfo::GPropTraits<Value>;
    return Traits::ToValue(Traits::FromValue(value));
}

/// A member function that objects of the class `T` have as a `TObject`. The object of a method is found again
/// from that.
template <class Member, class T>
concept MethodOf =
    MemberFunction<Member> && std::derived_from<typename GMemberTraits<Member>::Class, TObject> &&
    std::derived_from<T, typename GMemberTraits<Member>::Class>;

} // namespace Detail

/// Describes the class `T`, once, in its own source file:
///
///     System::TMetaClass* TGauge::ClassRecord()
///     {
///         static System::TMetaClass* const record =
///             System::GClassBuilder<TGauge>(u"TGauge")
///                 .Property(u"Value", &TGauge::getValue, &TGauge::setValue, {.defaultValue = 0})
///                 .Property(u"OnChange", &TGauge::OnChange)
///                 .Method(u"Reset", &TGauge::Reset)
///                 .Build();
///         return record;
///     }
template <class T>
class GClassBuilder
{
    static_assert(DescribedClass<T>, "the class lacks TRS8_BTL_CLASS in its body");

public:
    explicit GClassBuilder(const UnicodeString& name)
    {
        mDescription.name = name;
        if constexpr (!std::is_void_v<typename T::ParentClass>) {
            static_assert(std::derived_from<T, typename T::ParentClass>);
            mDescription.parent = ClassOf<typename T::ParentClass>();
        }
        mDescription.moduleAddress = reinterpret_cast<const void*>(&T::ClassRecord);
        mDescription.type = &typeid(T);
        static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__,
                      "storage of described classes has the usual alignment");
        mDescription.instanceSize = sizeof(T);
        if constexpr (std::is_default_constructible_v<T>) {
            mDescription.construct = [](void* storage) -> TObject* { return ::new (storage) T(); };
        }
        if constexpr (std::is_base_of_v<Classes::TComponent, T> &&
                      std::is_constructible_v<T, Classes::TComponent*>) {
            mDescription.constructOwned = [](void* storage,
                                             Classes::TComponent* owner) -> Classes::TComponent* {
                return ::new (storage) T(owner);
            };
        }
    }

    /// A property behind a getter and a setter. Each is a member function, or any function that takes a `T`
    /// first; the getter is called for a const one. Where both are members of parents, they also run on what
    /// only appears as a `T`.
    template <class Getter, class Setter>
    requires(!std::same_as<Setter, Typinfo::TPropOptions>) GClassBuilder& Property(
        const UnicodeString& name, Getter getter, Setter setter, Typinfo::TPropOptions options = {})
    {
        using Value = ValueOf<Getter>;
        static_assert(std::invocable<Setter, T&, Value>,
                      "the setter of the property doesn't take what its getter gives");
        return Add<Value>(
            name, ReaderOf(getter),
            [setter](TObject* object, const Typinfo::TPropValue& value) {
                std::invoke(setter, Cast<OwnerOf<Setter>>(object),
                            Typinfo::GPropTraits<Value>::FromValue(value));
            },
            std::move(options), ShownAccess<Value, OwnerOf<Getter>, OwnerOf<Setter>>());
    }

    /// A property behind a getter alone, which can't be written; or a member variable, which can.
    template <class Getter>
    GClassBuilder& Property(const UnicodeString& name, Getter getter, Typinfo::TPropOptions options = {})
    {
        using Value = ValueOf<Getter>;
        using Owner = OwnerOf<Getter>;
        if constexpr (std::is_member_object_pointer_v<Getter>) {
            return Add<Value>(
                name, ReaderOf(getter),
                [getter](TObject* object, const Typinfo::TPropValue& value) {
                    std::invoke(getter, Cast<Owner>(object)) = Typinfo::GPropTraits<Value>::FromValue(value);
                },
                std::move(options), ShownAccess<Value, Owner>());
        } else {
            return Add<Value>(name, ReaderOf(getter), {}, std::move(options), {.runsOn = RunsOn<Owner>()});
        }
    }

    /// A published method, to be found by its name: of the class, or of a parent that is a `TObject`.
    template <Detail::MethodOf<T> Member>
    GClassBuilder& Method(const UnicodeString& name, Member member)
    {
        mDescription.methods.emplace_back(name, Detail::MakeMethodAddress(member));
        return *this;
    }

    /// As a member function, but one that also runs on objects that only appear as a `T`: a function that
    /// takes the object first, as a class that they are made of.
    template <class R, class Self, class... Args>
    requires std::derived_from<T, Self> GClassBuilder& Method(const UnicodeString& name,
                                                              R (*function)(Self*, Args...))
    {
        mDescription.methods.emplace_back(name, Detail::MakeMethodAddress(function));
        return *this;
    }

    /// What a property of this class holds for an object whose constructor, which would make it, didn't run,
    /// see `TObject::SetClassType`. For a class that can't be made without arguments.
    GClassBuilder& StandIn(std::unique_ptr<TObject> (*create)())
    {
        mDescription.createStandIn = create;
        return *this;
    }

    /// A published field: it points to the component of that name while the object owns one.
    template <class Class, class Component>
    GClassBuilder& Field(const UnicodeString& name, Component* Class::*field)
    {
        mDescription.fields.push_back({name, &ClassOf<Component>, [field](TObject* owner, TObject* value) {
                                           auto* object = dynamic_cast<T*>(owner);
                                           auto* typed = dynamic_cast<Component*>(value);
                                           if (object != nullptr && (typed != nullptr || value == nullptr)) {
                                               object->*field = typed;
                                           }
                                       }});
        return *this;
    }

    /// The form resource of the class; `resource` must live as long as the module.
    GClassBuilder& Resource(std::span<const Byte> resource)
    {
        mDescription.formResource = resource;
        return *this;
    }

    /// Whether components of this very class are told, by `Notification`, of each component that comes to
    /// their owner; they are at first. False spares the call where it would do nothing, so that many may come
    /// to an owner that has many. Derived classes are told all the same, until they say likewise.
    GClassBuilder& HearsInsertions(bool hears)
    {
        mDescription.hearsInsertions = hears;
        return *this;
    }

    /// The record. It is never destroyed: objects of static lifetime may outlive any record that were.
    TMetaClass* Build() { return new TMetaClass(std::move(mDescription)); }

private:
    template <class Getter, bool IsGetter = std::invocable<Getter, const T&>>
    struct GResultOf
    {
        static_assert(IsGetter, "the getter of the property must take a const object: a member function that "
                                "is const, or a member of the class");
        using Type = int;
    };
    template <class Getter>
    struct GResultOf<Getter, true>
    {
        using Type = std::remove_cvref_t<std::invoke_result_t<Getter, const T&>>;
    };

    template <class Value>
    struct GCheckedValue
    {
        static_assert(!std::derived_from<Value, TObject>,
                      "a property of an object is a pointer to it: give a getter of the object's address");
        static_assert(!std::is_enum_v<Value> || Typinfo::DescribedEnum<Value>,
                      "the enumeration of the property lacks a specialisation of Typinfo::GEnumType");
        static_assert(Typinfo::PropertyType<Value>,
                      "the type of the property lacks a specialisation of Typinfo::GPropTraits");
        using Type = Value;
    };
    /// The type of a property, or a compile error that tells what it lacks.
    template <class Getter>
    using ValueOf = typename GCheckedValue<typename GResultOf<Getter>::Type>::Type;

    template <class Accessor>
    struct GOwnerOf
    {
        using Type = T;
    };
    template <class Member, std::derived_from<TObject> Class>
    struct GOwnerOf<Member Class::*>
    {
        using Type = Class;
    };
    /// The class that the accessor is a member of, a `TObject`; else `T` itself.
    template <class Accessor>
    using OwnerOf = typename GOwnerOf<Accessor>::Type;

    /// `object` as an `Owner`, which is `T` or a parent: an object of that class that only appears as a `T`
    /// is one too.
    template <class Owner, class Object>
    static auto& Cast(Object* object)
    {
        using Target = std::conditional_t<std::is_const_v<Object>, const T, T>;
        auto* const whole = dynamic_cast<Target*>(object);
        std::conditional_t<std::is_const_v<Object>, const Owner, Owner>* result = whole;
        if constexpr (!std::same_as<Owner, T>) {
            if (result == nullptr && object != nullptr && object->HasSetClass()) {
                result = dynamic_cast<decltype(result)>(object);
            }
        }
        if (result == nullptr) {
            Typinfo::Detail::ThrowBadObject();
        }
        return *result;
    }

    /// Whether accessors of these classes run on an object; null if they need a `T`.
    template <class... Owners>
    static constexpr auto RunsOn() -> bool (*)(const TObject&)
    {
        if constexpr ((std::same_as<Owners, T> || ...)) {
            return nullptr;
        } else {
            return &Detail::IsEach<Owners...>;
        }
    }

    template <class Value, class... Owners>
    static constexpr Typinfo::Detail::TShownAccess ShownAccess()
    {
        if constexpr (std::is_pointer_v<Value>) {
            return {.runsOn = RunsOn<Owners...>()};
        } else {
            return {.runsOn = RunsOn<Owners...>(), .rounded = &Detail::RoundedTo<Value>};
        }
    }

    template <class Getter>
    static Typinfo::TPropInfo::Reader ReaderOf(Getter getter)
    {
        return [getter](const TObject* object) {
            return Typinfo::GPropTraits<ValueOf<Getter>>::ToValue(
                std::invoke(getter, Cast<OwnerOf<Getter>>(object)));
        };
    }

    template <class Value>
    GClassBuilder& Add(const UnicodeString& name, Typinfo::TPropInfo::Reader read,
                       Typinfo::TPropInfo::Writer write, Typinfo::TPropOptions options,
                       Typinfo::Detail::TShownAccess shown)
    {
        mDescription.properties.emplace_back(name, &Typinfo::TypeInfoOf<Value>, std::move(read),
                                             std::move(write), std::move(options), shown);
        return *this;
    }

    TMetaClass::TDescription mDescription;
};

} // namespace System
