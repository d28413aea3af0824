// SPDX-License-Identifier: MIT
#include "foundation/UTL_CVariants.h"

#include "foundation/UTL_Links.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/variants/Variants.h"

#include <algorithm>
#include <iterator>

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

CVariants::CVariants(std::initializer_list<CVariant> items) : mItems(items)
{
    for (const CVariant& item : mItems) {
        mDepth = std::max(mDepth, DepthAround(item));
    }
}

CVariants& CVariants::operator<<(CVariant item)
{
    const int depth = DepthAround(item);
    mItems.push_back(std::move(item));
    mDepth = std::max(mDepth, depth);
    return *this;
}

void CVariants::AddItems(const int* items, unsigned count)
{
    Append(mItems, items, count);
}

void CVariants::AddItems(const double* items, unsigned count)
{
    Append(mItems, items, count);
}

void CVariants::AddItems(const Variant& items)
{
    if (!items.IsArray()) {
        *this << items;
        return;
    }
    const int low = items.ArrayLowBound();
    const int high = items.ArrayHighBound();
    CVariants added(static_cast<unsigned>(System::Int64{high} - low + 1));
    for (System::Int64 i = low; i <= high; ++i) {
        added << items.GetElement(static_cast<int>(i));
    }
    mItems.insert(mItems.end(), std::make_move_iterator(added.mItems.begin()),
                  std::make_move_iterator(added.mItems.end()));
    mDepth = std::max(mDepth, added.mDepth);
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
    Variant result = Variants::VarArrayCreate({0, GetCount() - 1}, System::varVariant);
    for (int i = 0; i < GetCount(); ++i) {
        result.PutElement(At(i).ToVariant(), i);
    }
    return result;
}

void CVariants::setItem(int index, CVariant value)
{
    At(index);
    const int depth = DepthAround(value);
    mItems[static_cast<std::size_t>(index)] = std::move(value);
    mDepth = std::max(mDepth, depth);
}

void CVariants::WriteTo(BTL::COutStream& stream) const
{
    const auto write = Links().Write;
    if (write == nullptr) {
        return;
    }
    write(stream, "[");
    for (const CVariant& item : mItems) {
        if (&item != mItems.data()) {
            write(stream, ",");
        }
        item.WriteTo(stream);
    }
    write(stream, "]");
}

UnicodeString CVariants::get_DebugInfo() const
{
    UnicodeString text = u"[" + UnicodeString(GetCount()) + u"]";
    for (const CVariant& item : mItems) {
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
    return mItems[static_cast<std::size_t>(index)];
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
