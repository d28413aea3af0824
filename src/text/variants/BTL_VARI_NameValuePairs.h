// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

#include <concepts>
#include <initializer_list>
#include <type_traits>
#include <vector>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

/// A value and its name.
struct TNameValuePair
{
    System::UnicodeString name;
    System::Variant value;
};

namespace Detail
{

/// The C++ values whose own variant type has no form in SQL.
template <class T>
concept ValueWithoutSqlType = std::same_as<T, bool> || std::same_as<T, char> ||
    std::same_as<T, System::WideChar> ||
    (System::TextInteger<T> &&
     (sizeof(T) == 1 || (std::is_unsigned_v<T> && sizeof(T) < sizeof(System::Int64))));

/// `value` as one that has such a form.
template <ValueWithoutSqlType T>
System::Variant WithSqlType(T value)
{
    if constexpr (System::TextInteger<T>) {
        return System::Variant(static_cast<System::Int64>(value));
    } else if constexpr (std::same_as<T, bool>) {
        return System::Variant(value ? 1 : 0);
    } else {
        return System::Variant(System::UnicodeString(value));
    }
}

/// A pair in braces, with a value of a kind that SQL takes.
struct TPairForSql : TNameValuePair
{
    TPairForSql(const System::UnicodeString& pairName, const System::Variant& pairValue)
        : TNameValuePair{pairName, pairValue}
    {
    }
    template <ValueWithoutSqlType T>
    TPairForSql(const System::UnicodeString& pairName, T pairValue)
        : TNameValuePair{pairName, WithSqlType(pairValue)}
    {
    }
};

} // namespace Detail

/// Values with names, in the order they were added; names may repeat.
///
///     BTL::CNameValuePairs values{{u"name", u"it's"}};
///     values.Add(u"state", 1.5);
///     const auto sql = u"UPDATE t SET " + values.GetSqlUpdateAssign(); // name='it''s',state=1.5
class TRS8_BTL_API CNameValuePairs : public std::vector<TNameValuePair>
{
public:
    CNameValuePairs() = default;
    /// Each pair as `Add` takes it.
    CNameValuePairs(std::initializer_list<Detail::TPairForSql> pairs)
        : std::vector<TNameValuePair>(pairs.begin(), pairs.end())
    {
    }

    /// Appends an entry, also where one of this name is there.
    void Add(const System::UnicodeString& name, const System::Variant& value);
    /// As `Add` of a variant, but of a kind that SQL takes: 1 or 0 for a `bool`, a text for a character, an
    /// `Int64` for the other small and unsigned integers.
    template <Detail::ValueWithoutSqlType T>
    void Add(const System::UnicodeString& name, T value)
    {
        Add(name, Detail::WithSqlType(value));
    }
    /// Makes this the only entry.
    void Assign(const System::UnicodeString& name, const System::Variant& value);
    /// As `Assign` of a variant, with the value as `Add` takes it.
    template <Detail::ValueWithoutSqlType T>
    void Assign(const System::UnicodeString& name, T value)
    {
        Assign(name, Detail::WithSqlType(value));
    }

    /// A line `name=value` for each entry, the values and failures as of `VarToSqlValue`; names stand as they
    /// are. Null does nothing.
    void AddSqlUpdateAssignTo(Classes::TStrings* strings) const;
    /// The lines of `AddSqlUpdateAssignTo` with commas between, for the `SET` of an SQL statement.
    System::UnicodeString GetSqlUpdateAssign() const;

    /// The entries as a comma text for a log.
    System::UnicodeString _getDebugInfo() const;
};

} // namespace BTL
