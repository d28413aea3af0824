// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_CVariant.h"
#include "platform/base/System_SharedBlock.h"

#include <initializer_list>
#include <vector>

namespace UTL
{

/// A list of variants, and what a variant of the array type holds. Copies share their items until one of them
/// changes. A call that raises leaves the list as it was. An item that would nest lists deeper than
/// `MaxDepth` raises `Sysutils::EVariantError`; a list counts as deep as it has been since it was last set as
/// a whole.
///
///     UTL::CVariants row{1, 2.5, u"text"};
///     row << true;
///     for (const UTL::CVariant& item : row) { ... }
class TRS8_BTL_API CVariants
{
public:
    static constexpr int MaxDepth = System::Variant::MaxArrayDepth;

    /// Empty.
    CVariants() = default;
    /// Empty, with room for `capacity` items. `Sysutils::EOutOfMemory` if the memory isn't there.
    explicit CVariants(unsigned capacity);
    /// Braces hold items: `CVariants{5}` has the one item 5, `CVariants(5)` room for five.
    CVariants(std::initializer_list<CVariant> items);
    /// A null pointer gives no items.
    CVariants(const int* items, unsigned count) { AddItems(items, count); }
    CVariants(const double* items, unsigned count) { AddItems(items, count); }

    /// Appends all that a variant is made of.
    CVariants& operator<<(CVariant item);

    /// Appends each item. A null pointer adds nothing.
    void AddItems(const int* items, unsigned count);
    void AddItems(const double* items, unsigned count);
    /// Appends each element of an array of one dimension, or the value that is no array.
    /// `Sysutils::EVariantError` for more dimensions and for values that no `CVariant` takes.
    void AddItems(const System::Variant& items);
    /// As `AddItems`, in place of the former items.
    void SetItems(const int* items, unsigned count) { *this = CVariants(items, count); }
    void SetItems(const double* items, unsigned count) { *this = CVariants(items, count); }
    void SetItems(const System::Variant& items);

    /// Gives an array of `varVariant` from 0.
    void GetItems(System::Variant& result) const;
    System::Variant ToVariant() const;

    /// How many items there are, those inside an item not counted.
    int GetCount() const noexcept { return static_cast<int>(size()); }

    // The items as a range, valid until the list changes. `setItem` changes an item.

    std::vector<CVariant>::const_iterator begin() const noexcept
    {
        return mItems ? mItems->list.cbegin() : std::vector<CVariant>::const_iterator();
    }
    std::vector<CVariant>::const_iterator end() const noexcept
    {
        return mItems ? mItems->list.cend() : std::vector<CVariant>::const_iterator();
    }
    std::size_t size() const noexcept { return mItems ? mItems->list.size() : 0; }
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }
    /// A copy of an item. `Sysutils::ERangeError` for an `index` outside.
    CVariant getItem(int index) const { return At(index); }
    /// The item itself, valid until the list changes; fails alike.
    const CVariant& At(int index) const;
    void setItem(int index, CVariant value);

    /// Writes the items, each by its own `WriteTo`, with commas between and in brackets.
    void WriteTo(BTL::COutStream& stream) const;
    /// The count in brackets, and "; " before the text of each item; "?" for one without.
    System::UnicodeString get_DebugInfo() const;

private:
    struct TItems : System::TSharedBlock
    {
        std::vector<CVariant> list;
    };
    class CToVariant;
    class CFromVariant;

    /// How deep a list is that holds `item`.
    static int DepthAround(const CVariant& item);
    /// The items for writing: the list parts from all others that hold them.
    std::vector<CVariant>& OwnItems();

    System::GSharedBlock<TItems> mItems;
    int mDepth = 1;
};

/// Splits a comma text, as `Classes::TStrings` reads it, into the items of `result`: a double for each part
/// that is a float with `.` or `,` in the sense of `BTL::IsDouble`, else wide text. The locale doesn't
/// matter.
TRS8_BTL_API void CommaTextToVariants(const System::UnicodeString& text, CVariants& result);

} // namespace UTL
