// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_CVariantImp.h"
#include "platform/runtime/variants/System_Variant.h"

#include <concepts>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace UTL
{

/// A small value that knows its type: nothing, a bool, an integer of 32 or 64 bits, a double, a date, text of
/// both widths or an array of such values. Copies are deep. An argument of an assignment may be a piece of
/// the value itself. Arrays nest as deep as `CVariants` allows.
///
/// A conversion that can't be done raises `Sysutils::EVariantError`; the forms with a default give that
/// instead. The rules:
/// - Null is false, 0, the day 0 and the empty text.
/// - A float is cut to an integer; beyond the range it gives the nearest limit, and NaN gives 0. A 64-bit
///   integer gives its low 32 bits.
/// - A bool is no date.
/// - Numbers are written as by `Sysutils::FloatToStr`, dates as by `Sysutils::DateTimeToStr`, a bool
///   as "1" or "0". To 8-bit text, characters outside the code page become `?`.
/// - Text is a bool only if it is "0" or "1". It is read by `BTL::ToInt`, `BTL::StrToInt64`, `BTL::ToDouble`
///   and `BTL::StrToDateTime`; what the last raises passes through, also where a default is given.
/// - An array with exactly one item converts as this does, but is no date.
///
///     UTL::CVariant value = 2.5;
///     const int whole = value.ToInt();               // 2
///     value = System::UnicodeString(u"none");
///     const double number = value.ToDoubleDef(0);    // 0
class TRS8_BTL_API CVariant
{
public:
    /// Null.
    CVariant() noexcept = default;
    CVariant(std::nullptr_t) noexcept {}
    CVariant(const CVariant& other);
    /// Leaves `other` null.
    CVariant(CVariant&& other) noexcept { Swap(other); }
    /// A `bool` itself: a pointer must not turn into one.
    template <std::same_as<bool> T>
    CVariant(T value) noexcept : mImp(GetImp(vdtBool))
    {
        mData.Bool = value;
    }
    CVariant(int value) noexcept : mImp(GetImp(vdtInt)) { mData.Int = value; }
    CVariant(System::Int64 value) noexcept : mImp(GetImp(vdtInt64)) { mData.Int64 = value; }
    /// Any other integer is an `int` if that holds its type, else an `Int64`.
    template <System::TextInteger T>
    requires(sizeof(T) < sizeof(System::Int64) || std::is_signed_v<T>) CVariant(T value)
    noexcept
        : CVariant(static_cast<std::conditional_t<sizeof(T) < sizeof(int) ||
                                                      (sizeof(T) == sizeof(int) && std::is_signed_v<T>),
                                                  int, System::Int64>>(value))
    {
    }
    CVariant(System::WideChar) = delete;
    CVariant(double value) noexcept : mImp(GetImp(vdtDouble)) { mData.Double = value; }
    CVariant(const System::TDateTime& value) noexcept : mImp(GetImp(vdtDateTime)) { mData.Days = value.Val; }
    /// A null pointer gives null, any other text, also an empty one, a text.
    CVariant(const char* value);
    CVariant(const System::WideChar* value);
    /// The null state of the string gives the empty text.
    CVariant(const CSimpleString& value);
    CVariant(const System::AnsiString& value);
    CVariant(const System::UnicodeString& value);
    /// Wide text; bytes are UTF-8.
    template <System::StandardText T>
    CVariant(const T& value) : CVariant(System::ToUnicodeString(value))
    {
    }
    /// As `AssignVariant`.
    CVariant(const System::Variant& value);
    ~CVariant() { mImp->Clear(mData); }

    CVariant& operator=(const CVariant& other) { return *this = CVariant(other); }
    /// Also from all that a variant is made of.
    CVariant& operator=(CVariant&& other) noexcept
    {
        CVariant taken(std::move(other));
        Swap(taken);
        return *this;
    }

    /// What the value holds.
    EVariantDataType Type() const noexcept { return mImp->Type(); }
    /// The behaviour, and the payload that goes with it.
    const AVariantImp& getImp() const noexcept { return *mImp; }
    const UVariantData& getData() const noexcept { return mData; }
    /// Frees the payload and makes the value null.
    void Clear() noexcept { *this = CVariant(); }
    /// Converts the value, which stays as it was if that fails. As an array it is the single item of it.
    /// `Sysutils::EVariantError` for a `target` that is no type.
    void ChangeType(EVariantDataType target);
    /// True for a text that `BTL::IsDouble` accepts and for all other types but the array.
    bool IsDouble() const;

    /// Makes the value an empty array, unless it is an array already.
    void CreateArray();
    /// Appends to the array; what was none becomes an empty one before. An item too deep changes nothing.
    void AddItem(const CVariant& item);
    /// Replaces the items. A null pointer and a negative `count` give none.
    void SetItems(const int* items, int count);
    void SetItems(const double* items, int count);
    /// The elements of an array of one dimension, or the value that is no array, become the items.
    /// `Sysutils::EVariantError` for more dimensions and for values that no `CVariant` takes.
    void SetItems(const System::Variant& items);
    /// The count of items of an array, else 0; a copy of an item; an item set. `Sysutils::EVariantError` for
    /// an item of what is no array; an `index` outside is an internal fault, and gives null or sets nothing
    /// if the user lets that pass.
    int GetCount() const { return mImp->GetCount(mData); }
    CVariant GetItem(int index) const { return mImp->GetItem(mData, index); }
    void SetItem(int index, const CVariant& value) { mImp->SetItem(mData, index, value); }

    /// The value in the type named, by the rules of the class; `Sysutils::EVariantError` if it can't be
    /// had.
    bool ToBool() const;
    int ToInt() const;
    System::Int64 ToInt64() const;
    double ToDouble() const;
    System::TDateTime ToDateTime() const;
    System::AnsiString ToAString() const;
    System::UnicodeString ToWString() const;
    System::UnicodeString ToString() const;
    /// A value of the like type; of an array, one of `varVariant` from 0.
    System::Variant ToVariant() const;

    /// The value in the type named, by the rules of the class; `defaultValue` if it can't be had.
    bool ToBoolDef(bool defaultValue) const;
    int ToIntDef(int defaultValue) const;
    System::Int64 ToInt64Def(System::Int64 defaultValue) const;
    double ToDoubleDef(double defaultValue) const;
    System::TDateTime ToDateTimeDef(const System::TDateTime& defaultValue) const;
    System::AnsiString ToStringDefA(const System::AnsiString& defaultValue) const;
    System::UnicodeString ToStringDef(const System::UnicodeString& defaultValue) const;

    /// Where a constructor has a choice, as that of `AnsiString`, take the functions.
    operator System::AnsiString() const { return ToAString(); }
    operator System::UnicodeString() const { return ToWString(); }
    operator System::Variant() const { return ToVariant(); }

    /// A null pointer gives null, else the text of `length` characters, zeros included. A negative `length`
    /// counts as 0.
    void AssignString(const char* text, int length);
    void AssignString(const System::WideChar* text, int length);
    /// Empty and Null give null. A single gives its rounded integer, money a double, text of any width wide
    /// text, an array an array. Small, unsigned and other types raise `Sysutils::EVariantError`, and so does
    /// a value that the result can't hold; the value stays then.
    void AssignVariant(const System::Variant& value) { *this = CVariant(value); }

    /// As `AVariantImp::WriteTo`.
    void WriteTo(BTL::COutStream& stream) const { mImp->WriteTo(mData, stream); }

    /// The behaviour of a type, never null; it is ready before any static initialisation and outlives all
    /// static objects. A code that is no type gives that of null.
    static const AVariantImp* GetImp(EVariantDataType type) noexcept;

private:
    /// Takes over the list.
    explicit CVariant(CVariants&& items);

    void Swap(CVariant& other) noexcept
    {
        std::swap(mData, other.mData);
        std::swap(mImp, other.mImp);
    }
    void SetText(const char* text, std::size_t length);
    void SetText(const System::WideChar* text, std::size_t length);
    template <class T>
    T Get(bool (AVariantImp::*convert)(const UVariantData&, T&) const, const char* error) const;
    template <class T>
    T GetDef(bool (AVariantImp::*convert)(const UVariantData&, T&) const, const T& defaultValue) const;

    UVariantData mData;
    const AVariantImp* mImp = GetImp(vdtNull);
};

} // namespace UTL
