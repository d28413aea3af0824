// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

#include <concepts>
#include <initializer_list>
#include <vector>

namespace UTL
{
class CVariants;
} // namespace UTL

namespace BTL
{

/// A list of the platform's variants.
///
///     BTL::CVariants values{1, 2.5, u"abc"};       // an `int`, a `double`, a text
///     values.push_back(u"a b");
///     const auto text = values.getCommaText();     // "1,2.5,abc,\"a b\""
class TRS8_BTL_API CVariants : public std::vector<System::Variant>
{
public:
    CVariants() = default;
    /// Braces hold entries: `CVariants{5U}` has the one entry 5, `CVariants(5U)` room for five.
    CVariants(std::initializer_list<System::Variant> entries) : std::vector<System::Variant>(entries) {}
    CVariants(const UTL::CVariants& items) { Assign(items); }
    /// Empty, with room for `count` entries. `Sysutils::EOutOfMemory` if the memory isn't there.
    explicit CVariants(unsigned count);
    CVariants& operator=(const UTL::CVariants& items);
    CVariants& operator=(std::initializer_list<System::Variant> entries)
    {
        assign(entries);
        return *this;
    }

    /// Takes the values in place of the entries.
    void Assign(const UTL::CVariants& items);
    /// Appends the entries to `items`. `Sysutils::EVariantError` for one that no `UTL::CVariant` takes, which
    /// leaves `items` alone.
    void AddVariantsTo(UTL::CVariants& items) const;
    /// As `AddVariantsTo`, but in place of the former items.
    void GetVariants(UTL::CVariants& items) const;

    /// Takes each element of an array of one dimension, or the value that is no array, in place of the
    /// entries. `Sysutils::EVariantError` for more dimensions, which leaves the entries alone.
    void AssignArray(const System::Variant& value);
    /// An array of variants, from 0.
    System::Variant getVarArray() const;
    /// `Sysutils::ERangeError` for an `index` outside.
    void setItem(int index, const System::Variant& value);

    /// By `Variants::VarSameValue`.
    bool operator==(const CVariants& other) const;
    // By the first pair that differs, else by the count. Of two that can't be compared none is less.

    bool operator<(const CVariants& other) const;
    bool operator>(const CVariants& other) const { return other < *this; }
    bool operator<=(const CVariants& other) const { return *this < other || *this == other; }
    bool operator>=(const CVariants& other) const { return other <= *this; }
    /// True for one entry with that value.
    bool operator==(const System::Variant& value) const;
    /// Beside an `int` itself, the entry counts as one.
    template <std::same_as<int> T>
    bool operator==(T value) const
    {
        return EqualsInt(value);
    }
    /// By the first entry; an empty list is less than any value.
    bool operator<(const System::Variant& value) const;
    /// Beside an `int` itself, the entry counts as one; what is no number isn't less.
    template <std::same_as<int> T>
    bool operator<(T value) const
    {
        return IsBelowInt(value);
    }

    /// The texts of `VarToStrDef` as a comma text; empty where there is none.
    System::UnicodeString getCommaText() const;
    /// Takes what `StringToBestVariant` makes of each item in place of the entries.
    void setCommaText(const System::UnicodeString& text);
    /// The texts for a log, ";" between; "?" for an array.
    System::UnicodeString _getDebugInfo() const;

private:
    bool EqualsInt(int value) const;
    bool IsBelowInt(int value) const;
};

} // namespace BTL
