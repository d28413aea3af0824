// SPDX-License-Identifier: MIT
#include "foundation/UTL_CVariants.h"

#include "foundation/UTL_Links.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Memory.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/runtime/variants/internal/System_VariantValue.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace UTL
{

using System::UnicodeString;
using System::Variant;
using System::WideChar;

namespace
{

template <class T>
void Append(std::vector<CVariant>& target, const T* items, unsigned count)
{
    if (items != nullptr) {
        target.insert(target.end(), items, items + count);
    }
}

bool ReadFloat(const UnicodeString& text, double& value)
{
    constexpr WideChar point = u'.';
    const auto read = Links().ToDouble;
    return read != nullptr ? read(text.AsView(), point, value)
                           : Sysutils::BufferToFloat(text.AsView(), point, value);
}

} // namespace

CVariants::CVariants(unsigned capacity)
{
    if (capacity > 0) {
        System::WithMemory(u"There is no memory for the items of a list.",
                           [&] { OwnItems().reserve(capacity); });
    }
}

CVariants::CVariants(std::initializer_list<CVariant> items)
{
    OwnItems() = items;
    for (const CVariant& item : items) {
        mDepth = std::max(mDepth, DepthAround(item));
    }
}

CVariants& CVariants::operator<<(CVariant item)
{
    const int depth = DepthAround(item);
    OwnItems().push_back(std::move(item));
    mDepth = std::max(mDepth, depth);
    return *this;
}

void CVariants::AddItems(const int* items, unsigned count)
{
    Append(OwnItems(), items, count);
}

void CVariants::AddItems(const double* items, unsigned count)
{
    Append(OwnItems(), items, count);
}

/// Turns arrays into lists, each of them once: one that holds another one twice, which holds a third one
/// twice and so on would take twice the time and memory with each level.
class CVariants::CFromVariant
{
public:
    CVariants ListOf(const Variant& array)
    {
        const int low = array.ArrayLowBound();
        const int high = array.ArrayHighBound();
        CVariants list(static_cast<unsigned>(System::Int64{high} - low + 1));
        for (System::Int64 i = low; i <= high; ++i) {
            const Variant element = array.GetElement(static_cast<int>(i));
            list << (element.IsArray() ? KnownList(element) : CVariant(element));
        }
        return list;
    }

private:
    CVariant KnownList(const Variant& array)
    {
        const void* const identity = System::Detail::ArrayIdentity(array);
        if (const auto found = mKnown.find(identity); found != mKnown.end()) {
            return found->second;
        }
        CVariant list;
        list.CreateArray();
        *list.getData().Array = ListOf(array);
        return mKnown.emplace(identity, std::move(list)).first->second;
    }

    std::map<const void*, CVariant> mKnown;
};

/// The opposite of `CFromVariant`, for lists that share their items.
class CVariants::CToVariant
{
public:
    Variant ArrayOf(const CVariants& list)
    {
        std::vector<Variant> values;
        values.reserve(list.size());
        for (const CVariant& item : list) {
            values.push_back(item.Type() == vdtArray ? KnownArray(*item.getData().Array) : item.ToVariant());
        }
        return Variants::VarArrayOf(values);
    }

private:
    Variant KnownArray(const CVariants& list)
    {
        if (list.empty()) {
            return ArrayOf(list);
        }
        const TItems* const identity = list.mItems.get();
        if (const auto found = mKnown.find(identity); found != mKnown.end()) {
            return found->second;
        }
        return mKnown.emplace(identity, ArrayOf(list)).first->second;
    }

    std::map<const TItems*, Variant> mKnown;
};

void CVariants::AddItems(const Variant& items)
{
    if (!items.IsArray()) {
        *this << items;
        return;
    }
    CVariants added = CFromVariant().ListOf(items);
    if (added.empty()) {
        return;
    }
    const int depth = std::max(mDepth, added.mDepth);
    if (empty()) {
        *this = std::move(added);
    } else {
        std::vector<CVariant>& own = OwnItems();
        own.insert(own.end(), std::make_move_iterator(added.mItems->list.begin()),
                   std::make_move_iterator(added.mItems->list.end()));
    }
    mDepth = depth;
}

void CVariants::SetItems(const Variant& items)
{
    CVariants list;
    list.AddItems(items);
    *this = std::move(list);
}

void CVariants::GetItems(Variant& result) const
{
    result = ToVariant();
}

Variant CVariants::ToVariant() const
{
    return CToVariant().ArrayOf(*this);
}

void CVariants::setItem(int index, CVariant value)
{
    At(index);
    const int depth = DepthAround(value);
    OwnItems()[static_cast<std::size_t>(index)] = std::move(value);
    mDepth = std::max(mDepth, depth);
}

void CVariants::WriteTo(BTL::COutStream& stream) const
{
    const auto write = Links().Write;
    if (write == nullptr) {
        return;
    }
    write(stream, "[");
    for (const CVariant& item : *this) {
        if (&item != &*begin()) {
            write(stream, ",");
        }
        item.WriteTo(stream);
    }
    write(stream, "]");
}

UnicodeString CVariants::get_DebugInfo() const
{
    UnicodeString text = u"[" + UnicodeString(GetCount()) + u"]";
    for (const CVariant& item : *this) {
        text += u"; ";
        text += item.ToStringDef(u"?");
    }
    return text;
}

const CVariant& CVariants::At(int index) const
{
    if (index < 0 || index >= GetCount()) {
        throw Sysutils::ERangeError(u"Index out of range: " + UnicodeString(index));
    }
    return mItems->list[static_cast<std::size_t>(index)];
}

std::vector<CVariant>& CVariants::OwnItems()
{
    if (!mItems.IsUnique()) {
        System::GSharedBlock<TItems> own(new TItems);
        if (mItems) {
            own->list = mItems->list;
        }
        mItems = std::move(own);
    }
    return mItems->list;
}

int CVariants::DepthAround(const CVariant& item)
{
    const CVariants* inner = item.Type() == vdtArray ? item.getData().Array : nullptr;
    const int depth = inner != nullptr ? inner->mDepth + 1 : 1;
    if (depth > MaxDepth) {
        throw Sysutils::EVariantError(u"Variant arrays are nested too deeply");
    }
    return depth;
}

void CommaTextToVariants(const UnicodeString& text, CVariants& result)
{
    Classes::TStringList parts;
    parts.setCommaText(text);
    CVariants items(static_cast<unsigned>(parts.getCount()));
    for (int i = 0; i < parts.getCount(); ++i) {
        const UnicodeString part = parts.getStrings(i);
        double value = 0;
        items << (ReadFloat(part, value) ? CVariant(value) : CVariant(part));
    }
    result = std::move(items);
}

} // namespace UTL
