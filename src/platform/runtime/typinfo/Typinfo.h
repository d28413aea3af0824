// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/runtime/typinfo/System_Closure.h"
#include "platform/runtime/variants/System_Variant.h"

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>

namespace Typinfo
{

/// A property that doesn't exist, or isn't of the kind that the call reads or writes.
class TRS8_BTL_API EPropertyError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EPropertyError() override;
};

/// A value that the property's type can't hold.
class TRS8_BTL_API EPropertyConvertError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EPropertyConvertError() override;
};

/// What kind a type is. Properties of C++ types have these:
/// - `tkInteger`: integers up to 32 bits, `tkInt64`: those of 64
/// - `tkChar`, `tkWChar`: a `char`, a `WideChar`
/// - `tkEnumeration`: `bool` and described enumerations, `tkSet`: sets of them
/// - `tkFloat`: floats, dates and money
/// - `tkUString`: `UnicodeString` and `std::string`, `tkLString`: 8-bit text
/// - `tkVariant`: variants, `tkClass`: pointers to objects, `tkMethod`: closures.
///
/// The others are for types that a program describes itself; `tkUnknown` is the kind of what isn't there.
enum TTypeKind
{
    tkUnknown,
    tkInteger,
    tkChar,
    tkEnumeration,
    tkFloat,
    tkString,
    tkSet,
    tkClass,
    tkMethod,
    tkWChar,
    tkLString,
    tkWString,
    tkVariant,
    tkArray,
    tkRecord,
    tkInterface,
    tkInt64,
    tkDynArray,
    tkUString
};

/// What a type of the kind `tkFloat` is made of: a `float`, a `double`, a `long double`, or money with
/// `ftCurr`. A date is a `double`. `ftComp` no type here has.
enum TFloatType
{
    ftSingle,
    ftDouble,
    ftExtended,
    ftComp,
    ftCurr
};

/// The record of a type that properties have.
struct TTypeInfo
{
    TTypeKind Kind = tkUnknown;
    System::UnicodeString Name;
    /// The limits of an ordinal type; a set's are those of its bits taken as a number.
    System::Int64 MinValue = 0;
    System::Int64 MaxValue = 0;
    /// An enumeration's names, from `MinValue` on.
    std::vector<System::UnicodeString> EnumNames = {};
    TFloatType FloatType = ftDouble;
    /// A class type's class.
    System::TMetaClass* ClassType = nullptr;
    /// The type of a set's elements.
    const TTypeInfo* ElementType = nullptr;
    /// The element that the lowest bit of a set stands for.
    System::Int64 LowestElement = 0;
};

/// A property's value between its accessors and a caller who doesn't know its type: ordinals of all kinds,
/// floats, texts, objects, methods and variants.
using TPropValue = std::variant<System::Int64, System::Extended, System::UnicodeString, System::TObject*,
                                System::TMethod, System::Variant>;

/// A function, because a class's property may have that same class as its type.
using TTypeInfoFunction = const TTypeInfo* (*)();

/// What a description may say of a property beyond its name and accessors.
struct TPropOptions
{
    /// The type record, where the C++ type alone doesn't tell it (as for the integers of a colour).
    TTypeInfoFunction type = nullptr;
    /// The ordinal value that needn't be stored.
    std::optional<System::Int64> defaultValue = {};
    /// Whether an object's value is to be stored at all; empty stands for always.
    std::function<bool(const System::TObject*)> stored = {};
};

namespace Detail
{

/// What a property knows of objects that only appear as one of the class that describes it.
struct TShownAccess
{
    /// Whether its accessors run on the object, being those of a class that it was made of; null for never.
    bool (*runsOn)(const System::TObject& object) = nullptr;
    /// What an accessor would give after `value` was written, and raise for one that doesn't fit; null for
    /// what is written as it is.
    TPropValue (*rounded)(const TPropValue& value) = nullptr;
};

} // namespace Detail

/// The record of a published property. It never changes.
class TRS8_BTL_API TPropInfo
{
public:
    /// What reads a property of an object, and what writes it.
    using Reader = std::function<TPropValue(const System::TObject*)>;
    using Writer = std::function<void(System::TObject*, const TPropValue&)>;

    /// `read` and `write` may be empty.
    TPropInfo(System::UnicodeString name, TTypeInfoFunction type, Reader read, Writer write,
              TPropOptions options, Detail::TShownAccess shown = {});

    const System::UnicodeString& getName() const noexcept { return mName; }
    const TTypeInfo* getPropType() const { return mType(); }
    TTypeKind getKind() const;
    const std::optional<System::Int64>& getDefault() const noexcept { return mOptions.defaultValue; }
    /// Whether the property has a reader, a writer, and whether the object's value is to be stored.
    bool CanRead() const noexcept { return static_cast<bool>(mRead); }
    bool CanWrite() const noexcept { return static_cast<bool>(mWrite); }
    bool IsStored(const System::TObject* object) const
    {
        return IsShown(object) ? IsShownStored(*object) : !mOptions.stored || mOptions.stored(object);
    }
    /// The class that describes the property; null before that is complete.
    System::TMetaClass* getClass() const noexcept { return mClass; }

    /// Raise `EPropertyError` if the property can't be read or written or `object` has no such property,
    /// `EPropertyConvertError` for a value that doesn't fit; what a setter raises passes. Of an object that
    /// only appears as one of the class that has the property, see `TObject::SetClassType`, the value is kept
    /// beside it, unless the accessors are those of a class that it was made of: a component is a reference,
    /// which is null when that is gone, and any other persistent object a part of the property's class that
    /// takes over the state of what is written.
    TPropValue Read(const System::TObject* object) const;
    void Write(System::TObject* object, const TPropValue& value) const;

private:
    friend class System::TMetaClass;

    static bool IsShown(const System::TObject* object) noexcept
    {
        return object != nullptr && object->HasSetClass();
    }
    const TPropInfo* AccessorsFor(const System::TObject& object) const;
    bool IsShownStored(const System::TObject& object) const;
    TPropValue ReadShown(const System::TObject& object) const;
    void WriteShown(System::TObject& object, const TPropValue& value) const;
    TPropValue DefaultValue() const;

    System::TMetaClass* mClass = nullptr;
    System::UnicodeString mName;
    TTypeInfoFunction mType;
    Reader mRead;
    Writer mWrite;
    TPropOptions mOptions;
    Detail::TShownAccess mShown;
};

namespace Detail
{

[[noreturn]] TRS8_BTL_API void ThrowBadValue();
[[noreturn]] TRS8_BTL_API void ThrowBadObject();

/// The name of the integer, character and boolean types by width and sign.
TRS8_BTL_API const TTypeInfo* IntegerTypeInfo(std::size_t size, bool isSigned);
TRS8_BTL_API const TTypeInfo* CharTypeInfo(bool wide);
TRS8_BTL_API const TTypeInfo* BooleanTypeInfo();
TRS8_BTL_API const TTypeInfo* FloatTypeInfo(TFloatType type);
TRS8_BTL_API const TTypeInfo* TextTypeInfo(TTypeKind kind);
TRS8_BTL_API const TTypeInfo* DateTimeTypeInfo();
TRS8_BTL_API const TTypeInfo* VariantTypeInfo();
TRS8_BTL_API const TTypeInfo* MethodTypeInfo(const std::type_info& signature);

} // namespace Detail

/// The description of an enumeration whose values follow each other from `first`. To publish properties of
/// an enumeration, specialise this for it with `static TTypeInfo Make()`, as `EnumType` makes it.
template <class E>
struct GEnumType;

/// An enumeration with a `GEnumType`.
template <class E>
concept DescribedEnum = requires
{
    GEnumType<E>::Make();
};

/// The record of an enumeration type.
TRS8_BTL_API TTypeInfo EnumType(const System::UnicodeString& name, std::vector<System::UnicodeString> names,
                                System::Int64 first = 0);

/// How a C++ type stands in properties: its record, and the way from and to `TPropValue`. Specialise it for
/// a type that isn't here.
template <class T>
struct GPropTraits;

template <class T>
requires std::integral<T>
struct GPropTraits<T>
{
    static const TTypeInfo* TypeInfo()
    {
        if constexpr (std::same_as<T, bool>) {
            return Detail::BooleanTypeInfo();
        } else if constexpr (std::same_as<T, char> || std::same_as<T, System::WideChar>) {
            return Detail::CharTypeInfo(sizeof(T) > 1);
        } else {
            return Detail::IntegerTypeInfo(sizeof(T), std::is_signed_v<T>);
        }
    }
    static TPropValue ToValue(T value)
    {
        if constexpr (std::same_as<T, char>) {
            return System::Int64{static_cast<unsigned char>(value)};
        } else {
            return static_cast<System::Int64>(value);
        }
    }
    static T FromValue(const TPropValue& value) { return static_cast<T>(std::get<System::Int64>(value)); }
};

template <class T>
requires std::is_enum_v<T>
struct GPropTraits<T>
{
    static const TTypeInfo* TypeInfo()
    {
        static_assert(DescribedEnum<T>, "the enumeration, or the one that the set is of, lacks a "
                                        "specialisation of Typinfo::GEnumType");
        if constexpr (DescribedEnum<T>) {
            static const auto* const info = new TTypeInfo(GEnumType<T>::Make());
            return info;
        } else {
            return nullptr;
        }
    }
    static TPropValue ToValue(T value) { return static_cast<System::Int64>(value); }
    static T FromValue(const TPropValue& value) { return static_cast<T>(std::get<System::Int64>(value)); }
};

/// A set's ordinal has one bit for each value, the lowest for `Min`.
template <class T, T Min, T Max>
struct GPropTraits<System::Set<T, Min, Max>>
{
    using Set = System::Set<T, Min, Max>;
    static constexpr int Count = static_cast<int>(Max) - static_cast<int>(Min) + 1;
    static_assert(Count < 63, "the set has too many values for an ordinal");

    static const TTypeInfo* TypeInfo()
    {
        static const auto* const info = [] {
            TTypeInfo set{.Kind = tkSet, .Name = u"Set"};
            set.MaxValue = (System::Int64{1} << Count) - 1;
            set.ElementType = GPropTraits<T>::TypeInfo();
            set.LowestElement = static_cast<System::Int64>(Min);
            return new TTypeInfo(std::move(set));
        }();
        return info;
    }
    static TPropValue ToValue(const Set& value)
    {
        System::Int64 bits = 0;
        for (int i = 0; i < Count; ++i) {
            bits |= System::Int64{value.Contains(ValueAt(i))} << i;
        }
        return bits;
    }
    static Set FromValue(const TPropValue& value)
    {
        const System::Int64 bits = std::get<System::Int64>(value);
        Set set;
        for (int i = 0; i < Count; ++i) {
            if ((bits >> i & 1) != 0) {
                set << ValueAt(i);
            }
        }
        return set;
    }

private:
    static T ValueAt(int index) { return static_cast<T>(static_cast<int>(Min) + index); }
};

template <class T>
requires std::floating_point<T>
struct GPropTraits<T>
{
    static const TTypeInfo* TypeInfo()
    {
        return Detail::FloatTypeInfo(std::same_as<T, float>    ? ftSingle
                                     : std::same_as<T, double> ? ftDouble
                                                               : ftExtended);
    }
    static TPropValue ToValue(T value) { return System::Extended{value}; }
    static T FromValue(const TPropValue& value) { return static_cast<T>(std::get<System::Extended>(value)); }
};

template <>
struct GPropTraits<System::UnicodeString>
{
    static const TTypeInfo* TypeInfo() { return Detail::TextTypeInfo(tkUString); }
    static TPropValue ToValue(const System::UnicodeString& value) { return value; }
    static System::UnicodeString FromValue(const TPropValue& value)
    {
        return std::get<System::UnicodeString>(value);
    }
};

/// Text in UTF-8.
template <>
struct GPropTraits<std::string>
{
    static const TTypeInfo* TypeInfo() { return Detail::TextTypeInfo(tkUString); }
    static TPropValue ToValue(const std::string& value) { return System::FromUtf8(value); }
    static std::string FromValue(const TPropValue& value)
    {
        return System::ToUtf8(std::get<System::UnicodeString>(value));
    }
};

template <System::CodePage CP>
struct GPropTraits<System::AnsiStringT<CP>>
{
    static const TTypeInfo* TypeInfo() { return Detail::TextTypeInfo(tkLString); }
    static TPropValue ToValue(const System::AnsiStringT<CP>& value) { return System::UnicodeString(value); }
    static System::AnsiStringT<CP> FromValue(const TPropValue& value)
    {
        return std::get<System::UnicodeString>(value);
    }
};

/// Days, as a float.
template <>
struct GPropTraits<System::TDateTime>
{
    static const TTypeInfo* TypeInfo() { return Detail::DateTimeTypeInfo(); }
    static TPropValue ToValue(System::TDateTime value) { return System::Extended{value.Val}; }
    static System::TDateTime FromValue(const TPropValue& value)
    {
        return static_cast<double>(std::get<System::Extended>(value));
    }
};

/// A float; one beyond the range of the type raises `Sysutils::EIntOverflow`.
template <>
struct GPropTraits<System::Currency>
{
    static const TTypeInfo* TypeInfo() { return Detail::FloatTypeInfo(ftCurr); }
    static TPropValue ToValue(System::Currency value) { return value.AsExtended(); }
    static System::Currency FromValue(const TPropValue& value) { return std::get<System::Extended>(value); }
};

template <>
struct GPropTraits<System::Variant>
{
    static const TTypeInfo* TypeInfo() { return Detail::VariantTypeInfo(); }
    static TPropValue ToValue(const System::Variant& value) { return value; }
    static System::Variant FromValue(const TPropValue& value) { return std::get<System::Variant>(value); }
};

template <class T>
requires std::derived_from<T, System::TObject>
struct GPropTraits<T*>
{
    static const TTypeInfo* TypeInfo() { return System::ClassOf<T>()->TypeInfo(); }
    static TPropValue ToValue(T* value) { return static_cast<System::TObject*>(value); }
    static T* FromValue(const TPropValue& value)
    {
        System::TObject* object = std::get<System::TObject*>(value);
        T* result = dynamic_cast<T*>(object);
        if (result == nullptr && object != nullptr) {
            Detail::ThrowBadValue();
        }
        return result;
    }
};

template <class Signature>
struct GPropTraits<System::TClosure<Signature>>
{
    static const TTypeInfo* TypeInfo() { return Detail::MethodTypeInfo(typeid(Signature)); }
    static TPropValue ToValue(const System::TClosure<Signature>& value) { return value.AsMethod(); }
    static System::TClosure<Signature> FromValue(const TPropValue& value)
    {
        const auto& method = std::get<System::TMethod>(value);
        if (!System::TClosure<Signature>::Fits(method)) {
            Detail::ThrowBadValue();
        }
        return System::TClosure<Signature>(method);
    }
};

/// A type with a `GPropTraits`, so that a property may have it.
template <class T>
concept PropertyType = requires
{
    GPropTraits<T>::TypeInfo();
};

/// The record of the C++ type `T`.
template <class T>
const TTypeInfo* TypeInfoOf()
{
    return GPropTraits<T>::TypeInfo();
}

// Names of properties and enumeration values are compared without regard to case. A null class or object
// has no properties.
//
//     SetOrdProp(gauge, u"value", 7);
//     if (TPropInfo* const info = GetPropInfo(gauge, u"Caption")) {
//         SetStrProp(gauge, info, u"Pressure");
//     }
//     for (const TPropInfo* info : GetPropList(gauge)) { ... }

/// The property of that name; null if there is none.
TRS8_BTL_API TPropInfo* GetPropInfo(const System::TMetaClass* type, const System::UnicodeString& name);
TRS8_BTL_API TPropInfo* GetPropInfo(const System::TObject* object, const System::UnicodeString& name);
/// All properties in the order of the description, the parent's first; or by name if `sorted`.
TRS8_BTL_API std::vector<TPropInfo*> GetPropList(const System::TMetaClass* type, bool sorted = false);
TRS8_BTL_API std::vector<TPropInfo*> GetPropList(const System::TObject* object, bool sorted = false);
TRS8_BTL_API bool IsPublishedProp(const System::TMetaClass* type, const System::UnicodeString& name);
TRS8_BTL_API bool IsPublishedProp(const System::TObject* object, const System::UnicodeString& name);
TRS8_BTL_API bool IsStoredProp(const System::TObject* object, const TPropInfo* info);
/// Whether an ordinal property has the value that its description gives as the default, which a writer may
/// leave out. False for a property without one, or that can't be read.
TRS8_BTL_API bool IsDefaultProp(const System::TObject* object, const TPropInfo* info);
/// The kind of the property of that name; `tkUnknown` if there is none.
TRS8_BTL_API TTypeKind PropType(const System::TObject* object, const System::UnicodeString& name);

// The accessors come by record and by name. They raise `EPropertyError` if there is no such property or it is
// of another kind than the call's, `EPropertyConvertError` if the value doesn't fit the type.

/// Integers, characters, enumerations, sets, and the address of a class property's object.
TRS8_BTL_API System::Int64 GetOrdProp(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::Int64 GetOrdProp(const System::TObject* object, const System::UnicodeString& name);
/// A class property is written by `SetObjectProp` only.
TRS8_BTL_API void SetOrdProp(System::TObject* object, const TPropInfo* info, System::Int64 value);
TRS8_BTL_API void SetOrdProp(System::TObject* object, const System::UnicodeString& name, System::Int64 value);

/// 64-bit integers, and the ordinals of all other kinds but classes.
TRS8_BTL_API System::Int64 GetInt64Prop(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::Int64 GetInt64Prop(const System::TObject* object, const System::UnicodeString& name);
TRS8_BTL_API void SetInt64Prop(System::TObject* object, const TPropInfo* info, System::Int64 value);
TRS8_BTL_API void SetInt64Prop(System::TObject* object, const System::UnicodeString& name,
                               System::Int64 value);

/// Texts of both widths. The call reads and writes wide text; what an 8-bit property lacks becomes `?`.
TRS8_BTL_API System::UnicodeString GetStrProp(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::UnicodeString GetStrProp(const System::TObject* object,
                                              const System::UnicodeString& name);
TRS8_BTL_API void SetStrProp(System::TObject* object, const TPropInfo* info,
                             const System::UnicodeString& value);
TRS8_BTL_API void SetStrProp(System::TObject* object, const System::UnicodeString& name,
                             const System::UnicodeString& value);

/// Floats, dates and amounts.
TRS8_BTL_API System::Extended GetFloatProp(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::Extended GetFloatProp(const System::TObject* object, const System::UnicodeString& name);
TRS8_BTL_API void SetFloatProp(System::TObject* object, const TPropInfo* info, System::Extended value);
TRS8_BTL_API void SetFloatProp(System::TObject* object, const System::UnicodeString& name,
                               System::Extended value);

/// Properties whose type is a variant.
TRS8_BTL_API System::Variant GetVariantProp(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::Variant GetVariantProp(const System::TObject* object, const System::UnicodeString& name);
TRS8_BTL_API void SetVariantProp(System::TObject* object, const TPropInfo* info,
                                 const System::Variant& value);
TRS8_BTL_API void SetVariantProp(System::TObject* object, const System::UnicodeString& name,
                                 const System::Variant& value);

/// Properties that are a pointer to an object; null is a value.
TRS8_BTL_API System::TObject* GetObjectProp(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::TObject* GetObjectProp(const System::TObject* object, const System::UnicodeString& name);
TRS8_BTL_API void SetObjectProp(System::TObject* object, const TPropInfo* info, System::TObject* value);
TRS8_BTL_API void SetObjectProp(System::TObject* object, const System::UnicodeString& name,
                                System::TObject* value);

/// Properties that are a closure, as a method.
TRS8_BTL_API System::TMethod GetMethodProp(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::TMethod GetMethodProp(const System::TObject* object, const System::UnicodeString& name);
TRS8_BTL_API void SetMethodProp(System::TObject* object, const TPropInfo* info, const System::TMethod& value);
TRS8_BTL_API void SetMethodProp(System::TObject* object, const System::UnicodeString& name,
                                const System::TMethod& value);

/// The name of a value of the enumeration; empty for one without a name.
TRS8_BTL_API System::UnicodeString GetEnumName(const TTypeInfo* type, System::Int64 value);
/// The value of that name, case aside; -1 if the enumeration hasn't got it.
TRS8_BTL_API int GetEnumValue(const TTypeInfo* type, const System::UnicodeString& name);

} // namespace Typinfo
