// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/internal/System_VariantValue.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace System::Detail
{

namespace
{

constexpr Int128 MaxInt = std::numeric_limits<int>::max();
constexpr Int128 MinInt = std::numeric_limits<int>::min();
constexpr Int128 MaxInt64 = std::numeric_limits<Int64>::max();
constexpr Int128 MinInt64 = std::numeric_limits<Int64>::min();
constexpr Int128 MaxUInt64 = std::numeric_limits<UInt64>::max();

/// What decides on the type of a result, the stronger one last.
enum TClass
{
    Whole,
    Real,
    Money,
    Date
};

struct TOperand
{
    TVariantNumber number;
    TClass kind = Whole;
    bool isWide = false;
    bool isUnsigned = false;
};

TOperand OperandOf(const Variant& value)
{
    const auto number = TryNumber(value);
    if (!number) {
        if (value.IsText()) {
            ThrowVariantCast(value, varDouble);
        }
        ThrowVariantOperation();
    }
    const Word type = value.Type();
    const bool isUnsigned = type == varUInt64 || type == varDecimal;
    if (value.IsText()) {
        return {ToDouble(*number), Real};
    }
    const TClass kind = type == varDate                             ? Date
                        : std::holds_alternative<Currency>(*number) ? Money
                        : std::holds_alternative<double>(*number)   ? Real
                                                                    : Whole;
    return {*number, kind, isUnsigned || type == varInt64 || type == varLongWord, isUnsigned};
}

Variant WholeResult(Int128 value, bool isWide, bool isUnsigned)
{
    if (!isWide && value >= MinInt && value <= MaxInt) {
        return static_cast<int>(value);
    }
    if (value > MaxUInt64 || value < MinInt64) {
        return static_cast<double>(value);
    }
    return (isUnsigned && value >= 0) || value > MaxInt64 ? Variant(static_cast<UInt64>(value))
                                                          : Variant(static_cast<Int64>(value));
}

Currency ToMoney(const TVariantNumber& number)
{
    if (const auto* money = std::get_if<Currency>(&number)) {
        return *money;
    }
    const auto* whole = std::get_if<Int128>(&number);
    return whole != nullptr ? Currency(static_cast<Extended>(*whole)) : Currency(std::get<double>(number));
}

bool IsTextPair(const Variant& a, const Variant& b)
{
    return (a.IsText() && (b.IsText() || b.IsEmpty())) || (b.IsText() && a.IsEmpty());
}

/// Whether the value is one of the two numbers that most are.
bool IsPlain(const Variant& value)
{
    return value.Type() == varInteger || value.Type() == varDouble;
}

/// What two plain numbers give: `whole` of two integers, whose sums, differences and products fit 64 bits,
/// else `real`.
template <class Whole, class Real>
auto WithPlain(const Variant& a, const Variant& b, Whole whole, Real real)
{
    const auto* const m = std::get_if<Int64>(&a.getValue());
    const auto* const n = std::get_if<Int64>(&b.getValue());
    if (m != nullptr && n != nullptr) {
        return whole(*m, *n);
    }
    return real(m != nullptr ? static_cast<double>(*m) : *std::get_if<double>(&a.getValue()),
                n != nullptr ? static_cast<double>(*n) : *std::get_if<double>(&b.getValue()));
}

Variant PlainResult(Int64 value)
{
    return value >= MinInt && value <= MaxInt ? Variant(static_cast<int>(value)) : Variant(value);
}

/// A sum, a difference or a product.
template <class Operation>
Variant Calculate(const Variant& a, const Variant& b, Operation operation)
{
    if (IsPlain(a) && IsPlain(b)) {
        return WithPlain(
            a, b, [&](Int64 m, Int64 n) { return PlainResult(operation(m, n)); },
            [&](double x, double y) { return Variant(operation(x, y)); });
    }
    constexpr bool isProduct = std::is_same_v<Operation, std::multiplies<>>;
    if (a.IsNull() || b.IsNull()) {
        return Variant::Null();
    }
    const TOperand x = OperandOf(a);
    const TOperand y = OperandOf(b);
    const TClass kind = std::max(x.kind, y.kind);
    const bool isMoney = kind == Money && !(isProduct && std::min(x.kind, y.kind) == Real);
    if (isMoney) {
        return operation(ToMoney(x.number), ToMoney(y.number));
    }
    if (kind != Whole) {
        const double result = operation(ToDouble(x.number), ToDouble(y.number));
        constexpr bool isDifference = std::is_same_v<Operation, std::minus<>>;
        const bool isDate = kind == Date && !isProduct && !(isDifference && x.kind == y.kind);
        return isDate ? Variant(TDateTime(result)) : Variant(result);
    }
    const Int128 m = std::get<Int128>(x.number);
    const Int128 n = std::get<Int128>(y.number);
    // The one case that 128 bits can't hold.
    if (isProduct && m > MaxInt64 && n > MaxInt64) {
        return static_cast<double>(m) * static_cast<double>(n);
    }
    return WholeResult(operation(m, n), x.isWide || y.isWide, x.isUnsigned || y.isUnsigned);
}

} // namespace

Variant Add(const Variant& a, const Variant& b)
{
    if (!IsTextPair(a, b)) {
        return Calculate(a, b, std::plus<>());
    }
    const bool narrow = (a.Type() == varString || a.IsEmpty()) && (b.Type() == varString || b.IsEmpty());
    return narrow ? Variant(a.As<AnsiString>() + b.As<AnsiString>())
                  : Variant(a.As<UnicodeString>() + b.As<UnicodeString>());
}

Variant Subtract(const Variant& a, const Variant& b)
{
    return Calculate(a, b, std::minus<>());
}

Variant Multiply(const Variant& a, const Variant& b)
{
    return Calculate(a, b, std::multiplies<>());
}

Variant Divide(const Variant& a, const Variant& b)
{
    if (a.IsNull() || b.IsNull()) {
        return Variant::Null();
    }
    const TOperand x = OperandOf(a);
    const TOperand y = OperandOf(b);
    if (ToDouble(y.number) == 0) {
        throw Sysutils::EDivByZero(UnicodeString(u"Division by zero"));
    }
    if (x.kind == Money && y.kind == Whole) {
        return ToMoney(x.number) / ToMoney(y.number);
    }
    return ToDouble(x.number) / ToDouble(y.number);
}

namespace
{

constexpr std::partial_ordering Ordered(const auto& a, const auto& b)
{
    return a < b    ? std::partial_ordering::less
           : b < a  ? std::partial_ordering::greater
           : a == b ? std::partial_ordering::equivalent
                    : std::partial_ordering::unordered;
}

/// Ten-thousandths, for numbers that have no more decimals.
Int128 UnitsOf(const TVariantNumber& number)
{
    const auto* money = std::get_if<Currency>(&number);
    return money != nullptr ? money->Val : std::get<Int128>(number) * Currency::Scale;
}

Extended ToExtended(const TVariantNumber& number)
{
    const auto* whole = std::get_if<Int128>(&number);
    return whole != nullptr ? static_cast<Extended>(*whole) : ToDouble(number);
}

std::partial_ordering CompareNumbers(const TVariantNumber& a, const TVariantNumber& b)
{
    const bool isExact = !std::holds_alternative<double>(a) && !std::holds_alternative<double>(b);
    return isExact ? Ordered(UnitsOf(a), UnitsOf(b)) : Ordered(ToExtended(a), ToExtended(b));
}

template <class T>
std::partial_ordering CompareIfBoth(const std::optional<T>& a, const std::optional<T>& b)
{
    return a && b ? Ordered(*a, *b) : std::partial_ordering::unordered;
}

std::partial_ordering CompareTexts(const Variant& a, const Variant& b)
{
    return Ordered(a.As<UnicodeString>(), b.As<UnicodeString>());
}

/// True if one is of `type` and the other is that or text.
bool AreOf(Word type, const Variant& a, const Variant& b)
{
    return (a.Type() == type && (b.Type() == type || b.IsText())) || (b.Type() == type && a.IsText());
}

} // namespace

std::partial_ordering Compare(const Variant& a, const Variant& b)
{
    if (IsPlain(a) && IsPlain(b)) {
        return WithPlain(
            a, b, [](Int64 m, Int64 n) -> std::partial_ordering { return m <=> n; },
            [](double x, double y) { return x <=> y; });
    }
    if (a.IsNull() || b.IsNull()) {
        return Ordered(!a.IsNull(), !b.IsNull());
    }
    if (a.IsArray() || b.IsArray()) {
        return AreArraysEqual(a, b, AreEqual) ? std::partial_ordering::equivalent
                                              : std::partial_ordering::unordered;
    }
    if (IsTextPair(a, b)) {
        return CompareTexts(a, b);
    }
    if (AreOf(varBoolean, a, b)) {
        return CompareIfBoth(TryBool(a), TryBool(b));
    }
    if (AreOf(varDate, a, b)) {
        return CompareIfBoth(TryDate(a), TryDate(b));
    }
    const auto x = TryNumber(a);
    const auto y = TryNumber(b);
    return x && y ? CompareNumbers(*x, *y) : std::partial_ordering::unordered;
}

bool AreEqual(const Variant& a, const Variant& b)
{
    return std::is_eq(Compare(a, b));
}

} // namespace System::Detail

namespace System
{

Variant& Variant::operator+=(const Variant& other)
{
    if (IsText() && Detail::IsTextPair(*this, other)) {
        auto* narrow = std::get_if<AnsiString>(&mValue);
        if (narrow != nullptr && (other.Type() == varString || other.IsEmpty())) {
            *narrow += other.As<AnsiString>();
            return *this;
        }
        if (auto* wide = std::get_if<UnicodeString>(&mValue)) {
            *wide += other.As<UnicodeString>();
            mType = varUString;
            return *this;
        }
    }
    return *this = *this + other;
}

} // namespace System
