// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_SharedBlock.h"
#include "platform/base/System_String.h"
#include "platform/base/dates/System_DateTime.h"
#include "platform/base/numbers/System_Currency.h"

#include <array>
#include <compare>
#include <concepts>
#include <initializer_list>
#include <iosfwd>
#include <span>
#include <type_traits>
#include <utility>
#include <variant>

namespace System
{

// The codes of the types that a variant holds.

inline constexpr Word varEmpty = 0;
inline constexpr Word varNull = 1;
inline constexpr Word varSmallint = 2;
inline constexpr Word varInteger = 3;
inline constexpr Word varSingle = 4;
inline constexpr Word varDouble = 5;
inline constexpr Word varCurrency = 6;
inline constexpr Word varDate = 7;
/// Wide text, as `varUString`.
inline constexpr Word varOleStr = 8;
/// No variant has this type.
inline constexpr Word varDispatch = 9;
/// No variant has this type.
inline constexpr Word varError = 10;
inline constexpr Word varBoolean = 11;
/// The type of elements that are variants themselves.
inline constexpr Word varVariant = 12;
/// No variant has this type.
inline constexpr Word varUnknown = 13;
/// Here a whole number of 64 bits without a sign.
inline constexpr Word varDecimal = 14;
inline constexpr Word varShortInt = 16;
inline constexpr Word varByte = 17;
inline constexpr Word varWord = 18;
inline constexpr Word varLongWord = 19;
inline constexpr Word varInt64 = 20;
inline constexpr Word varUInt64 = 21;
/// Text of the 8-bit code page.
inline constexpr Word varString = 0x0100;
inline constexpr Word varUString = 0x0102;
/// The bits of the code itself.
inline constexpr Word varTypeMask = 0x0FFF;
/// Added to the code of an array's elements.
inline constexpr Word varArray = 0x2000;
/// No variant has this bit.
inline constexpr Word varByRef = 0x4000;

/// The C++ numbers that a variant holds by their width and sign. `char` is a small number; the wide
/// characters are none.
template <class T>
concept VariantNumber = TextInteger<T> || std::same_as<T, char> || std::floating_point<T>;

/// What a variant converts to.
template <class T>
concept VariantTarget = VariantNumber<T> || std::same_as<T, bool> || std::same_as<T, UnicodeString> ||
    std::same_as<T, AnsiString> || std::same_as<T, TDateTime> || std::same_as<T, Currency>;

/// A value that knows its type. Variants are values: a copy shares the text or the elements of an array until
/// one of the two changes.
///
/// A conversion that can't be done, or whose result the type can't hold, raises `Sysutils::EVariantError` and
/// changes nothing. The rules:
/// - Empty is 0, False, the day 0 and the empty text. Null and an array convert to nothing.
/// - A float becomes an integer by rounding, a half to the even neighbour.
/// - True is -1 as a number, and all bits as an unsigned one; any number but 0 is True.
/// - Text is read and written by `Sysutils::FormatSettings`: numbers as by `StrToFloat` or `StrToInt64`,
///   dates as by `StrToDateTime`, booleans as "True" and "False" in any case, or as numbers. A single has 7
///   digits, a double 15.
/// - To 8-bit text, characters outside the code page become `?`.
///
///     Variant value = u"40";
///     value = value + 2.5;                                        // a text is read: 42.5
///     const UnicodeString text = value;
///     const int whole = value.As<int>();                          // 42: a half goes to the even neighbour
class TRS8_BTL_API Variant
{
public:
    /// Empty, also called unassigned.
    Variant() noexcept = default;
    Variant(const Variant&) = default;
    /// Leaves `other` empty.
    Variant(Variant&& other) noexcept
        : mType(std::exchange(other.mType, varEmpty)), mValue(std::move(other.mValue))
    {
    }
    template <VariantNumber T>
    Variant(T value) noexcept : mType(CodeOf<T>()), mValue(Stored(value))
    {
    }
    template <std::same_as<bool> T>
    Variant(T value) noexcept : mType(varBoolean), mValue(Int64{value})
    {
    }
    Variant(TDateTime value) noexcept : mType(varDate), mValue(value.Val) {}
    Variant(Currency value) noexcept : mType(varCurrency), mValue(value) {}
    Variant(UnicodeString value) noexcept : mType(varUString), mValue(std::move(value)) {}
    Variant(AnsiString value) noexcept : mType(varString), mValue(std::move(value)) {}
    /// Text of any other code page becomes wide text.
    template <CodePage CP>
    requires(CP != DefaultSystemCodePage) Variant(const AnsiStringT<CP>& value)
        : Variant(UnicodeString(value))
    {
    }
    /// Wide text; bytes are UTF-8.
    template <StandardText T>
    Variant(const T& value) : Variant(ToUnicodeString(value))
    {
    }
    /// A null pointer gives the empty text.
    Variant(const WideChar* value) : Variant(UnicodeString(value)) {}
    Variant(const char* value) : Variant(AnsiString(value)) {}
    Variant(WideChar) = delete;
    /// An array; as `CreateArray`.
    Variant(std::initializer_list<int> bounds, Word elementType)
        : Variant(CreateArray({bounds.begin(), bounds.size()}, elementType))
    {
    }
    ~Variant() = default;

    Variant& operator=(const Variant&) = default;
    Variant& operator=(Variant&& other) noexcept
    {
        mType = std::exchange(other.mType, varEmpty);
        mValue = std::move(other.mValue);
        return *this;
    }

    /// The variant that says that there is no value.
    static Variant Null() noexcept { return {varNull, TValue()}; }

    /// The code, with `varArray` for an array.
    Word Type() const noexcept { return mType; }
    bool IsEmpty() const noexcept { return mType == varEmpty; }
    bool IsNull() const noexcept { return mType == varNull; }
    bool IsArray() const noexcept { return (mType & varArray) != 0; }
    /// True for text of both widths.
    bool IsText() const noexcept { return mType == varUString || mType == varString || mType == varOleStr; }
    void Clear() noexcept { *this = Variant(); }

    /// The value as one of another type; `varVariant` stands for any. Empty, Null and arrays are reached from
    /// their own type only.
    Variant AsType(Word type) const;
    Variant& ChangeType(Word type) { return *this = AsType(type); }

    /// The value as a `T`.
    template <VariantTarget T>
    T As() const
    {
        if constexpr (std::same_as<T, bool>) {
            return ToBool();
        } else if constexpr (std::same_as<T, UnicodeString>) {
            return ToText();
        } else if constexpr (std::same_as<T, AnsiString>) {
            return ToAnsiText();
        } else if constexpr (std::same_as<T, TDateTime>) {
            return ToDateTime();
        } else if constexpr (std::same_as<T, Currency>) {
            return ToCurrency();
        } else if constexpr (std::floating_point<T>) {
            return static_cast<T>(ToFloat(CodeOf<T>()));
        } else if constexpr (std::is_signed_v<T>) {
            return static_cast<T>(ToSigned(CodeOf<T>()));
        } else {
            return static_cast<T>(ToUnsigned(CodeOf<T>()));
        }
    }
    /// As `As`. Where a constructor has a choice, as that of `AnsiString`, take `As`.
    template <VariantTarget T>
    operator T() const
    {
        return As<T>();
    }

    // Arrays. An index outside the bounds, another count of indices than dimensions and a variant that is no
    // array raise `Sysutils::EVariantError`. So does an element that would nest arrays deeper than
    // `MaxArrayDepth`; an array counts as deep as it has ever been. Dimensions count from 1.

    static constexpr int MaxArrayDepth = 1000;

    /// An array of up to 64 dimensions, each with its lowest and its highest index; a highest index one below
    /// the lowest leaves it empty. The elements are of any type that a variant has, or `varVariant`.
    static Variant CreateArray(std::span<const int> bounds, Word elementType);
    /// A one-dimensional array of variants, from 0.
    static Variant ArrayOf(std::span<const Variant> values);
    /// 0 if the variant is no array.
    int ArrayDimCount() const noexcept;
    int ArrayLowBound(int dimension = 1) const;
    int ArrayHighBound(int dimension = 1) const;
    /// Changes the highest index of the last dimension; the elements that remain keep their values.
    void ArrayRedim(int highBound);
    template <std::convertible_to<int>... Index>
    Variant GetElement(Index... index) const
    {
        return GetElementAt(std::array<int, sizeof...(Index)>{static_cast<int>(index)...});
    }
    /// `value` is converted to the type of the elements.
    template <std::convertible_to<int>... Index>
    void PutElement(const Variant& value, Index... index)
    {
        PutElementAt(value, std::array<int, sizeof...(Index)>{static_cast<int>(index)...});
    }
    /// As `GetElement` and `PutElement`, with the indices in a row.
    Variant GetElementAt(std::span<const int> indices) const;
    void PutElementAt(const Variant& value, std::span<const int> indices);
    /// The elements of an array of `varByte`, the first index fastest; valid until the variant changes.
    std::span<const Byte> ArrayBytes() const;
    std::span<Byte> ArrayBytes();

    // As the operators. A text grows in place, so that gathering a long one costs no more than its length.

    Variant& operator+=(const Variant& other);
    template <class T>
    Variant& operator-=(const T& other)
    {
        return *this = *this - other;
    }
    template <class T>
    Variant& operator*=(const T& other)
    {
        return *this = *this * other;
    }
    template <class T>
    Variant& operator/=(const T& other)
    {
        return *this = *this / other;
    }

    /// Writes the text in UTF-8; "(Null)" and the like where there is none.
    friend TRS8_BTL_API std::ostream& operator<<(std::ostream& stream, const Variant& value);

    /// The stored form: all integers but unsigned ones of 64 bits are an `Int64` (True is 1), singles and
    /// dates a `double`. It says nothing for Empty and Null.
    using TArray = GSharedBlock<TSharedBlock>;
    using TValue = std::variant<Int64, UInt64, double, Currency, UnicodeString, AnsiString, TArray>;
    const TValue& getValue() const noexcept { return mValue; }

    /// The code of a C++ number.
    template <VariantNumber T>
    static constexpr Word CodeOf() noexcept
    {
        if constexpr (std::floating_point<T>) {
            return std::same_as<T, float> ? varSingle : varDouble;
        } else if constexpr (std::is_signed_v<T> || std::same_as<T, char>) {
            return sizeof(T) == 1   ? varShortInt
                   : sizeof(T) == 2 ? varSmallint
                   : sizeof(T) == 4 ? varInteger
                                    : varInt64;
        } else {
            return sizeof(T) == 1   ? varByte
                   : sizeof(T) == 2 ? varWord
                   : sizeof(T) == 4 ? varLongWord
                                    : varUInt64;
        }
    }

private:
    Variant(Word type, TValue value) noexcept : mType(type), mValue(std::move(value)) {}

    template <class T>
    static constexpr auto Stored(T value) noexcept
    {
        if constexpr (std::floating_point<T>) {
            return static_cast<double>(value);
        } else if constexpr (std::unsigned_integral<T> && sizeof(T) == sizeof(UInt64)) {
            return static_cast<UInt64>(value);
        } else {
            return static_cast<Int64>(value);
        }
    }

    bool ToBool() const;
    Int64 ToSigned(Word type) const;
    UInt64 ToUnsigned(Word type) const;
    double ToFloat(Word type) const;
    Currency ToCurrency() const;
    TDateTime ToDateTime() const;
    UnicodeString ToText() const;
    AnsiString ToAnsiText() const;

    Word mType = varEmpty;
    TValue mValue;
};

namespace Detail
{

template <class T>
concept VariantSource = !std::same_as<T, Variant> && std::is_convertible_v<const T&, Variant>;

template <class A, class B>
concept VariantOperands = (std::same_as<A, Variant> && (std::same_as<B, Variant> || VariantSource<B>)) ||
                          (std::same_as<B, Variant> && VariantSource<A>);

TRS8_BTL_API Variant Add(const Variant& a, const Variant& b);
TRS8_BTL_API Variant Subtract(const Variant& a, const Variant& b);
TRS8_BTL_API Variant Multiply(const Variant& a, const Variant& b);
TRS8_BTL_API Variant Divide(const Variant& a, const Variant& b);
TRS8_BTL_API bool AreEqual(const Variant& a, const Variant& b);
TRS8_BTL_API std::partial_ordering Compare(const Variant& a, const Variant& b);

} // namespace Detail

// Arithmetic. Null makes the result Null. Empty counts as 0, but in a sum with text as the empty text; True
// is -1; text beside another type is read as a float. Whole numbers give a `varInteger`, or a 64-bit integer
// if the result or an operand is wider, and a float beyond that. Floats, and the quotient of whole numbers,
// give a `varDouble`. Money with money or whole numbers gives money, but its quotient by money is a float;
// with a float, sums are money and products floats. A date plus or minus a number is a date, the difference
// of two dates a float. Text that is no number, and arrays, raise `Sysutils::EVariantError`; a divisor of 0
// raises `Sysutils::EDivByZero`, and money out of range `Sysutils::EIntOverflow`.

/// Two texts are joined, to 8-bit text if both are, else to wide text.
template <class A, class B>
requires Detail::VariantOperands<A, B> Variant operator+(const A& a, const B& b)
{
    return Detail::Add(a, b);
}
template <class A, class B>
requires Detail::VariantOperands<A, B> Variant operator-(const A& a, const B& b)
{
    return Detail::Subtract(a, b);
}
template <class A, class B>
requires Detail::VariantOperands<A, B> Variant operator*(const A& a, const B& b)
{
    return Detail::Multiply(a, b);
}
template <class A, class B>
requires Detail::VariantOperands<A, B> Variant operator/(const A& a, const B& b)
{
    return Detail::Divide(a, b);
}
/// As 0 minus the value.
template <std::same_as<Variant> A>
Variant operator-(const A& value)
{
    return Detail::Subtract(0, value);
}

// Comparison raises nothing. Null equals Null and is less than all else. Empty equals 0, False and the empty
// text. Texts compare by the ordinals of their units. A text beside another type is read as that type; if it
// is none, or one value is an array, the two are neither equal nor less nor greater. Arrays are equal if
// their bounds and their elements are.

template <class A, class B>
requires Detail::VariantOperands<A, B>
bool operator==(const A& a, const B& b)
{
    return Detail::AreEqual(a, b);
}
template <class A, class B>
requires Detail::VariantOperands<A, B> std::partial_ordering operator<=>(const A& a, const B& b)
{
    return Detail::Compare(a, b);
}

} // namespace System
